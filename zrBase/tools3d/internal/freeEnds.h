#ifndef ZRBASE_TOOLS3D_INTERNAL_FREEENDS_H
#define ZRBASE_TOOLS3D_INTERNAL_FREEENDS_H

#include <zrBase/geometry/gdfVertex.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace zr3DTools::internal {

/// Items with two ends each, segments or whole lines, of which some are used up. Finds the free
/// ones that have an end within a strict tolerance of a vertex (gdfVertex::equal).
///
/// The ends lie in the cells of a uniform grid, each four tolerances wide; the cells lie in a hash
/// table, whose order no result depends on. Cell numbers are doubles, so that no coordinate is too
/// large for them.
///
/// Why no match is missed: rounding keeps the order of numbers. From o - q < t, computed, follows
/// the same of the exact numbers, since t is itself a double; so o < q + t, and o is at most the
/// computed q + t, likewise at least the computed q - t. The number of a cell grows with the
/// coordinate as computed, so that o lies in one of the cells from that of q - t to that of q + t.
class FreeEnds {
 public:
  static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

  /// Refers to the lists, which are of one length and have to stay.
  FreeEnds(const VertexLine& firstEnds, const VertexLine& secondEnds, double tolerance);

  bool isFree(std::size_t item) const { return !isUsed_[item]; }
  /// Uses an item up: it is not found any more.
  void use(std::size_t item) { isUsed_[item] = true; }
  /// Lowest free item, `none` when there is none.
  std::size_t lowest();
  /// Lowest free item with an end that matches v, `none` when there is none.
  std::size_t lowestAt(const gdfVertex& v);

  /// Calls visit(item, whether it is the first end) for each end of a free item that may match v:
  /// a cell after the other, in ascending order within one, which visit leaves by a false.
  template <class Visit>
  void visitNear(const gdfVertex& v, Visit visit) {
    forEachBucketNear(v, [&](Bucket& bucket) {
      std::size_t* link = &bucket.head;
      while (*link != none) {
        std::size_t& next = next_[*link];
        if (isUsed_[*link / 2]) {
          *link = next;
          continue;
        }
        if (!visit(*link / 2, *link % 2 == 0)) return;
        link = &next;
      }
    });
  }

  /// At most so many ends does visitNear visit.
  std::size_t crowdNear(const gdfVertex& v) {
    std::size_t crowd = 0;
    forEachBucketNear(v, [&crowd](const Bucket& bucket) { crowd += bucket.size; });
    return crowd;
  }

 private:
  /// Ends of one or more cells, as a list in ascending order: 2 i and 2 i + 1 are the ends of i.
  struct Bucket {
    std::size_t head = none;
    std::size_t size = 0;
  };

  void insert(std::size_t end, const gdfVertex& v);

  static double finite(double value) {
    constexpr double largest = std::numeric_limits<double>::max();
    return std::clamp(value, -largest, largest);
  }
  /// Half a cell is added so that 0, the height of many lines, lies within a cell.
  double cellOf(double coordinate) const {
    return finite(std::floor(coordinate * cellsPerUnit_ + 0.5));
  }
  static double cellAfter(double cell) {
    return cell + 1.0 > cell ? cell + 1.0 : std::nextafter(cell, HUGE_VAL);
  }
  Bucket& bucketOf(double cellX, double cellY, double cellZ) {
    std::uint64_t hash = 0;
    for (double cell : {cellX, cellY, cellZ}) {
      std::uint64_t bits = 0;
      std::memcpy(&bits, &cell, sizeof bits);
      hash = (hash ^ bits) * 0x9e3779b97f4a7c15u;
      hash ^= hash >> 32;
    }
    return buckets_[static_cast<std::size_t>(hash) & (buckets_.size() - 1)];
  }

  struct Cells {
    double low;
    double high;
  };
  Cells cellsNear(double coordinate) const {
    return {cellOf(finite(coordinate - tolerance_)), cellOf(finite(coordinate + tolerance_))};
  }

  template <class Visit>
  void forEachBucketNear(const gdfVertex& v, Visit visit) {
    // Nothing matches a NaN or an infinity, nor anything without a tolerance.
    if (buckets_.empty() || !v.valid()) return;
    const Cells x = cellsNear(v.x());
    const Cells y = cellsNear(v.y());
    const Cells z = cellsNear(v.z());
    for (double cellX = x.low; cellX <= x.high; cellX = cellAfter(cellX)) {
      for (double cellY = y.low; cellY <= y.high; cellY = cellAfter(cellY)) {
        for (double cellZ = z.low; cellZ <= z.high; cellZ = cellAfter(cellZ)) {
          visit(bucketOf(cellX, cellY, cellZ));
        }
      }
    }
  }

  const VertexLine& firstEnds_;
  const VertexLine& secondEnds_;
  double tolerance_;
  double cellsPerUnit_ = 0.0;
  std::vector<Bucket> buckets_;
  std::vector<std::size_t> next_;
  std::vector<char> isUsed_;
  std::size_t lowest_ = 0;
};

}  // namespace zr3DTools::internal

#endif  // ZRBASE_TOOLS3D_INTERNAL_FREEENDS_H
