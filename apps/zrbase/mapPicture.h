#ifndef ZRBASE_APPS_MAPPICTURE_H
#define ZRBASE_APPS_MAPPICTURE_H

#include <string>
#include <vector>

#include "flowpathModel.h"
#include "safeOutput.h"

/// What a map shows.
struct MapContent {
  const std::vector<TemplateModel>* models = nullptr;
  const std::vector<SeedPoint>* points = nullptr;
  std::string systemText;  ///< the coordinate system, for the line below the title
  std::string sourceText;  ///< where the traces come from, likewise
};

enum class PictureFormat { svg, png };

/// The format for the ending of the file. @throws CommandError if it is neither .svg nor .png
PictureFormat pictureFormat(const std::string& fileName);

/// Draws the map: traces, bisectors, paths coloured by height, moved places, with frame, scale and
/// legend.
///
/// The view holds the traces, the paths and the places; bisectors run on beyond it and end at the
/// frame. Both axes have one scale. Needs no display. @throws CommandError if the picture cannot be
/// written
void drawMapPicture(const SafeOutput& output, const MapContent& content, int& argumentCount,
                    char** arguments);

#endif  // ZRBASE_APPS_MAPPICTURE_H
