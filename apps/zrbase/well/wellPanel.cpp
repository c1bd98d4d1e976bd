#include "well/wellPanel.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <string>

#include "drawing/mapLabels.h"
#include "drawing/mapStyle.h"
#include "drawing/mapText.h"

namespace {

constexpr double kWellheadRadius = 7.0;
constexpr double kStationRadius = 1.9;
constexpr double kDepthRadius = 4.2;
constexpr double kEndRadius = 4.6;
constexpr double kClosestDepths = 17.0;  // marks nearer than that would cover one another

QRectF boxAround(const QPointF& place, double radius) {
  return QRectF(place.x() - radius, place.y() - radius, 2.0 * radius, 2.0 * radius);
}

QString tickText(double value) {
  return QString::fromStdString(mapStyle::numberText(value, 1.0, false));
}

/// Draws one panel.
class PanelPainter {
 public:
  PanelPainter(QPainter& painter, const ScaledFrame& frame, const WellPanel& panel)
      : painter_(painter),
        text_(painter),
        frame_(frame),
        panel_(panel),
        labels_(frame.frame()),
        wellhead_(frame.toPage(PlanePoint())),
        end_(frame.toPage(panel.stations.back())) {}

  void draw() {
    drawGround();
    drawPath();
    drawMarks();
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(mapStyle::ink(), 1.0));
    painter_.drawRect(frame_.frame());
  }

 private:
  void drawGround() {
    const QRectF& box = frame_.frame();
    painter_.fillRect(box, mapStyle::background());
    for (const double across : frame_.ticksAcross()) {
      const double x = frame_.toPage({across, 0.0}).x();
      painter_.setPen(QPen(mapStyle::gridLine(), 1.0));
      painter_.drawLine(QPointF(x, box.top()), QPointF(x, box.bottom()));
      painter_.setPen(QPen(mapStyle::ink(), 1.0));
      painter_.drawLine(QPointF(x, box.bottom()), QPointF(x, box.bottom() + 5.0));
      text_.centred(QPointF(x, box.bottom() + 19.0), tickText(across), 12);
    }
    for (const double up : frame_.ticksUp()) {
      const double y = frame_.toPage({0.0, up}).y();
      painter_.setPen(QPen(mapStyle::gridLine(), 1.0));
      painter_.drawLine(QPointF(box.left(), y), QPointF(box.right(), y));
      painter_.setPen(QPen(mapStyle::ink(), 1.0));
      painter_.drawLine(QPointF(box.left() - 5.0, y), QPointF(box.left(), y));
      text_.endingAt(QPointF(box.left() - 9.0, y + 4.3), tickText(panel_.downwards ? -up : up), 12);
    }
    drawTitles();
  }

  void drawTitles() {
    const QRectF& box = frame_.frame();
    text_.startingAt(QPointF(box.left(), box.top() - 12.0), panel_.title, 14, mapStyle::ink(),
                     true);
    text_.centred(QPointF(box.center().x(), box.bottom() + 41.0), panel_.acrossTitle, 13);
    painter_.save();
    painter_.translate(box.left() - 58.0, box.center().y());
    painter_.rotate(-90.0);
    text_.centred(QPointF(0.0, 0.0), panel_.upTitle, 13);
    painter_.restore();
  }

  void drawPath() {
    QPolygonF line;
    if (panel_.fromWellhead) {
      line.append(wellhead_);
    }
    line += frame_.toPage(panel_.stations);
    painter_.setBrush(Qt::NoBrush);
    if (panel_.closure) {
      painter_.setPen(wellMarks::closurePen());
      painter_.drawLine(wellhead_, end_);
      labels_.avoid(QPolygonF(QVector<QPointF>{wellhead_, end_}));
    }
    painter_.setPen(wellMarks::pathPen());
    painter_.drawPolyline(line);
    labels_.avoid(line);
  }

  void drawMarks() {
    const double radius = stationRadius();
    for (const PlanePoint& station : panel_.stations) {
      wellMarks::drawStation(painter_, frame_.toPage(station), radius);
    }
    const std::vector<DepthMark> depths = depthMarks();
    for (const DepthMark& depth : depths) {
      wellMarks::drawDepth(painter_, depth.place);
      labels_.avoid(boxAround(depth.place, kDepthRadius));
    }
    wellMarks::drawWellhead(painter_, wellhead_);
    wellMarks::drawEnd(painter_, end_);
    labels_.avoid(boxAround(wellhead_, kWellheadRadius));
    labels_.avoid(boxAround(end_, kEndRadius));
    labels_.draw(painter_, end_, kEndRadius + 2.0, panel_.endLabel);
    for (const DepthMark& depth : depths) {
      labels_.draw(painter_, depth.place, kDepthRadius, tickText(depth.depth));
    }
  }

