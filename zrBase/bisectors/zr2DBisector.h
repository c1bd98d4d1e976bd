#ifndef ZRBASE_BISECTORS_ZR2DBISECTOR_H
#define ZRBASE_BISECTORS_ZR2DBISECTOR_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

#include <cstdint>

/// One segment of a bisector chain: a line from a base to a top that divides the space on one side
/// of a template line between two template segments.
///
/// Template segment k runs from template vertex k to vertex k + 1, and a domain is the region of a
/// side that belongs to one such segment. All links are indices, into the chain that holds the
/// record or into the template line, so that chains can be copied and rebuilt. Indices are trusted,
/// not tested.
///
///                  top
///      leftDomain   |   rightDomain
///                   |
///      ------------base------------>   template line
///
class ZRBASE_EXPORT zr2DBisector {
 public:
  /// A merged bisector at the origin, without connections, domains or direction.
  zr2DBisector() = default;
  /// A deep copy, with its own connections.
  zr2DBisector(const zr2DBisector& other);
  /// Takes the other's values; the other keeps no connections.
  zr2DBisector(zr2DBisector&& other) noexcept;
  /// A deep copy, with its own connections.
  zr2DBisector& operator=(const zr2DBisector& other);
  /// Takes the other's values; the other keeps no connections.
  zr2DBisector& operator=(zr2DBisector&& other) noexcept;
  /// As free().
  ~zr2DBisector() { free(); }

  /// Releases the base connections and sets their number to 0.
  void free() {
    if (noBaseConnections_ > connectionsInRecord) delete[] connections_.array;
    noBaseConnections_ = 0;
  }
  /// Appends a base connection.
  void addBaseConnection(int connection) {
    if (noBaseConnections_ < connectionsInRecord) {
      connections_.inRecord[noBaseConnections_++] = connection;
    } else {
      lengthenArray(connection);
    }
  }
  /// Base connection i, from 0 to getNoBaseConnections() - 1; i is not tested.
  /// For a root bisector the one entry is the index of its template vertex; for a merged one the
  /// entries are the chain indices of the bisectors that end at its base.
  int getBaseConnection(int i) const {
    return noBaseConnections_ > connectionsInRecord ? connections_.array[i]
                                                    : connections_.inRecord[i];
  }
  /// Number of base connections.
  int getNoBaseConnections() const { return noBaseConnections_; }

  /// Lower end. For a root bisector, the template vertex.
  gdfVertex getBase() const { return base_; }
  /// Upper end. While the bisector is open (top connection -1) it only marks the direction, base
  /// plus normal, until zr2DBisectorSet::expandBisectors pushes it out.
  gdfVertex getTop() const { return top_; }
  /// top - base, not normalised.
  gdfVertex getVector() const { return top_ - base_; }
  /// top - base, normalised: the zero vector for a length up to 1e-05.
  gdfVertex getNormalisedVector() const {
    gdfVertex vector = getVector();
    vector.normalise();
    return vector;
  }
  /// Unit direction from base towards top, as stored.
  const gdfVertex& getNormalVector() const { return normal_; }
  /// Far end along the real normal, of an FBF chain (zr2DBisectorSet::generateRootFBF_Bisectors).
  const gdfVertex& getRealTop() const { return realTop_; }
  /// Direction of the unmirrored bisector in an FBF chain, as it is; zero in an ordinary chain.
  const gdfVertex& getRealNormal() const { return realNormal_; }
  /// The real normal, or the normal where the real one's length is exactly 0. A NaN length keeps
  /// the real normal.
  const gdfVertex& getRealNormalisedVector() const {
    return realNormal_.length() == 0.0 ? normal_ : realNormal_;
  }

  /// 0 merged (made where two bisectors meet), 1 root (made at a template vertex), 5 retired (cut
  /// out of the chain).
  short getType() const { return type_; }
  /// Template segment on the side of the template's start, or -1.
  int getLeftDomain() const { return leftDomain_; }
  /// Template segment on the side of the template's end, or -1.
  int getRightDomain() const { return rightDomain_; }
  /// Chain index of the bisector whose base is this top, or -1 when this one is open.
  int getTopConnect() const { return topConnect_; }

  /// Sets the lower end.
  void setBase(const gdfVertex& base) { base_ = base; }
  /// Sets the upper end.
  void setTop(const gdfVertex& top) { top_ = top; }
  /// Sets the unit direction.
  void setNormal(const gdfVertex& normal) { normal_ = normal; }
  /// Sets the direction of the unmirrored bisector.
  void setRealNormal(const gdfVertex& realNormal) { realNormal_ = realNormal; }
  /// Sets the far end along the real normal.
  void setRealTop(const gdfVertex& realTop) { realTop_ = realTop; }
  /// Sets the type; see getType().
  void setType(short type) { type_ = type; }
  /// Sets the template segment on the side of the template's start.
  void setLeftDomain(int domain) { leftDomain_ = domain; }
  /// Sets the template segment on the side of the template's end.
  void setRightDomain(int domain) { rightDomain_ = domain; }
  /// Sets the chain index of the bisector above; -1 opens this one.
  void setTopConnect(int index) { topConnect_ = index; }

  /// normal = normalise(top - base).
  void calculateNormal() { normal_ = getNormalisedVector(); }

 private:
  /// Nearly every bisector has one or two connections; these stand in the record itself, so that a
  /// chain is built and copied without an allocation for each. A longer list is one array of
  /// exactly the count.
  static constexpr std::int32_t connectionsInRecord = 2;
  union Connections {
    std::int32_t inRecord[connectionsInRecord];
    std::int32_t* array;
  };

  void lengthenArray(int connection);
  void copyConnections(const zr2DBisector& other);
  void copyFields(const zr2DBisector& other);

  gdfVertex base_;
  std::int16_t type_ = 0;
  std::int32_t noBaseConnections_ = 0;
  Connections connections_ = {{0, 0}};
  gdfVertex top_;
  std::int32_t topConnect_ = -1;
  std::int32_t leftDomain_ = -1;
  std::int32_t rightDomain_ = -1;
  gdfVertex normal_;
  gdfVertex realNormal_;
  gdfVertex realTop_;
};

#endif  // ZRBASE_BISECTORS_ZR2DBISECTOR_H
