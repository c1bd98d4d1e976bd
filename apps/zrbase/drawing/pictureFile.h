#ifndef ZRBASE_APPS_DRAWING_PICTUREFILE_H
#define ZRBASE_APPS_DRAWING_PICTUREFILE_H

#include <QSizeF>
#include <functional>
#include <string>

#include "common/safeOutput.h"

class QPainter;

enum class PictureFormat { svg, png };

/// The format for the ending of the file. @throws CommandError if it is neither .svg nor .png
PictureFormat pictureFormat(const std::string& fileName);

/// A page and how it is drawn. Page units are pixels at 96 dpi.
struct Picture {
  QSizeF size;
  std::string title;        ///< of the document, as viewers show it
  std::string description;  ///< likewise
  std::function<void(QPainter&)> draw;
};

/// Draws the picture that `make` gives, on white paper, into the output. Needs no display.
///
/// `make` is called when fonts can be measured. An SVG has no clip of the painter's: whoever draws
/// cuts lines at a frame himself.
/// @throws CommandError if the picture cannot be written
void writePicture(const SafeOutput& output, const std::function<Picture()>& make);

#endif  // ZRBASE_APPS_DRAWING_PICTUREFILE_H
