#include "survey/cornersInput.h"

#include <ogrsf_frmts.h>

#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "common/commandError.h"
#include "common/textFormat.h"
#include "common/vectorSource.h"
#include "survey/gridColumns.h"

namespace {

struct CornerTable {
  OGRLayer* layer = nullptr;
  GridColumns columns;
};

bool holdsPoints(const OGRLayer& layer) {
  return wkbFlatten(const_cast<OGRLayer&>(layer).GetGeomType()) == wkbPoint;
}

CornerTable namedTable(VectorSource& source, const CornersOptions& options) {
  const std::vector<std::string> names = textFormat::split(options.columns, ',');
  if (names.size() != 4) {
    throw CommandError("--columns: '" + textFormat::oneLine(options.columns) +
                       "' is not the four names INLINE,CROSSLINE,X,Y");
  }
  const std::vector<OGRLayer*> layers = source.layers();
  if (layers.empty()) {
    throw CommandError(options.file + ": no table in it");
  }
  return {layers.front(), namedGridColumns(*layers.front(), names, options.file)};
}

// The first layer with all that makes corners.
CornerTable cornerTable(VectorSource& source, const CornersOptions& options) {
  if (!options.columns.empty()) {
    return namedTable(source, options);
  }
  std::string complaint = "no table in it";
  for (OGRLayer* const layer : source.layers()) {
    const GridColumns columns = findGridColumns(*layer);
    if (columns.hasNumbers() && (columns.hasPlace() || holdsPoints(*layer))) {
      return {layer, columns};
    }
    const char* const missing = columns.inlineNumber < 0      ? "inline"
                                : columns.crosslineNumber < 0 ? "crossline"
                                : columns.x < 0               ? "x"
                                                              : "y";
    complaint = std::string("no column ") + missing + "; it has " + columnList(*layer);
  }
  throw CommandError(options.file + ": " + complaint);
}

// Reads what a row tells; returns the reason if it tells no corner.
std::optional<std::string> readCorner(const OGRFeature& row, const GridColumns& columns,
                                      zrSurveyPoint& corner) {
  std::optional<std::string> reason = readNumber(row, columns.inlineNumber, corner.inlineNumber);
  reason = reason ? reason : readNumber(row, columns.crosslineNumber, corner.traceNumber);
  if (columns.hasPlace()) {
    reason = reason ? reason : readNumber(row, columns.x, corner.x);
    return reason ? reason : readNumber(row, columns.y, corner.y);
  }
  const OGRGeometry* const geometry = row.GetGeometryRef();
  if (reason || geometry == nullptr || wkbFlatten(geometry->getGeometryType()) != wkbPoint) {
    return reason ? reason : std::optional<std::string>("without a point");
  }
  corner.x = geometry->toPoint()->getX();
  corner.y = geometry->toPoint()->getY();
  const bool finite = std::isfinite(corner.x) && std::isfinite(corner.y);
  return finite ? std::nullopt : std::optional<std::string>("its point is not finite");
}

std::array<Corner, 3> readCorners(VectorSource& source, const CornersOptions& options) {
  const zrUnits units = unitsFrom(options.units);
  const CornerTable table = cornerTable(source, options);
  std::array<Corner, 3> corners;
  std::size_t count = 0;
  source.forEachFeature(*table.layer, [&](OGRFeature& row) {
    const std::string label = "row " + std::to_string(row.GetFID());
    zrSurveyPoint corner;
    const std::optional<std::string> reason = readCorner(row, table.columns, corner);
    if (reason) {
      throw CommandError(options.file + ": " + label + ": " + *reason);
    }
    if (count == corners.size()) {
      throw CommandError(options.file + ": " + label + ": a fourth corner, but a grid has three");
    }
    corner.x = units.convertX(corner.x);
    corner.y = units.convertY(corner.y);
    corners[count++] = {corner, label};
  });
  if (count < corners.size()) {
    throw CommandError(options.file + ": " + textFormat::counted(count, "corner", "corners") +
                       ", but a grid needs three");
  }
  return corners;
}

}  // namespace

zrUnits unitsFrom(const std::string& text) {
  constexpr double kFoot = 0.3048;
  constexpr double kSurveyFoot = 1200.0 / 3937.0;
  const std::string unit = textFormat::lowerCase(text);
  zrUnits units;
  if (unit == "ft" || unit == "usft") {
    units.setXYUnits(GDF_UNIT_CUSTOM, unit == "ft" ? kFoot : kSurveyFoot);
  } else if (!unit.empty() && unit != "m") {
    throw CommandError("--units: '" + textFormat::oneLine(text) + "' is neither m, ft nor usft");
  }
  return units;
}

FittedGrid gridOfCorners(const CornersOptions& options) {
  VectorSource source(options.file);
  const std::array<Corner, 3> corners = readCorners(source, options);
  try {
    return fitGrid(corners);
  } catch (const CommandError& error) {
    throw CommandError(options.file + ": " + error.what());
  }
}
