#ifndef ZRBASE_SURVEY_ZRSURVEYPOINT_H
#define ZRBASE_SURVEY_ZRSURVEYPOINT_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

#include <type_traits>

/// A place that is known both by its survey numbers and by its position in the world.
///
/// A plain record of four doubles, freely written to. A field is unset while it holds
/// 3.4028234663852886e+38, the largest single-precision value; the comparison with it is exact.
class ZRBASE_EXPORT zrSurveyPoint {
 public:
  /// All four fields unset.
  constexpr zrSurveyPoint() = default;
  /// A copy of all four fields.
  constexpr zrSurveyPoint(const zrSurveyPoint&) = default;
  /// Copies all four fields.
  zrSurveyPoint& operator=(const zrSurveyPoint&) = default;

  /// Makes all four fields unset.
  void clear() { *this = zrSurveyPoint(); }
  /// Sets all four fields. The world position comes first here, the survey numbers in the record.
  void Set(double worldX, double worldY, double inlineOfPoint, double traceOfPoint) {
    // Kept on purpose (KeptSurveyPointSetTakesWorldFirst): x, y, inline, trace, against the order
    // of the fields and of zrSurveyCoordinates::SetOne. Readers of trace headers pass their numbers
    // in this order.
    inlineNumber = inlineOfPoint;
    traceNumber = traceOfPoint;
    x = worldX;
    y = worldY;
  }
  /// Whether none of the four fields is unset. One unset field is enough to give false; a NaN
  /// counts as set.
  bool IsSet() const {
    return inlineNumber != gdfInternal::unset && traceNumber != gdfInternal::unset &&
           x != gdfInternal::unset && y != gdfInternal::unset;
  }
  /// Copies all four fields.
  void Copy(const zrSurveyPoint& other) { *this = other; }

  /// Number of the inline.
  double inlineNumber = gdfInternal::unset;
  /// Number of the trace on it, also called the crossline number.
  double traceNumber = gdfInternal::unset;
  /// East coordinate.
  double x = gdfInternal::unset;
  /// North coordinate.
  double y = gdfInternal::unset;
};

static_assert(std::is_trivially_copyable_v<zrSurveyPoint>);
static_assert(sizeof(zrSurveyPoint) == 4 * sizeof(double));

#endif  // ZRBASE_SURVEY_ZRSURVEYPOINT_H
