#ifndef ZRBASE_APPS_COLUMN_COLUMNPICTURE_H
#define ZRBASE_APPS_COLUMN_COLUMNPICTURE_H

#include <string>
#include <vector>

#include "column/columnFile.h"
#include "common/safeOutput.h"

/// Draws the units as boxes of one height, the first one on top, each with its name; long columns
/// go on to the right. Values that ascend stand at the lower boundaries, others beside the boxes.
/// Needs no display.
/// @param source  name of the file, for the line below the title
/// @throws CommandError if there are too many units for a picture, or it cannot be written
void drawColumnPicture(const SafeOutput& output, const std::vector<ColumnUnit>& units,
                       const std::string& title, const std::string& source);

#endif  // ZRBASE_APPS_COLUMN_COLUMNPICTURE_H
