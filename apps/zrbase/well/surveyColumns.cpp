#include "well/surveyColumns.h"

#include <algorithm>
#include <initializer_list>

#include "common/commandError.h"
#include "common/textFormat.h"

namespace {

constexpr std::size_t kColumns = 6;

// Names as they are after plainName; the first of them that a table has is taken.
const std::array<std::vector<std::string>, kColumns>& knownNames() {
  static const std::array<std::vector<std::string>, kColumns> names = {
      {{"md", "measureddepth", "measdepth", "measdep", "mdepth", "depthmd", "mddepth", "mdrkb",
        "mdkb", "dept", "depth", "surveydepth", "alongholedepth", "ahd"},
       {"inc", "incl", "inclination", "inclin", "incli", "inclangle", "inclinationangle", "devi",
        "dev", "deviation", "drift", "angle"},
       {"azi", "azim", "azimuth", "az", "hazi", "azm", "holeazimuth", "direction", "azitrue",
        "azigrid", "azimuthtrue", "azimuthgrid", "azitn", "azign"},
       {"tvd", "trueverticaldepth", "truevertdepth", "verticaldepth", "vertdepth", "tvdepth",
        "tvdrkb", "tvdkb"},
       {"north", "ns", "n", "localnorth", "northoffset", "noffset", "offsetnorth", "dnorth",
        "nsoffset", "latitudeoffset"},
       {"east", "ew", "e", "localeast", "eastoffset", "eoffset", "offseteast", "deast", "ewoffset",
        "departure"}}};
  return names;
}

bool isOneOf(const std::string& word, std::initializer_list<const char*> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool isAngle(std::size_t column) {
  return column == static_cast<std::size_t>(SurveyColumn::inclination) ||
         column == static_cast<std::size_t>(SurveyColumn::azimuth);
}

// Lower-case letters and digits only: "Meas. Depth" and "MEAS_DEPTH" are the same.
std::string plainName(const std::string& name) {
  std::string plain;
  for (const char c : textFormat::lowerCase(name)) {
    if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
      plain += c;
    }
  }
  return plain;
}

struct NameAndUnit {
  std::string plain;
  UnitWord unit;
};

// "MD[m]", "Inc (deg)", "MD_m", "TVD ft", "DEPT.M"
NameAndUnit takenApart(const std::string& name) {
  NameAndUnit result;
  const std::size_t open = name.find_first_of("[(");
  result.plain = plainName(name.substr(0, open));
  if (open != std::string::npos) {
    const std::size_t close = name.find_first_of("])", open);
    result.unit =
        unitWord(name.substr(open + 1, close == std::string::npos ? close : close - open - 1));
    return result;
  }
  const std::size_t blank = name.find_last_of(" _.");
  if (blank != std::string::npos) {
    const UnitWord last = unitWord(name.substr(blank + 1));
    if (last.known) {
      result.plain = plainName(name.substr(0, blank));
      result.unit = last;
    }
  }
  return result;
}

bool hasOtherUnit(std::size_t column, const UnitWord& unit) {
  return unit.known && (isAngle(column) ? !unit.degrees : !unit.length);
}

bool isNeeded(std::size_t column) {
  return column <= static_cast<std::size_t>(SurveyColumn::azimuth);
}

// The column in the table, -1 if there is none. Two are one too many where a column is needed, and
// none where it is not.
int find(std::size_t column, const std::vector<NameAndUnit>& table,
         const std::vector<std::string>& names, const std::string& file) {
  for (const std::string& known : knownNames()[column]) {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < table.size(); ++i) {
      if (table[i].plain == known) {
        found.push_back(i);
      }
    }
    if (found.size() > 1 && isNeeded(column)) {
      throw CommandError(file + ": two columns of " +
                         columnTitle(static_cast<SurveyColumn>(column)) + ": '" + names[found[0]] +
                         "' and '" + names[found[1]] + "'");
    }
    if (found.size() == 1) {
      return static_cast<int>(found[0]);
    }
  }
  return -1;
}

}  // namespace

bool SurveyColumns::hasPlaces() const {
  return of(SurveyColumn::trueVerticalDepth) >= 0 && of(SurveyColumn::north) >= 0 &&
         of(SurveyColumn::east) >= 0;
}

std::string columnTitle(SurveyColumn column) {
  switch (column) {
    case SurveyColumn::measuredDepth:
      return "measured depth";
    case SurveyColumn::inclination:
      return "inclination";
    case SurveyColumn::azimuth:
      return "azimuth";
    case SurveyColumn::trueVerticalDepth:
      return "true vertical depth";
    case SurveyColumn::north:
      return "north";
    case SurveyColumn::east:
      break;
  }
  return "east";
}

UnitWord unitWord(const std::string& text) {
  std::string word = textFormat::lowerCase(textFormat::oneLine(text));
  word.erase(std::remove(word.begin(), word.end(), '.'), word.end());
  UnitWord unit;
  if (isOneOf(word, {"m", "metre", "metres", "meter", "meters"})) {
    unit.length = LengthUnit::metre;
  } else if (isOneOf(word, {"ft", "foot", "feet", "f", "'"})) {
    unit.length = LengthUnit::foot;
  } else if (isOneOf(word,
                     {"usft", "ftus", "us ft", "ft us", "us survey foot", "us survey feet"})) {
    unit.length = LengthUnit::surveyFoot;
  }
  unit.degrees = isOneOf(word, {"deg", "degs", "degree", "degrees", "dega", "\u00b0", "\u00ba",
                                "\xb0", "deg true", "deg grid"});
  const bool foreign = isOneOf(word, {"km", "cm", "mm", "in", "inch", "inches", "yd", "yards", "mi",
                                      "rad", "rads", "radian", "radians", "mrad", "grad", "gon"});
  unit.known = unit.length.has_value() || unit.degrees || foreign;
  return unit;
}

SurveyColumns findSurveyColumns(const std::vector<std::string>& names, const std::string& file) {
  std::vector<NameAndUnit> table;
  table.reserve(names.size());
  for (const std::string& name : names) {
    table.push_back(takenApart(name));
  }
  SurveyColumns columns;
  std::string missing;
  for (std::size_t column = 0; column < kColumns; ++column) {
    const SurveyColumn kind = static_cast<SurveyColumn>(column);
    columns.index[column] = find(column, table, names, file);
    if (columns.index[column] < 0) {
      missing += isNeeded(column) ? (missing.empty() ? "" : " and ") + columnTitle(kind) : "";
      continue;
    }
    const std::size_t i = static_cast<std::size_t>(columns.index[column]);
    columns.unit[column] = table[i].unit.length;
    if (hasOtherUnit(column, table[i].unit) && isNeeded(column)) {
      throw CommandError(file + ": column '" + names[i] + "': its unit is not " +
                         (isAngle(column) ? "degrees" : "m or ft"));
    }
    if (hasOtherUnit(column, table[i].unit)) {
      columns.index[column] = -1;
    }
  }
  if (!missing.empty()) {
    std::string known;
    for (const std::string& name : names) {
      known += (known.empty() ? "" : ", ") + name;
    }
    throw CommandError(file + ": no column of " + missing + "; it has " + known);
  }
  return columns;
}
