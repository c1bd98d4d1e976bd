#ifndef ZRBASE_UTILITIES_NAMEFILTER_H
#define ZRBASE_UTILITIES_NAMEFILTER_H

#include <zrBase/export.h>

#include <string>
#include <vector>

namespace zrStrUtils {

/// Selects the names that a pattern fits.
///
/// | Pattern  | Names                            |
/// |----------|----------------------------------|
/// | `*text*` | that contain the text            |
/// | `*text`  | that end with the text           |
/// | `text*`  | that start with the text         |
/// | `text`   | that are the text                |
/// | `*`      | all, the empty one too           |
/// |          | none, the empty one neither      |
///
/// Case counts. An asterisk inside the text is a plain character.
/// @param pattern  ends at its terminator; a null pointer is an empty pattern
/// @param indices  cleared first, then the indices of the names that fit, ascending
/// @return how many they are
ZRBASE_EXPORT int filterSelect(const char* pattern, const std::vector<std::string>& names,
                               std::vector<int>& indices);

}  // namespace zrStrUtils

#endif  // ZRBASE_UTILITIES_NAMEFILTER_H