  // Dots that touch would hide the path.
  double stationRadius() const {
    const QPolygonF line = frame_.toPage(panel_.stations);
    double length = 0.0;
    for (int i = 1; i < line.size(); ++i) {
      length += distance(line[i], line[i - 1]);
    }
    return std::clamp(0.2 * length / line.size(), 0.8, kStationRadius);
  }

  struct DepthMark {
    double depth;
    QPointF place;
  };

  bool isClear(const QPointF& place, const std::vector<DepthMark>& marks) const {
    bool clear = distance(place, wellhead_) >= kClosestDepths + kWellheadRadius &&
                 distance(place, end_) >= kClosestDepths;
    for (const DepthMark& mark : marks) {
      clear = clear && distance(place, mark.place) >= kClosestDepths;
    }
    return clear;
  }

  static double distance(const QPointF& a, const QPointF& b) {
    const QPointF d = a - b;
    return std::sqrt(d.x() * d.x() + d.y() * d.y());
  }

  // Round depths between the stations, where there is room for them.
  std::vector<DepthMark> depthMarks() const {
    std::vector<DepthMark> marks;
    double fromDepth = 0.0;
    QPointF from = wellhead_;
    for (std::size_t i = 0; i < panel_.stations.size(); ++i) {
      const double toDepth = panel_.depths[i];
      const QPointF to = frame_.toPage(panel_.stations[i]);
      const bool drawn = i > 0 || panel_.fromWellhead;
      for (double k = std::floor(fromDepth / panel_.depthStep) + 1.0;
           drawn && k * panel_.depthStep <= toDepth; k += 1.0) {
        const double depth = k * panel_.depthStep;
        const QPointF place = from + (to - from) * ((depth - fromDepth) / (toDepth - fromDepth));
        if (isClear(place, marks)) {
          marks.push_back({depth, place});
        }
      }
      fromDepth = toDepth;
      from = to;
    }
    return marks;
  }

  QPainter& painter_;
  const MapText text_;
  const ScaledFrame& frame_;
  const WellPanel& panel_;
  MapLabels labels_;
  const QPointF wellhead_;
  const QPointF end_;
};

}  // namespace

PlaneBox WellPanel::box() const {
  PlaneBox box;
  for (const PlanePoint& station : stations) {
    box.add(station);
  }
  return box;
}

void drawWellPanel(QPainter& painter, const ScaledFrame& frame, const WellPanel& panel) {
  PanelPainter(painter, frame, panel).draw();
}

namespace wellMarks {

QPen pathPen() {
  return QPen(QColor(33, 113, 181), 2.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

QPen closurePen() {
  QPen pen(QColor(150, 130, 96), 1.3);
  pen.setDashPattern({5.0, 4.0});
  return pen;
}

void drawWellhead(QPainter& painter, const QPointF& place) {
  painter.setPen(QPen(mapStyle::ink(), 1.5));
  painter.setBrush(Qt::white);
  painter.drawEllipse(place, kWellheadRadius, kWellheadRadius);
  painter.setBrush(Qt::NoBrush);
  const QPointF across(kWellheadRadius, 0.0);
  const QPointF up(0.0, kWellheadRadius);
  painter.drawLine(place - across, place + across);
  painter.drawLine(place - up, place + up);
}

void drawStation(QPainter& painter, const QPointF& place) {
  drawStation(painter, place, kStationRadius);
}

void drawStation(QPainter& painter, const QPointF& place, double radius) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(mapStyle::ink());
  painter.drawEllipse(place, radius, radius);
}

void drawDepth(QPainter& painter, const QPointF& place) {
  painter.setPen(QPen(mapStyle::ink(), 1.4));
  painter.setBrush(Qt::white);
  painter.drawEllipse(place, kDepthRadius, kDepthRadius);
}

void drawEnd(QPainter& painter, const QPointF& place) {
  painter.setPen(QPen(Qt::white, 1.0));
  painter.setBrush(QColor(203, 80, 12));
  painter.drawRect(boxAround(place, kEndRadius));
}

}  // namespace wellMarks
