#ifndef ZRBASE_APPS_FLOWPATH_MAPPICTURE_H
#define ZRBASE_APPS_FLOWPATH_MAPPICTURE_H

#include <string>
#include <vector>

#include "common/safeOutput.h"
#include "flowpath/flowpathModel.h"

/// What a map shows.
struct MapContent {
  const std::vector<TemplateModel>* models = nullptr;
  const std::vector<InputPoint>* points = nullptr;
  std::string systemText;  ///< the coordinate system, for the line below the title
  std::string sourceText;  ///< where the traces come from, likewise
};

/// Draws the map: traces, bisectors, paths coloured by height, moved places, with frame, scale and
/// legend.
///
/// The view holds the traces, the paths and the places; bisectors run on beyond it and end at the
/// frame. Both axes have one scale. Needs no display. @throws CommandError if the picture cannot be
/// written
void drawMapPicture(const SafeOutput& output, const MapContent& content);

#endif  // ZRBASE_APPS_FLOWPATH_MAPPICTURE_H
