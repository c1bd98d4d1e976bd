#include "common/vectorInput.h"

#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>
#include <set>
#include <utility>

#include "common/commandError.h"
#include "common/geometryParts.h"
#include "common/textFormat.h"
#include "common/vectorSource.h"

namespace {

bool holdsLine(const OGRGeometry& geometry) {
  bool found = isOfKind(geometry, wkbMultiCurve);
  forEachSimplePart(geometry, [&](const OGRGeometry& part) { found |= isOfKind(part, wkbCurve); });
  return found;
}

bool holdsPoint(const OGRGeometry& geometry) {
  bool found = isOfKind(geometry, wkbMultiPoint);
  forEachSimplePart(geometry, [&](const OGRGeometry& part) { found |= isOfKind(part, wkbPoint); });
  return found;
}

bool holdsRing(const OGRGeometry& geometry) {
  bool found = isOfKind(geometry, wkbMultiSurface) || holdsLine(geometry);
  forEachSimplePart(geometry,
                    [&](const OGRGeometry& part) { found |= isOfKind(part, wkbCurvePolygon); });
  return found;
}

std::string reasonAgainst(const VertexLine& vertices) {
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    if (!isFinite(vertices[i])) {
      return "vertex " + std::to_string(i) + " is not finite (NaN or infinite coordinate)";
    }
  }
  if (vertices.size() < 2) {
    return vertices.empty() ? "a line without vertices" : "a line of one vertex";
  }
  return "";
}

// The place that a row of a table tells; returns the reason if it tells none.
std::string readRow(const OGRFeature& row, const CoordinateColumns& columns, gdfVertex& place) {
  place = gdfVertex();
  std::string reason = readCoordinate(row, columns.x, false, place.x());
  reason = reason.empty() ? readCoordinate(row, columns.y, false, place.y()) : reason;
  return reason.empty() ? readCoordinate(row, columns.z, true, place.z()) : reason;
}

// Closes the ring exactly and takes repeated vertices out; returns the reason if it is none.
std::string reasonAgainstRing(VertexLine& vertices, std::size_t& repeated) {
  constexpr std::size_t kFewest = 4;  // a triangle, closed
  if (vertices.empty()) {
    return "a ring without vertices";
  }
  std::string reason = vertices.size() < 2 ? "" : reasonAgainst(vertices);
  if (!reason.empty()) {
    return reason;
  }
  if (vertices.front() != vertices.back()) {
    vertices.push_back(vertices.front());
  }
  repeated += dropRepeated(vertices);
  return vertices.size() < kFewest ? "a ring of fewer than three corners" : "";
}

class LineReader {
 public:
  // With `rings` those of polygons too.
  LineReader(VectorSource& source, const LineSelection& selection, bool rings, BadFeatures& bad)
      : source_(source),
        wanted_(selection.fids.begin(), selection.fids.end()),
        rings_(rings),
        bad_(bad) {}

  LineFile read(OGRLayer& layer) {
    file_.system = VectorSource::systemOf(layer);
    const auto columns = coordinateColumns(layer);
    if (columns) {
      readTable(layer, *columns);
    } else {
      source_.forEachFeature(layer, [this](OGRFeature& feature) { readFeature(feature); });
    }
    return std::move(file_);
  }

  // Ids that were asked for and not met.
  const std::set<long long>& missing() const { return wanted_; }

 private:
  void readTable(OGRLayer& layer, const CoordinateColumns& columns) {
    InputLine line;
    source_.forEachFeature(layer, [&](OGRFeature& row) {
      gdfVertex place;
      const std::string reason = readRow(row, columns, place);
      if (reason.empty()) {
        line.vertices.push_back(place);
      } else {
        bad_.report("row " + std::to_string(row.GetFID()), reason);
      }
    });
    wanted_.erase(0);
    if (wanted_.empty()) {
      keep(std::move(line), "the line of its rows");
    }
  }

