#ifndef ZRBASE_APPS_WELL_SCALEDFRAME_H
#define ZRBASE_APPS_WELL_SCALEDFRAME_H

#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <vector>

/// A place in a plane: across to the right, up.
struct PlanePoint {
  double across = 0.0;
  double up = 0.0;
};

/// The part of a plane that a panel has to show.
struct PlaneBox {
  double minAcross = 0.0;
  double maxAcross = 0.0;
  double minUp = 0.0;
  double maxUp = 0.0;

  void add(const PlanePoint& point);
  double width() const { return maxAcross - minAcross; }
  double height() const { return maxUp - minUp; }
  /// Grown by a share of its larger side, and to at least `smallest` either way.
  PlaneBox padded(double share, double smallest) const;
};

/// A frame on the page that shows a box of a plane, at one scale in both directions.
class ScaledFrame {
 public:
  /// The box stands in the middle where the frame has another shape.
  ScaledFrame(const QRectF& frame, const PlaneBox& box);

  const QRectF& frame() const { return frame_; }
  /// Page units in one of the plane.
  double scale() const { return scale_; }
  QPointF toPage(const PlanePoint& point) const;
  QPolygonF toPage(const std::vector<PlanePoint>& points) const;
  /// 1, 2 or 5 times a power of ten: the distance of the grid lines, the same both ways.
  double gridStep() const;
  /// Multiples of the grid step inside the frame.
  std::vector<double> ticksAcross() const;
  std::vector<double> ticksUp() const;

 private:
  QRectF frame_;
  double scale_;
  PlanePoint centre_;
};

/// 1, 2 or 5 times a power of ten: the smallest that is not below `value`, which is above 0.
double roundStepFrom(double value);

#endif  // ZRBASE_APPS_WELL_SCALEDFRAME_H
