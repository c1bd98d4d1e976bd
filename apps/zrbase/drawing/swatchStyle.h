#ifndef ZRBASE_APPS_DRAWING_SWATCHSTYLE_H
#define ZRBASE_APPS_DRAWING_SWATCHSTYLE_H

#include <zrBase/utilities/colours.h>

#include <QColor>
#include <QPen>
#include <QString>
#include <cmath>
#include <string>

#include "common/textFormat.h"
#include "drawing/mapStyle.h"

/// @file
/// Boxes of a plain colour, and the text on them.

namespace swatchStyle {

/// @param packed  0x00BBGGRR
inline QColor colourOf(int packed) {
  return {zrUtils::getRed(packed), zrUtils::getGreen(packed), zrUtils::getBlue(packed)};
}

/// From 0 for black to 1 for white: relative luminance of sRGB (IEC 61966-2-1, 1999).
inline double luminance(const QColor& colour) {
  const auto linear = [](double share) {
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

/// Dark or light, whichever stands out more on the colour: both contrasts are equal at 0.207.
inline QColor textOn(const QColor& colour) {
  return luminance(colour) > 0.207 ? mapStyle::ink() : QColor(Qt::white);
}

inline QPen outline() { return QPen(QColor(120, 124, 130), 0.8); }

/// Text of any bytes: as UTF-8, or else as Latin-1; without line ends and other controls.
inline QString shownText(const std::string& bytes) {
  const std::string line = textFormat::oneLine(bytes);
  const QString text = QString::fromStdString(line);
  return text.contains(QChar::ReplacementCharacter) ? QString::fromLatin1(line.c_str()) : text;
}

}  // namespace swatchStyle

#endif  // ZRBASE_APPS_DRAWING_SWATCHSTYLE_H
