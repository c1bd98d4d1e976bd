#include "common/modelSystem.h"

#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>

#include "common/commandError.h"
#include "common/gdalErrors.h"
#include "common/textFormat.h"

namespace {

bool isMetric(const OGRSpatialReference& system) {
  return system.IsProjected() && std::abs(system.GetLinearUnits() - 1.0) < 1e-9;
}

SpatialReference withTraditionalAxes(OGRSpatialReference system) {
  system.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  return std::make_shared<const OGRSpatialReference>(system);
}

SpatialReference systemFromCode(int code) {
  const GdalErrors errors;
  OGRSpatialReference system;
  if (system.importFromEPSG(code) != OGRERR_NONE) {
    throw CommandError("EPSG:" + std::to_string(code) + ": unknown coordinate system");
  }
  return withTraditionalAxes(system);
}

// Universal Transverse Mercator: 60 zones of 6 degrees from 180 degrees west. The exceptions around
// Norway and Svalbard are left out: they suit map sheets, and a zone is only a nearby metric plane
// here.
int utmCode(double longitude, double latitude) {
  const double wrapped = longitude - 360.0 * std::floor((longitude + 180.0) / 360.0);
  const int zone = std::min(60, 1 + static_cast<int>(std::floor((wrapped + 180.0) / 6.0)));
  return (latitude < 0.0 ? 32700 : 32600) + zone;
}

}  // namespace

void Extent::add(double x, double y) {
  minX = empty ? x : std::min(minX, x);
  minY = empty ? y : std::min(minY, y);
  maxX = empty ? x : std::max(maxX, x);
  maxY = empty ? y : std::max(maxY, y);
  empty = false;
}

SpatialReference metricSystemFromEpsg(const std::string& text) {
  const std::vector<std::string> pieces = textFormat::split(text, ':');
  const auto code = pieces.size() == 2 ? textFormat::wholeNumber(pieces[1]) : std::nullopt;
  if (!code || textFormat::lowerCase(pieces[0]) != "epsg" || *code <= 0 || *code > 2000000) {
    throw CommandError("--crs " + text + ": unknown coordinate system: the form is EPSG:n");
  }
  SpatialReference system;
  try {
    system = systemFromCode(static_cast<int>(*code));
  } catch (const CommandError&) {
    throw CommandError("--crs " + text + ": unknown coordinate system");
  }
  if (!isMetric(*system)) {
    throw CommandError("--crs " + text + ": not a projected system in metres");
  }
  return system;
}

SpatialReference geographicSystem() { return systemFromCode(4326); }

SpatialReference keptSystem(const OGRSpatialReference* stated) {
  const char* const name = stated == nullptr ? nullptr : stated->GetName();
  if (stated == nullptr || (name != nullptr && std::string(name).rfind("Undefined", 0) == 0)) {
    return nullptr;
  }
  const GdalErrors errors;
  OGRSpatialReference system(*stated);
  system.StripVertical();
  if (system.GetAuthorityCode(nullptr) == nullptr) {
    // A Shapefile tells its system in words only; where they are those of an EPSG code, the code
    // can be written out.
    OGRSpatialReference* const match = system.FindBestMatch();
    if (match != nullptr) {
      system = *match;
      match->Release();
    }
  }
  return withTraditionalAxes(system);
}

bool isGeographic(const SpatialReference& system) { return system && system->IsGeographic(); }

std::string systemCode(const SpatialReference& system) {
  if (!system) {
    return "none";
  }
  const char* const authority = system->GetAuthorityName(nullptr);
  const char* const code = system->GetAuthorityCode(nullptr);
  if (authority != nullptr && code != nullptr) {
    return std::string(authority) + ":" + code;
  }
  const char* const name = system->GetName();
  return name == nullptr ? "unnamed" : name;
}

std::string systemLabel(const SpatialReference& system) {
  if (!system) {
    return "none (model coordinates in metres)";
  }
  const std::string code = systemCode(system);
  const char* const name = system->GetName();
  return name == nullptr || code == name ? code : code + " (" + name + ")";
}

SpatialReference chooseModelSystem(const SpatialReference& stated, const std::string& crsOption,
                                   const Extent& extent) {
  if (!crsOption.empty()) {
    return metricSystemFromEpsg(crsOption);
  }
  const bool angular = isGeographic(stated);
  if (!stated || (!angular && (!stated->IsProjected() || isMetric(*stated)))) {
    return stated;
  }
  gdfVertex centre((extent.minX + extent.maxX) / 2.0, (extent.minY + extent.maxY) / 2.0);
  if (!angular && Projection(stated, geographicSystem()).apply(centre)) {
    throw CommandError("no UTM zone can be found for its coordinates: give --crs");
  }
  return systemFromCode(utmCode(centre.x(), centre.y()));
}

Projection::Projection(const SpatialReference& from, const SpatialReference& to) {
  if (!from || !to || from->IsSame(to.get())) {
    return;
  }
  const GdalErrors errors;
  transformation_.reset(OGRCreateCoordinateTransformation(from.get(), to.get()));
  if (!transformation_) {
    throw CommandError("no way from " + systemCode(from) + " to " + systemCode(to));
  }
  fromDegrees_ = isGeographic(from);
  targetCode_ = systemCode(to);
}

Projection::~Projection() = default;

std::optional<std::string> Projection::apply(gdfVertex& vertex) const {
  if (!transformation_) {
    return std::nullopt;
  }
  const std::string place =
      "(" + textFormat::shortest(vertex.x()) + " " + textFormat::shortest(vertex.y()) + ")";
  // Plain metres in a file that claims degrees are the usual mistake: told as such, not as a failed
  // projection.
  if (fromDegrees_ && (std::abs(vertex.x()) > 540.0 || std::abs(vertex.y()) > 90.0)) {
    return place + " is no longitude and latitude";
  }
  const GdalErrors errors;
  double x = vertex.x();
  double y = vertex.y();
  if (!transformation_->Transform(1, &x, &y) || !std::isfinite(x) || !std::isfinite(y)) {
    return place + " cannot be projected to " + targetCode_;
  }
  vertex.x() = x;
  vertex.y() = y;
  return std::nullopt;
}
