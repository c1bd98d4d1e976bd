#ifndef ZRBASE_APPS_SURVEY_PLACESINPUT_H
#define ZRBASE_APPS_SURVEY_PLACESINPUT_H

#include <zrBase/survey/zrSurveyPoint.h>
#include <zrBase/utilities/zrUnits.h>

#include <string>
#include <vector>

#include "common/modelSystem.h"

/// The options that name a file of points, as typed.
struct PlacesOptions {
  std::string file;
  std::string layer;          ///< empty for the first that has what is wanted
  std::string where = "all";  ///< feature ids, or all
  bool skipBad = false;
};

/// A point of which either the survey numbers or the place is known.
struct SurveyPlace {
  long long fid = 0;
  std::string name;
  zrSurveyPoint point;  ///< with the other two fields unset
};

struct SurveyPlaces {
  std::vector<SurveyPlace> places;
  SpatialReference stated;           ///< of the places, null if the file states none
  std::vector<std::string> leftOut;  ///< bad features that were skipped
};

/// Reads points with columns inline and crossline; geometries are passed over.
/// @throws CommandError if the file, the layer or a feature cannot be used
SurveyPlaces readNumbers(const PlacesOptions& options);

/// Reads points with a place: geometries, or columns x and y of a table.
///
/// Where the file states a system they are projected into that of the grid, else they are in it
/// already, in `units`.
/// @param gridSystem  null if it is not known; a file that states one is refused then
/// @param gridFile  what tells about the grid, for that message
SurveyPlaces readPlaces(const PlacesOptions& options, const zrUnits& units,
                        const SpatialReference& gridSystem, const std::string& gridFile);

#endif  // ZRBASE_APPS_SURVEY_PLACESINPUT_H
