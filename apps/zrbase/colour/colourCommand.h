#ifndef ZRBASE_APPS_COLOUR_COLOURCOMMAND_H
#define ZRBASE_APPS_COLOUR_COLOURCOMMAND_H

#include "common/command.h"

/// Adds `zrbase colour` to the application: tells what colours are, by word, #RRGGBB or index, as a
/// table with swatches, a CSV table and a sheet of swatches.
Command addColourCommand(CLI::App& application);

#endif  // ZRBASE_APPS_COLOUR_COLOURCOMMAND_H
