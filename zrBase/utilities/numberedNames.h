#ifndef ZRBASE_UTILITIES_NUMBEREDNAMES_H
#define ZRBASE_UTILITIES_NUMBEREDNAMES_H

#include <zrBase/export.h>

#include <QString>

#include <string>

/// Names that a number makes unique: "well", "well_002", "well_003".
namespace zrStrUtils {

/// Gives a name a number, with three digits or more and leading zeros.
///
/// | Name                                         | Becomes          | Example with 3             |
/// |----------------------------------------------|------------------|----------------------------|
/// | without a low line                           | name, low line, number | "well" to "well_003" |
/// | a low line at its end                        | name, number     | "well_" to "well_003"      |
/// | a number of 1 and above behind the last one  | number replaced  | "well_002" to "well_003"   |
/// | anything else behind the last one            | name, low line, number | "a_b" to "a_b_003"   |
///
/// What begins with a number is replaced as a whole: "well_2nd" becomes "well_003".
ZRBASE_EXPORT void addUniqueNameIndex(std::string& name, int index);

/// Gives a name a number as the form for std::string does, but never replaces one: "well_002" with
/// 3 becomes "well_002_003".
ZRBASE_EXPORT void addUniqueNameIndex(QString& name, int index);

/// The number behind the last low line of a name, as far as it can be read; it can be negative, and
/// beyond the limits of int it is the limit.
/// @return 0 without a low line, and where no number follows the last one
ZRBASE_EXPORT int getUniqueNameIndex(const std::string& name);
/// The same for a QString.
ZRBASE_EXPORT int getUniqueNameIndex(const QString& name);
/// The same for UTF-8, a null pointer being an empty name; a literal would fit both other forms.
ZRBASE_EXPORT int getUniqueNameIndex(const char* name);

}  // namespace zrStrUtils

#endif  // ZRBASE_UTILITIES_NUMBEREDNAMES_H
