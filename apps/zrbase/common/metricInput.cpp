#include "common/metricInput.h"

#include <ostream>
#include <utility>

#include "common/commandError.h"
#include "common/optionValues.h"
#include "common/summaryText.h"
#include "common/textFormat.h"

namespace {

// Six degrees from its middle a zone stretches lengths by up to 1 part in 200: beyond that the user
// is told.
constexpr double kWidestInOneZone = 12.0;

// "faults.shp: feature 3: ..." names the file already.
CommandError namingFile(const CommandError& error, const std::string& file) {
  const std::string text = error.what();
  return text.rfind(file, 0) == 0 ? error : CommandError(file + ": " + text);
}

}  // namespace

Extent extentOf(const std::vector<InputLine>& lines, bool geographic) {
  Extent plain;
  Extent eastward;
  for (const InputLine& line : lines) {
    for (const gdfVertex& vertex : line.vertices) {
      plain.add(vertex.x(), vertex.y());
      eastward.add(vertex.x() < 0.0 ? vertex.x() + 360.0 : vertex.x(), vertex.y());
    }
  }
  const bool narrower = eastward.maxX - eastward.minX < plain.maxX - plain.minX;
  return geographic && narrower ? eastward : plain;
}

namespace {

MetricLines readMetric(const InputOptions& options, bool rings) {
  BadFeatures bad(options.file, options.skipBad);
  const LineSelection selection = {options.layer,
                                   optionValues::featureIds("--where", options.where)};
  LineFile file =
      rings ? readRings(options.file, selection, bad) : readLines(options.file, selection, bad);
  MetricLines input;
  input.polygonsToo = rings;
  input.stated = file.system;
  input.otherFeatures = file.otherFeatures;
  input.repeatedVertices = file.repeatedVertices;
  try {
    const bool geographic = isGeographic(file.system);
    const Extent extent = extentOf(file.lines, geographic);
    input.model = chooseModelSystem(file.system, options.crs, extent);
    input.degreesWide = geographic && options.crs.empty() ? extent.maxX - extent.minX : 0.0;
    projectLines(file.lines, Projection(file.system, input.model), bad);
  } catch (const CommandError& error) {
    throw namingFile(error, options.file);
  }
  if (file.lines.empty()) {
    throw CommandError(options.file + ": no usable line, " + std::to_string(bad.leftOut().size()) +
                       " left out");
  }
  input.lines = std::move(file.lines);
  input.leftOut = bad.leftOut();
  return input;
}

// What goes with a file that states no system cannot have one.
void refuseSystemWithoutAnother(const std::string& file, const SpatialReference& system,
                                const std::string& what, const SpatialReference& model,
                                const std::string& mainFile) {
  if (system && !model) {
    throw CommandError(file + ": its " + what + " are in " + systemCode(system) + ", but " +
                       mainFile + " states no system: give --crs");
  }
}

}  // namespace

MetricLines readMetricLines(const InputOptions& options) { return readMetric(options, false); }

MetricLines readMetricRings(const InputOptions& options) { return readMetric(options, true); }

CompanionLines readRingsInto(const InputOptions& options, const SpatialReference& model,
                             const std::string& mainFile) {
  BadFeatures bad(options.file, options.skipBad);
  LineFile read = readRings(options.file, {options.layer, {}}, bad);
  refuseSystemWithoutAnother(options.file, read.system, "lines", model, mainFile);
  projectLines(read.lines, Projection(read.system, model), bad);
  if (read.lines.empty()) {
    throw CommandError(options.file + ": no usable polygon or line");
  }
  return {std::move(read.lines), bad.leftOut()};
}

MetricPoints readPointsInto(const std::string& file, bool skipBad, const SpatialReference& model,
                            const std::string& mainFile) {
  BadFeatures bad(file, skipBad);
  PointFile read = readPoints(file, bad);
  refuseSystemWithoutAnother(file, read.system, "points", model, mainFile);
  projectPoints(read.points, Projection(read.system, model), bad);
  if (read.points.empty()) {
    throw CommandError(file + ": no usable point");
  }
  return {std::move(read.points), bad.leftOut()};
}

void writeInputNotes(std::ostream& out, const MetricLines& input) {
  if (input.degreesWide > kWidestInOneZone) {
    summaryText::writeLine(
        out, "note",
        "the traces span " + textFormat::fixed(input.degreesWide, 0) +
            " degrees of longitude: one zone stretches lengths; --where or --crs keep them true");
  }
  if (input.repeatedVertices > 0) {
    summaryText::writeLine(
        out, "dropped",
        textFormat::counted(input.repeatedVertices, "repeated vertex", "repeated vertices"));
  }
  if (input.otherFeatures > 0) {
    const std::string ignored =
        input.polygonsToo ? textFormat::counted(input.otherFeatures, "feature that is neither",
                                                "features that are neither") +
                                " polygon nor line"
                          : textFormat::counted(input.otherFeatures, "feature that is no line",
                                                "features that are no lines");
    summaryText::writeLine(out, "ignored", ignored);
  }
}
