#ifndef ZRBASE_APPS_COLOUR_COLOURSHEET_H
#define ZRBASE_APPS_COLOUR_COLOURSHEET_H

#include <vector>

#include "colour/colourModel.h"
#include "common/safeOutput.h"

/// Draws a sheet of swatches, row by row in their order, with what was given, hex and index below
/// each. Needs no display.
/// @throws CommandError if there are too many for a sheet, or it cannot be written
void drawColourSheet(const SafeOutput& output, const std::vector<NamedColour>& colours);

#endif  // ZRBASE_APPS_COLOUR_COLOURSHEET_H
