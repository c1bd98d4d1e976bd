#ifndef ZRBASE_UTILITIES_ZRSTRUTILS_H
#define ZRBASE_UTILITIES_ZRSTRUTILS_H

/// @file
/// Text helpers: fields of fixed columns, lines, numbers in text, file names, numbered names, a
/// filter for names. Numbers are read and written as in the C locale, whatever locale the
/// application has set.

#include <zrBase/utilities/fileNames.h>
#include <zrBase/utilities/nameFilter.h>
#include <zrBase/utilities/numberedNames.h>
#include <zrBase/utilities/qtParents.h>
#include <zrBase/utilities/textFields.h>
#include <zrBase/utilities/textLines.h>
#include <zrBase/utilities/textNumbers.h>

/// Text helpers.
namespace zrStrUtils {}

#endif  // ZRBASE_UTILITIES_ZRSTRUTILS_H
