#ifndef ZRBASE_APPS_SURVEY_SURVEYMAPJOB_H
#define ZRBASE_APPS_SURVEY_SURVEYMAPJOB_H

#include <string>

#include "survey/cornersInput.h"
#include "survey/placesInput.h"

/// The options of `zrbase survey to-world` and `to-survey`, as typed.
struct MapOptions {
  bool toWorld = false;
  PlacesOptions points;
  CornersOptions corners;
  std::string crs;
  std::string output;
};

/// Maps the points, writes them and prints the summary.
/// @throws CommandError for what the user can mend
void runSurveyMap(const MapOptions& options);

#endif  // ZRBASE_APPS_SURVEY_SURVEYMAPJOB_H
