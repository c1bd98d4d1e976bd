#include "flowpath/mapLayers.h"

#include <QLineF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "drawing/mapLabels.h"
#include "drawing/mapStyle.h"
#include "flowpath/mapPicture.h"
#include "flowpath/mapView.h"

namespace {

using mapStyle::Weights;

constexpr std::size_t kMostLabels = 30;
constexpr std::size_t kFewForArrows = 8;
constexpr std::size_t kFewForWholeBisectors = 2;

void drawClipped(QPainter& painter, const MapView& view, const QPolygonF& line) {
  for (const QPolygonF& piece : view.clipped(line)) {
    painter.drawPolyline(piece);
  }
}

// The line without its last `length` page units; empty if it is no longer than that.
QPolygonF shortened(QPolygonF line, double length) {
  while (line.size() > 1) {
    const QLineF last(line[line.size() - 2], line.last());
    if (last.length() > length) {
      line.last() = last.pointAt(1.0 - length / last.length());
      return line;
    }
    length -= last.length();
    line.removeLast();
  }
  return {};
}

double lengthOf(const QPolygonF& line) {
  double length = 0.0;
  for (int i = 1; i < line.size(); ++i) {
    length += QLineF(line[i - 1], line[i]).length();
  }
  return length;
}

/// One pass over the content for each layer of the map.
class LayerPainter {
 public:
  LayerPainter(QPainter& painter, const MapView& view, const MapContent& content)
      : painter_(painter),
        view_(view),
        content_(content),
        weights_(mapStyle::weightsFor(content.models->size())),
        largestHeight_(largestHeight(content)),
        labels_(view.frame()) {}

  void draw() {
    drawBisectors(true);
    drawBisectors(false);
    drawPaths();
    drawTraces();
    drawMoves();
    drawPlaces();
    drawLabels();
  }

 private:
  void drawBisectors(bool merged) {
    painter_.setPen(merged ? mapStyle::mergedPen(weights_.bisector)
                           : mapStyle::rootPen(weights_.bisector));
    for (const TemplateModel& model : *content_.models) {
      const QRectF room = bisectorRoom(model);
      for (const BisectorRecord& record : model.bisectors) {
        if (record.root == merged) {
          continue;
        }
        for (const QPolygonF& piece :
             MapView::clipped(view_.toPage({record.base, record.top}), room)) {
          painter_.drawPolyline(piece);
        }
      }
    }
  }

  // Bisectors run on to the edge of the model. Those of many traces would cover the map: each
  // trace's own are then only shown around its paths.
  QRectF bisectorRoom(const TemplateModel& model) const {
    if (content_.models->size() <= kFewForWholeBisectors) {
      return view_.frame();
    }
    QRectF room = view_.toPage(model.source.vertices).boundingRect();
    for (const PathRecord& record : model.paths) {
      room |= view_.toPage(record.path.getFlowLine()).boundingRect();
    }
    return room.adjusted(-8.0, -8.0, 8.0, 8.0) & view_.frame();
  }

