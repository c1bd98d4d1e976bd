#ifndef ZRBASE_BISECTORS_INTERNAL_TEMPLATEDIRECTIONS_H
#define ZRBASE_BISECTORS_INTERNAL_TEMPLATEDIRECTIONS_H

#include <zrBase/bisectors/internal/domainGeometry.h>
#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <vector>

namespace bisectorInternal {

/// Unit directions of the segments of a template line: worked out at each call, or once for all
/// where many are asked for.
class TemplateDirections {
 public:
  explicit TemplateDirections(const VertexLine& line) : line_(line) {}

  void workOutAll() {
    directions_.reserve(line_.size());
    for (int k = 0; isSegment(line_, k); ++k) directions_.push_back({forward(k), backward(k)});
    areWorkedOut_ = true;
  }

  const VertexLine& line() const { return line_; }
  /// Number of the last template segment.
  int lastSegment() const { return static_cast<int>(line_.size()) - 2; }
  /// From vertex `segment` to the next one.
  gdfVertex forward(int segment) const {
    return areWorkedOut_ ? directions_[static_cast<std::size_t>(segment)].forward
                         : unitVector(line_, segment, segment + 1);
  }
  /// From vertex `segment + 1` to the one before. Worked out by itself: a zero keeps its own sign.
  gdfVertex backward(int segment) const {
    return areWorkedOut_ ? directions_[static_cast<std::size_t>(segment)].backward
                         : unitVector(line_, segment + 1, segment);
  }
  /// Distance of a vertex from the infinite line through a segment:
  /// zr3DTools::getPerpendicularDistance.
  double distanceFrom(int segment, const gdfVertex& p) const {
    const gdfVertex& start = line_[static_cast<std::size_t>(segment)];
    const gdfVertex u = forward(segment);
    return (start + u * ((p - start) * u) - p).length();
  }

 private:
  struct Directions {
    gdfVertex forward;
    gdfVertex backward;
  };

  const VertexLine& line_;
  std::vector<Directions> directions_;
  bool areWorkedOut_ = false;
};

/// Whether the bisector of two unit vectors is better taken across their difference than along
/// their sum, which shrinks to nothing on a straight template: |u + w| < |u - w|, by lengths.
inline bool isWideBend(const gdfVertex& u, const gdfVertex& w) {
  const double squaredSum = (u + w).length2();
  const double squaredDifference = (u - w).length2();
  // Roots keep order, so squares decide but for neighbours whose roots may round to one number.
  if (squaredSum >= squaredDifference) return false;
  if (squaredSum < squaredDifference * 0.999999) return true;
  return std::sqrt(squaredSum) < std::sqrt(squaredDifference);
}

}  // namespace bisectorInternal

#endif  // ZRBASE_BISECTORS_INTERNAL_TEMPLATEDIRECTIONS_H
