#ifndef ZRBASE_APPS_FLOWPATH_MAPLAYERS_H
#define ZRBASE_APPS_FLOWPATH_MAPLAYERS_H

class QPainter;
class MapView;
struct MapContent;

/// The largest absolute height of the paths, 0 without paths: the end of the colour scale.
double largestHeight(const MapContent& content);

/// Draws what lies inside the frame: bisectors, paths, traces, moves, places, labels, in this
/// order.
void drawMapLayers(QPainter& painter, const MapView& view, const MapContent& content);

/// An arrow head whose tip is at `tip`, pointing along (`dx`, `dy`), `size` long.
void drawArrowHead(QPainter& painter, double tipX, double tipY, double dx, double dy, double size);

#endif  // ZRBASE_APPS_FLOWPATH_MAPLAYERS_H
