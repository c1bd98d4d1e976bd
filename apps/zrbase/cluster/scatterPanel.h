#ifndef ZRBASE_APPS_CLUSTER_SCATTERPANEL_H
#define ZRBASE_APPS_CLUSTER_SCATTERPANEL_H

#include <QColor>
#include <QString>

#include "cluster/clusterPicture.h"
#include "cluster/scatterFrame.h"

class QPainter;

/// Titles of the axes.
struct ScatterTitles {
  QString across;
  QString up;
};

/// Draws axes, points and centers.
void drawScatterPanel(QPainter& painter, const ScatterContent& content, const ScatterFrame& frame,
                      const ScatterTitles& titles);

/// Marks of the panel, so that the legend has the same.
namespace scatterMarks {
void drawPoint(QPainter& painter, const QPointF& place, const QColor& colour, double radius);
void drawCenter(QPainter& painter, const QPointF& place, const QColor& colour, double radius);
}  // namespace scatterMarks

#endif  // ZRBASE_APPS_CLUSTER_SCATTERPANEL_H
