#ifndef ZRBASE_TOOLS3D_INTERNAL_NEARESTENDS_H
#define ZRBASE_TOOLS3D_INTERNAL_NEARESTENDS_H

#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <limits>
#include <vector>

namespace zr3DTools::internal {

/// Ends of lines, by number, of which the nearest to a vertex is sought while they are taken out
/// one by one: a k-d tree (Bentley, 1975) that knows the lowest number left in each of its boxes.
///
/// The squared distance to a box is computed as that to a vertex is, and rounding keeps the order
/// of numbers: it never exceeds the squared distance, as computed, to a vertex within the box. So
/// what a search leaves out can neither be nearer nor, at the same distance, have a lower number.
class NearestEnds {
 public:
  /// An end and its squared distance (gdfVertex::distance2).
  struct Hit {
    double squaredDistance = gdfInternal::unset;
    std::size_t end = 0;

    /// Nearer, or as near with a lower number. As it starts out, nothing: only what is nearer than
    /// the mark of a distance that is not set comes before it.
    bool operator<(const Hit& o) const {
      return squaredDistance < o.squaredDistance ||
             (squaredDistance == o.squaredDistance && end < o.end);
    }
    bool isFound() const { return squaredDistance < gdfInternal::unset; }
  };

  /// Ends at a NaN or an infinity are left out: they are at no distance that counts.
  void add(std::size_t end, const gdfVertex& v);
  /// To be called once, after the last add.
  void build();
  /// Takes an end out; nothing happens where it is not in.
  void remove(std::size_t end);
  /// Whether the end is in.
  bool contains(std::size_t end) const;
  /// The first, in the order of Hit, of those that are in.
  Hit nearest(const gdfVertex& v) const;

 private:
  static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
  static constexpr std::size_t leafSize = 8;

  struct Entry {
    gdfVertex v;
    std::size_t end;
    bool isIn;
  };
  /// A box around the entries from `begin` up to, not including, `finish`. Its second child follows
  /// somewhere, its first child directly; a leaf has none.
  struct Node {
    gdfVertex low;
    gdfVertex high;
    std::size_t begin;
    std::size_t finish;
    std::size_t parent;
    std::size_t second = none;
    std::size_t lowestEnd = none;
  };

  std::size_t buildNode(std::size_t begin, std::size_t finish, std::size_t parent);
  void updateLowest(std::size_t node);
  Hit bound(std::size_t node, const gdfVertex& v) const;
  void search(std::size_t node, const gdfVertex& v, Hit& best) const;

  std::vector<Entry> entries_;
  std::vector<Node> nodes_;
  std::vector<std::size_t> slotOfEnd_;
  std::vector<std::size_t> leafOfSlot_;
};

}  // namespace zr3DTools::internal

#endif  // ZRBASE_TOOLS3D_INTERNAL_NEARESTENDS_H
