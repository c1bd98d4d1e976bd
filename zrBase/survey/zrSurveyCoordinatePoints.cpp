#include <zrBase/survey/zrSurveyCoordinatePoints.h>

#include <cmath>

namespace {

/// The distance from the last number becomes the interval if it is smaller.
void noteStep(double number, double& last, double& interval) {
  if (number == last) return;
  const double step = std::fabs(number - last);
  if (interval > step) interval = step;
  last = number;
}

double traceSpan(const zrSurveyPoint& start, const zrSurveyPoint& end) {
  return end.traceNumber - start.traceNumber;
}

double inlineSpan(const zrSurveyPoint& start, const zrSurveyPoint& end) {
  return end.inlineNumber - start.inlineNumber;
}

/// The row in progress becomes the longest if it is. Strictly: of equal rows the earlier stays.
void closeRow(zrSurveyCoordinatePoints& seen) {
  if (traceSpan(seen.rowStart, seen.rowEnd) > traceSpan(seen.longestRowStart, seen.longestRowEnd)) {
    seen.longestRowStart = seen.rowStart;
    seen.longestRowEnd = seen.rowEnd;
  }
}

void startRow(zrSurveyCoordinatePoints& seen, const zrSurveyPoint& p) {
  // Kept on purpose (KeptInterruptedRowStartsAnew): rows are runs in the order of arrival. A row
  // that is taken up again is not joined to its first part, nothing of which is held any more.
  closeRow(seen);
  seen.rowStart = p;
  seen.rowEnd = p;
}

void extendRow(zrSurveyCoordinatePoints& seen, const zrSurveyPoint& p) {
  const double t = p.traceNumber;
  if (t > seen.rowEnd.traceNumber) {
    // Kept on purpose (KeptRowExtensionWritesWholeSpan): measured from the end of the row, written
    // from its start, so that the interval rises where traces come out of order. Steps read from
    // such files are known by these values.
    if (seen.traceInterval > t - seen.rowEnd.traceNumber) {
      seen.traceInterval = t - seen.rowStart.traceNumber;
    }
  } else if (seen.rowStart.traceNumber > t) {
    const double step = seen.rowStart.traceNumber - t;
    if (seen.traceInterval > step) seen.traceInterval = step;
  }
  if (seen.rowStart.traceNumber > t) seen.rowStart = p;
  if (t > seen.rowEnd.traceNumber) seen.rowEnd = p;
}

void startColumn(zrSurveyCoordinatePoints& seen, const zrSurveyPoint& p) {
  if (inlineSpan(seen.columnStart, seen.columnEnd) >
      inlineSpan(seen.longestColumnStart, seen.longestColumnEnd)) {
    seen.longestColumnStart = seen.columnStart;
    seen.longestColumnEnd = seen.columnEnd;
  }
  seen.columnStart = p;
  seen.columnEnd = p;
}

void extendColumn(zrSurveyCoordinatePoints& seen, const zrSurveyPoint& p) {
  const double i = p.inlineNumber;
  // Kept on purpose (KeptColumnStepGoesToTraceInterval): held against the inline interval, written
  // to the trace interval, upwards (there from the column's start) and downwards. inlineInterval
  // changes by noteStep alone, and steps on record depend on the crossing.
  if (i > seen.columnEnd.inlineNumber) {
    if (seen.inlineInterval > i - seen.columnEnd.inlineNumber) {
      seen.traceInterval = i - seen.columnStart.inlineNumber;
    }
  } else if (seen.columnStart.inlineNumber > i) {
    const double step = seen.columnStart.inlineNumber - i;
    if (seen.inlineInterval > step) seen.traceInterval = step;
  }
  if (seen.columnStart.inlineNumber > i) seen.columnStart = p;
  if (i > seen.columnEnd.inlineNumber) seen.columnEnd = p;
}

void setTrackingPoints(zrSurveyCoordinatePoints& seen, const zrSurveyPoint& p) {
  for (zrSurveyPoint* const tracked :
       {&seen.longestRowStart, &seen.longestRowEnd, &seen.minInlinePoint, &seen.maxInlinePoint,
        &seen.longestColumnStart, &seen.longestColumnEnd, &seen.minTracePoint, &seen.maxTracePoint,
        &seen.rowStart, &seen.rowEnd, &seen.columnStart, &seen.columnEnd}) {
    *tracked = p;
  }
}

/// Moves both bounds in by a fifth of the span. In whole lines it would be another range: the
/// quotient is not rounded, and the interval cancels but for rounding.
void shrinkByFifths(double& lowest, double& highest, double interval) {
  const double margin = ((highest - lowest) / interval) * 0.2 * interval;
  lowest += margin;
  highest -= margin;
}

}  // namespace

