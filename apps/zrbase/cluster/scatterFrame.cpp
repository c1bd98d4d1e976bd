#include "cluster/scatterFrame.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "common/textFormat.h"
#include "drawing/mapStyle.h"

namespace {

constexpr double kPadding = 0.04;
constexpr double kLeastRelativeLength = 1e-9;  // finer than that, ticks would run out of digits
constexpr double kClosestAcross = 62.0;        // page units from tick to tick
constexpr double kClosestUp = 44.0;
constexpr double kTextGap = 16.0;
constexpr int kMostTicks = 60;

// 1, 2 or 5 times a power of ten, not below `value`.
double roundStep(double value) {
  const double power = std::pow(10.0, std::floor(std::log10(value)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= value * (1.0 - 1e-12)) {
      return factor * power;
    }
  }
  return 10.0 * power;
}

QString tickText(double value, double step) {
  constexpr double kLargest = 1e9;
  constexpr double kFinest = 1e-6;
  const double largest = std::abs(value);
  std::string text;
  if (value == 0.0) {
    text = "0";
  } else if (largest >= kLargest || step < kFinest) {
    const double exponent = std::floor(std::log10(largest) + 1e-9);
    const double power = std::pow(10.0, exponent);
    const int decimals =
        static_cast<int>(std::clamp(std::ceil(std::log10(largest / step) - 1e-9), 0.0, 9.0));
    text = textFormat::fixed(value / power, decimals) + "e" +
           std::to_string(static_cast<int>(exponent));
  } else {
    text = textFormat::fixed(value,
                             static_cast<int>(std::max(0.0, -std::floor(std::log10(step) + 1e-9))));
  }
  return QString::fromStdString(text).replace('-', QChar(0x2212));
}

std::vector<AxisTick> ticksOf(const AxisRange& range, double step) {
  std::vector<AxisTick> ticks;
  const double first = std::ceil(range.low / step - 1e-9);
  for (int i = 0; i < kMostTicks; ++i) {
    const double value = (first + i) * step;
    if (value > range.high) {
      break;
    }
    ticks.push_back({value, tickText(value, step)});
  }
  return ticks;
}

}  // namespace

AxisRange AxisRange::padded() const {
  const double size = std::max(std::abs(low), std::abs(high));
  const double least = size == 0.0 ? 1.0 : size * kLeastRelativeLength;
  const double whole = low == high ? std::max(1.0, 0.1 * size) : std::max(length(), least);
  return widenedTo(whole * (1.0 + 2.0 * kPadding));
}

AxisRange AxisRange::widenedTo(double length) const {
  return {middle() - length / 2.0, middle() + length / 2.0};
}

double widestText(const std::vector<AxisTick>& ticks) {
  const QFontMetricsF metrics(mapStyle::font(12));
  double widest = 0.0;
  for (const AxisTick& tick : ticks) {
    widest = std::max(widest, metrics.horizontalAdvance(tick.text));
  }
  return widest;
}

std::vector<AxisTick> ScatterFrame::ticksAcross() const {
  double step = roundStep(across.length() * kClosestAcross / frame.width());
  std::vector<AxisTick> ticks = ticksOf(across, step);
  while (ticks.size() > 2 &&
         widestText(ticks) + kTextGap > step / across.length() * frame.width()) {
    step = roundStep(step * 1.5);
    ticks = ticksOf(across, step);
  }
  return ticks;
}

std::vector<AxisTick> ScatterFrame::ticksUp() const {
  const double step = roundStep(up.length() * kClosestUp / frame.height());
  return ticksOf(up, wholeUp ? std::max(1.0, step) : step);
}
