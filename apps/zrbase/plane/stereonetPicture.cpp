#include "plane/stereonetPicture.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>
#include <array>
#include <cmath>

#include "common/textFormat.h"
#include "drawing/mapLabels.h"
#include "drawing/mapText.h"
#include "drawing/pictureFile.h"
#include "plane/stereonet.h"
#include "plane/stereonetPanel.h"
#include "plane/stereonetStyle.h"

namespace {

constexpr double kDegree = 3.14159265358979323846 / 180.0;
constexpr double kMargin = 40.0;
constexpr double kRadius = 290.0;
constexpr int kLongestLabel = 24;
const QSizeF kPage(1120.0, 780.0);
const QPointF kCentre(370.0, 425.0);
const QRectF kPanel(740.0, 112.0, 340.0, 630.0);

QPointF toPage(const stereonet::NetPoint& point) {
  return kCentre + QPointF(point.x, -point.y) * kRadius;
}

QPolygonF toPage(const stereonet::NetLine& line) {
  QPolygonF page;
  for (const stereonet::NetPoint& point : line) {
    page.append(toPage(point));
  }
  return page;
}

QPointF onRing(int azimuth, double radius) {
  return kCentre + QPointF(std::sin(azimuth * kDegree), -std::cos(azimuth * kDegree)) * radius;
}

std::string titleOf(const std::vector<FittedPlane>& planes) {
  if (planes.size() > 1) {
    return "Poles to " + std::to_string(planes.size()) + " planes";
  }
  const FittedPlane& plane = planes.front();
  return "Plane through " + textFormat::counted(plane.points, "point", "points") +
         (plane.label == "all" ? "" : " of " + plane.title());
}

/// Draws the net with what is on it.
class NetPainter {
 public:
  NetPainter(QPainter& painter, const std::vector<FittedPlane>& planes)
      : painter_(painter),
        planes_(planes),
        labels_(QRectF(8.0, 78.0, kPanel.left() - 28.0, kPage.height() - 86.0)) {}

  void draw() {
    drawNet();
    drawRing();
    if (stereonetStyle::showsGreatCircles(planes_.size())) {
      drawGreatCircles();
    }
    drawPoles();
    if (planes_.size() <= stereonetStyle::kMostNamed) {
      drawLabels();
    }
  }

 private:
  QColor colour(std::size_t i) const { return stereonetStyle::colourOf(i, planes_.size()); }

  void drawNet() {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(mapStyle::background());
    painter_.drawEllipse(kCentre, kRadius, kRadius);
    painter_.setPen(stereonetStyle::netPen());
    painter_.setBrush(Qt::NoBrush);
    for (const stereonet::NetLine& line : stereonet::netLines(10)) {
      painter_.drawPolyline(toPage(line));
    }
  }

  void drawRing() {
    const MapText text(painter_);
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(mapStyle::ink(), 1.4));
    painter_.drawEllipse(kCentre, kRadius, kRadius);
    for (int azimuth = 0; azimuth < 360; azimuth += 10) {
      painter_.setPen(QPen(mapStyle::ink(), 1.0));
      const double length = azimuth % 30 == 0 ? 9.0 : 5.0;
      painter_.drawLine(onRing(azimuth, kRadius), onRing(azimuth, kRadius + length));
      if (azimuth % 30 == 0) {
        drawAzimuth(text, azimuth);
      }
    }
  }

  void drawAzimuth(const MapText& text, int azimuth) {
    const std::array<const char*, 4> cardinals = {"N", "E", "S", "W"};
    const QPointF place = onRing(azimuth, kRadius + 25.0);
    if (azimuth % 90 == 0) {
      const QString letter = cardinals[static_cast<std::size_t>(azimuth / 90)];
      const double width = QFontMetricsF(mapStyle::font(16, true)).horizontalAdvance(letter);
      text.startingAt(place + QPointF(-width / 2.0, 6.0), letter, 16, mapStyle::ink(), true);
    } else {
      const QString number = QString::number(azimuth).rightJustified(3, '0') + QChar(0xB0);
      text.centred(place + QPointF(0.0, 4.5), number, 12, mapStyle::quietInk());
    }
    labels_.avoid(QRectF(place.x() - 15.0, place.y() - 8.0, 30.0, 16.0));
  }

  void drawGreatCircles() {
    painter_.setBrush(Qt::NoBrush);
    for (std::size_t i = 0; i < planes_.size(); ++i) {
      const QPolygonF line = toPage(stereonet::greatCircle(planes_[i].normal));
      painter_.setPen(stereonetStyle::planePen(colour(i), planes_.size()));
      painter_.drawPolyline(line);
      labels_.avoid(line);
    }
  }

  void drawPoles() {
    const double radius = stereonetStyle::markerRadius(planes_.size());
    for (std::size_t i = 0; i < planes_.size(); ++i) {
      const QPointF place = toPage(stereonet::pole(planes_[i].normal));
      stereonetStyle::drawPole(painter_, place, colour(i), radius);
      labels_.avoid(QRectF(place.x() - radius, place.y() - radius, 2.0 * radius, 2.0 * radius));
    }
    QPolygonF ring;
    for (int azimuth = 0; azimuth <= 360; azimuth += 5) {
      ring.append(onRing(azimuth, kRadius));
    }
    labels_.avoid(ring);
  }

  void drawLabels() {
    const double radius = stereonetStyle::markerRadius(planes_.size());
    for (const FittedPlane& plane : planes_) {
      QString text = QString::fromStdString(planes_.size() > 1 ? plane.title() : "pole");
      if (text.size() > kLongestLabel) {
        text = text.left(kLongestLabel - 1) + QChar(0x2026);
      }
      labels_.draw(painter_, toPage(stereonet::pole(plane.normal)), radius, text);
    }
  }

  QPainter& painter_;
  const std::vector<FittedPlane>& planes_;
  MapLabels labels_;
};

void drawTitle(QPainter& painter, const StereonetContent& content) {
  const MapText text(painter);
  const double room = kPage.width() - 2.0 * kMargin;
  text.startingAt(QPointF(kMargin, 38.0), QString::fromStdString(titleOf(*content.planes)), 22,
                  mapStyle::ink(), true, room);
  const QString below =
      QString::fromStdString(content.sourceText + "  \u00b7  coordinates: " + content.systemText);
  text.startingAt(QPointF(kMargin, 62.0), below, 13, mapStyle::quietInk(), false, room);
}

}  // namespace

void drawStereonetPicture(const SafeOutput& output, const StereonetContent& content) {
  writePicture(output, [&content] {
    Picture picture;
    picture.size = kPage;
    picture.title = "Stereonet of planes";
    picture.description = content.sourceText + ", " + content.systemText;
    picture.draw = [&content](QPainter& painter) {
      drawTitle(painter, content);
      NetPainter(painter, *content.planes).draw();
      drawStereonetPanel(painter, kPanel, content);
    };
    return picture;
  });
}
