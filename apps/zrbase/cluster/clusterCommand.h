#ifndef ZRBASE_APPS_CLUSTER_CLUSTERCOMMAND_H
#define ZRBASE_APPS_CLUSTER_CLUSTERCOMMAND_H

#include "common/command.h"

namespace CLI {
class App;
}

/// Adds `zrbase cluster`: points in clusters by their coordinates or attributes.
Command addClusterCommand(CLI::App& application);

#endif  // ZRBASE_APPS_CLUSTER_CLUSTERCOMMAND_H
