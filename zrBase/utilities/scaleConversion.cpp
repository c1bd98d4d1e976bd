#include <zrBase/geometry/internal/saturatingCast.h>
#include <zrBase/utilities/zrUnits.h>

#include <cstdlib>

namespace {

/// Units that a map scale tells apart: time counts as the length that it stands for.
enum ScaleUnit { scaleInches, scaleMetres, scaleFeet, scaleMiles, scaleKilometres, scaleNone };

ScaleUnit scaleUnit(int code) {
  switch (code) {
    case GDF_UNIT_INCHES:
      return scaleInches;
    case GDF_UNIT_METRES:
    case GDF_UNIT_MILLISECONDS:
      return scaleMetres;
    case GDF_UNIT_FEET:
      return scaleFeet;
    case GDF_UNIT_MILES:
      return scaleMiles;
    case GDF_UNIT_KILOMETRES:
    case GDF_UNIT_SECONDS:
      return scaleKilometres;
    // Kept on purpose (KeptScaleKnowsNoDecimetres): decimetres have a ratio but no scale factors.
    default:
      return scaleNone;
  }
}

/// Factors from the row's unit to the column's. A negative one divides: 1 / 50 is no double.
constexpr double scaleFactors[5][5] = {
    {1.0, -50.0, -10.0, -50000.0, -25000.0}, {50.0, 1.0, 5.0, -2000.0, -1000.0},
    {10.0, -5.0, 1.0, -5000.0, -2500.0},     {50000.0, 2000.0, 5000.0, 1.0, 2.0},
    {25000.0, 1000.0, 2500.0, 0.5, 1.0},
};

double convertInterval(double value, ScaleUnit from, ScaleUnit to) {
  if (from == scaleNone || to == scaleNone) return value;
  const double factor = scaleFactors[from][to];
  return factor < 0.0 ? value / -factor : value * factor;
}

/// Decimals cut off, within the limits of int.
double wholePart(double value) { return gdfInternal::toInt(value); }

/// Cut down to a number that reads well on a map.
double convenientInterval(double value) {
  const double size = std::abs(wholePart(value));
  if (size > 1000.0) return wholePart(value / 100.0) * 100.0;
  if (size > 100.0) return wholePart(value / 25.0) * 25.0;
  if (size > 50.0) return wholePart(value / 10.0) * 10.0;
  if (size > 10.0) return wholePart(value);
  if (size > 1.0) return wholePart(value * 2.0) * 0.5;
  return value;
}

}  // namespace

double zrUnits::convertScale(double value, int from, int to) {
  // Kept on purpose (KeptScaleIsCutDownWithoutAConversion): equal units are cut down too, so that a
  // caller gets a convenient number from any.
  return convenientInterval(convertInterval(value, scaleUnit(from), scaleUnit(to)));
}
