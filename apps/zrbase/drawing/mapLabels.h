#ifndef ZRBASE_APPS_DRAWING_MAPLABELS_H
#define ZRBASE_APPS_DRAWING_MAPLABELS_H

#include <QLineF>
#include <QPolygonF>
#include <QRectF>
#include <QString>
#include <vector>

class QPainter;

/// Places short texts beside markers where they cover the least.
class MapLabels {
 public:
  explicit MapLabels(const QRectF& frame) : frame_(frame) {}

  /// A line that labels should not cover.
  void avoid(const QPolygonF& line);
  /// A box that labels must not cover.
  void avoid(const QRectF& box) { taken_.push_back(box); }

  /// Writes the text beside the marker, with a light rim; leaves it out where every place around is
  /// taken.
  void draw(QPainter& painter, const QPointF& marker, double markerRadius, const QString& text);

 private:
  double cost(const QRectF& box) const;

  QRectF frame_;
  std::vector<QLineF> lines_;
  std::vector<QRectF> taken_;
};

#endif  // ZRBASE_APPS_DRAWING_MAPLABELS_H
