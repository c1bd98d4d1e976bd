#include <zrBase/utilities/zrUnits.h>

#include <cmath>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace {

/// What is known of a unit. A unit without texts has null pointers.
struct Unit {
  double ratio;
  const char* text;
  const char* shortText;
  const char* xmlText;
};

// Kept on purpose (KeptFootAndMileAreNotInternational): the inch, the foot and the mile have these
// ratios, not 0.0254, 0.3048 and 1609.344. Stored models depend on them to the last digit.
constexpr Unit units[] = {
    {0.025399999961392, "Inches", "in", "inches"},
    {1.0, "Metres", "m", "metres"},
    {0.304799999536704, "Feet", "ft", "feet"},
    {1609.2693916961698, "Miles", "miles", "miles"},
    {1.0, nullptr, nullptr, nullptr},
    {1000.0, "Kilometres", "km", "kilometres"},
    {1000.0, "Seconds", "secs", "seconds"},
    {1.0, "Millisecs", "msecs", "millisecs"},
    {1.0, nullptr, nullptr, nullptr},
    {0.1, "Decimetres", "dm", "decimetres"},
};

/// The unit of a code, which is unit 4, without texts, for a code outside the table.
const Unit& unitOf(int code) {
  const bool listed = code >= 0 && code < static_cast<int>(std::size(units));
  return units[listed ? code : GDF_UNIT_RESERVED];
}

void assignIfAny(const char* source, std::string& text) {
  // Kept on purpose (KeptUnitWithoutTextLeavesTheString): nothing is cleared, so that a caller's
  // own label for a custom unit survives the call.
  if (source != nullptr) text = source;
}

/// A word and the code that it stands for.
struct UnitWord {
  std::string_view word;
  int code;
};

constexpr UnitWord metreWords[] = {
    {"METRES", GDF_UNIT_METRES},
    {"METRE", GDF_UNIT_METRES},
    {"M", GDF_UNIT_METRES},
    {"ELEVATION_METRES", GDF_ELEVATION_FLAG + GDF_UNIT_METRES},
    {"DEPTH_METRES", GDF_DEPTH_FLAG + GDF_UNIT_METRES},
};

constexpr UnitWord otherWords[] = {
    {"DECIMETRES", GDF_UNIT_DECIMETRES},
    {"DECIMETRE", GDF_UNIT_DECIMETRES},
    {"DM", GDF_UNIT_DECIMETRES},
    {"ELEVATION_DECIMETRES", GDF_ELEVATION_FLAG + GDF_UNIT_DECIMETRES},
    {"DEPTH_DECIMETRES", GDF_DEPTH_FLAG + GDF_UNIT_DECIMETRES},
    {"KILOMETRES", GDF_UNIT_KILOMETRES},
    {"KILOMETRE", GDF_UNIT_KILOMETRES},
    {"KILO", GDF_UNIT_KILOMETRES},
    {"KM", GDF_UNIT_KILOMETRES},
    {"ELEVATION_KILOMETRES", GDF_ELEVATION_FLAG + GDF_UNIT_KILOMETRES},
    {"DEPTH_KILOMETRES", GDF_DEPTH_FLAG + GDF_UNIT_KILOMETRES},
    {"INCHES", GDF_UNIT_INCHES},
    {"INCH", GDF_UNIT_INCHES},
    {"IN", GDF_UNIT_INCHES},
    {"ELEVATION_INCHES", GDF_ELEVATION_FLAG + GDF_UNIT_INCHES},
    {"DEPTH_INCHES", GDF_DEPTH_FLAG + GDF_UNIT_INCHES},
    {"FEET", GDF_UNIT_FEET},
    {"FOOT", GDF_UNIT_FEET},
    {"FT", GDF_UNIT_FEET},
    {"ELEVATION_FEET", GDF_ELEVATION_FLAG + GDF_UNIT_FEET},
    {"DEPTH_FEET", GDF_DEPTH_FLAG + GDF_UNIT_FEET},
    {"MILES", GDF_UNIT_MILES},
    {"MILE", GDF_UNIT_MILES},
    {"ML", GDF_UNIT_MILES},
    {"ELEVATION_MILES", GDF_ELEVATION_FLAG + GDF_UNIT_MILES},
    {"DEPTH_MILES", GDF_DEPTH_FLAG + GDF_UNIT_MILES},
    {"SECONDS", GDF_UNIT_SECONDS},
    {"SECOND", GDF_UNIT_SECONDS},
    {"SEC", GDF_UNIT_SECONDS},
    {"MILLISECONDS", GDF_UNIT_MILLISECONDS},
    {"MILLISECOND", GDF_UNIT_MILLISECONDS},
    {"MSEC", GDF_UNIT_MILLISECONDS},
};

/// Looks a word up and writes its code; untouched, with false, when it is not there.
template <std::size_t n>
bool findWord(const UnitWord (&words)[n], std::string_view word, int& code) {
  for (const UnitWord& entry : words) {
    if (entry.word == word) {
      code = entry.code;
      return true;
    }
  }
  return false;
}

/// -0.0 becomes 0.0.
double withPositiveZero(double value) { return value == 0.0 ? 0.0 : value; }

}  // namespace

zrUnits::zrUnits(int x, int y, int z, int direction) { setUnits(x, y, z, direction); }

void zrUnits::setUnits(int x, int y, int z, int direction) {
  setXUnits(x);
  setYUnits(y);
  zUnits_ = z;
  zDirection_ = direction;
  rebuildZRatio();
}

