#ifndef ZRBASE_APPS_FLOWPATH_MAPLEGEND_H
#define ZRBASE_APPS_FLOWPATH_MAPLEGEND_H

class QPainter;
class MapView;
struct MapContent;

/// The panel beside the map: north arrow, legend, colour scale of the heights, scale bar. It never
/// covers the map, and names only what the map shows.
void drawMapLegend(QPainter& painter, const MapView& view, const MapContent& content);

#endif  // ZRBASE_APPS_FLOWPATH_MAPLEGEND_H