zrSurveyCoordinatePoints::zrSurveyCoordinatePoints() = default;
zrSurveyCoordinatePoints::zrSurveyCoordinatePoints(const zrSurveyCoordinatePoints&) = default;
zrSurveyCoordinatePoints& zrSurveyCoordinatePoints::operator=(const zrSurveyCoordinatePoints&) =
    default;
zrSurveyCoordinatePoints::zrSurveyCoordinatePoints(zrSurveyCoordinatePoints&&) noexcept = default;
zrSurveyCoordinatePoints& zrSurveyCoordinatePoints::operator=(zrSurveyCoordinatePoints&&) noexcept =
    default;
zrSurveyCoordinatePoints::~zrSurveyCoordinatePoints() = default;

void zrSurveyCoordinatePoints::AddPoint(double x, double y, double inlineNumber,
                                        double traceNumber) {
  zrSurveyPoint p;
  p.Set(x, y, inlineNumber, traceNumber);
  if (firstPoint) {
    // Kept on purpose (KeptSeedLeavesLastNumbers): the seed's numbers do not become the last ones,
    // so that the step from it to the second trace is not seen.
    setTrackingPoints(*this, p);
    firstPoint = false;
    return;
  }
  noteStep(inlineNumber, lastInline, inlineInterval);
  noteStep(traceNumber, lastTrace, traceInterval);

  if (inlineNumber == rowStart.inlineNumber) {
    extendRow(*this, p);
  } else {
    startRow(*this, p);
  }
  if (minInlinePoint.inlineNumber > inlineNumber) minInlinePoint = p;
  if (inlineNumber > maxInlinePoint.inlineNumber) maxInlinePoint = p;

  if (traceNumber == columnStart.traceNumber) {
    extendColumn(*this, p);
  } else {
    startColumn(*this, p);
  }
  if (minTracePoint.traceNumber > traceNumber) minTracePoint = p;
  if (traceNumber > maxTracePoint.traceNumber) maxTracePoint = p;
}

void zrSurveyCoordinatePoints::AddStoredPoint(double x, double y, double inlineNumber,
                                              double traceNumber) {
  zrSurveyPoint p;
  p.Set(x, y, inlineNumber, traceNumber);
  storedPoints.push_back(p);
  if (inlineNumber < minInline) minInline = inlineNumber;
  if (inlineNumber > maxInline) maxInline = inlineNumber;
  if (traceNumber < minTrace) minTrace = traceNumber;
  if (traceNumber > maxTrace) maxTrace = traceNumber;
}

void zrSurveyCoordinatePoints::End() {
  closeRow(*this);
  // Kept on purpose (KeptEndComparesColumnsByTrace): by trace numbers, where startColumn compares
  // inlines. A column has one trace number, so that the last column is passed over; grids were
  // taken from the columns before it ever since.
  if (traceSpan(columnStart, columnEnd) > traceSpan(longestColumnStart, longestColumnEnd)) {
    longestColumnStart = columnStart;
    longestColumnEnd = columnEnd;
  }
}

bool zrSurveyCoordinatePoints::RecalculateCoordinates() {
  if (storedPoints.empty()) return false;
  firstPoint = true;
  recalculated = true;
  setTrackingPoints(*this, zrSurveyPoint());
  lastInline = gdfInternal::unset;
  lastTrace = gdfInternal::unset;
  // Kept on purpose (KeptRecalculationKeepsIntervals): the smallest steps of all earlier passes go
  // on counting, those of AddPoint() before this call included.
  // Kept on purpose (KeptRecalculationShrinksAgain): the narrower bounds stay, so that each call
  // works on the inner part of the part before: 0..100, 20..80, 32..68.
  shrinkByFifths(minInline, maxInline, inlineInterval);
  shrinkByFifths(minTrace, maxTrace, traceInterval);
  for (const zrSurveyPoint& p : storedPoints) {
    if (p.inlineNumber >= minInline && p.inlineNumber <= maxInline && p.traceNumber >= minTrace &&
        p.traceNumber <= maxTrace) {
      AddPoint(p.x, p.y, p.inlineNumber, p.traceNumber);
    }
  }
  return true;
}
