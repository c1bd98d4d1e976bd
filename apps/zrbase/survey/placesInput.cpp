#include "survey/placesInput.h"

#include <ogrsf_frmts.h>

#include <cmath>
#include <functional>
#include <optional>
#include <set>
#include <utility>

#include "common/commandError.h"
#include "common/optionValues.h"
#include "common/textFormat.h"
#include "common/vectorInput.h"
#include "common/vectorSource.h"
#include "survey/gridColumns.h"
#include "survey/rounding.h"

namespace {

// Calls `visit` on each point of a geometry; false if there is something else in it.
bool visitPoints(const OGRGeometry& geometry, const std::function<void(const OGRPoint&)>& visit) {
  const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
  if (type == wkbPoint) {
    visit(*geometry.toPoint());
    return true;
  }
  if (type != wkbMultiPoint && type != wkbGeometryCollection) {
    return false;
  }
  bool pointsAlone = true;
  for (const OGRGeometry* const part : *geometry.toGeometryCollection()) {
    pointsAlone = visitPoints(*part, visit) && pointsAlone;
  }
  return pointsAlone;
}

bool holdsPoint(const OGRGeometry& geometry) {
  bool found = false;
  visitPoints(geometry, [&found](const OGRPoint&) { found = true; });
  return found;
}

/// Walks the chosen features of a layer and gathers places.
class PlaceReader {
 public:
  PlaceReader(const PlacesOptions& options, VectorSource& source)
      : options_(options), source_(source), bad_(options.file, options.skipBad) {
    const std::vector<long long> fids = optionValues::featureIds("--where", options.where);
    wanted_.insert(fids.begin(), fids.end());
    selecting_ = !wanted_.empty();
  }

  // `read` keeps the places of a feature, or returns why there are none.
  SurveyPlaces gather(OGRLayer& layer,
                      const std::function<std::optional<std::string>(const OGRFeature&)>& read) {
    source_.forEachFeature(layer, [&](OGRFeature& feature) {
      if (selecting_ && wanted_.erase(feature.GetFID()) == 0) {
        return;
      }
      const std::optional<std::string> reason = read(feature);
      if (reason) {
        const bool table = layer.GetLayerDefn()->GetGeomFieldCount() == 0;
        bad_.report((table ? "row " : "feature ") + std::to_string(feature.GetFID()), *reason);
      }
    });
    if (!wanted_.empty()) {
      throw CommandError(options_.file + ": no feature " + std::to_string(*wanted_.begin()) +
                         " in layer '" + layer.GetName() + "'");
    }
    if (places_.places.empty()) {
      throw CommandError(options_.file + ": no usable point");
    }
    places_.leftOut = bad_.leftOut();
    return std::move(places_);
  }

  void keep(const OGRFeature& feature, const zrSurveyPoint& point) {
    places_.places.push_back({feature.GetFID(), featureName(feature), point});
  }

 private:
  const PlacesOptions& options_;
  VectorSource& source_;
  BadFeatures bad_;
  std::set<long long> wanted_;
  bool selecting_ = false;
  SurveyPlaces places_;
};

struct NumberedLayer {
  OGRLayer* layer = nullptr;
  GridColumns columns;
};

NumberedLayer layerWithNumbers(VectorSource& source, const PlacesOptions& options) {
  std::vector<OGRLayer*> layers = source.layers();
  if (!options.layer.empty()) {
    layers = {&source.layerNamed(options.layer)};
  }
  std::string complaint = "no table in it";
  for (OGRLayer* const layer : layers) {
    const GridColumns columns = findGridColumns(*layer);
    if (columns.hasNumbers()) {
      return {layer, columns};
    }
    complaint = std::string("no column ") + (columns.inlineNumber < 0 ? "inline" : "crossline") +
                "; it has " + columnList(*layer);
  }
  throw CommandError(options.file + ": " + complaint);
}

/// Brings the places of a file into the system of the grid, in metres.
class GridSystem {
 public:
  GridSystem(const SpatialReference& stated, const SpatialReference& gridSystem,
             const zrUnits& units)
      : projection_(stated, gridSystem), projecting_(stated != nullptr), units_(units) {}

