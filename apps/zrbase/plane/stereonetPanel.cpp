#include "plane/stereonetPanel.h"

#include <QPainter>
#include <algorithm>
#include <string>

#include "common/textFormat.h"
#include "drawing/mapText.h"
#include "plane/stereonetPicture.h"
#include "plane/stereonetStyle.h"

namespace {

constexpr double kRowHeight = 22.0;
constexpr double kSampleWidth = 44.0;

const char* methodText(PlaneMethod method) {
  switch (method) {
    case PlaneMethod::ls:
      return "least squares of the distances (ls)";
    case PlaneMethod::orthogonal:
      return "least squares, planes along axes first (orthogonal)";
    case PlaneMethod::linear:
      break;
  }
  return "linear system (linear), no best-fit plane";
}

std::string orientationText(const FittedPlane& plane) {
  return azimuthText(plane.azimuth) + " / " + textFormat::fixed(plane.dip, 1);
}

/// Writes the panel from top to bottom.
class PanelPainter {
 public:
  PanelPainter(QPainter& painter, const QRectF& panel, const StereonetContent& content)
      : painter_(painter),
        text_(painter),
        panel_(panel),
        content_(content),
        planes_(*content.planes),
        y_(panel.top()) {}

  void draw() {
    drawSamples();
    drawFacts();
    drawTable();
  }

 private:
  void heading(const QString& text) {
    text_.startingAt(QPointF(panel_.left(), y_), text, 14, mapStyle::ink(), true);
    y_ += 24.0;
  }

  void sampleText(const QString& text) {
    text_.startingAt(QPointF(panel_.left() + kSampleWidth + 14.0, y_ + 4.6), text, 13);
    y_ += kRowHeight;
  }

  void drawSamples() {
    heading("Legend");
    const double left = panel_.left() + 2.0;
    const QPointF middle(left + (kSampleWidth - 2.0) / 2.0, y_);
    const QColor colour = stereonetStyle::hasColourEach(planes_.size())
                              ? mapStyle::ink()
                              : stereonetStyle::colourOf(0, planes_.size());
    stereonetStyle::drawPole(painter_, middle, colour,
                             stereonetStyle::markerRadius(planes_.size()));
    sampleText("pole to a plane, n = " + QString::number(planes_.size()));
    if (stereonetStyle::showsGreatCircles(planes_.size())) {
      painter_.setPen(stereonetStyle::planePen(colour, planes_.size()));
      painter_.drawLine(QPointF(left, y_), QPointF(panel_.left() + kSampleWidth, y_));
      sampleText("plane, as a great circle");
    }
    painter_.setPen(stereonetStyle::netPen());
    painter_.drawLine(QPointF(left, y_), QPointF(panel_.left() + kSampleWidth, y_));
    sampleText("net of 10\u00b0");
    y_ += 16.0;
  }

  void fact(const QString& text) {
    text_.startingAt(QPointF(panel_.left(), y_), text, 13, mapStyle::ink(), false, panel_.width());
    y_ += 20.0;
  }

  void drawFacts() {
    heading("Projection and fit");
    fact("equal-area (Schmidt) net, lower hemisphere");
    fact(methodText(content_.method));
    fact(content_.gridNorth ? "azimuths from grid north" : "azimuths from the y axis");
    y_ += 18.0;
  }

  void drawTable() {
    heading(planes_.size() > 1 ? "Planes" : "Plane");
    const double orientation = panel_.right() - 70.0;
    text_.startingAt(QPointF(panel_.left(), y_), "set", 12, mapStyle::quietInk());
    text_.endingAt(QPointF(orientation, y_), "dip azimuth / dip", 12, mapStyle::quietInk());
    text_.endingAt(QPointF(panel_.right(), y_), "rms [m]", 12, mapStyle::quietInk());
    y_ += 7.0;
    painter_.setPen(QPen(mapStyle::quietInk(), 0.8));
    painter_.drawLine(QPointF(panel_.left(), y_), QPointF(panel_.right(), y_));
    y_ += 17.0;
    const std::size_t rows = std::min(planes_.size(), stereonetStyle::kMostNamed);
    for (std::size_t i = 0; i < rows; ++i) {
      drawRow(i, orientation);
    }
    if (rows < planes_.size()) {
      text_.startingAt(QPointF(panel_.left(), y_),
                       "and " + QString::number(planes_.size() - rows) + " more", 12,
                       mapStyle::quietInk());
    }
  }

  void drawRow(std::size_t i, double orientation) {
    const FittedPlane& plane = planes_[i];
    double left = panel_.left();
    if (stereonetStyle::hasColourEach(planes_.size())) {
      stereonetStyle::drawPole(painter_, QPointF(left + 5.0, y_ - 4.5),
                               stereonetStyle::colourOf(i, planes_.size()), 5.2);
      left += 17.0;
    }
    const double room = orientation - 110.0 - left;
    text_.startingAt(QPointF(left, y_), QString::fromStdString(plane.title()), 13, mapStyle::ink(),
                     false, room);
    text_.endingAt(QPointF(orientation, y_), QString::fromStdString(orientationText(plane)), 13);
    text_.endingAt(QPointF(panel_.right(), y_),
                   QString::fromStdString(textFormat::fixed(plane.rms, 3)), 13);
    y_ += 20.0;
  }

  QPainter& painter_;
  const MapText text_;
  const QRectF panel_;
  const StereonetContent& content_;
  const std::vector<FittedPlane>& planes_;
  double y_;
};

}  // namespace

void drawStereonetPanel(QPainter& painter, const QRectF& panel, const StereonetContent& content) {
  PanelPainter(painter, panel, content).draw();
}
