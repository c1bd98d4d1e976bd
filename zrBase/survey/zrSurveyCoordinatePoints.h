#ifndef ZRBASE_SURVEY_ZRSURVEYCOORDINATEPOINTS_H
#define ZRBASE_SURVEY_ZRSURVEYCOORDINATEPOINTS_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/survey/zrSurveyPoint.h>

#include <vector>

/// What a stream of traces tells about the survey grid they lie on, gathered in one pass.
///
/// A *row* is a run of traces of one inline, a *column* a run of traces of one trace number. Both
/// are runs in the order of arrival: numbers are compared exactly, and a row that is taken up again
/// after another inline is a new row. Tracked are the smallest steps, the longest finished row and
/// column, and the points of the lowest and highest numbers:
///
///     inline
///       |    o    o    o    o    o   <- maxInlinePoint
///       |    o    o    o    o    o
///       |    o    o    o    o    o   <- a row, rowStart to rowEnd
///       +------------------------ trace
///            ^ minTracePoint     ^ maxTracePoint
///
/// Two ways to feed it:
///
/// - AddPoint() for every trace, then End(). Nothing is stored. Such an object was not seeded, and
///   maxInlinePoint and maxTracePoint stay unset: a grid of two corners at best.
/// - AddStoredPoint() for every trace, then RecalculateCoordinates(), which streams the inner part
///   of what was stored through AddPoint(). All extremes are found then. End() is up to the caller.
///
/// A plain record: every field is public. "Unset" is 3.4028234663852886e+38, as in zrSurveyPoint.
class ZRBASE_EXPORT zrSurveyCoordinatePoints {
 public:
  /// All numbers and points unset, nothing stored.
  zrSurveyCoordinatePoints();
  /// A copy of every field, the stored points included.
  zrSurveyCoordinatePoints(const zrSurveyCoordinatePoints&);
  /// Copies every field, the stored points included.
  zrSurveyCoordinatePoints& operator=(const zrSurveyCoordinatePoints&);
  /// Takes every field over.
  zrSurveyCoordinatePoints(zrSurveyCoordinatePoints&&) noexcept;
  /// Takes every field over.
  zrSurveyCoordinatePoints& operator=(zrSurveyCoordinatePoints&&) noexcept;
  virtual ~zrSurveyCoordinatePoints();

  /// Feeds one trace to the tracking: world position first, then its numbers.
  ///
  /// The steps are the distances of a trace's numbers from those of the trace before it, as far as
  /// they differ; but a trace that goes on with a row or column may overwrite traceInterval by a
  /// larger value, so that traceInterval can rise: with traces 10, 20, 12, 21 of one inline it ends
  /// at 11, and with inlines 10, 30, 12, 31 of one trace number at 21.
  ///
  /// Of two rows equally long the earlier one stays the longest; columns likewise. While
  /// `firstPoint` is true the trace becomes all twelve tracking points instead, and its numbers do
  /// not become the last ones.
  /// @note O(1), no allocation.
  void AddPoint(double x, double y, double inlineNumber, double traceNumber);
  /// Stores one trace for RecalculateCoordinates(), and widens the stored bounds by it. The
  /// tracking is left alone. An argument may refer into the stored points.
  void AddStoredPoint(double x, double y, double inlineNumber, double traceNumber);
  /// To be called after the last AddPoint(): the row in progress becomes the longest if it is.
  ///
  /// The column in progress is compared by its span in trace numbers, where AddPoint() compares
  /// inlines. Points of a column share their trace number: the last column never counts.
  void End();

  /// Smallest inline step seen; 1.0 while there is none.
  double InlineInterval() const {
    return inlineInterval == gdfInternal::unset ? 1.0 : inlineInterval;
  }
  /// Trace step, see AddPoint(); 1.0 while there is none.
  double TraceInterval() const { return traceInterval == gdfInternal::unset ? 1.0 : traceInterval; }

  /// Starts the tracking anew, from the inner part of the stored points.
  ///
  /// The stored bounds move in by a fifth of their span at each side, and stay there: a second call
  /// takes a fifth of what is left. The stored points within the bounds, those on them included, go
  /// through AddPoint() in their order, the first of them as the seed. The intervals keep what they
  /// hold, and the stored points stay.
  /// @return whether there are stored points; if not, nothing changes
  /// @note O(number of stored points).
  bool RecalculateCoordinates();

  /// Smallest inline step seen.
  double inlineInterval = gdfInternal::unset;
  /// Trace step, see AddPoint().
  double traceInterval = gdfInternal::unset;
  /// Inline number of the last trace.
  double lastInline = gdfInternal::unset;
  /// Trace number of the last trace.
  double lastTrace = gdfInternal::unset;
  /// Lowest trace of the longest finished row.
  zrSurveyPoint longestRowStart;
  /// Highest trace of the longest finished row.
  zrSurveyPoint longestRowEnd;
  /// First trace of the lowest inline.
  zrSurveyPoint minInlinePoint;
  /// First trace of the highest inline; unset in an object that was not seeded.
  zrSurveyPoint maxInlinePoint;
  /// Lowest inline of the longest finished column.
  zrSurveyPoint longestColumnStart;
  /// Highest inline of the longest finished column.
  zrSurveyPoint longestColumnEnd;
  /// First trace of the lowest trace number.
  zrSurveyPoint minTracePoint;
  /// First trace of the highest trace number; unset in an object that was not seeded.
  zrSurveyPoint maxTracePoint;
  /// Lowest trace of the row in progress.
  zrSurveyPoint rowStart;
  /// Highest trace of the row in progress.
  zrSurveyPoint rowEnd;
  /// Lowest inline of the column in progress.
  zrSurveyPoint columnStart;
  /// Highest inline of the column in progress.
  zrSurveyPoint columnEnd;
  /// What AddStoredPoint() was given, in order.
  std::vector<zrSurveyPoint> storedPoints;
  /// Lower bound of the stored points in inline.
  double minInline = gdfInternal::unset;
  /// Upper bound of the stored points in inline, at least 0 before the first recalculation.
  // Kept on purpose (KeptStoredMaximaStartAtZero): 0, not the lowest number, so that of a survey
  // numbered wholly below 0 the upper bounds stay at 0. Inner ranges on record were cut with them.
  double maxInline = 0.0;
  /// Lower bound of the stored points in trace.
  double minTrace = gdfInternal::unset;
  /// Upper bound of the stored points in trace, at least 0 before the first recalculation.
  double maxTrace = 0.0;
  /// Set by RecalculateCoordinates(); true from the start, and read by nothing.
  bool recalculated = true;
  /// Whether the next trace seeds the tracking.
  // Kept on purpose (KeptFreshStreamIsNotSeeded): false, so that the highest points, which start at
  // the unset value and nothing exceeds that, are only found after RecalculateCoordinates(). Grids
  // of two corners, marked as partial, come from here and are expected.
  bool firstPoint = false;
};

#endif  // ZRBASE_SURVEY_ZRSURVEYCOORDINATEPOINTS_H
