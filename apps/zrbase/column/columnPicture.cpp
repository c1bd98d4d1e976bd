#include "column/columnPicture.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <algorithm>
#include <cstddef>
#include <memory>

#include "common/commandError.h"
#include "common/textFormat.h"
#include "drawing/mapText.h"
#include "drawing/pictureFile.h"
#include "drawing/swatchStyle.h"

namespace {

constexpr std::size_t kMostUnits = 1000;
constexpr std::size_t kUnitsOfAStack = 40;
constexpr double kMargin = 24.0;
constexpr double kTop = 84.0;     // room for the title
constexpr double kBottom = 52.0;  // room for the last value and the note
constexpr double kBoxWidth = 280.0;
constexpr double kBoxHeight = 32.0;
constexpr double kTick = 8.0;
constexpr double kValueGap = 6.0;
constexpr double kStackGap = 36.0;
constexpr double kNarrowestPage = 440.0;
constexpr int kNamePixels = 14;
constexpr int kValuePixels = 12;

QString valueText(const ColumnUnit& unit) {
  return QString::fromStdString(textFormat::shortest(unit.value));
}

/// The boxes and where they stand on the page.
class ColumnPage {
 public:
  ColumnPage(const std::vector<ColumnUnit>& units, const std::string& title,
             const std::string& source)
      : units_(units),
        title_(swatchStyle::shownText(title)),
        source_(swatchStyle::shownText(source)),
        ascending_(valuesAscend(units)) {
    const QFontMetricsF metrics(mapStyle::font(kValuePixels));
    double valueRoom = 0.0;
    for (const ColumnUnit& unit : units) {
      valueRoom = std::max(valueRoom, metrics.horizontalAdvance(valueText(unit)));
    }
    stackWidth_ = kBoxWidth + kTick + kValueGap + valueRoom;
    const std::size_t stacks = (units.size() + kUnitsOfAStack - 1) / kUnitsOfAStack;
    const std::size_t tallest = std::min(units.size(), kUnitsOfAStack);
    const double wide = static_cast<double>(stacks) * (stackWidth_ + kStackGap) - kStackGap;
    size_ = QSizeF(std::max(kNarrowestPage, 2.0 * kMargin + wide),
                   kTop + kBoxHeight * static_cast<double>(tallest) + kBottom);
  }

  QSizeF size() const { return size_; }

  void draw(QPainter& painter) const {
    const MapText text(painter);
    const double room = size_.width() - 2.0 * kMargin;
    text.startingAt(QPointF(kMargin, 40.0), title_, 22, mapStyle::ink(), true, room);
    const QString count =
        QString::fromStdString(textFormat::counted(units_.size(), "unit", "units"));
    text.startingAt(QPointF(kMargin, 64.0), count + ", not to scale  \u00b7  " + source_, 13,
                    mapStyle::quietInk(), false, room);
    for (std::size_t i = 0; i < units_.size(); ++i) {
      drawUnit(painter, boxOf(i), units_[i]);
    }
    text.startingAt(QPointF(kMargin, size_.height() - kMargin + 4.0),
                    ascending_ ? "Each value stands at the base of its unit."
                               : "Each value stands beside its unit.",
                    kValuePixels, mapStyle::quietInk(), false, room);
  }

 private:
  QRectF boxOf(std::size_t i) const {
    const std::size_t stack = i / kUnitsOfAStack;
    const std::size_t row = i % kUnitsOfAStack;
    return {kMargin + static_cast<double>(stack) * (stackWidth_ + kStackGap),
            kTop + static_cast<double>(row) * kBoxHeight, kBoxWidth, kBoxHeight};
  }

  void drawUnit(QPainter& painter, const QRectF& box, const ColumnUnit& unit) const {
    const QColor fill = swatchStyle::colourOf(unit.packed);
    painter.setPen(swatchStyle::outline());
    painter.setBrush(fill);
    painter.drawRect(box);
    const MapText text(painter);
    text.startingAt(QPointF(box.left() + 12.0, box.center().y() + 5.0),
                    swatchStyle::shownText(unit.name), kNamePixels, swatchStyle::textOn(fill),
                    false, kBoxWidth - 24.0);
    const double y = ascending_ ? box.bottom() : box.center().y();
    painter.setPen(swatchStyle::outline());
    painter.drawLine(QLineF(box.right(), y, box.right() + kTick, y));
    text.startingAt(QPointF(box.right() + kTick + kValueGap, y + 4.4), valueText(unit),
                    kValuePixels);
  }

  const std::vector<ColumnUnit>& units_;
  QString title_;
  QString source_;
  bool ascending_;
  double stackWidth_ = 0.0;
  QSizeF size_;
};

}  // namespace

void drawColumnPicture(const SafeOutput& output, const std::vector<ColumnUnit>& units,
                       const std::string& title, const std::string& source) {
  if (units.size() > kMostUnits) {
    throw CommandError(output.finalPath() + ": a picture holds at most " +
                       std::to_string(kMostUnits) + " units, not " + std::to_string(units.size()));
  }
  writePicture(output, [&] {
    const auto page = std::make_shared<const ColumnPage>(units, title, source);
    Picture picture;
    picture.size = page->size();
    picture.title = swatchStyle::shownText(title).toStdString();
    picture.description = swatchStyle::shownText(source).toStdString();
    picture.draw = [page](QPainter& painter) { page->draw(painter); };
    return picture;
  });
}
