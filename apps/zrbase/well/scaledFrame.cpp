#include "well/scaledFrame.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kClosestTicks = 62.0;  // page units; room for a number of seven digits

std::vector<double> multiples(double step, double from, double to) {
  std::vector<double> values;
  for (double i = std::ceil(from / step); i <= std::floor(to / step); i += 1.0) {
    values.push_back(i * step);
  }
  return values;
}

}  // namespace

void PlaneBox::add(const PlanePoint& point) {
  minAcross = std::min(minAcross, point.across);
  maxAcross = std::max(maxAcross, point.across);
  minUp = std::min(minUp, point.up);
  maxUp = std::max(maxUp, point.up);
}

PlaneBox PlaneBox::padded(double share, double smallest) const {
  const double pad = share * std::max({width(), height(), smallest});
  const double moreAcross = std::max(0.0, smallest - width()) / 2.0 + pad;
  const double moreUp = std::max(0.0, smallest - height()) / 2.0 + pad;
  return {minAcross - moreAcross, maxAcross + moreAcross, minUp - moreUp, maxUp + moreUp};
}

ScaledFrame::ScaledFrame(const QRectF& frame, const PlaneBox& box)
    : frame_(frame),
      scale_(std::min(frame.width() / box.width(), frame.height() / box.height())),
      centre_{(box.minAcross + box.maxAcross) / 2.0, (box.minUp + box.maxUp) / 2.0} {}

QPointF ScaledFrame::toPage(const PlanePoint& point) const {
  return frame_.center() +
         QPointF((point.across - centre_.across) * scale_, (centre_.up - point.up) * scale_);
}

QPolygonF ScaledFrame::toPage(const std::vector<PlanePoint>& points) const {
  QPolygonF page;
  for (const PlanePoint& point : points) {
    page.append(toPage(point));
  }
  return page;
}

double ScaledFrame::gridStep() const { return roundStepFrom(kClosestTicks / scale_); }

std::vector<double> ScaledFrame::ticksAcross() const {
  const double reach = frame_.width() / 2.0 / scale_;
  return multiples(gridStep(), centre_.across - reach, centre_.across + reach);
}

std::vector<double> ScaledFrame::ticksUp() const {
  const double reach = frame_.height() / 2.0 / scale_;
  return multiples(gridStep(), centre_.up - reach, centre_.up + reach);
}

double roundStepFrom(double value) {
  const double power = std::pow(10.0, std::floor(std::log10(value)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= value * (1.0 - 1e-12)) {
      return factor * power;
    }
  }
  return 10.0 * power;
}
