#include "well/wellPicture.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

#include "common/textFormat.h"
#include "drawing/mapText.h"
#include "drawing/pictureFile.h"
#include "well/wellPanel.h"

namespace {

constexpr double kDegree = 3.14159265358979323846 / 180.0;
constexpr double kMargin = 24.0;
constexpr double kTop = 112.0;      // room for title and headings
constexpr double kAxisRoom = 78.0;  // left of each frame
constexpr double kBelow = 62.0;     // ticks and axis title
constexpr double kLegendRow = 26.0;
constexpr double kMarkRoom = 22.0;
constexpr double kTallest = 640.0;
constexpr double kWidest = 1160.0;        // of both frames together
constexpr double kNarrowestShape = 0.62;  // width to height of a frame
constexpr double kWidestShape = 1.45;
constexpr double kPadding = 0.07;
constexpr double kMostDepths = 12.0;

QString degrees(double azimuth) {
  const double tenths = std::round(azimuth * 10.0) / 10.0;
  return QString::fromStdString(textFormat::fixed(tenths >= 360.0 ? 0.0 : tenths, 1)) + QChar(0xB0);
}

QString lengthWith(const WellPath& path, double value) {
  return QString::fromStdString(textFormat::fixed(value, 1) + " " + unitName(path.unit));
}

bool hasClosure(const WellPath& path) {
  return path.displacement() > 1e-6 * path.last().measuredDepth;
}

/// Both panels, the legend and where they stand on the page.
class WellPage {
 public:
  explicit WellPage(const WellContent& content) : content_(content), path_(*content.path) {
    makePanels();
    layOut();
  }

  QSizeF size() const { return size_; }

  void draw(QPainter& painter) const {
    const MapText text(painter);
    const double room = size_.width() - 2.0 * kMargin;
    text.startingAt(QPointF(kMargin, 40.0), "Well " + QString::fromStdString(content_.name), 22,
                    mapStyle::ink(), true, room);
    text.startingAt(QPointF(kMargin, 64.0), facts(), 13, mapStyle::quietInk(), false, room);
    drawWellPanel(painter, *plan_, planPanel_);
    drawWellPanel(painter, *section_, sectionPanel_);
    drawLegend(painter);
  }

 private:
  QString facts() const {
    QString text = QString::fromStdString(methodName(path_.method)) + "  \u00b7  " +
                   QString::number(path_.stations.size()) + " stations  \u00b7  depth " +
                   lengthWith(path_, path_.last().measuredDepth) + ", TVD " +
                   lengthWith(path_, path_.last().offset.tvd);
    const gdfVertex& head = path_.wellhead;
    if (head.x() != 0.0 || head.y() != 0.0 || head.z() != 0.0) {
      text += "  \u00b7  wellhead " + QString::fromStdString(textFormat::shortest(head.x()) + ", " +
                                                             textFormat::shortest(head.y()) + ", " +
                                                             textFormat::shortest(head.z()));
    }
    if (!content_.systemText.empty()) {
      text += "  \u00b7  " + QString::fromStdString(content_.systemText);
    }
    return text;
  }

  void makePanels() {
    const double azimuth = hasClosure(path_) ? path_.closureAzimuth() : 90.0;
    const QString unit = QString::fromStdString(" [" + unitName(path_.unit) + "]");
    planPanel_.title = "Plan view";
    planPanel_.acrossTitle = "East of wellhead" + unit;
    planPanel_.upTitle = "North of wellhead" + unit;
    planPanel_.closure = hasClosure(path_);
    sectionPanel_.title = "Vertical section";
    sectionPanel_.acrossTitle = "Offset towards " + degrees(azimuth) + unit;  // closure azimuth
    sectionPanel_.upTitle = "True vertical depth" + unit;
    sectionPanel_.downwards = true;
    const double sine = std::sin(azimuth * kDegree);
    const double cosine = std::cos(azimuth * kDegree);
    for (const WellStation& station : path_.stations) {
      const WellOffset& offset = station.offset;
      planPanel_.stations.push_back({offset.east, offset.north});
      sectionPanel_.stations.push_back({offset.east * sine + offset.north * cosine, -offset.tvd});
      planPanel_.depths.push_back(station.measuredDepth);
    }
    sectionPanel_.depths = planPanel_.depths;
    for (WellPanel* const panel : {&planPanel_, &sectionPanel_}) {
      panel->fromWellhead = path_.fromWellhead;
      panel->depthStep = roundStepFrom(path_.last().measuredDepth / kMostDepths);
      panel->endLabel = lengthWith(path_, path_.last().measuredDepth);
    }
  }

