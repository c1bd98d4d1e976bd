#ifndef ZRBASE_APPS_FUSE_FUSECOMMAND_H
#define ZRBASE_APPS_FUSE_FUSECOMMAND_H

#include "common/command.h"

/// Adds `zrbase fuse` to the application: chains lines whose ends match into longer ones.
Command addFuseCommand(CLI::App& application);

#endif  // ZRBASE_APPS_FUSE_FUSECOMMAND_H
