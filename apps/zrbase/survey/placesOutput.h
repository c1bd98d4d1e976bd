#ifndef ZRBASE_APPS_SURVEY_PLACESOUTPUT_H
#define ZRBASE_APPS_SURVEY_PLACESOUTPUT_H

#include <vector>

#include "common/modelSystem.h"
#include "common/safeOutput.h"
#include "survey/placesInput.h"

/// Writes points at their places with fields fid, name, inline, crossline, x and y; a table of
/// these columns where the output is one, see isTable.
void writePlaces(const SafeOutput& output, const std::vector<SurveyPlace>& places,
                 const SpatialReference& system);

#endif  // ZRBASE_APPS_SURVEY_PLACESOUTPUT_H