  static double shapeOf(const PlaneBox& box) {
    return std::clamp(box.width() / box.height(), kNarrowestShape, kWidestShape);
  }

  void layOut() {
    placePanels();
    placeLegend();
  }

  void placePanels() {
    const double smallest = 0.01 * path_.last().measuredDepth;
    const PlaneBox plan = planPanel_.box().padded(kPadding, smallest);
    const PlaneBox section = sectionPanel_.box().padded(kPadding, smallest);
    const double shapes = shapeOf(plan) + shapeOf(section);
    const double height = std::round(std::min(kTallest, kWidest / shapes));
    const double planWidth = std::round(height * shapeOf(plan));
    const double sectionWidth = std::round(height * shapeOf(section));
    const QRectF left(kMargin + kAxisRoom, kTop, planWidth, height);
    const QRectF right(left.right() + kMargin + kAxisRoom, kTop, sectionWidth, height);
    plan_ = std::make_unique<const ScaledFrame>(left, plan);
    section_ = std::make_unique<const ScaledFrame>(right, section);
    size_ = QSizeF(right.right() + 2.0 * kMargin, left.bottom() + kBelow);
  }

  struct LegendItem {
    QString text;
    std::function<void(QPainter&, const QPointF&)> drawMark;
    QPointF place = {};  // of the mark
  };

  std::vector<LegendItem> legendItems() const {
    const auto drawLine = [](const QPen& pen) {
      return [pen](QPainter& painter, const QPointF& place) {
        painter.setPen(pen);
        painter.drawLine(place - QPointF(14.0, 0.0), place + QPointF(14.0, 0.0));
      };
    };
    const QString unit = QString::fromStdString(" [" + unitName(path_.unit) + "]");
    std::vector<LegendItem> items = {
        {"wellhead", wellMarks::drawWellhead},
        {"path", drawLine(wellMarks::pathPen())},
        {"station",
         [](QPainter& painter, const QPointF& place) { wellMarks::drawStation(painter, place); }},
        {"measured depth" + unit, wellMarks::drawDepth},
        {"last station", wellMarks::drawEnd}};
    if (hasClosure(path_)) {
      items.push_back({"closure, " + lengthWith(path_, path_.displacement()) + " towards " +
                           degrees(path_.closureAzimuth()),
                       drawLine(wellMarks::closurePen())});
    }
    return items;
  }

  // In as many rows as the width of the page asks for; the page grows by them.
  void placeLegend() {
    const QFontMetricsF metrics(mapStyle::font(13));
    const double left = kMargin + 16.0;
    QPointF place(left, size_.height() + kLegendRow / 2.0);
    legend_ = legendItems();
    for (LegendItem& item : legend_) {
      const double width = kMarkRoom + metrics.horizontalAdvance(item.text);
      if (place.x() + width > size_.width() - kMargin && place.x() > left) {
        place = QPointF(left, place.y() + kLegendRow);
      }
      item.place = place;
      place += QPointF(width + 40.0, 0.0);
    }
    size_.setHeight(place.y() + kLegendRow / 2.0 + kMargin / 2.0);
  }

  void drawLegend(QPainter& painter) const {
    const MapText text(painter);
    for (const LegendItem& item : legend_) {
      item.drawMark(painter, item.place);
      text.startingAt(item.place + QPointF(kMarkRoom, 4.6), item.text, 13);
    }
  }

  const WellContent& content_;
  const WellPath& path_;
  WellPanel planPanel_;
  WellPanel sectionPanel_;
  std::unique_ptr<const ScaledFrame> plan_;
  std::unique_ptr<const ScaledFrame> section_;
  std::vector<LegendItem> legend_;
  QSizeF size_;
};

}  // namespace

void drawWellPicture(const SafeOutput& output, const WellContent& content) {
  writePicture(output, [&content] {
    const auto page = std::make_shared<const WellPage>(content);
    Picture picture;
    picture.size = page->size();
    picture.title = "Well path";
    picture.description = content.name + ", " + methodName(content.path->method);
    picture.draw = [page](QPainter& painter) { page->draw(painter); };
    return picture;
  });
}
