#ifndef ZRBASE_APPS_POLYGONS_POLYGONSCOMMAND_H
#define ZRBASE_APPS_POLYGONS_POLYGONSCOMMAND_H

#include "common/command.h"

/// Adds `zrbase polygons` to the application: orders rings into outer and inner ones, repairs
/// rings, or closes lines along a boundary.
Command addPolygonsCommand(CLI::App& application);

#endif  // ZRBASE_APPS_POLYGONS_POLYGONSCOMMAND_H