void zrUnits::setUnits(const char* x, const char* y, const char* z, int direction) {
  // Kept on purpose (KeptFlaggedWordIsStoredAsItsCode): the flags stay in the code, so that
  // "DEPTH_FEET" stores 0x82, whose ratio is 1.0, and the direction is the argument's alone.
  setUnits(textToUnit(x), textToUnit(y), textToUnit(z), direction);
}

bool zrUnits::equal(const zrUnits& other) const {
  // Kept on purpose (KeptEqualUnitsIgnoreTheirRatios): two custom units of different ratios are
  // equal. Callers ask for equal codes.
  return xUnits_ == other.xUnits_ && yUnits_ == other.yUnits_ && zUnits_ == other.zUnits_ &&
         zDirection_ == other.zDirection_;
}

// Not const, as all operations named set.
double zrUnits::setRatio(int code) {
  // Kept on purpose (KeptSetRatioStoresNothing): a lookup only, under a name that sounds otherwise.
  return unitOf(code).ratio;
}

void zrUnits::setXUnits(int code) {
  xUnits_ = code;
  xRatio_ = unitOf(code).ratio;
}

void zrUnits::setYUnits(int code) {
  yUnits_ = code;
  yRatio_ = unitOf(code).ratio;
}

void zrUnits::setXYUnits(int code) {
  setXUnits(code);
  setYUnits(code);
  // Kept on purpose (KeptMapUnitsRebuildTheZRatio): z is rebuilt though only x and y were asked
  // for, and a supplied ratio of z is gone. The form with a ratio leaves z alone.
  rebuildZRatio();
}

void zrUnits::setXYUnits(int code, double ratio) {
  setXUnits(code);
  setYUnits(code);
  if (code == GDF_UNIT_CUSTOM) {
    xRatio_ = ratio;
    yRatio_ = ratio;
  }
}

void zrUnits::setZUnits(int code) {
  zUnits_ = code;
  rebuildZRatio();
}

void zrUnits::setZUnits(int code, double ratio) {
  setZUnits(code);
  // Kept on purpose (KeptSuppliedZRatioTakesNoSign): in depth the ratio is stored as it comes, not
  // negated, and setZDirection drops it: callers bring the sign and set the direction first.
  if (code == GDF_UNIT_CUSTOM) zRatio_ = ratio;
}

void zrUnits::setZDirection(int direction) {
  zDirection_ = direction;
  // Kept on purpose (KeptZDirectionDropsTheSuppliedRatio): rebuilt from the code, so that a
  // supplied ratio becomes 1.0 or -1.0 instead of changing its sign.
  rebuildZRatio();
}

void zrUnits::rebuildZRatio() {
  zRatio_ = unitOf(zUnits_).ratio;
  if (inDepth()) zRatio_ = -zRatio_;
}

void zrUnits::getZDirectionXmlText(std::string& text) const {
  // Kept on purpose (KeptUnknownDirectionReadsNegative): anything but the one code reads negative,
  // while inElevation() takes anything but depth for elevation.
  text = zDirection_ == GDF_Z_ELEVATION ? "positive" : "negative";
}

void zrUnits::getZTypeXmlText(std::string& text) const {
  // Kept on purpose (KeptDepthReadsElevation): files tell depth by the direction, not by the type.
  text = inTime() ? "time" : "elevation";
}

void zrUnits::getTextUnits(int code, std::string& text) const {
  assignIfAny(unitOf(code).text, text);
}

void zrUnits::getShortTextUnits(int code, std::string& text) const {
  assignIfAny(unitOf(code).shortText, text);
}

void zrUnits::getXmlTextUnits(int code, std::string& text) const {
  assignIfAny(unitOf(code).xmlText, text);
}

bool zrUnits::isTextUnit(const char* word, int& code) const {
  // Kept on purpose (KeptMetreWordsAnswerFalse): the code is written all the same, the flagged ones
  // included. Callers take false for metres, so that "DEPTH_METRES" is plain metres to them.
  if (findWord(metreWords, word, code)) return false;
  return findWord(otherWords, word, code);
}

int zrUnits::textToUnit(const char* word) const {
  int code = GDF_UNIT_METRES;
  return isTextUnit(word, code) ? code : GDF_UNIT_METRES;
}

double zrUnits::u2mMd(double measuredDepth) const {
  // Kept on purpose (KeptMeasuredDepthTakesTheCodeForItsFactor): 2 in feet, 0 in inches, not the
  // ratio of z. Callers rely on these values.
  return withPositiveZero(std::fabs(static_cast<double>(zUnits_)) * measuredDepth);
}

double zrUnits::m2uMd(double measuredDepth) const {
  return withPositiveZero(measuredDepth / std::fabs(static_cast<double>(zUnits_)));
}

double zrUnits::unitSwap(int from, int to, double value) const {
  if (from == to) return value;
  const double metres = value * unitOf(from).ratio;
  switch (to) {
    case GDF_UNIT_INCHES:
      return metres * 39.3700788;
    case GDF_UNIT_FEET:
      return metres * 3.2808399;
    case GDF_UNIT_MILES:
      return metres * 0.0006214;
    // Kept on purpose (KeptSwapCrossesKilometresAndDecimetres): 10.0 to kilometres and
    // 0.001 to decimetres, each other's factors. That of the seconds is right.
    case GDF_UNIT_KILOMETRES:
      return metres * 10.0;
    case GDF_UNIT_DECIMETRES:
    case GDF_UNIT_SECONDS:
      return metres * 0.001;
    default:
      return metres;
  }
}
