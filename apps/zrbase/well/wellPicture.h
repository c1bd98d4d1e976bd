#ifndef ZRBASE_APPS_WELL_WELLPICTURE_H
#define ZRBASE_APPS_WELL_WELLPICTURE_H

#include <string>

#include "common/safeOutput.h"
#include "well/wellModel.h"

/// What the picture shows.
struct WellContent {
  const WellPath* path = nullptr;
  std::string name;        ///< of the well
  std::string systemText;  ///< "EPSG:32633 (...)"; empty for none
};

/// Draws plan view and vertical section of the well side by side, each at one scale in both its
/// directions.
///
/// The section lies along the closure azimuth: it shows the part of each offset that lies in that
/// direction, against true vertical depth.
/// @throws CommandError if the picture cannot be written
void drawWellPicture(const SafeOutput& output, const WellContent& content);

#endif  // ZRBASE_APPS_WELL_WELLPICTURE_H
