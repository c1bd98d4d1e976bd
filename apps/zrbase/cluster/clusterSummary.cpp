#include "cluster/clusterSummary.h"

#include <algorithm>
#include <cmath>
#include <ostream>

#include "common/summaryText.h"
#include "common/textFormat.h"

namespace {

constexpr std::size_t kMostRows = 40;
constexpr std::size_t kMostLeftOut = 20;
constexpr double kWidestInOneZone =
    12.0;  // beyond, lengths are stretched by 1 part in 200 and more

std::string withUnit(const std::string& name, const std::string& unit) {
  return textFormat::oneLine(name) + (unit.empty() ? "" : " [" + unit + "]");
}

// The unit of distances: metres where all columns are coordinates as they are.
std::string distanceUnit(const ClusterPoints& points, const ClusterRequest& request) {
  for (std::size_t j = 0; j < points.columns.size(); ++j) {
    if (points.unitOf(j).empty()) {
      return "";
    }
  }
  return request.scale == ClusterScale::none ? " m" : "";
}

std::string columnsText(const ClusterPoints& points, const ClusterRequest& request,
                        const Clustering& result) {
  std::string text;
  for (std::size_t j = 0; j < points.columns.size(); ++j) {
    text += (text.empty() ? "" : ", ") + textFormat::oneLine(points.columns[j].name);
    if (request.scale != ClusterScale::none && !result.scales[j].constant) {
      text += " / " + roundedText(result.scales[j].divisor);
    }
  }
  return text;
}

}  // namespace

std::string roundedText(double value) {
  constexpr int kDigits = 6;
  const double size = std::abs(value);
  if (size != 0.0 && (size < 1e-4 || size >= 1e15)) {
    const double power = std::pow(10.0, std::floor(std::log10(size)));
    std::string mantissa = textFormat::fixed(value / power, 3);
    return mantissa + "e" + std::to_string(static_cast<int>(std::floor(std::log10(size))));
  }
  const int whole = size < 1.0 ? 0 : static_cast<int>(std::floor(std::log10(size))) + 1;
  return textFormat::fixed(value, std::clamp(kDigits - whole, 0, kDigits));
}

void writeClusterTable(std::ostream& out, const ClusterPoints& points, const Clustering& result) {
  std::vector<std::vector<std::string>> rows = {{"cluster", "weight", "rms distance"}};
  for (std::size_t j = 0; j < points.columns.size(); ++j) {
    rows.front().push_back(withUnit(points.columns[j].name, points.unitOf(j)));
  }
  const std::size_t shown = std::min(result.clusters.size(), kMostRows);
  for (std::size_t i = 0; i < shown; ++i) {
    const Cluster& cluster = result.clusters[i];
    rows.push_back({std::to_string(i), std::to_string(cluster.weight),
                    cluster.weight == 0 ? "-" : roundedText(std::sqrt(cluster.average()))});
    for (const double value : cluster.center) {
      rows.back().push_back(roundedText(value));
    }
  }
  summaryText::writeTable(out, rows);
  if (shown < result.clusters.size()) {
    out << "and " << result.clusters.size() - shown << " more\n";
  }
  out << '\n';
}

void writeClusterFacts(std::ostream& out, const ClusterPoints& points,
                       const ClusterRequest& request, const Clustering& result) {
  using summaryText::writeLine;
  writeLine(out, "points", std::to_string(points.size()));
  writeLine(out, "columns", columnsText(points, request, result));
  writeLine(out, "scale", scaleName(request.scale));
  writeLine(out, "strategy",
            std::string(strategyName(request.strategy)) + ", " +
                textFormat::counted(static_cast<std::size_t>(result.stages), "stage", "stages"));
  writeLine(out, "distortion",
            roundedText(result.distortion) + ", rms distance " + roundedText(result.rms()) +
                distanceUnit(points, request));
  writeLine(out, "time",
            "tree " + textFormat::fixed(result.treeSeconds, 2) + " s, search " +
                textFormat::fixed(result.searchSeconds, 2) + " s");
  const bool placed = points.columnOfAxis(0) >= 0 || points.columnOfAxis(1) >= 0;
  if (points.model || placed) {
    summaryText::writeSystem(out, points.model, points.stated);
  }
}

void writeClusterNotes(std::ostream& out, const ClusterPoints& points, const Clustering& result,
                       const std::vector<std::string>& replaced) {
  using summaryText::writeLine;
  for (std::size_t j = 0; j < points.columns.size(); ++j) {
    if (result.scales[j].constant) {
      writeLine(out, "note",
                "all values of " + textFormat::oneLine(points.columns[j].name) +
                    " are the same: it tells no points apart");
    }
  }
  const auto empty = static_cast<std::size_t>(
      std::count_if(result.clusters.begin(), result.clusters.end(),
                    [](const Cluster& cluster) { return cluster.weight == 0; }));
  if (empty > 0) {
    writeLine(out, "note",
              textFormat::counted(empty, "cluster has", "clusters have") +
                  " no points: other centers are at the same place or nearer");
  }
  if (points.degreesWide > kWidestInOneZone) {
    writeLine(out, "note",
              "the points span " + textFormat::fixed(points.degreesWide, 0) +
                  " degrees of longitude: one zone stretches lengths; --where or --crs keep "
                  "them true");
  }
  if (points.otherFeatures > 0) {
    writeLine(out, "ignored",
              textFormat::counted(points.otherFeatures, "feature that is no point",
                                  "features that are no points"));
  }
  for (const std::string& name : replaced) {
    writeLine(out, "replaced", "column " + textFormat::oneLine(name) + " of the input");
  }
}

void writeFirstLeftOut(std::ostream& out, const std::string& file,
                       const std::vector<std::string>& leftOut) {
  if (leftOut.size() <= kMostLeftOut) {
    summaryText::writeLeftOut(out, file, leftOut);
    return;
  }
  summaryText::writeLine(out, "left out",
                         std::to_string(leftOut.size()) + " bad features of " + file);
  for (std::size_t i = 0; i < kMostLeftOut; ++i) {
    summaryText::writeLine(out, "", leftOut[i]);
  }
  summaryText::writeLine(out, "", "and " + std::to_string(leftOut.size() - kMostLeftOut) + " more");
}
