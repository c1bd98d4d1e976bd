#ifndef ZRBASE_TESTS_BISECTORS_SUPPORT_FAULTTRACES_H
#define ZRBASE_TESTS_BISECTORS_SUPPORT_FAULTTRACES_H

#include <zrBase/geometry/gdfVertex.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <string>

/// Real fault traces as template lines, in metres.
namespace faultTraces {

/// The numbers of "[[lon, lat], ...]" from the first bracket on, as vertices in degrees.
inline VertexLine coordinatesAt(const std::string& text, std::size_t from) {
  const std::size_t end = text.find("]]", from);
  if (end == std::string::npos) throw std::runtime_error("coordinates without an end");
  std::string numbers = text.substr(from, end - from);
  for (char& c : numbers) {
    if (c == '[' || c == ']' || c == ',') c = ' ';
  }
  std::istringstream stream(numbers);
  stream.imbue(std::locale::classic());
  VertexLine degrees;
  for (double lon = 0.0, lat = 0.0; stream >> lon >> lat;) degrees.emplace_back(lon, lat);
  return degrees;
}

/// Equirectangular about the trace's first vertex: good to well below a percent over a trace, and
/// simple.
inline VertexLine inMetres(const VertexLine& degrees) {
  const double radian = std::atan(1.0) / 45.0;
  const double metresPerDegree = 6371000.0 * radian;
  const gdfVertex origin = degrees.at(0);
  VertexLine metres;
  for (const gdfVertex& v : degrees) {
    metres.emplace_back(metresPerDegree * std::cos(origin.y() * radian) * (v.x() - origin.x()),
                        metresPerDegree * (v.y() - origin.y()));
  }
  return metres;
}

/// All traces of a GeoJSON file of line strings.
inline VertexLineList read(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path);
  const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  const std::string key = "\"coordinates\":";
  VertexLineList traces;
  for (std::size_t at = text.find(key); at != std::string::npos; at = text.find(key, at + 1)) {
    traces.push_back(inMetres(coordinatesAt(text, at + key.size())));
  }
  return traces;
}

}  // namespace faultTraces

#endif  // ZRBASE_TESTS_BISECTORS_SUPPORT_FAULTTRACES_H
