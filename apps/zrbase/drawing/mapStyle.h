#ifndef ZRBASE_APPS_DRAWING_MAPSTYLE_H
#define ZRBASE_APPS_DRAWING_MAPSTYLE_H

#include <QColor>
#include <QFont>
#include <QPen>
#include <string>

/// @file
/// Colours, pens, fonts and length texts of the map, so that the map and its legend cannot differ.

namespace mapStyle {

/// Sizes for few traces, or thinner ones for many.
struct Weights {
  double trace;
  double path;
  double bisector;
  double marker;
};
Weights weightsFor(std::size_t traceCount);

QColor ink();         ///< text, frame, traces
QColor quietInk();    ///< secondary text
QColor background();  ///< of the map
QColor gridLine();

QPen tracePen(double width);
QPen rootPen(double width);
QPen mergedPen(double width);
QPen movePen(double width);

/// The colour of a height: blue right of the trace, grey on it, orange to brown left of it.
///
/// The two ends differ in lightness as well as hue for every kind of colour vision, and no colour
/// is as light as paper.
/// @param largest  the largest absolute height; 0 gives the colour of height 0
QColor heightColour(double height, double largest);

QFont font(int pixels, bool bold = false);

/// "2.5 km", "800 m"; with a sign where asked for ("+2.5 km", "−800 m").
std::string lengthText(double metres, bool withSign);
/// The number alone, in units of `unit` metres, at most two decimals: "-2.5".
std::string numberText(double metres, double unit, bool withSign);

}  // namespace mapStyle

#endif  // ZRBASE_APPS_DRAWING_MAPSTYLE_H
