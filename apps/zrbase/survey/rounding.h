#ifndef ZRBASE_APPS_SURVEY_ROUNDING_H
#define ZRBASE_APPS_SURVEY_ROUNDING_H

#include <cmath>

/// @file
/// What is written of mapped numbers: the last digits of a product of matrices are noise, and 750
/// is easier to read than 749.9999999999709.

namespace rounding {

/// The number with `perUnit` steps to one; itself where its own digits are coarser than that.
inline double toSteps(double value, double perUnit) {
  constexpr double kExactWholeNumbers = 9007199254740992.0;
  const double steps = value * perUnit;
  return std::abs(steps) < kExactWholeNumbers ? std::round(steps) / perUnit : value;
}

/// A survey number to a billionth of a line.
inline double lineNumber(double value) { return toSteps(value, 1e9); }

/// A coordinate to ten nanometres.
inline double coordinate(double value) { return toSteps(value, 1e8); }

}  // namespace rounding

#endif  // ZRBASE_APPS_SURVEY_ROUNDING_H
