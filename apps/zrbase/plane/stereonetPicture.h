#ifndef ZRBASE_APPS_PLANE_STEREONETPICTURE_H
#define ZRBASE_APPS_PLANE_STEREONETPICTURE_H

#include <string>
#include <vector>

#include "common/safeOutput.h"
#include "plane/planeModel.h"

/// What a stereonet shows.
struct StereonetContent {
  const std::vector<FittedPlane>* planes = nullptr;
  PlaneMethod method = PlaneMethod::ls;
  std::string systemText;  ///< the coordinate system, for the line below the title
  std::string sourceText;  ///< where the points come from, likewise
  bool gridNorth = false;  ///< azimuths count from the north of that system
};

/// Draws the poles of the planes, and the planes themselves where they are few, on a
/// lower-hemisphere equal-area net, with a legend and a table of the first planes beside it. Needs
/// no display. @throws CommandError if the picture cannot be written
void drawStereonetPicture(const SafeOutput& output, const StereonetContent& content);

#endif  // ZRBASE_APPS_PLANE_STEREONETPICTURE_H
