#ifndef ZRBASE_APPS_WELL_LINEFILE_H
#define ZRBASE_APPS_WELL_LINEFILE_H

#include <zrBase/geometry/gdfVertex.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "common/modelSystem.h"
#include "common/vectorOutput.h"

class OGRFeature;

/// A line with z and what there is to tell about it.
struct LineRecord {
  VertexLine vertices;
  std::vector<FieldModel> fields;         ///< names of ten letters at most
  std::function<void(OGRFeature&)> fill;  ///< sets the fields that the feature has
};

/// Name of the OGR driver that writes files of this ending; empty if there is none.
std::string lineDriver(const std::string& fileName);

/// Writes the line as the only feature of a file in the format of its ending.
///
/// The file is read back: the line has to be there with its z, in the same system. Fields that the
/// format does not take are left out.
/// @return the bytes of each file that belongs to it, by name: "well.shp", "well.dbf"
/// @throws CommandError if the format does not hold it
std::map<std::string, std::string> lineFileBytes(const std::string& fileName,
                                                 const LineRecord& record,
                                                 const SpatialReference& system);

#endif  // ZRBASE_APPS_WELL_LINEFILE_H
