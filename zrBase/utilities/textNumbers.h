#ifndef ZRBASE_UTILITIES_TEXTNUMBERS_H
#define ZRBASE_UTILITIES_TEXTNUMBERS_H

#include <zrBase/export.h>

#include <string>

/// Numbers in text: what may be one, what stands for a missing one, and hexadecimal forms.
namespace zrStrUtils {

/// Whether a character may stand in a column of numbers: a digit, tab, space, plus, minus or full
/// stop. An exponent's letter may not, unlike in isNumericString.
ZRBASE_EXPORT bool isNumericChar(char c);

/// Whether all characters of a text are digits, plus, minus, full stops, e or E. A blank is not one
/// of them, unlike in isNumericChar; nor is the order looked at, so "e-+" is numeric.
/// @return false for an empty text
ZRBASE_EXPORT bool isNumericString(const std::string& s);

/// The value of a hexadecimal text, digits of either case, read from its end to its start.
///
/// An X or x ends the reading, wherever it stands: "0x1F" is 31, and so is "12x1F". Values are
/// counted modulo 2^32: "FFFFFFFF" is -1, and digits before the last eight weigh nothing.
/// @return 0 for an empty text, a null pointer, and a text with another character in what is read
ZRBASE_EXPORT int hexStringToInt(const char* text);

/// Writes a number in upper-case hexadecimal, without prefix and leading zeros; 0 gives "0".
///
/// Only for numbers of 0 and above. Of a negative one only the zeros at its end are written: -32
/// gives "0", -1 an empty text.
/// @param s  replaced
ZRBASE_EXPORT void intToHexString(std::string& s, int value);

/// Number of decimals at which values between two limits are to be shown.
///
/// By the distance d of the limits or, where that is 0, the upper one:
///
/// | d above  | 99998 | 89.9 | 48.9 | 8.9 | 0.8 | 0.08 | 0.008 | otherwise |
/// |----------|-------|------|------|-----|-----|------|-------|-----------|
/// | decimals | 0     | 1    | 2    | 3   | 4   | 5    | 6     | 8         |
///
/// Bounds are strict. Two limits of 0 give 2; a single negative value, whatever its size, and a NaN
/// give 8.
ZRBASE_EXPORT int calculateDefaultPrecision(double low, double high);

/// Whether a text stands for a missing number.
///
/// The text counts without its blanks and double quotes at both ends, and is missing if it then
/// - equals the null value as a text;
/// - or is 1e12 or more, of either sign;
/// - or, where it or the null value reads as 0, holds a character that no number has;
/// - or, where neither reads as 0, equals the null value as a number;
/// - or, for a null value above 11000, is above the null value less 100;
/// - or, for a null value below -11000, is below the null value plus 100.
///
/// So a null value of 0 is missing only where it is written the same: "0.0" is a number beside "0".
/// A number is the longest beginning of a text that reads as one, in the C locale.
/// @param null  the null value, as it was told; its own blanks count
ZRBASE_EXPORT bool nullValue(const std::string& value, const std::string& null);

/// The same with the number of the null value at hand, which spares its reading for each value.
/// @param n  the number of the null value; a NaN equals nothing and is beyond nothing
ZRBASE_EXPORT bool nullValue(const std::string& value, const std::string& null, double n);

}  // namespace zrStrUtils

#endif  // ZRBASE_UTILITIES_TEXTNUMBERS_H
