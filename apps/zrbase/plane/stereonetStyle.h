#ifndef ZRBASE_APPS_PLANE_STEREONETSTYLE_H
#define ZRBASE_APPS_PLANE_STEREONETSTYLE_H

#include <QColor>
#include <QPainter>
#include <QPen>
#include <QPointF>
#include <array>
#include <cstddef>

#include "drawing/mapStyle.h"

/// @file
/// Colours and sizes that net, legend and table of a stereonet share.

namespace stereonetStyle {

/// Beyond this many, planes are shown by their poles alone.
constexpr std::size_t kMostGreatCircles = 30;
/// Rows of the table, and the most poles with labels: more stand too close to tell whose is whose.
constexpr std::size_t kMostNamed = 15;

inline bool showsGreatCircles(std::size_t planes) { return planes <= kMostGreatCircles; }

/// Few planes have a colour each, that every kind of colour vision tells apart (Okabe and Ito,
/// 2008); many share one.
inline QColor colourOf(std::size_t index, std::size_t planes) {
  constexpr std::array<std::array<int, 3>, 6> kColours = {
      {{0, 114, 178}, {213, 94, 0}, {0, 158, 115}, {204, 121, 167}, {160, 120, 0}, {86, 180, 233}}};
  const std::array<int, 3>& rgb = kColours[planes <= kColours.size() ? index : 0];
  return {rgb[0], rgb[1], rgb[2]};
}

inline bool hasColourEach(std::size_t planes) { return planes > 1 && planes <= 6; }

inline double markerRadius(std::size_t planes) { return planes <= kMostGreatCircles ? 5.2 : 3.2; }

inline QPen netPen() { return QPen(QColor(208, 208, 204), 0.7, Qt::SolidLine, Qt::RoundCap); }

inline QPen planePen(const QColor& colour, std::size_t planes) {
  return QPen(colour, planes > 8 ? 1.0 : 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

inline void drawPole(QPainter& painter, const QPointF& place, const QColor& colour, double radius) {
  painter.setPen(QPen(Qt::white, radius > 4.0 ? 1.3 : 0.7));
  painter.setBrush(colour);
  painter.drawEllipse(place, radius, radius);
}

}  // namespace stereonetStyle

#endif  // ZRBASE_APPS_PLANE_STEREONETSTYLE_H
