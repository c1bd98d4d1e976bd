#ifndef ZRBASE_UTILITIES_ROUNDING_H
#define ZRBASE_UTILITIES_ROUNDING_H

#include <zrBase/export.h>

/// Rounding of numbers, and tolerances. 3.4028234663852886e+38 stands for a value that is not set:
/// no rounding touches it.
namespace zrUtils {

/// Nearest whole number, halves away from zero: floor(value + 0.5), or ceil(value - 0.5) below 0.
///
/// The sum is rounded like any other: the largest double below 0.5 gives 1, and odd numbers between
/// 2^52 and 2^53 may go to the even one beside them. A value that is not set, an infinity and a NaN
/// stay as they are.
ZRBASE_EXPORT double fround(double value);

/// Nearest whole number as an int, halves away from zero: 0.5 added, or subtracted below 0, and the
/// decimals cut off. Saturates at the limits of int, so that a value that is not set gives the
/// highest int; a NaN gives 0.
ZRBASE_EXPORT int round(double value);

/// round() in a wider type: it saturates at the limits of int all the same.
ZRBASE_EXPORT long lround(double value);

/// Whether a value lies strictly between -tolerance and tolerance. A tolerance of 0 never passes,
/// nor does a NaN. The bounds are open, where gdfEqualZero on a number has them closed.
constexpr bool equalZero(double value, double tolerance) {
  // Kept on purpose (KeptNumberAtTheToleranceIsNotZero): equalZero(1e-9, 1e-9) is false, while
  // gdfEqualZero(1e-9, 1e-9) is true.
  return value > -tolerance && tolerance > value;
}

/// Length tolerance that follows the size of a model: 1e-05 for a size of up to 16, 1e-04 up to
/// 256, ten times as much for each further factor of 16.
///
/// Writes a line to std::cerr at each call, such as "model = 16 tolerance = 1e-05". Format flags,
/// precision and locale of std::cerr have no effect on it.
/// @param model  size in model units. What is below 16 gives 1e-05, also below 0; an infinity of
///               either sign and a NaN give the tolerance of the largest finite size, which is
///               1.0000000000000004e+250.
ZRBASE_EXPORT double tolerance(double model);

}  // namespace zrUtils

#endif  // ZRBASE_UTILITIES_ROUNDING_H
