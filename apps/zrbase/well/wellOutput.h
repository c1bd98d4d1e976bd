#ifndef ZRBASE_APPS_WELL_WELLOUTPUT_H
#define ZRBASE_APPS_WELL_WELLOUTPUT_H

#include <memory>
#include <string>
#include <vector>

#include "common/modelSystem.h"
#include "common/safeOutput.h"
#include "well/wellModel.h"

/// The files of an output, whole or not at all: one, or several as a Shapefile has.
class WellOutput {
 public:
  /// Makes the files beside their final names: the table of stations (.csv), line and stations
  /// (.geojson, .json, .gpkg), or the line in any other format of OGR that holds it with its z.
  /// @param name  of the well
  /// @param input  a file that must not be overwritten
  /// @throws CommandError if they cannot be written
  WellOutput(const std::string& output, const WellPath& path, const std::string& name,
             const SpatialReference& system, const std::string& input);

  /// What is in the output, for the summary: "path of 80 vertices, 79 stations".
  const std::string& contents() const { return contents_; }
  /// Gives all files their final names.
  void commit();

 private:
  void writeTable(const WellPath& path);
  void writeLayers(const WellPath& path, const std::string& name, const SpatialReference& system);
  void writeLine(const WellPath& path, const std::string& name, const SpatialReference& system,
                 const std::string& input);

  std::string output_;
  std::string contents_;
  std::vector<std::unique_ptr<SafeOutput>> files_;
  std::vector<std::string> stale_;  // files beside an earlier output that this one has not
};

/// @throws CommandError if the ending is none of an output
void checkWellOutputName(const std::string& output);

#endif  // ZRBASE_APPS_WELL_WELLOUTPUT_H
