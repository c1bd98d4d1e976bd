#include "flowpath/mapLegend.h"

#include <QLinearGradient>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <functional>
#include <set>

#include "drawing/mapStyle.h"
#include "drawing/mapText.h"
#include "flowpath/mapLayers.h"
#include "flowpath/mapPicture.h"
#include "flowpath/mapView.h"

namespace {

constexpr double kRowHeight = 25.0;
constexpr double kSampleWidth = 44.0;
constexpr double kScaleHeight = 190.0;
constexpr double kScaleWidth = 20.0;
constexpr double kTextDistance = 15.0;  // least between the numbers of the colour scale

/// What the map shows, and so what the legend names.
struct Shown {
  bool roots = false;
  bool merged = false;
  bool paths = false;
  bool places = false;
  bool moves = false;
  std::set<double> heights;
  std::set<double> askedHeights;  // those that no point determines
};

Shown shownOn(const MapContent& content) {
  Shown shown;
  for (const TemplateModel& model : *content.models) {
    for (const BisectorRecord& record : model.bisectors) {
      (record.root ? shown.roots : shown.merged) = true;
    }
    for (const PathRecord& record : model.paths) {
      shown.heights.insert(record.path.getH());
      if (record.pointIndex < 0) {
        shown.askedHeights.insert(record.path.getH());
      }
    }
    for (const MovedRecord& record : model.moved) {
      shown.moves |= record.slip != 0.0;
    }
    shown.places |= !model.moved.empty();
  }
  shown.paths = !shown.heights.empty();
  shown.places |= !content.points->empty();
  return shown;
}

/// Writes the panel from top to bottom.
class LegendPainter {
 public:
  LegendPainter(QPainter& painter, const MapView& view, const MapContent& content)
      : painter_(painter),
        text_(painter),
        view_(view),
        content_(content),
        shown_(shownOn(content)),
        largest_(largestHeight(content)),
        left_(view.panel().left()),
        y_(view.panel().top()) {}

  void draw() {
    drawNorthArrow();
    drawRows();
    if (shown_.paths && largest_ > 0.0) {
      drawColourScale();
    }
    drawScaleBar();
  }

 private:
  void heading(const char* text) {
    text_.startingAt(QPointF(left_, y_), text, 14, mapStyle::ink(), true);
    y_ += 13.0;
  }

