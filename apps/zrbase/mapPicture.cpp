#include "mapPicture.h"

#include <QBuffer>
#include <QByteArray>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <clocale>
#include <cmath>

#include "commandError.h"
#include "mapFurniture.h"
#include "mapLayers.h"
#include "mapView.h"
#include "textFormat.h"

namespace {

constexpr double kPngScale = 2.0;  // a page unit is two pixels: 192 dpi

void ignoreMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                   const QString& /*text*/) {}

void drawPage(QPainter& painter, const MapView& view, const MapContent& content) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(QRectF(QPointF(0.0, 0.0), view.pageSize()), Qt::white);
  drawMapGround(painter, view);
  drawMapLayers(painter, view, content);
  drawMapFurniture(painter, view, content);
}

QByteArray svgBytes(const MapView& view, const MapContent& content) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setSize(view.pageSize().toSize());
  generator.setViewBox(QRectF(QPointF(0.0, 0.0), view.pageSize()));
  generator.setResolution(96);
  generator.setTitle("Flow paths");
  generator.setDescription(QString::fromStdString(content.sourceText + ", " + content.systemText));
  QPainter painter(&generator);
  drawPage(painter, view, content);
  painter.end();
  return bytes;
}

QByteArray pngBytes(const MapView& view, const MapContent& content) {
  QImage image((view.pageSize() * kPngScale).toSize(), QImage::Format_RGB32);
  image.fill(Qt::white);
  image.setDotsPerMeterX(7559);
  image.setDotsPerMeterY(7559);
  QPainter painter(&image);
  painter.scale(kPngScale, kPngScale);
  drawPage(painter, view, content);
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  return image.save(&buffer, "PNG") ? bytes : QByteArray();
}

}  // namespace

PictureFormat pictureFormat(const std::string& fileName) {
  const std::string ending = textFormat::fileEnding(fileName);
  if (ending == ".svg") {
    return PictureFormat::svg;
  }
  if (ending == ".png") {
    return PictureFormat::png;
  }
  throw CommandError(fileName + ": unknown ending for the picture: .svg or .png");
}

void drawMapPicture(const SafeOutput& output, const MapContent& content, int& argumentCount,
                    char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(ignoreMessage);
  const QGuiApplication application(argumentCount, arguments);
  std::setlocale(LC_ALL,
                 "C");  // the application takes on the user's locale, with its decimal comma
  const MapView view(content);
  const bool svg = pictureFormat(output.finalPath()) == PictureFormat::svg;
  const QByteArray bytes = svg ? svgBytes(view, content) : pngBytes(view, content);
  if (bytes.isEmpty()) {
    throw CommandError(output.finalPath() + ": cannot be drawn");
  }
  output.write(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}