  // Returns the reason if it cannot be done.
  std::optional<std::string> place(double x, double y, zrSurveyPoint& point) const {
    gdfVertex vertex(x, y);
    if (projecting_) {
      std::optional<std::string> reason = projection_.apply(vertex);
      if (reason) {
        return reason;
      }
      point.x = rounding::coordinate(vertex.x());
      point.y = rounding::coordinate(vertex.y());
    } else {
      point.x = units_.convertX(x);
      point.y = units_.convertY(y);
    }
    return std::nullopt;
  }

 private:
  Projection projection_;
  bool projecting_;
  const zrUnits& units_;
};

std::optional<std::string> readRow(const OGRFeature& row, const CoordinateColumns& columns,
                                   const GridSystem& system, PlaceReader& reader) {
  double x = 0.0;
  double y = 0.0;
  zrSurveyPoint point;
  std::optional<std::string> reason = readNumber(row, columns.x, x);
  reason = reason ? reason : readNumber(row, columns.y, y);
  reason = reason ? reason : system.place(x, y, point);
  if (!reason) {
    reader.keep(row, point);
  }
  return reason;
}

std::optional<std::string> readGeometry(const OGRFeature& feature, const std::string& said,
                                        const GridSystem& system, PlaceReader& reader) {
  const OGRGeometry* const geometry = feature.GetGeometryRef();
  if (geometry == nullptr) {
    return missingGeometryReason(feature, said);
  }
  std::optional<std::string> reason;
  std::vector<zrSurveyPoint> points;
  const bool pointsAlone = visitPoints(*geometry, [&](const OGRPoint& p) {
    zrSurveyPoint point;
    const bool finite = !p.IsEmpty() && std::isfinite(p.getX()) && std::isfinite(p.getY());
    if (!finite && !reason) {
      reason = "a point that is not finite (NaN, infinite or empty)";
    }
    reason = reason ? reason : system.place(p.getX(), p.getY(), point);
    points.push_back(point);
  });
  if (!pointsAlone) {
    return "not a point but a " + std::string(geometry->getGeometryName());
  }
  if (!reason && points.empty()) {
    reason = "a multi-point without points";
  }
  for (const zrSurveyPoint& point : points) {
    if (!reason) {
      reader.keep(feature, point);
    }
  }
  return reason;
}

}  // namespace

SurveyPlaces readNumbers(const PlacesOptions& options) {
  VectorSource source(options.file);
  const NumberedLayer numbered = layerWithNumbers(source, options);
  PlaceReader reader(options, source);
  return reader.gather(*numbered.layer, [&](const OGRFeature& feature) {
    zrSurveyPoint point;
    std::optional<std::string> reason =
        readNumber(feature, numbered.columns.inlineNumber, point.inlineNumber);
    reason =
        reason ? reason : readNumber(feature, numbered.columns.crosslineNumber, point.traceNumber);
    if (!reason) {
      reader.keep(feature, point);
    }
    return reason;
  });
}

SurveyPlaces readPlaces(const PlacesOptions& options, const zrUnits& units,
                        const SpatialReference& gridSystem, const std::string& gridFile) {
  VectorSource source(options.file);
  OGRLayer* const layer =
      options.layer.empty() ? source.firstLayerWith(holdsPoint) : &source.layerNamed(options.layer);
  if (layer == nullptr) {
    throw CommandError(options.file + ": no layer with points, and no table with columns x and y");
  }
  const auto columns = coordinateColumns(*layer);
  if (!columns && layer->GetLayerDefn()->GetGeomFieldCount() == 0) {
    throw CommandError(options.file + ": no columns x and y; it has " + columnList(*layer));
  }
  const SpatialReference stated = VectorSource::systemOf(*layer);
  if (stated && !gridSystem) {
    throw CommandError(options.file + ": its points are in " + systemCode(stated) + ", but " +
                       gridFile + " states no system: give --crs");
  }
  const GridSystem system(stated, gridSystem, units);
  PlaceReader reader(options, source);
  SurveyPlaces places = reader.gather(*layer, [&](const OGRFeature& feature) {
    return columns ? readRow(feature, *columns, system, reader)
                   : readGeometry(feature, source.reason(""), system, reader);
  });
  places.stated = stated;
  return places;
}
