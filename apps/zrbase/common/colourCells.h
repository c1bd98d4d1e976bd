#ifndef ZRBASE_APPS_COMMON_COLOURCELLS_H
#define ZRBASE_APPS_COMMON_COLOURCELLS_H

#include <iosfwd>
#include <string>
#include <vector>

/// @file
/// Packed colours, 0x00BBGGRR, in tables: as text, and as a swatch on a terminal.

namespace colourCells {

/// "#RRGGBB".
std::string hexText(int packed);

/// The index with the nearest colour, see zrUtils::ColorRefToAcad.
int nearestIndex(int packed);

/// Whether swatches are shown: the standard output is a terminal, and the environment has neither
/// NO_COLOR with a text nor a dumb TERM.
bool terminalShowsColours();

/// Writes a table as summaryText::writeTable does, with a swatch of its colour before each row
/// below the heading where the terminal shows colours.
/// @param colours  one for each row but the heading
void writeTable(std::ostream& out, const std::vector<std::vector<std::string>>& rows,
                const std::vector<int>& colours);

/// The colour of the index with the nearest colour, "#RRGGBB".
std::string nearestIndexHex(int packed);

}  // namespace colourCells

#endif  // ZRBASE_APPS_COMMON_COLOURCELLS_H
