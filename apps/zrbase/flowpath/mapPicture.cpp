#include "flowpath/mapPicture.h"

#include <QPainter>
#include <memory>

#include "drawing/pictureFile.h"
#include "flowpath/mapFurniture.h"
#include "flowpath/mapLayers.h"
#include "flowpath/mapView.h"

void drawMapPicture(const SafeOutput& output, const MapContent& content) {
  writePicture(output, [&content] {
    const auto view = std::make_shared<const MapView>(content);
    Picture picture;
    picture.size = view->pageSize();
    picture.title = "Flow paths";
    picture.description = content.sourceText + ", " + content.systemText;
    picture.draw = [view, &content](QPainter& painter) {
      drawMapGround(painter, *view);
      drawMapLayers(painter, *view, content);
      drawMapFurniture(painter, *view, content);
    };
    return picture;
  });
}
