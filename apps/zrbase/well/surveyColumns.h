#ifndef ZRBASE_APPS_WELL_SURVEYCOLUMNS_H
#define ZRBASE_APPS_WELL_SURVEYCOLUMNS_H

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "well/lengthUnit.h"

/// A column that a survey may have.
enum class SurveyColumn { measuredDepth, inclination, azimuth, trueVerticalDepth, north, east };

/// Where the columns of a survey stand in its table.
struct SurveyColumns {
  /// Index in the table by SurveyColumn, -1 for a column that is not there. The first three are.
  std::array<int, 6> index{};
  /// What the name of each column states, if it is a length.
  std::array<std::optional<LengthUnit>, 6> unit{};

  int of(SurveyColumn column) const { return index[static_cast<std::size_t>(column)]; }
  /// Whether true vertical depth, north and east are all there.
  bool hasPlaces() const;
};

/// "measured depth", for messages.
std::string columnTitle(SurveyColumn column);

/// Finds the columns by the names that surveys use: MD, MD[m], Measured Depth (ft), DEPT, Inc,
/// INCL, DEVI, Azi, AZIM, HAZI and so on, whatever their case, blanks and signs between words.
///
/// A unit stands in brackets, in parentheses or as a last word. Brackets that hold no unit,
/// "Azi (grid)", are passed over. True vertical depth, north and east are offsets from the
/// wellhead; one in a foreign unit, or there twice, is as good as not there.
/// @throws CommandError without measured depth, inclination or azimuth, with two columns for one,
/// or with a unit that the job does not work in; the text begins with `file`
SurveyColumns findSurveyColumns(const std::vector<std::string>& names, const std::string& file);

/// What a word states: `known` for a unit of any kind, with the length unit if it is one of ours.
struct UnitWord {
  bool known = false;
  bool degrees = false;
  std::optional<LengthUnit> length;
};
UnitWord unitWord(const std::string& text);

#endif  // ZRBASE_APPS_WELL_SURVEYCOLUMNS_H
