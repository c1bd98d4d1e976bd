#ifndef ZRBASE_APPS_SURVEY_GRIDOUTPUT_H
#define ZRBASE_APPS_SURVEY_GRIDOUTPUT_H

#include <string>

#include "common/modelSystem.h"
#include "common/safeOutput.h"
#include "survey/gridFit.h"

/// Which bins are written beside the outline, and how.
struct BinRequest {
  bool wanted = false;
  bool centres = false;  ///< as points, not as polygons
  long long every = 1;   ///< only each n-th inline and crossline
};

/// Whether the output is a table, by its ending. @throws CommandError if it is neither .csv nor one
/// of outputDriver
bool isTable(const std::string& fileName);

/// Number of bins of the request. @throws CommandError if there are more than a million
long long countBins(const FittedGrid& grid, const BinRequest& request);

/// Writes the outline, the polygon through the four outermost bin centres, and perhaps the bins.
void writeGrid(const SafeOutput& output, const FittedGrid& grid, const BinRequest& request,
               const SpatialReference& system);

/// Writes the three corners as a table that serves as corners again.
void writeCorners(const SafeOutput& output, const FittedGrid& grid);

#endif  // ZRBASE_APPS_SURVEY_GRIDOUTPUT_H