  void drawPaths() {
    for (const TemplateModel& model : *content_.models) {
      for (const PathRecord& record : model.paths) {
        const QPolygonF line = view_.toPage(record.path.getFlowLine());
        const QColor colour = mapStyle::heightColour(record.path.getH(), largestHeight_);
        painter_.setPen(QPen(colour, weights_.path, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        drawClipped(painter_, view_, line);
        labels_.avoid(line);
      }
    }
  }

  // An arrow at the end of a trace tells its direction, and so which side is left; among many it
  // would only clutter.
  void drawTraces() {
    const bool arrows = content_.models->size() <= kFewForArrows;
    for (const TemplateModel& model : *content_.models) {
      const QPolygonF line = view_.toPage(model.source.vertices);
      painter_.setPen(QPen(QColor(255, 255, 255, 200), weights_.trace + 2.4, Qt::SolidLine,
                           Qt::RoundCap, Qt::RoundJoin));
      drawClipped(painter_, view_, line);
      painter_.setPen(mapStyle::tracePen(weights_.trace));
      drawClipped(painter_, view_, line);
      labels_.avoid(line);
      if (arrows) {
        const QPointF along = line.last() - line[line.size() - 2];
        const double length = std::hypot(along.x(), along.y());
        const QPointF tip = line.last() + along * (9.0 / length);
        painter_.setBrush(mapStyle::ink());
        drawArrowHead(painter_, tip.x(), tip.y(), along.x(), along.y(), 15.0);
      }
    }
  }

  // Each slip's arrow starts where the next smaller slip of the same sign ends, so that they stand
  // in a row.
  double previousSlip(const TemplateModel& model, const MovedRecord& record) const {
    double previous = 0.0;
    for (const MovedRecord& other : model.moved) {
      const bool between = record.slip > 0.0 ? other.slip > previous && other.slip < record.slip
                                             : other.slip < previous && other.slip > record.slip;
      previous = other.pathIndex == record.pathIndex && between ? other.slip : previous;
    }
    return previous;
  }

  void drawMoves() {
    for (const TemplateModel& model : *content_.models) {
      for (const MovedRecord& record : model.moved) {
        if (record.slip != 0.0) {
          drawMove(model, record);
        }
      }
    }
  }

  void drawMove(const TemplateModel& model, const MovedRecord& record) {
    const double from = previousSlip(model, record);
    const zrFlowPath& path = model.paths[record.pathIndex].path;
    VertexLine way = pathBetween(path, std::min(from, record.slip), std::max(from, record.slip));
    if (record.slip < 0.0) {
      std::reverse(way.begin(), way.end());
    }
    const QPolygonF line = shortened(view_.toPage(way), weights_.marker + 0.5);
    if (line.size() < 2 || !view_.frame().contains(line.last())) {
      return;
    }
    drawBand(line, path.getH());
    const double head = std::min(2.6 * weights_.marker, 0.6 * lengthOf(line));
    const QPolygonF shaft = shortened(line, 0.7 * head);
    painter_.setPen(mapStyle::movePen(weights_.path * 0.8));
    drawClipped(painter_, view_, shaft);
    const QPointF along = line.last() - (shaft.isEmpty() ? line.first() : shaft.last());
    painter_.setBrush(mapStyle::ink());
    drawArrowHead(painter_, line.last().x(), line.last().y(), along.x(), along.y(), head);
  }

  // The arrow lies on its path and would hide the colour: a pale band of it shows on either side.
  void drawBand(const QPolygonF& line, double height) {
    QColor colour = mapStyle::heightColour(height, largestHeight_);
    colour.setAlphaF(0.32);
    painter_.setPen(
        QPen(colour, 1.7 * weights_.marker, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    drawClipped(painter_, view_, line);
  }

  void drawMarker(const QPointF& place, bool filled) {
    if (!view_.frame().contains(place)) {
      return;
    }
    const double radius = weights_.marker;
    painter_.setPen(QPen(filled ? QColor(Qt::white) : mapStyle::ink(), filled ? 1.2 : 1.6));
    painter_.setBrush(filled ? mapStyle::ink() : QColor(Qt::white));
    painter_.drawEllipse(place, radius, radius);
    labels_.avoid(QRectF(place.x() - radius, place.y() - radius, 2.0 * radius, 2.0 * radius));
  }

  void drawPlaces() {
    for (const TemplateModel& model : *content_.models) {
      for (const MovedRecord& record : model.moved) {
        drawMarker(view_.toPage(record.from), false);
        if (record.slip != 0.0) {
          drawMarker(view_.toPage(record.to), true);
        }
      }
    }
    for (const InputPoint& point : *content_.points) {
      drawMarker(view_.toPage(point.position), false);
    }
  }

  void drawLabels() {
    for (const InputPoint& point : *content_.points) {
      if (content_.points->size() <= kMostLabels && !point.name.empty()) {
        label(view_.toPage(point.position), point.name);
      }
    }
    std::size_t count = 0;
    for (const TemplateModel& model : *content_.models) {
      count += model.moved.size();
    }
    for (const TemplateModel& model : *content_.models) {
      for (const MovedRecord& record : model.moved) {
        if (count <= kMostLabels && record.slip != 0.0) {
          label(view_.toPage(record.to), mapStyle::lengthText(record.slip, true));
        }
      }
    }
  }

  void label(const QPointF& place, const std::string& text) {
    if (view_.frame().contains(place)) {
      labels_.draw(painter_, place, weights_.marker, QString::fromStdString(text));
    }
  }

  QPainter& painter_;
  const MapView& view_;
  const MapContent& content_;
  const Weights weights_;
  const double largestHeight_;
  MapLabels labels_;
};

}  // namespace

double largestHeight(const MapContent& content) {
  double largest = 0.0;
  for (const TemplateModel& model : *content.models) {
    for (const PathRecord& record : model.paths) {
      largest = std::max(largest, std::abs(record.path.getH()));
    }
  }
  return largest;
}

void drawMapLayers(QPainter& painter, const MapView& view, const MapContent& content) {
  LayerPainter(painter, view, content).draw();
}

void drawArrowHead(QPainter& painter, double tipX, double tipY, double dx, double dy, double size) {
  const double length = std::hypot(dx, dy);
  if (!(length > 0.0) || !(size > 0.0)) {
    return;
  }
  const QPointF along(dx / length * size, dy / length * size);
  const QPointF across(-along.y() * 0.36, along.x() * 0.36);
  const QPointF tip(tipX, tipY);
  const QPointF corners[4] = {tip, tip - along + across, tip - along * 0.78, tip - along - across};
  painter.setPen(Qt::NoPen);
  painter.drawPolygon(corners, 4);
}
