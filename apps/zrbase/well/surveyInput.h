#ifndef ZRBASE_APPS_WELL_SURVEYINPUT_H
#define ZRBASE_APPS_WELL_SURVEYINPUT_H

#include <optional>
#include <string>
#include <vector>

#include "well/lengthUnit.h"

/// A place along a well as an offset from the wellhead; the vertical depth grows downwards.
struct WellOffset {
  double tvd = 0.0;
  double north = 0.0;
  double east = 0.0;
};

/// One row of a directional survey.
struct SurveyStation {
  long long row = 0;
  double measuredDepth = 0.0;
  double inclination = 0.0;       ///< degrees from the vertical, 0 to 180
  double azimuth = 0.0;           ///< degrees clockwise from north, as the file has it
  std::optional<WellOffset> own;  ///< what the file itself tells
};

struct Survey {
  std::string file;
  std::vector<SurveyStation> stations;  ///< at least two, by ascending measured depth
  LengthUnit unit = LengthUnit::metre;
  std::vector<std::string> leftOut;  ///< "row 3: ...", where bad rows are left out

  /// Whether each station has its own place.
  bool hasOwnPlaces() const;
};

/// The options that name a survey, as typed.
struct SurveyOptions {
  std::string file;
  std::string layer;  ///< empty for the first one with the columns of a survey
  std::string units;  ///< "m", "ft"; empty for what the columns state
  bool skipBad = false;
};

/// Reads a survey from any table that OGR opens.
///
/// A row of units right below the names is understood. Lengths are in the unit that the column of
/// measured depth states, or --units, or metres.
/// @throws CommandError if the file or a row cannot be used, or --units contradicts a column
Survey readSurvey(const SurveyOptions& options);

#endif  // ZRBASE_APPS_WELL_SURVEYINPUT_H
