#ifndef ZRBASE_UTILITIES_COLOURINDEX_H
#define ZRBASE_UTILITIES_COLOURINDEX_H

#include <zrBase/export.h>

#include <QColor>

/// A colour as three fractions from 0.0 to 1.0.
struct ACADRGB {
  double red;    ///< 0.0 to 1.0
  double green;  ///< 0.0 to 1.0
  double blue;   ///< 0.0 to 1.0
};

/// The Acad colour index, 1 to 255, and hue, saturation and value.
///
/// | Index      | Colours                                                                        |
/// |------------|--------------------------------------------------------------------------------|
/// | 1 to 6     | red, yellow, green, cyan, blue, magenta                                        |
/// | 7 to 9     | white                                                                          |
/// | 10 to 249  | a hue for each ten, from red on every 15 degrees; of the ten the even ones are |
/// |            | full colours and the odd ones half saturated, in pairs of the same brightness: |
/// |            | 1, 0.65, 0.5, 0.6, 0.3                                                         |
/// | 250 to 255 | greys: 0.66, 0.928, 0.598, 0.732, 0.866, 1                                     |
///
/// The steps of brightness and the greys are not in order. All of them but 1 and 0.5 come from
/// single precision, and are up to 6e-8 off the figures above.
namespace zrUtils {

/// The colour of an index; white for one that is not from 1 to 255.
/// @param out  not a null pointer
ZRBASE_EXPORT void AcadRgb(int index, ACADRGB* out);

/// The colour of an index packed, 0x00BBGGRR: 255 times each fraction, to the nearest whole number,
/// halves up. White for an index that is not from 1 to 255.
ZRBASE_EXPORT unsigned int AcadToColorRef(int index);
/// The same into `out`.
ZRBASE_EXPORT void AcadToColorRef(int index, unsigned int& out);

/// The index of a packed colour, 0x00BBGGRR.
///
/// The six pure colours have their indices, 1 to 6, and black as well as white has 7. For any other
/// colour the mode decides:
/// - 8: a pure colour, 1 to 6, by the hue alone: 1 for hues strictly below 30 and from 330 degrees
///   on, 2 from 30 on, and so on; 7 for every grey.
/// - else: the index with the nearest colour by the distance in red, green and blue, the lowest of
///   several; where the three are equal only the greys of 250 to 255 are looked at. White for 255,
///   that is 7.
///
/// A colour with anything in its top byte is none of the pure ones, nor black or white; its other
/// three bytes are taken as usual from there on. So black with a top byte is 252, the darkest grey.
/// @note Not for a Qt::GlobalColor, which would be taken as a number; make a QColor of it.
ZRBASE_EXPORT int ColorRefToAcad(unsigned int c, int mode);

/// The same for a QColor. It is one of the pure colours, black or white if QColor's own comparison
/// says so: not if it is translucent, invalid, or has been made as anything but RGB. From there on
/// its red(), green() and blue() are taken.
ZRBASE_EXPORT int ColorRefToAcad(const QColor& c, int mode);

/// Hue, saturation and value of a colour (A. R. Smith, 1978).
/// @param r, g, b  fractions from 0 to 1
/// @param h  degrees from 0 to 360, red at 0, green at 120, blue at 240; -1 for a grey
/// @param s  0 for a grey, up to 1
/// @param v  the largest of the three
ZRBASE_EXPORT void RgbHsv(double r, double g, double b, double& h, double& s, double& v);

}  // namespace zrUtils

#endif  // ZRBASE_UTILITIES_COLOURINDEX_H
