#include "cluster/clusterPoints.h"

#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "common/commandError.h"

namespace {

/// Gathers the numbers of features.
class PointReader {
 public:
  PointReader(PointLayer& layer, const InputOptions& options, BadFeatures& bad)
      : layer_(layer), options_(options), bad_(bad) {
    points_.columns = layer.columns();
    points_.stated = layer.system();
    points_.model = points_.stated;
    row_.resize(points_.columns.size());
  }

  ClusterPoints read() {
    layer_.forEach([this](OGRFeature& feature) { readFeature(feature); });
    if (layer_.usesPlaces() && points_.size() > 0) {
      project();
      takeCoordinates();
    }
    points_.badFeatures = bad_.leftOut().size();
    if (points_.size() == 0) {
      throw CommandError(options_.file + ": no usable point" +
                         (points_.badFeatures == 0
                              ? ""
                              : ", " + std::to_string(points_.badFeatures) + " left out"));
    }
    return std::move(points_);
  }

 private:
  void readFeature(const OGRFeature& feature) {
    if (layer_.usesPlaces() && !layer_.isTable() && PointLayer::isOther(feature)) {
      ignore(feature);
      return;
    }
    std::optional<std::string> reason;
    for (std::size_t i = 0; i < row_.size() && !reason; ++i) {
      const PointColumn& column = points_.columns[i];
      reason = column.ofPlace() ? std::nullopt : readPointNumber(feature, column.field, row_[i]);
    }
    if (layer_.usesPlaces() && !reason) {
      reason = layer_.readPlaces(feature, places_);
      reason = reason ? reason : reasonAgainstMissingZ();
    }
    if (reason) {
      bad_.report(layer_.where(feature), *reason);
      return;
    }
    keep(feature.GetFID());
  }

  void ignore(const OGRFeature& feature) {
    if (layer_.isSelecting()) {
      bad_.report(layer_.where(feature),
                  "not a point but a " + std::string(feature.GetGeometryRef()->getGeometryName()));
    } else {
      ++points_.otherFeatures;
    }
  }

  std::optional<std::string> reasonAgainstMissingZ() const {
    const bool flat = std::any_of(places_.begin(), places_.end(),
                                  [](const PointPlace& place) { return !place.hasZ; });
    return flat && points_.columnOfAxis(2) >= 0 ? std::optional<std::string>("a point without z")
                                                : std::nullopt;
  }

  // A row for each point; its coordinates are filled in when they are projected.
  void keep(long long fid) {
    const std::size_t rows = layer_.usesPlaces() ? places_.size() : 1;
    for (std::size_t i = 0; i < rows; ++i) {
      points_.fids.push_back(fid);
      points_.values.insert(points_.values.end(), row_.begin(), row_.end());
      if (layer_.usesPlaces()) {
        points_.positions.push_back(places_[i].position);
      }
    }
  }

  // Of plain longitudes and those from 0 to 360 the narrower extent, as points beside the date line
  // have longitudes near both 180 and -180.
  Extent extent(bool geographic) const {
    Extent plain;
    Extent eastward;
    for (const gdfVertex& place : points_.positions) {
      plain.add(place.x(), place.y());
      eastward.add(place.x() < 0.0 ? place.x() + 360.0 : place.x(), place.y());
    }
    const bool narrower = eastward.maxX - eastward.minX < plain.maxX - plain.minX;
    return geographic && narrower ? eastward : plain;
  }

  void project() {
    const bool geographic = isGeographic(points_.stated);
    const Extent whole = extent(geographic);
    try {
      points_.model = chooseModelSystem(points_.stated, options_.crs, whole);
      points_.degreesWide = geographic && options_.crs.empty() ? whole.maxX - whole.minX : 0.0;
      projectInto(Projection(points_.stated, points_.model));
    } catch (const CommandError& error) {
      const std::string text = error.what();
      const bool named = text.rfind(options_.file, 0) == 0;
      throw CommandError(named ? text : options_.file + ": " + text);
    }
  }

  // What cannot be projected leaves the arrays. Places are rounded to ten nanometres: more digits
  // are noise.
  void projectInto(const Projection& projection) {
    const std::size_t width = points_.columns.size();
    std::size_t kept = 0;
    for (std::size_t i = 0; i < points_.size(); ++i) {
      gdfVertex place = points_.positions[i];
      const std::optional<std::string> reason = projection.apply(place);
      if (reason) {
        bad_.report((layer_.isTable() ? "row " : "feature ") + std::to_string(points_.fids[i]),
                    *reason);
        continue;
      }
      points_.positions[kept] = rounded(place);
      points_.fids[kept] = points_.fids[i];
      std::copy_n(points_.values.begin() + static_cast<std::ptrdiff_t>(i * width), width,
                  points_.values.begin() + static_cast<std::ptrdiff_t>(kept * width));
      ++kept;
    }
    points_.positions.resize(kept);
    points_.fids.resize(kept);
    points_.values.resize(kept * width);
  }

  gdfVertex rounded(const gdfVertex& place) const {
    constexpr double kSteps = 1e8;
    const bool same = !points_.stated || points_.stated->IsSame(points_.model.get());
    return same ? place
                : gdfVertex(std::round(place.x() * kSteps) / kSteps,
                            std::round(place.y() * kSteps) / kSteps, place.z());
  }

  void takeCoordinates() {
    const std::size_t width = points_.columns.size();
    for (std::size_t j = 0; j < width; ++j) {
      const int axis = points_.columns[j].axis;
      for (std::size_t i = 0; axis >= 0 && i < points_.size(); ++i) {
        const gdfVertex& place = points_.positions[i];
        const double coordinates[] = {place.x(), place.y(), place.z()};
        points_.values[i * width + j] = coordinates[axis];
      }
    }
  }

  PointLayer& layer_;
  const InputOptions& options_;
  BadFeatures& bad_;
  ClusterPoints points_;
  std::vector<double> row_;
  std::vector<PointPlace> places_;
};

}  // namespace

int ClusterPoints::columnOfAxis(int axis) const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].axis == axis) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

std::string ClusterPoints::unitOf(std::size_t column) const {
  return columns[column].ofPlace() && model ? "m" : "";
}

ClusterPoints readClusterPoints(PointLayer& layer, const InputOptions& options, BadFeatures& bad) {
  return PointReader(layer, options, bad).read();
}
