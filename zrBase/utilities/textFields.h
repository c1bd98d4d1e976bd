#ifndef ZRBASE_UTILITIES_TEXTFIELDS_H
#define ZRBASE_UTILITIES_TEXTFIELDS_H

#include <zrBase/export.h>

#include <string>

/// Fields of old card-image files, which stand in fixed columns.
///
///     column     1234567890
///     text       WELL   12.5
///     getString(text, 1, 4, name): "WELL"        getDouble(text, 8, 11): 12.5
///
/// Columns count from 1, and both ends belong to the field. A last column beyond the text is cut to
/// its end; a last column before the first gives an empty field. A field is a number as far as it
/// can be read: blanks, a sign and the longest run that makes a number, 0 if there is none. The
/// decimal sign is a point in every locale; a number stops at the end of its field, whatever
/// follows. Exponents are e or E: the D of some old programs ends the number.
namespace zrStrUtils {

/// The whole number in a field. Beyond the limits of int it is the limit.
/// @return 0 if a column is below 1, if the field begins beyond the text, or if it is no number
ZRBASE_EXPORT int getInt(const std::string& s, int first, int last);

/// The decimal number in a field; no hexadecimal forms, no infinities or NaNs in words. What is too
/// large for a double is infinite.
/// @return 0 if a column is below 1, if the field begins beyond the text, or if it is no number
ZRBASE_EXPORT double getDouble(const std::string& s, int first, int last);

/// The same as getDouble, to the last digit of a double.
ZRBASE_EXPORT double getFloat(const std::string& s, int first, int last);

/// The text in a field, blanks included.
/// @param out  replaced; emptied if the field begins beyond the text; left alone if a column is
///     below 1. It may be the text itself.
ZRBASE_EXPORT void getString(const std::string& s, int first, int last, std::string& out);

/// The whole number in a field, of a text that ends at its terminator or not before the last
/// column: no byte behind that column is read. A null pointer is an empty text.
/// @return 0 as for getInt, and also for the two limits of int themselves, so for all numbers
///     beyond them
ZRBASE_EXPORT int getIntFromChar(const char* s, int first, int last);

/// The decimal number in a field, of a text as in getIntFromChar.
ZRBASE_EXPORT double getDoubleFromChar(const char* s, int first, int last);

/// The same as getDoubleFromChar, to the last digit of a double.
ZRBASE_EXPORT double getFloatFromChar(const char* s, int first, int last);

/// The text in a field, of a text as in getIntFromChar; out is treated as in getString.
ZRBASE_EXPORT void getStringFromChar(const char* s, int first, int last, std::string& out);

}  // namespace zrStrUtils

#endif  // ZRBASE_UTILITIES_TEXTFIELDS_H
