#ifndef ZRBASE_APPS_PLANE_PLANEOUTPUT_H
#define ZRBASE_APPS_PLANE_PLANEOUTPUT_H

#include <vector>

#include "common/modelSystem.h"
#include "common/safeOutput.h"
#include "plane/planeModel.h"

/// Writes the layer `planes`: a point with z at the centre of each set, with its orientation.
///
/// A horizontal plane has no value for `dip_azimuth` and `strike`. The field `crs` tells the system
/// of the coordinates, which a table cannot.
/// @throws CommandError if not every feature arrives in the file
void writePlanes(const SafeOutput& output, const SpatialReference& system, PlaneMethod method,
                 const std::vector<FittedPlane>& planes);

#endif  // ZRBASE_APPS_PLANE_PLANEOUTPUT_H
