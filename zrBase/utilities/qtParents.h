#ifndef ZRBASE_UTILITIES_QTPARENTS_H
#define ZRBASE_UTILITIES_QTPARENTS_H

#include <zrBase/export.h>

class QWidget;

namespace zrStrUtils {

/// Writes the object names of a widget and of its parents to standard error, for debugging:
///
///     (an empty line)
///     okButton
///         no name
///         wellDialog
///
/// Names are in UTF-8; an object without one is written as "no name". A null pointer is written as
/// the line "printQtParents null" alone.
/// @note The library needs only the QObject in a QWidget: it is not linked to QtWidgets.
ZRBASE_EXPORT void printQtParents(QWidget* w);

}  // namespace zrStrUtils

#endif  // ZRBASE_UTILITIES_QTPARENTS_H
