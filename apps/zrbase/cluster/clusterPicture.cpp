#include "cluster/clusterPicture.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <memory>

#include "cluster/clusterColours.h"
#include "cluster/clusterSummary.h"
#include "cluster/scatterFrame.h"
#include "cluster/scatterPanel.h"
#include "common/textFormat.h"
#include "drawing/mapText.h"
#include "drawing/pictureFile.h"

namespace {

constexpr double kMargin = 24.0;
constexpr double kTop = 88.0;
constexpr double kBelow = 62.0;      // ticks and axis title
constexpr double kTitleRoom = 34.0;  // left of the ticks
constexpr double kTallest = 640.0;
constexpr double kWidest = 820.0;
constexpr double kNarrowestShape = 0.7;  // width to height of the frame
constexpr double kLegendRow = 23.0;
constexpr double kLegendMark = 20.0;
constexpr double kLegendLeast = 150.0;

QString titleOf(const ClusterPoints& points, std::size_t column) {
  const std::string unit = points.unitOf(column);
  const std::string name = textFormat::oneLine(points.columns[column].name);
  return QString::fromStdString(unit.empty() ? name : name + " [" + unit + "]");
}

AxisRange rangeOf(const ClusterPoints& points, std::size_t column) {
  AxisRange range = {points.value(0, column), points.value(0, column)};
  for (std::size_t i = 1; i < points.size(); ++i) {
    range.low = std::min(range.low, points.value(i, column));
    range.high = std::max(range.high, points.value(i, column));
  }
  return range.padded();
}

/// The panel, the legend and where they stand on the page.
class ScatterPage {
 public:
  explicit ScatterPage(const ScatterContent& content) : content_(content) {
    frame_.across = rangeOf(content.points, content.across);
    frame_.up = content.oneColumn() ? AxisRange{-0.5, static_cast<double>(clusterCount()) - 0.5}
                                    : rangeOf(content.points, content.up);
    frame_.wholeUp = content.oneColumn();
    layOut();
  }

  QSizeF size() const { return size_; }

  void draw(QPainter& painter) const {
    const MapText text(painter);
    const double room = size_.width() - 2.0 * kMargin;
    text.startingAt(QPointF(kMargin, 40.0),
                    "Clusters of " + QString::fromStdString(content_.sourceText), 22,
                    mapStyle::ink(), true, room);
    text.startingAt(QPointF(kMargin, 64.0), facts(), 13, mapStyle::quietInk(), false, room);
    ScatterTitles titles = {titleOf(content_.points, content_.across), "cluster"};
    if (!content_.oneColumn()) {
      titles.up = titleOf(content_.points, content_.up);
    }
    drawScatterPanel(painter, content_, frame_, titles);
    drawLegend(painter);
  }

 private:
  std::size_t clusterCount() const { return content_.clustering.clusters.size(); }

  QString facts() const {
    const QString dot = QString("  ") + QChar(0xB7) + "  ";
    const Clustering& clustering = content_.clustering;
    QString text =
        QString::fromStdString(textFormat::counted(clusterCount(), "cluster", "clusters"));
    text += dot +
            QString::fromStdString(textFormat::counted(content_.points.size(), "point", "points"));
    text += dot + strategyName(content_.request.strategy);
    text += dot + "rms distance " + QString::fromStdString(roundedText(clustering.rms()));
    if (content_.request.scale != ClusterScale::none) {
      text += dot + "scale " + scaleName(content_.request.scale);
    }
    if (!content_.points.positions.empty() && content_.points.model) {
      text += dot + QString::fromStdString(systemLabel(content_.points.model));
    }
    return text;
  }

  // East and north have one scale.
  bool isMap() const {
    const int a = content_.points.columns[content_.across].axis;
    const int b = content_.points.columns[content_.up].axis;
    return (a == 0 && b == 1) || (a == 1 && b == 0);
  }

  QSizeF frameSize() {
    if (!isMap()) {
      return {kWidest * 0.85, kTallest};
    }
    const double shape = std::clamp(frame_.across.length() / frame_.up.length(), kNarrowestShape,
                                    kWidest / kTallest * 1.3);
    const double height = std::round(std::min(kTallest, kWidest / shape));
    const QSizeF size(std::round(height * shape), height);
    const double scale =
        std::max(frame_.across.length() / size.width(), frame_.up.length() / size.height());
    frame_.across = frame_.across.widenedTo(scale * size.width());
    frame_.up = frame_.up.widenedTo(scale * size.height());
    return size;
  }

  void layOut() {
    frame_.frame = QRectF(QPointF(0.0, kTop), frameSize());
    const double ticks = widestText(frame_.ticksUp());
    frame_.frame.moveLeft(kMargin + kTitleRoom + ticks);
    const QFontMetricsF metrics(mapStyle::font(13));
    numberWidth_ = metrics.horizontalAdvance(QString::number(clusterCount()) + "00");
    weightWidth_ = metrics.horizontalAdvance(QString::number(content_.points.size()) + " points");
    legendWidth_ = std::max(kLegendLeast, kLegendMark + numberWidth_ + weightWidth_);
    const double title = metrics.horizontalAdvance("Clusters of ") * 1.8;
    size_ = QSizeF(
        std::max(frame_.frame.right() + kMargin + legendWidth_ + kMargin, title + 2.0 * kMargin),
        frame_.frame.bottom() + kBelow);
  }

  void drawLegend(QPainter& painter) const {
    const MapText text(painter);
    const double left = frame_.frame.right() + kMargin;
    QPointF place(left, frame_.frame.top() + 10.0);
    scatterMarks::drawCenter(painter, place + QPointF(7.0, -4.6), Qt::white, 6.5);
    text.startingAt(place + QPointF(kLegendMark, 0.0), "center", 13);
    place += QPointF(0.0, 30.0);
    text.startingAt(place, "cluster", 13, mapStyle::quietInk());
    const double right = left + std::max(kLegendMark + numberWidth_ + weightWidth_, 130.0);
    text.endingAt(QPointF(right, place.y()), "points", 13, mapStyle::quietInk());
    const auto room = static_cast<std::size_t>((frame_.frame.bottom() - place.y()) / kLegendRow);
    const std::size_t shown = clusterCount() <= room ? clusterCount() : room - 1;
    for (std::size_t k = 0; k < shown; ++k) {
      place += QPointF(0.0, kLegendRow);
      scatterMarks::drawPoint(painter, place + QPointF(7.0, -4.6), clusterColour(k, clusterCount()),
                              5.0);
      text.startingAt(place + QPointF(kLegendMark, 0.0), QString::number(k), 13);
      text.endingAt(QPointF(right, place.y()),
                    QString::number(content_.clustering.clusters[k].weight), 13);
    }
    if (shown < clusterCount()) {
      text.startingAt(place + QPointF(0.0, kLegendRow),
                      "and " + QString::number(clusterCount() - shown) + " more", 13,
                      mapStyle::quietInk());
    }
  }

  const ScatterContent& content_;
  ScatterFrame frame_;
  double numberWidth_ = 0.0;
  double weightWidth_ = 0.0;
  double legendWidth_ = 0.0;
  QSizeF size_;
};

}  // namespace

void drawClusterPicture(const SafeOutput& output, const ScatterContent& content) {
  writePicture(output, [&content] {
    const auto page = std::make_shared<const ScatterPage>(content);
    Picture picture;
    picture.size = page->size();
    picture.title = "Clusters";
    picture.description = content.sourceText;
    picture.draw = [page](QPainter& painter) { page->draw(painter); };
    return picture;
  });
}
