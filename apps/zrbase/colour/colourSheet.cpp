#include "colour/colourSheet.h"

#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <algorithm>
#include <cstddef>

#include "common/colourCells.h"
#include "common/commandError.h"
#include "common/textFormat.h"
#include "drawing/mapText.h"
#include "drawing/pictureFile.h"
#include "drawing/swatchStyle.h"

namespace {

constexpr std::size_t kMostColours = 600;
constexpr std::size_t kFewColumns = 4;
constexpr std::size_t kManyColumns = 8;
constexpr double kMargin = 24.0;
constexpr double kTop = 64.0;  // room for the title
constexpr double kCellWidth = 148.0;
constexpr double kCellHeight = 108.0;
constexpr double kSwatchHeight = 56.0;
constexpr double kGap = 14.0;  // between swatches

std::size_t columnsFor(std::size_t count) {
  const std::size_t most = count > 4 * kFewColumns ? kManyColumns : kFewColumns;
  return std::clamp<std::size_t>(count, 2, most);  // at least two, for the title's sake
}

/// Whose word it is, where the two colours of a word stand side by side.
QString caption(const NamedColour& colour) {
  const QString words = colour.words == "both" ? "" : QString::fromStdString(colour.words);
  const QString index = "index " + QString::number(colourCells::nearestIndex(colour.packed));
  return words.isEmpty() ? index : index + "  \u00b7  " + words;
}

void drawCell(QPainter& painter, const QPointF& corner, const NamedColour& colour) {
  const double width = kCellWidth - kGap;
  const QColor fill = swatchStyle::colourOf(colour.packed);
  painter.setPen(swatchStyle::outline());
  painter.setBrush(fill);
  painter.drawRect(QRectF(corner, QSizeF(width, kSwatchHeight)));
  const MapText text(painter);
  text.centred(corner + QPointF(width / 2.0, kSwatchHeight / 2.0 + 5.0),
               QString::fromStdString(colourCells::hexText(colour.packed)), 13,
               swatchStyle::textOn(fill));
  const bool otherName = !colour.name.empty() && colour.name != textFormat::lowerCase(colour.given);
  const QString name =
      swatchStyle::shownText(colour.given + (otherName ? " = " + colour.name : std::string()));
  text.startingAt(corner + QPointF(0.0, kSwatchHeight + 16.0), name, 13, mapStyle::ink(), false,
                  width);
  text.startingAt(corner + QPointF(0.0, kSwatchHeight + 32.0), caption(colour), 11,
                  mapStyle::quietInk(), false, width);
}

}  // namespace

void drawColourSheet(const SafeOutput& output, const std::vector<NamedColour>& colours) {
  if (colours.size() > kMostColours) {
    throw CommandError(output.finalPath() + ": a sheet holds at most " +
                       std::to_string(kMostColours) + " colours, not " +
                       std::to_string(colours.size()));
  }
  const std::size_t columns = columnsFor(colours.size());
  const std::size_t rows = (colours.size() + columns - 1) / columns;
  writePicture(output, [&colours, columns, rows] {
    Picture picture;
    picture.size = QSizeF(2.0 * kMargin + kCellWidth * static_cast<double>(columns) - kGap,
                          kTop + kCellHeight * static_cast<double>(rows) + kMargin - kGap);
    picture.title = "Colours";
    picture.description = textFormat::counted(colours.size(), "colour", "colours");
    picture.draw = [&colours, columns](QPainter& painter) {
      MapText(painter).startingAt(QPointF(kMargin, 40.0), "Colours", 22, mapStyle::ink(), true);
      for (std::size_t i = 0; i < colours.size(); ++i) {
        const std::size_t row = i / columns;
        const QPointF corner(kMargin + kCellWidth * static_cast<double>(i % columns),
                             kTop + kCellHeight * static_cast<double>(row));
        drawCell(painter, corner, colours[i]);
      }
    };
    return picture;
  });
}
