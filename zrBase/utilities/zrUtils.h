#ifndef ZRBASE_UTILITIES_ZRUTILS_H
#define ZRBASE_UTILITIES_ZRUTILS_H

/// @file
/// Small free functions: angles, rounding, well paths, colours, the default database, text headers
/// of seismic files. Some bear the name of a function of the standard library and differ from it
/// (acos, asin, round, lround): name them with their namespace.

#include <zrBase/utilities/angles.h>
#include <zrBase/utilities/colourIndex.h>
#include <zrBase/utilities/colourWords.h>
#include <zrBase/utilities/colours.h>
#include <zrBase/utilities/defaultColours.h>
#include <zrBase/utilities/defaultDatabase.h>
#include <zrBase/utilities/ebcdic.h>
#include <zrBase/utilities/rounding.h>
#include <zrBase/utilities/wellPath.h>

/// Small free functions.
namespace zrUtils {}

#endif  // ZRBASE_UTILITIES_ZRUTILS_H
