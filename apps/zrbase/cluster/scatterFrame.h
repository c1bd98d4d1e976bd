#ifndef ZRBASE_APPS_CLUSTER_SCATTERFRAME_H
#define ZRBASE_APPS_CLUSTER_SCATTERFRAME_H

#include <QPointF>
#include <QRectF>
#include <QString>
#include <vector>

/// The numbers along one axis.
struct AxisRange {
  double low = 0.0;
  double high = 0.0;

  double length() const { return high - low; }
  double middle() const { return low + length() / 2.0; }
  /// A little more on both sides; never without length.
  AxisRange padded() const;
  /// About its middle, as long as asked for.
  AxisRange widenedTo(double length) const;
};

/// A mark on an axis.
struct AxisTick {
  double value = 0.0;
  QString text;
};

/// Width of the widest text.
double widestText(const std::vector<AxisTick>& ticks);

/// A frame on the page and the numbers it shows, to the right and up.
struct ScatterFrame {
  QRectF frame;
  AxisRange across;
  AxisRange up;
  bool wholeUp = false;  ///< numbers up are whole ones

  /// Round numbers, apart enough for their texts.
  std::vector<AxisTick> ticksAcross() const;
  std::vector<AxisTick> ticksUp() const;

  QPointF toPage(double acrossValue, double upValue) const {
    return {frame.left() + (acrossValue - across.low) / across.length() * frame.width(),
            frame.bottom() - (upValue - up.low) / up.length() * frame.height()};
  }
};

#endif  // ZRBASE_APPS_CLUSTER_SCATTERFRAME_H