  void drawNorthArrow() {
    const double x = left_ + 15.0;
    const QPointF tip(x, y_ + 20.0);
    const QPointF foot(x, y_ + 54.0);
    const QPointF rightHalf[3] = {tip, QPointF(x + 11.0, y_ + 64.0), foot};
    const QPointF leftHalf[3] = {tip, QPointF(x - 11.0, y_ + 64.0), foot};
    painter_.setPen(QPen(mapStyle::ink(), 1.1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setBrush(mapStyle::ink());
    painter_.drawPolygon(leftHalf, 3);
    painter_.setBrush(Qt::white);
    painter_.drawPolygon(rightHalf, 3);
    text_.startingAt(QPointF(x - 5.5, y_ + 13.0), "N", 15, mapStyle::ink(), true);
    y_ += 104.0;
  }

  using Sample = std::function<void(double left, double right, double y)>;

  void row(const char* text, const Sample& sample) {
    const double middle = y_ + kRowHeight / 2.0;
    sample(left_ + 2.0, left_ + kSampleWidth, middle);
    text_.startingAt(QPointF(left_ + kSampleWidth + 14.0, middle + 4.6), text, 13);
    y_ += kRowHeight;
  }

  void lineRow(const char* text, const QPen& pen) {
    row(text, [&](double left, double right, double y) {
      painter_.setPen(pen);
      painter_.drawLine(QPointF(left, y), QPointF(right, y));
    });
  }

  void circle(double x, double y, bool filled) {
    painter_.setPen(QPen(filled ? QColor(Qt::white) : mapStyle::ink(), 1.5));
    painter_.setBrush(filled ? mapStyle::ink() : QColor(Qt::white));
    painter_.drawEllipse(QPointF(x, y), 4.6, 4.6);
  }

  void drawRows() {
    const mapStyle::Weights weights = mapStyle::weightsFor(content_.models->size());
    heading("Legend");
    lineRow("fault trace", mapStyle::tracePen(weights.trace));
    if (shown_.roots) {
      lineRow("root bisector", mapStyle::rootPen(std::max(0.9, weights.bisector)));
    }
    if (shown_.merged) {
      lineRow("merged bisector", mapStyle::mergedPen(std::max(0.9, weights.bisector)));
    }
    if (shown_.paths) {
      pathRow(weights.path);
    }
    if (shown_.places) {
      const bool given = !content_.points->empty();
      row(given ? "point" : "place at slip 0",
          [&](double left, double right, double y) { circle((left + right) / 2.0, y, false); });
    }
    if (shown_.moves) {
      moveRow(weights.path);
    }
    y_ += 36.0;
  }

  // One line that runs through the colours of the heights there are.
  void pathRow(double width) {
    row("flow path", [&](double left, double right, double y) {
      const int pieces = 21;
      const double low = *shown_.heights.begin();
      const double high = *shown_.heights.rbegin();
      for (int i = 0; i < pieces; ++i) {
        const double height = low + (high - low) * i / (pieces - 1);
        painter_.setPen(QPen(mapStyle::heightColour(height, largest_), width + 0.6, Qt::SolidLine,
                             Qt::FlatCap));
        const double step = (right - left) / pieces;
        painter_.drawLine(QPointF(left + i * step, y), QPointF(left + (i + 1) * step + 0.3, y));
      }
    });
  }

  void moveRow(double width) {
    row("moved by slip", [&](double left, double right, double y) {
      painter_.setPen(mapStyle::movePen(width * 0.8));
      painter_.drawLine(QPointF(left + 8.0, y), QPointF(right - 16.0, y));
      painter_.setBrush(mapStyle::ink());
      drawArrowHead(painter_, right - 9.5, y, 1.0, 0.0, 12.0);
      circle(left + 4.0, y, false);
      circle(right - 4.6, y, true);
    });
  }

  // The part of the scale that the heights use, zero included, so that both the sign and the size
  // can be read.
  void drawColourScale() {
    const double low = std::min(0.0, *shown_.heights.begin());
    const double high = std::max(0.0, *shown_.heights.rbegin());
    const double unit = largest_ >= 1000.0 ? 1000.0 : 1.0;
    heading(unit > 1.0 ? "Height of path [km]" : "Height of path [m]");
    y_ += 8.0;
    if (high > 0.0) {
      text_.startingAt(QPointF(left_, y_ + 8.0), "left of trace", 12, mapStyle::quietInk());
      y_ += 18.0;
    }
    const QRectF bar(left_ + 2.0, y_, kScaleWidth, kScaleHeight);
    QLinearGradient gradient(bar.bottomLeft(), bar.topLeft());
    const int stops = 60;
    for (int i = 0; i <= stops; ++i) {
      const double share = static_cast<double>(i) / stops;
      gradient.setColorAt(share, mapStyle::heightColour(low + (high - low) * share, largest_));
    }
    painter_.setPen(QPen(mapStyle::ink(), 0.9));
    painter_.setBrush(gradient);
    painter_.drawRect(bar);
    drawScaleTexts(bar, low, high, unit);
    y_ = bar.bottom();
    if (low < 0.0) {
      text_.startingAt(QPointF(left_, y_ + 18.0), "right of trace", 12, mapStyle::quietInk());
    }
  }

  std::vector<double> scaleNumbers(double low, double high) const {
    std::vector<double> numbers = {0.0, low, high};
    if (shown_.heights.size() <= 9) {
      numbers.insert(numbers.end(), shown_.askedHeights.begin(), shown_.askedHeights.end());
      numbers.insert(numbers.end(), shown_.heights.begin(), shown_.heights.end());
      return numbers;
    }
    const double step = roundStep((high - low) / 4.0);
    for (double i = std::ceil(low / step); i * step <= high; i += 1.0) {
      numbers.push_back(i * step);
    }
    return numbers;
  }

  // In order of weight (zero, the ends, the heights); a number without room beside an earlier one
  // is left out.
  void drawScaleTexts(const QRectF& bar, double low, double high, double unit) {
    std::vector<double> used;
    for (const double number : scaleNumbers(low, high)) {
      const double y = bar.bottom() - (number - low) / (high - low) * bar.height();
      const bool free = std::none_of(used.begin(), used.end(), [&](double other) {
        return std::abs(other - y) < kTextDistance;
      });
      if (!free) {
        continue;
      }
      used.push_back(y);
      painter_.setPen(QPen(mapStyle::ink(), 1.0));
      painter_.drawLine(QPointF(bar.right(), y), QPointF(bar.right() + 5.0, y));
      text_.startingAt(QPointF(bar.right() + 11.0, y + 4.5),
                       QString::fromStdString(mapStyle::numberText(number, unit, true)), 12);
    }
  }

  void drawScaleBar() {
    const double length = roundStep(0.8 * view_.panel().width() / view_.scale());
    const double half = length / 2.0 * view_.scale();
    const double y = view_.panel().bottom() - 14.0;
    const double left = left_ + 4.0;
    painter_.setPen(QPen(mapStyle::ink(), 1.1));
    painter_.setBrush(mapStyle::ink());
    painter_.drawRect(QRectF(left, y, half, 7.0));
    painter_.setBrush(Qt::white);
    painter_.drawRect(QRectF(left + half, y, half, 7.0));
    text_.startingAt(QPointF(left - 4.0, y - 7.0), "0", 12);
    const QString middle = QString::fromStdString(
        mapStyle::numberText(length / 2.0, length >= 1000.0 ? 1000.0 : 1.0, false));
    text_.centred(QPointF(left + half, y - 7.0), middle, 12);
    const QString full = QString::fromStdString(mapStyle::lengthText(length, false));
    text_.centred(QPointF(left + 2.0 * half, y - 7.0), full, 12);
  }

  QPainter& painter_;
  const MapText text_;
  const MapView& view_;
  const MapContent& content_;
  const Shown shown_;
  const double largest_;
  const double left_;
  double y_;
};

}  // namespace

void drawMapLegend(QPainter& painter, const MapView& view, const MapContent& content) {
  LegendPainter(painter, view, content).draw();
}
