#ifndef ZRBASE_APPS_WELL_WELLPANEL_H
#define ZRBASE_APPS_WELL_WELLPANEL_H

#include <QColor>
#include <QPen>
#include <QString>
#include <vector>

#include "well/scaledFrame.h"

class QPainter;

/// One view of a well.
struct WellPanel {
  QString title;
  QString acrossTitle;     ///< of the axis below
  QString upTitle;         ///< of the axis on the left
  bool downwards = false;  ///< the left axis counts down
  std::vector<PlanePoint> stations;
  std::vector<double> depths;  ///< measured depth of each station
  bool fromWellhead = false;   ///< the path begins at the wellhead, at (0, 0)
  double depthStep = 0.0;      ///< of the depths that are told along the path
  bool closure = false;        ///< a line from the wellhead to the last station
  QString endLabel;            ///< at the last station

  /// What has to be seen.
  PlaneBox box() const;
};

void drawWellPanel(QPainter& painter, const ScaledFrame& frame, const WellPanel& panel);

/// Marks of the panels, so that the legend has the same.
namespace wellMarks {
QPen pathPen();
QPen closurePen();
void drawWellhead(QPainter& painter, const QPointF& place);
void drawStation(QPainter& painter, const QPointF& place);
/// A smaller one where stations stand close.
void drawStation(QPainter& painter, const QPointF& place, double radius);
void drawDepth(QPainter& painter, const QPointF& place);
void drawEnd(QPainter& painter, const QPointF& place);
}  // namespace wellMarks

#endif  // ZRBASE_APPS_WELL_WELLPANEL_H
