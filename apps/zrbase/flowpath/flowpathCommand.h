#ifndef ZRBASE_APPS_FLOWPATH_FLOWPATHCOMMAND_H
#define ZRBASE_APPS_FLOWPATH_FLOWPATHCOMMAND_H

#include "common/command.h"

/// Adds `zrbase flowpath` to the application: reads fault traces, makes bisectors, paths and moved
/// places, and writes them, the picture and the summary.
///
/// Nothing appears under the output's names before everything is made.
Command addFlowpathCommand(CLI::App& application);

#endif  // ZRBASE_APPS_FLOWPATH_FLOWPATHCOMMAND_H
