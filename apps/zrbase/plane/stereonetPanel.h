#ifndef ZRBASE_APPS_PLANE_STEREONETPANEL_H
#define ZRBASE_APPS_PLANE_STEREONETPANEL_H

#include <QRectF>

class QPainter;
struct StereonetContent;

/// What stands beside the net: legend, projection, method, and a table of the first planes.
void drawStereonetPanel(QPainter& painter, const QRectF& panel, const StereonetContent& content);

#endif  // ZRBASE_APPS_PLANE_STEREONETPANEL_H
