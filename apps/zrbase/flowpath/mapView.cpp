#include "flowpath/mapView.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace {

constexpr double kLeftMargin = 84.0;  // room for the northings
constexpr double kTopMargin = 84.0;   // room for the title
constexpr double kBottomMargin = 62.0;
constexpr double kPanelGap = 28.0;
constexpr double kPanelWidth = 236.0;
constexpr double kRightMargin = 20.0;
constexpr double kFrameArea = 860000.0;
constexpr double kNarrowest = 0.62;  // width to height of the frame; the panel needs its height
constexpr double kWidest = 1.9;
constexpr double kPadding = 0.05;

void addLine(Extent& extent, const VertexLine& line) {
  for (const gdfVertex& vertex : line) {
    extent.add(vertex.x(), vertex.y());
  }
}

double longestSegment(const VertexLine& line) {
  double longest = 0.0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    longest = std::max(longest, line[i].mapDistance(line[i - 1]));
  }
  return longest;
}

// A path may shoot far out at a sharp bend: the view does not follow it further than three heights
// and a segment.
Extent mapExtent(const MapContent& content) {
  Extent traces;
  Extent all;
  double reach = 0.0;
  for (const TemplateModel& model : *content.models) {
    addLine(traces, model.source.vertices);
    for (const PathRecord& record : model.paths) {
      addLine(all, record.path.getFlowLine());
      reach = std::max(reach,
                       3.0 * std::abs(record.path.getH()) + longestSegment(model.source.vertices));
    }
    for (const MovedRecord& record : model.moved) {
      all.add(record.from.x(), record.from.y());
      all.add(record.to.x(), record.to.y());
    }
  }
  for (const InputPoint& point : *content.points) {
    traces.add(point.position.x(), point.position.y());
  }
  all.add(traces.minX, traces.minY);
  all.add(traces.maxX, traces.maxY);
  all.minX = std::max(all.minX, traces.minX - reach);
  all.minY = std::max(all.minY, traces.minY - reach);
  all.maxX = std::min(all.maxX, traces.maxX + reach);
  all.maxY = std::min(all.maxY, traces.maxY + reach);
  return all;
}

Extent padded(Extent extent) {
  const double size = std::max({extent.maxX - extent.minX, extent.maxY - extent.minY, 1e-6});
  extent.add(extent.minX - kPadding * size, extent.minY - kPadding * size);
  extent.add(extent.maxX + kPadding * size, extent.maxY + kPadding * size);
  return extent;
}

// Liang and Barsky (1984): the part of a segment inside a box, by its parameters on the segment.
std::optional<std::pair<double, double>> insideRange(const QPointF& a, const QPointF& b,
                                                     const QRectF& box) {
  const QPointF d = b - a;
  const double steps[4] = {-d.x(), d.x(), -d.y(), d.y()};
  const double rooms[4] = {a.x() - box.left(), box.right() - a.x(), a.y() - box.top(),
                           box.bottom() - a.y()};
  double first = 0.0;
  double last = 1.0;
  for (int i = 0; i < 4; ++i) {
    if (steps[i] == 0.0 && rooms[i] < 0.0) {
      return std::nullopt;
    }
    if (steps[i] < 0.0) {
      first = std::max(first, rooms[i] / steps[i]);
    } else if (steps[i] > 0.0) {
      last = std::min(last, rooms[i] / steps[i]);
    }
  }
  return first <= last ? std::make_optional(std::make_pair(first, last)) : std::nullopt;
}

}  // namespace

MapView::MapView(const MapContent& content) : world_(padded(mapExtent(content))) {
  const double width = world_.maxX - world_.minX;
  const double height = world_.maxY - world_.minY;
  const double aspect = std::clamp(width / height, kNarrowest, kWidest);
  const double frameWidth = std::round(std::sqrt(kFrameArea * aspect));
  const double frameHeight = std::round(frameWidth / aspect);
  frame_ = QRectF(kLeftMargin, kTopMargin, frameWidth, frameHeight);
  panel_ = QRectF(frame_.right() + kPanelGap, frame_.top(), kPanelWidth, frameHeight);
  pageSize_ = QSizeF(panel_.right() + kRightMargin, frame_.bottom() + kBottomMargin);
  scale_ = std::min(frameWidth / width, frameHeight / height);
  const double centreX = (world_.minX + world_.maxX) / 2.0;
  const double centreY = (world_.minY + world_.maxY) / 2.0;
  world_ = Extent();
  world_.add(centreX - frameWidth / scale_ / 2.0, centreY - frameHeight / scale_ / 2.0);
  world_.add(centreX + frameWidth / scale_ / 2.0, centreY + frameHeight / scale_ / 2.0);
}

double MapView::xToPage(double x) const { return frame_.left() + (x - world_.minX) * scale_; }

double MapView::yToPage(double y) const { return frame_.bottom() - (y - world_.minY) * scale_; }

QPointF MapView::toPage(const gdfVertex& v) const { return {xToPage(v.x()), yToPage(v.y())}; }

QPolygonF MapView::toPage(const VertexLine& line) const {
  QPolygonF page;
  for (const gdfVertex& vertex : line) {
    page.append(toPage(vertex));
  }
  return page;
}

std::vector<QPolygonF> MapView::clipped(const QPolygonF& line, const QRectF& box) {
  std::vector<QPolygonF> pieces;
  bool open = false;  // the last piece goes on with the next segment
  for (int i = 1; i < line.size(); ++i) {
    const QPointF& a = line[i - 1];
    const QPointF& b = line[i];
    const auto range = insideRange(a, b, box);
    if (!range) {
      open = false;
      continue;
    }
    if (!open || range->first > 0.0) {
      pieces.emplace_back(QVector<QPointF>{a + (b - a) * range->first});
    }
    pieces.back().append(a + (b - a) * range->second);
    open = range->second >= 1.0;
  }
  return pieces;
}

double roundStep(double value) {
  const double power = std::pow(10.0, std::floor(std::log10(value)));
  for (const double factor : {5.0, 2.0}) {
    if (factor * power <= value * (1.0 + 1e-12)) {
      return factor * power;
    }
  }
  return power;
}
