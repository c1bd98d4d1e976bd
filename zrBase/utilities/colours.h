#ifndef ZRBASE_UTILITIES_COLOURS_H
#define ZRBASE_UTILITIES_COLOURS_H

#include <zrBase/export.h>

/// @file
/// Packed colours: an int 0x00BBGGRR, with red in the low byte, then green, then blue.

/// Colours of the suite, packed.
/// @{
extern ZRBASE_EXPORT const int RGB_BLACK;        ///< 0x000000
extern ZRBASE_EXPORT const int RGB_WHITE;        ///< 0xFFFFFF
extern ZRBASE_EXPORT const int RGB_RED;          ///< 0x0000FF
extern ZRBASE_EXPORT const int RGB_GREEN;        ///< 0x00FF00
extern ZRBASE_EXPORT const int RGB_BLUE;         ///< 0xFF0000
extern ZRBASE_EXPORT const int RGB_MAGENTA;      ///< 0xFF00FF
extern ZRBASE_EXPORT const int RGB_CYAN;         ///< 0xFFFF00
extern ZRBASE_EXPORT const int RGB_YELLOW;       ///< 0x00FFFF
extern ZRBASE_EXPORT const int RGB_LIGHT_BLUE;   ///< 0xFFA584
extern ZRBASE_EXPORT const int RGB_DARK_BLUE;    ///< 0x660000
extern ZRBASE_EXPORT const int RGB_LIGHT_GREEN;  ///< 0x00FF80
extern ZRBASE_EXPORT const int RGB_DARK_GREEN;   ///< 0x008800
extern ZRBASE_EXPORT const int RGB_ORANGE;       ///< 0x0080FF
extern ZRBASE_EXPORT const int RGB_PINK;         ///< 0x8000FF
extern ZRBASE_EXPORT const int RGB_GRAY;         ///< 0x808080
extern ZRBASE_EXPORT const int RGB_LIGHT_GRAY;   ///< 0xB0B0B0
extern ZRBASE_EXPORT const int RGB_DARK_GRAY;    ///< 0x404040
/// @}

/// Packing of colours, and a cycle of twelve of them.
namespace zrUtils {

/// Packs three components, each meant to be from 0 to 255.
///
/// They are not cut to a byte: what does not fit spills into the components above, and a negative
/// one fills all the bits above its own. Bits beyond the 32nd are lost.
constexpr int rgb(int r, int g, int b) {
  // Kept on purpose (KeptPackedComponentsAreNotMasked): rgb(256, 0, 0) has a green of 1.
  const unsigned int blueGreen = static_cast<unsigned int>(b) << 8 | static_cast<unsigned int>(g);
  return static_cast<int>(blueGreen << 8 | static_cast<unsigned int>(r));
}

/// Exchanges the first and the third byte, 0x00BBGGRR and 0x00RRGGBB, either way.
constexpr int rgbTobgr(int c) {
  // Kept on purpose (KeptByteSwapDropsTheTopByte): the top byte of the result is 0, so that two
  // swaps do not give back a colour that came with an alpha.
  return (c & 0xFF) << 16 | (c & 0xFF00) | (c >> 16 & 0xFF);
}

/// The same as rgbTobgr.
constexpr int bgrTorgb(int c) { return rgbTobgr(c); }

/// The low byte.
constexpr unsigned char getRed(int c) { return static_cast<unsigned char>(c & 0xFF); }

/// The second byte.
constexpr unsigned char getGreen(int c) { return static_cast<unsigned char>(c >> 8 & 0xFF); }

/// The third byte.
constexpr unsigned char getBlue(int c) { return static_cast<unsigned char>(c >> 16 & 0xFF); }

/// A colour for the i-th of any number of things: twelve in turn, from 0 on white, red, green,
/// pink, yellow, blue, gray, magenta, cyan, yellow again, dark blue and dark green. White for every
/// negative number.
ZRBASE_EXPORT int getColourFromInt(int i);

}  // namespace zrUtils

#endif  // ZRBASE_UTILITIES_COLOURS_H
