#ifndef ZRBASE_APPS_FLOWPATH_MAPVIEW_H
#define ZRBASE_APPS_FLOWPATH_MAPVIEW_H

#include <zrBase/geometry/gdfVertex.h>

#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QSizeF>
#include <vector>

#include "common/modelSystem.h"
#include "flowpath/flowpathModel.h"
#include "flowpath/mapPicture.h"

/// The page, the map's frame on it, and the way from model coordinates to the page. Page units are
/// pixels at 96 dpi.
class MapView {
 public:
  explicit MapView(const MapContent& content);

  QSizeF pageSize() const { return pageSize_; }
  /// Where the map is.
  const QRectF& frame() const { return frame_; }
  /// Where legend, colour scale and scale bar are.
  const QRectF& panel() const { return panel_; }
  /// The part of the model that fills the frame.
  const Extent& world() const { return world_; }
  /// Page units in a metre.
  double scale() const { return scale_; }

  QPointF toPage(const gdfVertex& v) const;
  double xToPage(double x) const;
  double yToPage(double y) const;
  QPolygonF toPage(const VertexLine& line) const;

  /// The pieces of a line inside the frame. Clipped here since an SVG has no clip of the painter's.
  std::vector<QPolygonF> clipped(const QPolygonF& line) const { return clipped(line, frame_); }
  /// The pieces of a line inside a box on the page.
  static std::vector<QPolygonF> clipped(const QPolygonF& line, const QRectF& box);

 private:
  QSizeF pageSize_;
  QRectF frame_;
  QRectF panel_;
  Extent world_;
  double scale_ = 1.0;
};

/// 1, 2 or 5 times a power of ten: the largest that is not above `value`.
double roundStep(double value);

#endif  // ZRBASE_APPS_FLOWPATH_MAPVIEW_H
