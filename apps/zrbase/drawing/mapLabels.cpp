#include "drawing/mapLabels.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <limits>

#include "drawing/mapStyle.h"

namespace {

constexpr double kImpossible = std::numeric_limits<double>::infinity();
constexpr double kGap = 3.0;

bool crosses(const QRectF& box, const QLineF& line) {
  if (box.contains(line.p1()) || box.contains(line.p2())) {
    return true;
  }
  const QLineF diagonals[2] = {{box.topLeft(), box.bottomRight()},
                               {box.topRight(), box.bottomLeft()}};
  for (const QLineF& diagonal : diagonals) {
    QPointF hit;
    if (line.intersects(diagonal, &hit) == QLineF::BoundedIntersection) {
      return true;
    }
  }
  return false;
}

}  // namespace

void MapLabels::avoid(const QPolygonF& line) {
  for (int i = 1; i < line.size(); ++i) {
    lines_.emplace_back(line[i - 1], line[i]);
  }
}

double MapLabels::cost(const QRectF& box) const {
  if (!frame_.contains(box.adjusted(-4.0, -4.0, 4.0, 4.0))) {
    return kImpossible;
  }
  for (const QRectF& other : taken_) {
    if (other.intersects(box)) {
      return kImpossible;
    }
  }
  double crossed = 0.0;
  for (const QLineF& line : lines_) {
    crossed += crosses(box, line) ? 1.0 : 0.0;
  }
  return crossed;
}

void MapLabels::draw(QPainter& painter, const QPointF& marker, double markerRadius,
                     const QString& text) {
  const QFont font = mapStyle::font(12, true);
  const QFontMetricsF metrics(font);
  const QSizeF size(metrics.horizontalAdvance(text), metrics.capHeight());
  QRectF best;
  double bestCost = kImpossible;
  // Beside first, then above and below, then the corners, then the same a little further out.
  const QPointF places[8] = {{1, 0}, {-1, 0}, {0, -1}, {0, 1}, {1, -1}, {-1, -1}, {1, 1}, {-1, 1}};
  for (const double distance : {0.0, 7.0, 16.0}) {
    for (const QPointF& place : places) {
      const double away = markerRadius + kGap + distance;
      QRectF box(QPointF(), size);
      box.moveCenter(marker + QPointF(place.x() * (away + size.width() / 2.0),
                                      place.y() * (away + size.height() / 2.0)));
      const double boxCost = cost(box.adjusted(-1.5, -2.5, 1.5, 2.5)) + distance * 0.02;
      if (boxCost < bestCost) {
        bestCost = boxCost;
        best = box;
      }
    }
  }
  if (bestCost == kImpossible) {
    return;
  }
  taken_.push_back(best.adjusted(-2.0, -3.0, 2.0, 3.0));
  QPainterPath outline;
  outline.addText(best.bottomLeft(), font, text);
  painter.strokePath(
      outline, QPen(QColor(255, 255, 255, 230), 3.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.fillPath(outline, mapStyle::ink());
}
