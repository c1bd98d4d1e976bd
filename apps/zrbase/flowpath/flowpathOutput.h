#ifndef ZRBASE_APPS_FLOWPATH_FLOWPATHOUTPUT_H
#define ZRBASE_APPS_FLOWPATH_FLOWPATHOUTPUT_H

#include <cstddef>
#include <string>
#include <vector>

#include "common/modelSystem.h"
#include "common/safeOutput.h"
#include "flowpath/flowpathModel.h"

/// How many features each layer got.
struct WrittenCounts {
  std::size_t templates = 0;
  std::size_t bisectors = 0;
  std::size_t paths = 0;
  std::size_t moved = 0;
};

/// Writes the layers `template`, `bisectors`, `flowpaths` and `moved` in the coordinates of
/// `system`.
///
/// Vertices have a z where any template has one.
/// @throws CommandError if not every feature arrives in the file
WrittenCounts writeModels(const SafeOutput& output, const SpatialReference& system,
                          const std::vector<TemplateModel>& models,
                          const std::vector<InputPoint>& points);

#endif  // ZRBASE_APPS_FLOWPATH_FLOWPATHOUTPUT_H
