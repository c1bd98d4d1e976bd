#ifndef ZRBASE_APPS_COMMON_METRICINPUT_H
#define ZRBASE_APPS_COMMON_METRICINPUT_H

#include <cstddef>
#include <string>
#include <vector>

#include "common/modelSystem.h"
#include "common/vectorInput.h"

/// The options that name an input, as typed.
struct InputOptions {
  std::string file;
  std::string layer;          ///< name; empty for the first layer that holds what is wanted
  std::string where = "all";  ///< feature ids, or all
  std::string crs;            ///< metric system to work in; empty for the one that fits
  bool skipBad = false;       ///< leave bad features out
};

/// Lines, or rings, in the metric system of the work, and what there is to tell about reading them.
struct MetricLines {
  std::vector<InputLine> lines;
  SpatialReference stated;
  SpatialReference model;
  double degreesWide = 0.0;  ///< longitudes that were put into one zone
  bool polygonsToo = false;  ///< rings of polygons were read as well
  std::size_t otherFeatures = 0;
  std::size_t repeatedVertices = 0;
  std::vector<std::string> leftOut;
};

/// Reads lines and brings them into a metric system, see chooseModelSystem.
/// @throws CommandError if the file or a feature cannot be used, or no line is left
MetricLines readMetricLines(const InputOptions& options);

/// The same with the rings of polygons beside the lines, see readRings.
MetricLines readMetricRings(const InputOptions& options);

/// Lines or rings of a file that goes with others, in the system of the work.
struct CompanionLines {
  std::vector<InputLine> lines;
  std::vector<std::string> leftOut;
};

/// Reads lines, and rings of polygons, into the system of the work; those of a file that states no
/// system are in it already.
/// @param mainFile  the file that the system comes from, for the message
CompanionLines readRingsInto(const InputOptions& options, const SpatialReference& model,
                             const std::string& mainFile);

/// The points of a file that goes with others, and the features that were left out.
struct MetricPoints {
  std::vector<InputPoint> points;
  std::vector<std::string> leftOut;
};

/// Reads points into the system of the work; points that state no system are in it already.
/// @param mainFile  the file that the system comes from, for the message
MetricPoints readPointsInto(const std::string& file, bool skipBad, const SpatialReference& model,
                            const std::string& mainFile);

/// Smallest and largest coordinates of the lines.
///
/// Of the extent with plain longitudes and that with longitudes from 0 to 360 the narrower one:
/// lines beside the date line have longitudes near both 180 and -180.
Extent extentOf(const std::vector<InputLine>& lines, bool geographic);

/// Lines of a summary about what was read: a zone that is too wide, dropped vertices, ignored
/// features.
void writeInputNotes(std::ostream& out, const MetricLines& input);

#endif  // ZRBASE_APPS_COMMON_METRICINPUT_H
