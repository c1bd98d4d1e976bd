#ifndef ZRBASE_APPS_PLANE_PLANECOMMAND_H
#define ZRBASE_APPS_PLANE_PLANECOMMAND_H

#include "common/command.h"

/// Adds `zrbase plane` to the application: reads sets of points, fits a plane to each, and writes
/// centres with orientations, the stereonet and the summary.
///
/// Nothing appears under the output's names before everything is made.
Command addPlaneCommand(CLI::App& application);

#endif  // ZRBASE_APPS_PLANE_PLANECOMMAND_H
