#ifndef ZRBASE_TOOLS2D_INTERNAL_SIDEFILTER_H
#define ZRBASE_TOOLS2D_INTERNAL_SIDEFILTER_H

#include <zrBase/geometry/gdfVertex.h>

#include <algorithm>
#include <cmath>

namespace zr2DTools::internal {

/// Tells without a division that an oblique segment a-b misses others: those whose box, widened by
/// the tolerance, lies wholly on one side of the line through a-b.
///
/// getSegmentSegmentIntersect accepts a place only within that box, and the place that it works out
/// lies on the line through a-b but for rounding, whichever of the two slopes it works from. With
/// S the largest coordinate, |slope| <= 8 of a-b and |slope| <= 2^20 of the other, the place is off
/// that line by less than 8 * 2^20 * 2^-53 S = 2^-30 S; the margin here is 64 times that. Steeper
/// segments, all but the exactly vertical ones, are not filtered: their intercepts round worse. A
/// NaN or an overflow passes nothing for apart.
class SideFilter {
 public:
  SideFilter(const gdfVertex& a, const gdfVertex& b, double tolerance)
      : a_(a),
        normalX_(a.y() - b.y()),
        normalY_(b.x() - a.x()),
        sumOfNormal_(std::fabs(normalX_) + std::fabs(normalY_)),
        reach_(std::max(std::fabs(a.x()), std::fabs(b.x())) +
               std::max(std::fabs(a.y()), std::fabs(b.y())) + std::fabs(tolerance)),
        widening_(2.0 * std::fabs(tolerance)),
        isOblique_(std::fabs(normalX_) <= 8.0 * std::fabs(normalY_) &&
                   std::fabs(normalY_) <= 8.0 * std::fabs(normalX_) && sumOfNormal_ > 0.0) {}

  /// Whether getSegmentSegmentIntersect of a-b and c-d is false for certain.
  bool isApartFrom(const gdfVertex& c, const gdfVertex& d) const {
    constexpr double steepest = 1048576.0;              // 2^20
    constexpr double roundingShare = 1.0 / 16777216.0;  // 2^-24
    const double width = std::fabs(d.x() - c.x());
    const double height = std::fabs(d.y() - c.y());
    // Twice the middle of the box, seen from a, beside twice its half widths.
    const double middleX = (c.x() - a_.x()) + (d.x() - a_.x());
    const double middleY = (c.y() - a_.y()) + (d.y() - a_.y());
    const double largest = reach_ + std::fabs(middleX) + std::fabs(middleY) + width + height;
    const double margin = std::fabs(normalX_) * width + std::fabs(normalY_) * height +
                          sumOfNormal_ * (widening_ + largest * roundingShare);
    return isOblique_ && std::fabs(normalX_ * middleX + normalY_ * middleY) > margin &&
           (height <= steepest * width || width == 0.0);
  }

 private:
  gdfVertex a_;
  double normalX_;
  double normalY_;
  double sumOfNormal_;
  double reach_;
  double widening_;
  bool isOblique_;
};

}  // namespace zr2DTools::internal

#endif  // ZRBASE_TOOLS2D_INTERNAL_SIDEFILTER_H
