#ifndef ZRBASE_BISECTORS_INTERNAL_DOMAINGEOMETRY_H
#define ZRBASE_BISECTORS_INTERNAL_DOMAINGEOMETRY_H

#include <zrBase/bisectors/zr2DBisector.h>
#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/tools2d/side.h>

#include <cmath>
#include <cstddef>
#include <vector>

/// What the sources of the bisector set share: safe look-ups and the directions of domains.
namespace bisectorInternal {

using Chain = std::vector<zr2DBisector>;

constexpr short rootType = 1;
constexpr short retiredType = 5;

inline bool isIn(const Chain& chain, int index) {
  return index >= 0 && static_cast<std::size_t>(index) < chain.size();
}

inline const zr2DBisector& at(const Chain& chain, int index) {
  return chain[static_cast<std::size_t>(index)];
}

inline zr2DBisector& at(Chain& chain, int index) { return chain[static_cast<std::size_t>(index)]; }

inline bool isSegment(const VertexLine& line, int segment) {
  return segment >= 0 && static_cast<std::size_t>(segment) + 1 < line.size();
}

inline gdfVertex normalised(gdfVertex vector) {
  vector.normalise();
  return vector;
}

/// Unit vector from one vertex of a line to another.
inline gdfVertex unitVector(const VertexLine& line, int from, int to) {
  return normalised(line[static_cast<std::size_t>(to)] - line[static_cast<std::size_t>(from)]);
}

/// Direction across a domain's segment, away from the template on the given side, from the
/// segment's unit direction.
inline gdfVertex acrossDomain(const gdfVertex& t, zre::side side) {
  // Kept on purpose (KeptDomainNormalKeepsSegmentRise): z is that of the segment's direction, not 0
  // and not negated. Heights over templates with a third coordinate carry its share.
  return side == zre::sideLeft ? gdfVertex(-t.y(), t.x(), t.z()) : gdfVertex(t.y(), -t.x(), t.z());
}

/// Height of a bisector's top over a template vertex, across a domain; unset for an open bisector.
inline double topHeight(const zr2DBisector& b, const gdfVertex& origin, const gdfVertex& across) {
  return b.getTopConnect() == -1 ? gdfInternal::unset : (b.getTop() - origin) * across;
}

// Kept on purpose (KeptRootHeightStartsAtZero): wherever the base of a root lies, above whichever
// vertex is asked for.

/// Height of a bisector's base over a template vertex, across a domain; 0 for a root.
inline double baseHeight(const zr2DBisector& b, const gdfVertex& origin, const gdfVertex& across) {
  return b.getType() == rootType ? 0.0 : (b.getBase() - origin) * across;
}

/// Where a bisector reaches a height. One that runs along its domain is gone along by the height
/// itself.
inline gdfVertex placeAtHeight(const zr2DBisector& b, const gdfVertex& origin,
                               const gdfVertex& across, double height) {
  double f = height - baseHeight(b, origin, across);
  const double rise = b.getNormalVector() * across;
  if (rise != 0.0) f /= rise;
  return b.getBase() + b.getNormalVector() * f;
}

/// Bounds a climb by the number of bisectors: a climb that takes more steps runs in a circle.
class ClimbLimit {
 public:
  explicit ClimbLimit(const Chain& chain) : steps_(chain.size()) {}
  bool reached() { return steps_-- == 0; }

 private:
  std::size_t steps_;
};

/// Reach of a model extent: the sum of its width and height.
inline double extentReach(const gdfVertex& first, const gdfVertex& second) {
  return std::fabs(second.y() - first.y()) + std::fabs(first.x() - second.x());
}

}  // namespace bisectorInternal

#endif  // ZRBASE_BISECTORS_INTERNAL_DOMAINGEOMETRY_H
