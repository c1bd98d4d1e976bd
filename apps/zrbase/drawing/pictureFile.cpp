#include "drawing/pictureFile.h"

#include <QBuffer>
#include <QByteArray>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <array>
#include <clocale>

#include "common/commandError.h"
#include "common/textFormat.h"

namespace {

constexpr double kPngScale = 2.0;  // a page unit is two pixels: 192 dpi

void ignoreMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                   const QString& /*text*/) {}

void drawPage(QPainter& painter, const Picture& picture) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(QRectF(QPointF(0.0, 0.0), picture.size), Qt::white);
  picture.draw(painter);
}

QByteArray svgBytes(const Picture& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setSize(picture.size.toSize());
  generator.setViewBox(QRectF(QPointF(0.0, 0.0), picture.size));
  generator.setResolution(96);
  generator.setTitle(QString::fromStdString(picture.title));
  generator.setDescription(QString::fromStdString(picture.description));
  QPainter painter(&generator);
  drawPage(painter, picture);
  painter.end();
  return bytes;
}

QByteArray pngBytes(const Picture& picture) {
  QImage image((picture.size * kPngScale).toSize(), QImage::Format_RGB32);
  image.fill(Qt::white);
  image.setDotsPerMeterX(7559);
  image.setDotsPerMeterY(7559);
  QPainter painter(&image);
  painter.scale(kPngScale, kPngScale);
  drawPage(painter, picture);
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

void writePicture(const SafeOutput& output, const std::function<Picture()>& make) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(ignoreMessage);
  int argumentCount = 1;
  std::array<char, 7> name = {"zrbase"};
  std::array<char*, 2> arguments = {name.data(), nullptr};
  const QGuiApplication application(argumentCount, arguments.data());
  // The application takes on the user's locale, with its decimal comma.
  std::setlocale(LC_ALL, "C");
  const Picture picture = make();
  const bool svg = pictureFormat(output.finalPath()) == PictureFormat::svg;
  const QByteArray bytes = svg ? svgBytes(picture) : pngBytes(picture);
  if (bytes.isEmpty()) {
    throw CommandError(output.finalPath() + ": cannot be drawn");
  }
  output.write(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}