  void readFeature(OGRFeature& feature) {
    if (selecting_ && wanted_.erase(feature.GetFID()) == 0) {
      return;
    }
    const std::string where = "feature " + std::to_string(feature.GetFID());
    const OGRGeometry* const geometry = feature.GetGeometryRef();
    if (geometry == nullptr) {
      bad_.report(where, missingGeometryReason(feature, source_.reason("")));
    } else if (rings_ ? holdsRing(*geometry) : holdsLine(*geometry)) {
      readParts(feature, *geometry, where);
    } else if (selecting_) {
      bad_.report(where, (rings_ ? "neither a polygon nor a line but a " : "not a line but a ") +
                             std::string(geometry->getGeometryName()));
    } else {
      ++file_.otherFeatures;
    }
  }

  void readParts(const OGRFeature& feature, const OGRGeometry& geometry, const std::string& where) {
    std::vector<std::vector<InputLine>> parts;  // each a line, or the rings of a polygon
    forEachSimplePart(geometry, [&](const OGRGeometry& part) {
      if (isOfKind(part, wkbCurve)) {
        parts.push_back({InputLine()});
        parts.back().front().vertices = verticesOf(part);
      } else if (rings_ && isOfKind(part, wkbCurvePolygon)) {
        parts.push_back(ringsOf(part));
      }
    });
    if (parts.empty()) {
      bad_.report(where, "a multi-line without parts");
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
      for (InputLine& line : parts[i]) {
        line.fid = feature.GetFID();
        line.part = static_cast<int>(i);
        line.partCount = static_cast<int>(parts.size());
        line.name = featureName(feature);
      }
      keepPart(std::move(parts[i]),
               where + (parts.size() > 1 ? ", part " + std::to_string(i) : ""));
    }
  }

  static std::vector<InputLine> ringsOf(const OGRGeometry& polygon) {
    std::vector<InputLine> rings;
    for (VertexLine& vertices : ringVerticesOf(polygon)) {
      InputLine ring;
      ring.ring = static_cast<int>(rings.size());
      ring.vertices = std::move(vertices);
      rings.push_back(std::move(ring));
    }
    return rings;
  }

  // A line, or a polygon with all its rings or not at all.
  void keepPart(std::vector<InputLine> part, const std::string& where) {
    if (part.size() == 1 && !part.front().isRing()) {
      keep(std::move(part.front()), where);
      return;
    }
    if (part.empty()) {
      bad_.report(where, "a polygon without rings");
    }
    std::size_t repeated = 0;
    for (InputLine& ring : part) {
      const std::string reason = reasonAgainstRing(ring.vertices, repeated);
      if (!reason.empty()) {
        const bool hole = ring.ring > 0;
        bad_.report(where + (hole ? ", ring " + std::to_string(ring.ring) : ""), reason);
        return;
      }
    }
    file_.repeatedVertices += repeated;
    std::move(part.begin(), part.end(), std::back_inserter(file_.lines));
  }

  void keep(InputLine line, const std::string& where) {
    std::string reason = reasonAgainst(line.vertices);
    const std::size_t repeated = reason.empty() ? dropRepeated(line.vertices) : 0;
    if (reason.empty() && line.vertices.size() < 2) {
      reason = "a line of one vertex, repeated";
    }
    if (!reason.empty()) {
      bad_.report(where, reason);
      return;
    }
    file_.repeatedVertices += repeated;
    file_.lines.push_back(std::move(line));
  }

  VectorSource& source_;
  std::set<long long> wanted_;
  const bool selecting_ = !wanted_.empty();
  const bool rings_;
  BadFeatures& bad_;
  LineFile file_;
};

void readPointFeature(const OGRFeature& feature, VectorSource& source, BadFeatures& bad,
                      PointFile& file) {
  const std::string where = "feature " + std::to_string(feature.GetFID());
  const OGRGeometry* const geometry = feature.GetGeometryRef();
  if (geometry == nullptr) {
    bad.report(where, missingGeometryReason(feature, source.reason("")));
    return;
  }
  forEachSimplePart(*geometry, [&](const OGRGeometry& part) {
    if (!isOfKind(part, wkbPoint)) {
      return;
    }
    const OGRPoint& point = *part.toPoint();
    const gdfVertex place(point.getX(), point.getY(), point.Is3D() ? point.getZ() : 0.0);
    if (point.IsEmpty() || !isFinite(place)) {
      bad.report(where, "a point that is not finite (NaN, infinite or empty)");
      return;
    }
    file.points.push_back({feature.GetFID(), featureName(feature), place});
  });
}

