#ifndef ZRBASE_APPS_VECTOROUTPUT_H
#define ZRBASE_APPS_VECTOROUTPUT_H

#include <cstddef>
#include <string>
#include <vector>

#include "flowpathModel.h"
#include "modelSystem.h"
#include "safeOutput.h"

/// How many features each layer got.
struct WrittenCounts {
  std::size_t templates = 0;
  std::size_t bisectors = 0;
  std::size_t paths = 0;
  std::size_t moved = 0;
};

/// The OGR driver for the ending of the file. @throws CommandError if it is neither .geojson, .json
/// nor .gpkg
std::string outputDriver(const std::string& fileName);

/// Writes the layers `template`, `bisectors`, `flowpaths` and `moved` in the coordinates of
/// `system`.
///
/// A GeoPackage gets four layers. GeoJSON holds one: a single collection, each of whose features
/// tells its layer in the property `layer` and has only that layer's properties; a `crs` member
/// states the system. Vertices have a z where any template has one. The same input gives the same
/// bytes.
/// @throws CommandError if not every feature arrives in the file
WrittenCounts writeModels(const SafeOutput& output, const SpatialReference& system,
                          const std::vector<TemplateModel>& models,
                          const std::vector<SeedPoint>& points);

#endif  // ZRBASE_APPS_VECTOROUTPUT_H
