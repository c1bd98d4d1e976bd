#ifndef ZRBASE_APPS_SURVEY_CORNERSINPUT_H
#define ZRBASE_APPS_SURVEY_CORNERSINPUT_H

#include <zrBase/utilities/zrUnits.h>

#include <string>

#include "survey/gridFit.h"

/// The options that name a table of corners, as typed.
struct CornersOptions {
  std::string file;
  std::string columns;  ///< names of inline, crossline, x and y; empty for those in use
  std::string units;    ///< of x and y, here and in what goes with the corners
};

/// "m", "ft", "usft", or empty for metres, as the units of x and y. @throws CommandError for
/// anything else, naming --units
zrUnits unitsFrom(const std::string& text);

/// Fits a grid to the three corners of a table. Points with columns inline and crossline serve as
/// well, in any format that OGR opens.
/// @throws CommandError that names the file, the row and the reason
FittedGrid gridOfCorners(const CornersOptions& options);

#endif  // ZRBASE_APPS_SURVEY_CORNERSINPUT_H
