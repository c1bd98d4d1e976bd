#include "cluster/scatterPanel.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <vector>

#include "cluster/clusterColours.h"
#include "drawing/mapLabels.h"
#include "drawing/mapStyle.h"
#include "drawing/mapText.h"

namespace {

constexpr std::size_t kMostDrawn = 20000;  // one by one
constexpr std::size_t kManyInImage = 200000;
constexpr double kImageScale = 2.0;  // pixels of the image in a page unit
constexpr std::size_t kManyCenters = 40;

/// Draws one panel.
class PanelPainter {
 public:
  PanelPainter(QPainter& painter, const ScatterContent& content, const ScatterFrame& frame)
      : painter_(painter),
        text_(painter),
        content_(content),
        frame_(frame),
        clusterCount_(content.clustering.clusters.size()) {}

  void drawGround(const ScatterTitles& titles) {
    const QRectF& box = frame_.frame;
    painter_.fillRect(box, mapStyle::background());
    for (const AxisTick& tick : frame_.ticksAcross()) {
      const double x = frame_.toPage(tick.value, 0.0).x();
      painter_.setPen(QPen(mapStyle::gridLine(), 1.0));
      painter_.drawLine(QPointF(x, box.top()), QPointF(x, box.bottom()));
      painter_.setPen(QPen(mapStyle::ink(), 1.0));
      painter_.drawLine(QPointF(x, box.bottom()), QPointF(x, box.bottom() + 5.0));
      text_.centred(QPointF(x, box.bottom() + 19.0), tick.text, 12);
    }
    const std::vector<AxisTick> ticksUp = frame_.ticksUp();
    for (const AxisTick& tick : ticksUp) {
      const double y = frame_.toPage(0.0, tick.value).y();
      painter_.setPen(QPen(mapStyle::gridLine(), 1.0));
      painter_.drawLine(QPointF(box.left(), y), QPointF(box.right(), y));
      painter_.setPen(QPen(mapStyle::ink(), 1.0));
      painter_.drawLine(QPointF(box.left() - 5.0, y), QPointF(box.left(), y));
      text_.endingAt(QPointF(box.left() - 9.0, y + 4.3), tick.text, 12);
    }
    text_.centred(QPointF(box.center().x(), box.bottom() + 41.0), titles.across, 13);
    painter_.save();
    painter_.translate(box.left() - 9.0 - widestText(ticksUp) - 12.0, box.center().y());
    painter_.rotate(-90.0);
    text_.centred(QPointF(0.0, 0.0), titles.up, 13);
    painter_.restore();
  }

  void drawPoints() {
    if (content_.points.size() <= kMostDrawn) {
      drawEach();
    } else {
      painter_.drawImage(frame_.frame, pointImage());
    }
  }

  void drawCenters() {
    MapLabels labels(frame_.frame);
    const double radius = clusterCount_ > kManyCenters ? 4.0 : 6.5;
    std::vector<QPointF> places;
    for (std::size_t k = 0; k < clusterCount_; ++k) {
      const Cluster& cluster = content_.clustering.clusters[k];
      const double up = content_.oneColumn() ? static_cast<double>(k) : cluster.center[content_.up];
      places.push_back(frame_.toPage(cluster.center[content_.across], up));
      scatterMarks::drawCenter(painter_, places[k], clusterColour(k, clusterCount_), radius);
      labels.avoid(
          QRectF(places[k].x() - radius, places[k].y() - radius, 2.0 * radius, 2.0 * radius));
    }
    if (content_.oneColumn()) {
      avoidRows(labels);
    }
    for (std::size_t k = 0; k < clusterCount_; ++k) {
      labels.draw(painter_, places[k], radius, QString::number(k));
    }
  }

  void drawOutline() {
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(mapStyle::ink(), 1.0));
    painter_.drawRect(frame_.frame);
  }

 private:
  std::size_t clusterOf(std::size_t point) const {
    return static_cast<std::size_t>(content_.clustering.clusterOf[point]);
  }

  QPointF placeOf(std::size_t point) const {
    const double up = content_.oneColumn() ? static_cast<double>(clusterOf(point))
                                           : content_.points.value(point, content_.up);
    return frame_.toPage(content_.points.value(point, content_.across), up);
  }

  // Each cluster of a single column is a row of points.
  void avoidRows(MapLabels& labels) const {
    std::vector<QPolygonF> rows(clusterCount_);
    for (std::size_t i = 0; i < content_.points.size(); ++i) {
      const QPointF place = placeOf(i);
      QPolygonF& row = rows[clusterOf(i)];
      if (row.isEmpty()) {
        row = QPolygonF(QVector<QPointF>{place, place});
      }
      row[0] = place.x() < row[0].x() ? place : row[0];
      row[1] = place.x() > row[1].x() ? place : row[1];
    }
    for (const QPolygonF& row : rows) {
      labels.avoid(row);
    }
  }

  // Cluster by cluster: a change of colour is a group of its own in an SVG.
  void drawEach() {
    const double radius = content_.points.size() > 2000 ? 1.6 : 2.6;
    std::vector<std::vector<std::size_t>> members(clusterCount_);
    for (std::size_t i = 0; i < content_.points.size(); ++i) {
      members[clusterOf(i)].push_back(i);
    }
    for (std::size_t k = 0; k < clusterCount_; ++k) {
      painter_.setPen(Qt::NoPen);
      painter_.setBrush(clusterColour(k, clusterCount_));
      for (const std::size_t i : members[k]) {
        painter_.drawEllipse(placeOf(i), radius, radius);
      }
    }
  }

  QImage pointImage() const {
    QImage image((frame_.frame.size() * kImageScale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    std::vector<QRgb> colours;
    for (std::size_t k = 0; k < clusterCount_; ++k) {
      colours.push_back(clusterColour(k, clusterCount_).rgba());
    }
    const int size = content_.points.size() > kManyInImage ? 2 : 3;
    for (std::size_t i = 0; i < content_.points.size(); ++i) {
      const QPointF place = (placeOf(i) - frame_.frame.topLeft()) * kImageScale;
      const int left = static_cast<int>(std::lround(place.x() - size / 2.0));
      const int top = static_cast<int>(std::lround(place.y() - size / 2.0));
      for (int y = std::max(0, top); y < std::min(image.height(), top + size); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = std::max(0, left); x < std::min(image.width(), left + size); ++x) {
          line[x] = colours[clusterOf(i)];
        }
      }
    }
    return image;
  }

  QPainter& painter_;
  const MapText text_;
  const ScatterContent& content_;
  const ScatterFrame& frame_;
  const std::size_t clusterCount_;
};

}  // namespace

void drawScatterPanel(QPainter& painter, const ScatterContent& content, const ScatterFrame& frame,
                      const ScatterTitles& titles) {
  PanelPainter panel(painter, content, frame);
  panel.drawGround(titles);
  panel.drawPoints();
  panel.drawOutline();
  panel.drawCenters();
}

namespace scatterMarks {

void drawPoint(QPainter& painter, const QPointF& place, const QColor& colour, double radius) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawEllipse(place, radius, radius);
}

void drawCenter(QPainter& painter, const QPointF& place, const QColor& colour, double radius) {
  painter.setPen(QPen(mapStyle::ink(), radius > 5.0 ? 1.6 : 1.1));
  painter.setBrush(Qt::white);
  painter.drawEllipse(place, radius, radius);
  drawPoint(painter, place, colour, 0.5 * radius);
}

}  // namespace scatterMarks