void readPointRow(const OGRFeature& row, const CoordinateColumns& columns, BadFeatures& bad,
                  PointFile& file) {
  gdfVertex place;
  const std::string reason = readRow(row, columns, place);
  if (!reason.empty()) {
    bad.report("row " + std::to_string(row.GetFID()), reason);
    return;
  }
  file.points.push_back({row.GetFID(), featureName(row), place});
}

LineFile readLinesOrRings(const std::string& file, const LineSelection& selection, bool rings,
                          BadFeatures& bad) {
  const std::string wanted = rings ? "polygons or lines" : "lines";
  VectorSource source(file);
  OGRLayer* const layer = selection.layer.empty()
                              ? source.firstLayerWith(rings ? holdsRing : holdsLine)
                              : &source.layerNamed(selection.layer);
  if (layer == nullptr) {
    throw CommandError(file + ": no layer with " + wanted);
  }
  LineReader reader(source, selection, rings, bad);
  LineFile result = reader.read(*layer);
  if (!reader.missing().empty()) {
    throw CommandError(file + ": no feature " + std::to_string(*reader.missing().begin()) +
                       " in layer '" + layer->GetName() + "'");
  }
  if (result.lines.empty()) {
    const std::size_t left = bad.leftOut().size();
    const std::string one = rings ? "polygon or line" : "line";
    throw CommandError(
        file + ": " +
        (left > 0 ? "no usable " + one + ", " + std::to_string(left) + " left out"
                  : "no " + wanted + " in layer '" + std::string(layer->GetName()) + "'"));
  }
  return result;
}

}  // namespace

std::string InputLine::label() const {
  return std::to_string(fid) + (partCount > 1 ? "." + std::to_string(part) : "") +
         (ring > 0 ? " ring " + std::to_string(ring) : "");
}

BadFeatures::BadFeatures(std::string file, bool skip) : file_(std::move(file)), skip_(skip) {}

void BadFeatures::report(const std::string& where, const std::string& reason) {
  if (!skip_) {
    throw CommandError(file_ + ": " + where + ": " + reason);
  }
  leftOut_.push_back(where + ": " + reason);
}

LineFile readLines(const std::string& file, const LineSelection& selection, BadFeatures& bad) {
  return readLinesOrRings(file, selection, false, bad);
}

LineFile readRings(const std::string& file, const LineSelection& selection, BadFeatures& bad) {
  return readLinesOrRings(file, selection, true, bad);
}

PointFile readPoints(const std::string& file, BadFeatures& bad) {
  VectorSource source(file);
  OGRLayer* const layer = source.firstLayerWith(holdsPoint);
  if (layer == nullptr) {
    throw CommandError(file + ": no layer with points");
  }
  PointFile result;
  result.system = VectorSource::systemOf(*layer);
  const auto columns = coordinateColumns(*layer);
  source.forEachFeature(*layer, [&](OGRFeature& feature) {
    if (columns) {
      readPointRow(feature, *columns, bad, result);
    } else {
      readPointFeature(feature, source, bad, result);
    }
  });
  if (result.points.empty()) {
    throw CommandError(file + ": no usable point");
  }
  return result;
}

void projectLines(std::vector<InputLine>& lines, const Projection& projection, BadFeatures& bad) {
  std::vector<InputLine> projected;
  for (InputLine& line : lines) {
    std::optional<std::string> reason;
    for (auto vertex = line.vertices.begin(); vertex != line.vertices.end() && !reason; ++vertex) {
      reason = projection.apply(*vertex);
    }
    if (reason) {
      bad.report("feature " + line.label(), *reason);
    } else {
      projected.push_back(std::move(line));
    }
  }
  lines = std::move(projected);
}

void projectPoints(std::vector<InputPoint>& points, const Projection& projection,
                   BadFeatures& bad) {
  std::vector<InputPoint> projected;
  for (InputPoint& point : points) {
    const std::optional<std::string> reason = projection.apply(point.position);
    if (reason) {
      bad.report("point " + std::to_string(point.fid), *reason);
    } else {
      projected.push_back(std::move(point));
    }
  }
  points = std::move(projected);
}
