#ifndef ZRBASE_APPS_SPLIT_SPLITCOMMAND_H
#define ZRBASE_APPS_SPLIT_SPLITCOMMAND_H

#include "common/command.h"

/// Adds `zrbase split` to the application: cuts the lines of a file where those of another cross
/// them.
Command addSplitCommand(CLI::App& application);

#endif  // ZRBASE_APPS_SPLIT_SPLITCOMMAND_H
