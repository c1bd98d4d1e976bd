#ifndef ZRBASE_UTILITIES_DEFAULTCOLOURS_H
#define ZRBASE_UTILITIES_DEFAULTCOLOURS_H

#include <zrBase/export.h>

#include <QColor>

#include <vector>

/// The palette of default colours: those of the default database, see defaultDatabase.h. Its path
/// needs a QCoreApplication.
namespace zrUtils {

/// Reads the palette.
/// @param out  appended to
/// @return false if the file cannot be opened, with `out` untouched; otherwise whether `out` has an
///     entry, one from before the call included
ZRBASE_EXPORT bool loadDefaultColourList(std::vector<QColor>& out);

/// An entry of the palette, which is read on the first call and held from then on. Where that fails
/// each further call tries again.
///
/// 0 gives the seventh entry, -6 the first one; behind the last one the first one follows. White
/// below -6, and as long as there is no palette.
/// @note Not to be called from two threads at once.
ZRBASE_EXPORT QColor getDefaultColourFromList(int i);

}  // namespace zrUtils

#endif  // ZRBASE_UTILITIES_DEFAULTCOLOURS_H
