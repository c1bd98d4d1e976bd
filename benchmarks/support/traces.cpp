#include "traces.h"

#include "random.h"

#include <zrBase/tools2d/zr2DTools.h>

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace traces {

namespace {

constexpr double degree = 3.141592653589793 / 180.0;
constexpr double earthRadius = 6371008.8;  // mean radius, metres

VertexLine lineOf(const QJsonArray& coordinates) {
  VertexLine line;
  for (const QJsonValue& position : coordinates) {
    line.emplace_back(position.toArray().at(0).toDouble(), position.toArray().at(1).toDouble());
  }
  return line;
}

/// Longitudes and latitudes to metres east and north of the line's centre.
VertexLine projected(const VertexLine& degrees) {
  const gdfVertex centre = extentOf(degrees).centre();
  const double perDegree = earthRadius * degree;
  const double shrink = std::cos(centre.y() * degree);
  VertexLine line;
  for (const gdfVertex& v : degrees) {
    line.emplace_back((v.x() - centre.x()) * perDegree * shrink, (v.y() - centre.y()) * perDegree);
  }
  return line;
}

std::vector<Trace> readLongTraces() {
  QFile file(ZRBASE_EXAMPLE_DATA "/long_traces.geojson");
  std::vector<Trace> result;
  if (file.open(QIODevice::ReadOnly)) {
    const QJsonObject root = QJsonDocument::fromJson(file.readAll()).object();
    for (const QJsonValue& value : root["features"].toArray()) {
      const QJsonObject feature = value.toObject();
      const auto record = feature["properties"].toObject()["record"].toInt();
      result.push_back(
          {record, projected(lineOf(feature["geometry"].toObject()["coordinates"].toArray()))});
    }
  }
  if (result.empty()) {
    std::fprintf(stderr, "cannot read traces from %s\n", qPrintable(file.fileName()));
    std::exit(1);
  }
  return result;
}

}  // namespace

const std::vector<Trace>& longTraces() {
  static const std::vector<Trace> all = readLongTraces();
  return all;
}

VertexLine firstVertices(std::int64_t record, std::size_t count) {
  const std::vector<Trace>& all = longTraces();
  const auto trace = std::find_if(
      all.begin(), all.end(), [&](const Trace& candidate) { return candidate.record == record; });
  VertexLine line = trace->line;
  while (line.size() < count) {
    const gdfVertex shift = line.back() - trace->line.front();
    for (std::size_t i = 1; i < trace->line.size(); ++i) line.push_back(trace->line[i] + shift);
  }
  line.resize(count);
  return line;
}

Extent extentOf(const VertexLine& line) {
  Extent extent{line.front(), line.front()};
  for (const gdfVertex& v : line) {
    extent.low = {std::min(extent.low.x(), v.x()), std::min(extent.low.y(), v.y())};
    extent.high = {std::max(extent.high.x(), v.x()), std::max(extent.high.y(), v.y())};
  }
  return extent;
}

Extent modelExtent(const VertexLine& line) {
  const Extent extent = extentOf(line);
  const double margin = 0.5 * extent.widthAndHeight();
  const gdfVertex corner(margin, margin);
  return {extent.low - corner, extent.high + corner};
}

VertexLine turned(const VertexLine& line, double degrees) {
  const gdfVertex centre = extentOf(line).centre();
  const double c = std::cos(degrees * degree);
  const double s = std::sin(degrees * degree);
  VertexLine result;
  for (const gdfVertex& v : line) {
    const gdfVertex w = v - centre;
    result.push_back(centre + gdfVertex(c * w.x() - s * w.y(), s * w.x() + c * w.y()));
  }
  return result;
}

VertexLine zigzag(std::size_t count, double width, double height) {
  VertexLine line;
  for (std::size_t i = 0; i < count; ++i) {
    line.emplace_back(width * static_cast<double>(i), i % 2 == 0 ? 0.0 : height);
  }
  return line;
}

VertexLine halfCircle(std::size_t count) {
  constexpr double radius = 10000.0;
  const double step = 180.0 * degree / static_cast<double>(count - 1);
  VertexLine line;
  for (std::size_t i = 0; i < count; ++i) {
    const double angle = step * static_cast<double>(i);
    line.emplace_back(radius * std::cos(angle), radius * std::sin(angle));
  }
  return line;
}

VertexLine placesAround(const VertexLine& line, std::size_t count) {
  const double reach = 0.1 * zr2DTools::calcLength(line);
  Random random;
  VertexLine places;
  for (std::size_t i = 0; i < count; ++i) {
    const auto segment =
        static_cast<std::size_t>(random.between(0.0, static_cast<double>(line.size() - 1)));
    const double dx = random.between(-reach, reach);
    const double dy = random.between(-reach, reach);
    places.push_back((line[segment] + line[segment + 1]) * 0.5 + gdfVertex(dx, dy));
  }
  return places;
}

}  // namespace traces
