#ifndef ZRBASE_APPS_COMMON_COMMANDOPTIONS_H
#define ZRBASE_APPS_COMMON_COMMANDOPTIONS_H

#include <string>

#include "common/metricInput.h"

namespace CLI {
class App;
}

/// @file
/// Options that jobs have in common, so that they read and mean the same in each.

/// Adds the input file with --layer, --where, --crs and --skip-bad.
/// @param name  how the help calls the file, "LINES"
/// @param holds  what is read from it, "lines"
void addInputOptions(CLI::App& command, const std::string& name, const std::string& holds,
                     InputOptions& options);

/// Adds the required -o.
void addOutputOption(CLI::App& command, std::string& output);

#endif  // ZRBASE_APPS_COMMON_COMMANDOPTIONS_H
