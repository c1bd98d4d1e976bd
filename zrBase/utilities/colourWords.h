#ifndef ZRBASE_UTILITIES_COLOURWORDS_H
#define ZRBASE_UTILITIES_COLOURWORDS_H

#include <zrBase/export.h>

#include <string>

/// Colours by their names. The case of the letters A to Z does not matter; every other character
/// does, whatever the locale. A word is compared whole, and one that is not known is white: there
/// is no telling it from the word white.
namespace zrUtils {

/// The packed colour, 0x00BBGGRR, of a word in the files of the suite.
///
/// | Word                              | Colour   | Word                           | Colour   |
/// |-----------------------------------|----------|--------------------------------|----------|
/// | black, bla                        | 0x000000 | orange, ora                    | 0x0080FF |
/// | white, whi                        | 0xFFFFFF | purple, pur, magenta, mag      | 0xFF00FF |
/// | red                               | 0x0000FF | pink                           | 0x8000FF |
/// | green, gre                        | 0x00FF00 | dark_grey, dark grey           | 0x404040 |
/// | blue, blu                         | 0xFF0000 | light_grey, light grey         | 0xB0B0B0 |
/// | dark blue                         | 0x660000 | grey                           | 0x808080 |
/// | light blue                        | 0xFFA584 | cyan                           | 0xFFFF00 |
/// | dark green                        | 0x008800 | green yellow, blue violet      | 0x808080 |
/// | light green                       | 0x00FF80 | aquamarine, firebrick          | 0x808080 |
/// | yellow, yel                       | 0x00FFFF |                                |          |
///
/// The last four are grey, and "gray" is not known.
/// @return 0xFFFFFF for any other text
ZRBASE_EXPORT int convertTextToColour(const std::string& text);

/// The packed colour, 0x00BBGGRR, of a colour name of a Motif display, 130 of them.
///
/// Blanks, but no tabs or other white space, are taken out of the text before it is compared:
/// "Light Blue" is lightblue. Some names have colours of their own here: snow is 0xFFFFFF, blue and
/// mediumblue 0xCD0000, lightgoldenrod 0x8216EE. Four names, midnight blue, light steel blue, light
/// goldenrod yellow and deep pink, cannot be found, in whichever way they are written.
/// @return 0xFFFFFF for any other text
ZRBASE_EXPORT int convertMotifTextToColour(const std::string& text);

}  // namespace zrUtils

#endif  // ZRBASE_UTILITIES_COLOURWORDS_H
