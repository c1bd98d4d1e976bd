#include "drawing/mapText.h"

#include <QFontMetricsF>
#include <QPainter>

void MapText::startingAt(const QPointF& place, const QString& text, int pixels,
                         const QColor& colour, bool bold, double room) const {
  const QFont font = mapStyle::font(pixels, bold);
  painter_.setFont(font);
  painter_.setPen(colour);
  const QString shown =
      room > 0.0 ? QFontMetricsF(font).elidedText(text, Qt::ElideRight, room) : text;
  painter_.drawText(place, shown);
}

void MapText::centred(const QPointF& place, const QString& text, int pixels,
                      const QColor& colour) const {
  const double width = QFontMetricsF(mapStyle::font(pixels)).horizontalAdvance(text);
  startingAt(place - QPointF(width / 2.0, 0.0), text, pixels, colour);
}

void MapText::endingAt(const QPointF& place, const QString& text, int pixels,
                       const QColor& colour) const {
  const double width = QFontMetricsF(mapStyle::font(pixels)).horizontalAdvance(text);
  startingAt(place - QPointF(width, 0.0), text, pixels, colour);
}
