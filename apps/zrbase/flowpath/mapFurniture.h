#ifndef ZRBASE_APPS_FLOWPATH_MAPFURNITURE_H
#define ZRBASE_APPS_FLOWPATH_MAPFURNITURE_H

class QPainter;
class MapView;
struct MapContent;

/// The map's paper and grid, below everything else.
void drawMapGround(QPainter& painter, const MapView& view);

/// What stands around the map: frame with coordinates, title, north arrow, legend, colour scale,
/// scale bar.
void drawMapFurniture(QPainter& painter, const MapView& view, const MapContent& content);

#endif  // ZRBASE_APPS_FLOWPATH_MAPFURNITURE_H
