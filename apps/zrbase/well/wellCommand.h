#ifndef ZRBASE_APPS_WELL_WELLCOMMAND_H
#define ZRBASE_APPS_WELL_WELLCOMMAND_H

#include "common/command.h"

/// Adds `zrbase well` to the application: reads a directional survey, computes the places of its
/// stations, and writes them, the picture and the summary.
///
/// Odd stations are told on the standard error stream when the output stands. Nothing appears under
/// the output's names before everything is made.
Command addWellCommand(CLI::App& application);

#endif  // ZRBASE_APPS_WELL_WELLCOMMAND_H
