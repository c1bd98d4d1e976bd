#ifndef ZRBASE_APPS_SURVEY_TRACESURVEY_H
#define ZRBASE_APPS_SURVEY_TRACESURVEY_H

#include <zrBase/utilities/zrUnits.h>

#include <string>

#include "survey/gridFit.h"
#include "survey/segyFile.h"

/// The grid that the traces of a seismic file lie on, and what there is to tell about them.
struct TraceSurvey {
  FittedGrid grid;
  long long traces = 0;
  long long withoutGeometry = 0;  ///< traces whose inline, crossline, x and y are 0: left out
  long long withoutPlace = 0;     ///< traces with numbers whose x and y are 0: not fitted
  bool leastSquares = false;      ///< fitted to all traces, not to the corners of the stream
  double misfit = 0.0;            ///< largest distance of an outermost trace from its bin's centre
  long long misfitTrace = 0;      ///< the number of that trace
};

/// Reads every trace header of the file, once and in blocks, whatever the order of the traces.
///
/// The corners are those that the library finds in the stream, the ends of the longest inline (or
/// crossline) and the furthest crossline from it. In a file whose order leaves only short runs of
/// one line, such as traces in random order, they are the corners of the plane through all traces
/// by least squares. The steps are the largest that meet all numbers.
/// @param units  of x and y in the file; the grid is in metres
/// @param anyUnits  take coordinates that the headers call angles for lengths
/// @throws CommandError for a file that is no survey
TraceSurvey surveyOfTraces(const std::string& file, const TraceBytes& bytes, const zrUnits& units,
                           bool anyUnits);

#endif  // ZRBASE_APPS_SURVEY_TRACESURVEY_H
