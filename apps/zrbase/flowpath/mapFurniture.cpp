#include "flowpath/mapFurniture.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <functional>

#include "common/textFormat.h"
#include "drawing/mapStyle.h"
#include "drawing/mapText.h"
#include "flowpath/mapLayers.h"
#include "flowpath/mapLegend.h"
#include "flowpath/mapPicture.h"
#include "flowpath/mapView.h"

namespace {

constexpr double kTickLength = 6.0;
constexpr double kTickDistance = 150.0;  // page units between coordinates, about

/// Where the coordinates of one axis stand.
struct Ticks {
  double step;
  double unit;  // metres in a unit of the texts
};

Ticks ticksFor(const MapView& view) {
  const double step = roundStep(kTickDistance / view.scale());
  return {step, step >= 1000.0 ? 1000.0 : 1.0};
}

void forEachTick(double low, double high, double step, const std::function<void(double)>& visit) {
  const double first = std::ceil(low / step);
  const double last = std::floor(high / step);
  for (double i = first; i <= last; i += 1.0) {
    visit(i * step);
  }
}

QString tickText(double value, const Ticks& ticks) {
  const double step = ticks.step / ticks.unit;
  const int decimals = step >= 1.0 ? 0 : static_cast<int>(std::ceil(-std::log10(step) - 1e-9));
  QString text = QString::fromStdString(textFormat::fixed(value / ticks.unit, decimals));
  return text.replace('-', QChar(0x2212));
}

void drawFrame(QPainter& painter, const MapView& view) {
  const QRectF& frame = view.frame();
  const Ticks ticks = ticksFor(view);
  const MapText text(painter);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(mapStyle::ink(), 1.4));
  painter.drawRect(frame);
  painter.setPen(QPen(mapStyle::ink(), 1.0));
  forEachTick(view.world().minX, view.world().maxX, ticks.step, [&](double x) {
    const double page = view.xToPage(x);
    painter.drawLine(QPointF(page, frame.bottom()), QPointF(page, frame.bottom() + kTickLength));
    painter.drawLine(QPointF(page, frame.top()), QPointF(page, frame.top() - kTickLength));
    text.centred(QPointF(page, frame.bottom() + 21.0), tickText(x, ticks), 12);
  });
  forEachTick(view.world().minY, view.world().maxY, ticks.step, [&](double y) {
    const double page = view.yToPage(y);
    painter.drawLine(QPointF(frame.left() - kTickLength, page), QPointF(frame.left(), page));
    painter.drawLine(QPointF(frame.right(), page), QPointF(frame.right() + kTickLength, page));
    text.endingAt(QPointF(frame.left() - 10.0, page + 4.3), tickText(y, ticks), 12);
  });
  const QString unit = ticks.unit > 1.0 ? " [km]" : " [m]";
  text.centred(QPointF(frame.center().x(), frame.bottom() + 45.0), "Easting" + unit, 12,
               mapStyle::quietInk());
  painter.save();
  painter.translate(20.0, frame.center().y());
  painter.rotate(-90.0);
  text.centred(QPointF(0.0, 0.0), "Northing" + unit, 12, mapStyle::quietInk());
  painter.restore();
}

std::string titleOf(const MapContent& content) {
  const std::vector<TemplateModel>& models = *content.models;
  if (models.size() > 1) {
    return "Flow paths along " + std::to_string(models.size()) + " fault traces";
  }
  const InputLine& source = models.front().source;
  return "Flow paths along " +
         (source.name.empty() ? "fault trace " + source.label() : source.name);
}

void drawTitle(QPainter& painter, const MapView& view, const MapContent& content) {
  const MapText text(painter);
  const double room = view.pageSize().width() - view.frame().left() - 20.0;
  text.startingAt(QPointF(view.frame().left(), 38.0), QString::fromStdString(titleOf(content)), 22,
                  mapStyle::ink(), true, room);
  const QString below =
      QString::fromStdString(content.sourceText + "  \u00b7  coordinates: " + content.systemText);
  text.startingAt(QPointF(view.frame().left(), 62.0), below, 13, mapStyle::quietInk(), false, room);
}

}  // namespace

void drawMapGround(QPainter& painter, const MapView& view) {
  const QRectF& frame = view.frame();
  const Ticks ticks = ticksFor(view);
  painter.fillRect(frame, mapStyle::background());
  painter.setPen(QPen(mapStyle::gridLine(), 0.8));
  forEachTick(view.world().minX, view.world().maxX, ticks.step, [&](double x) {
    painter.drawLine(QPointF(view.xToPage(x), frame.top()),
                     QPointF(view.xToPage(x), frame.bottom()));
  });
  forEachTick(view.world().minY, view.world().maxY, ticks.step, [&](double y) {
    painter.drawLine(QPointF(frame.left(), view.yToPage(y)),
                     QPointF(frame.right(), view.yToPage(y)));
  });
}

void drawMapFurniture(QPainter& painter, const MapView& view, const MapContent& content) {
  drawFrame(painter, view);
  drawTitle(painter, view, content);
  drawMapLegend(painter, view, content);
}
