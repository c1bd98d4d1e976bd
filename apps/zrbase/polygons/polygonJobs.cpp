#include "polygons/polygonJobs.h"

#include <zrBase/tools2d/lineCleaning.h>
#include <zrBase/tools2d/polygonRepair.h>
#include <zrBase/tools2d/segmentIntersection.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "common/progressLine.h"
#include "common/textFormat.h"
#include "polygons/boundaryClosure.h"

namespace {

constexpr std::size_t kFewestInARing = 4;  // a triangle, closed
constexpr double kSamePlace = 1e-5;  // crossings are never told from a vertex closer than this

std::string whereIs(const InputLine& line) { return "feature " + line.label(); }

bool isClosed(const VertexLine& line) {
  return line.size() >= kFewestInARing && line.front() == line.back();
}

std::string openReason(const VertexLine& line) {
  return "an open line: its ends are " + textFormat::fixed(line.front().distance(line.back()), 3) +
         " m apart";
}

// Closes a line exactly whose ends are near enough; returns the reason if they are not.
std::string closeWithin(VertexLine& line, double tolerance) {
  if (line.front() != line.back()) {
    if (!line.front().equal(line.back(), tolerance)) {
      return openReason(line);
    }
    line.back() = line.front();
  }
  return line.size() < kFewestInARing ? "a ring of fewer than three corners" : "";
}

struct RingRepair {
  std::string reason;  // why it could not be done; empty if it was
  std::size_t removed = 0;
  std::size_t nodes = 0;
};

// One call puts a vertex on a side at the first later side that it crosses, and stops at half as
// many again as there were. The ring turned round has other sides first, and a further call a fresh
// count; what a side crosses behind the first one on either way is out of its reach.
void putNodesIn(VertexLine& ring, double tolerance) {
  constexpr int kMostRounds = 50;
  for (int round = 0; round < kMostRounds; ++round) {
    const std::size_t before = ring.size();
    zr2DTools::conditionPolygon(ring, tolerance);
    std::reverse(ring.begin(), ring.end());
    zr2DTools::conditionPolygon(ring, tolerance);
    std::reverse(ring.begin(), ring.end());
    if (ring.size() <= before) {
      return;
    }
  }
}

RingRepair conditionRing(VertexLine& ring, double tolerance) {
  RingRepair repair;
  repair.reason = closeWithin(ring, tolerance);
  if (!repair.reason.empty()) {
    return repair;
  }
  const std::size_t given = ring.size();
  // What drifted away and came back is only found once the vertices between are gone.
  while (zr2DTools::removeDuplicateAdjacentVertices(ring, tolerance)) {
    ring.back() = ring.front();  // the vertex before the closing one goes, not that one
  }
  repair.removed = given - ring.size();
  if (ring.size() < kFewestInARing) {
    repair.reason = "fewer than three corners are left at this tolerance";
    return repair;
  }
  const std::size_t cleaned = ring.size();
  putNodesIn(ring, tolerance);
  repair.nodes = ring.size() - cleaned;
  return repair;
}

// The rings of a polygon from its outer one on; one for a line.
std::size_t ringsFrom(const std::vector<InputLine>& lines, std::size_t first) {
  std::size_t count = 1;
  while (first + count < lines.size() && lines[first + count].ring > 0 &&
         lines[first + count].fid == lines[first].fid &&
         lines[first + count].part == lines[first].part) {
    ++count;
  }
  return count;
}

std::string reasonAgainstClosing(const std::vector<Boundary>& boundaries) {
  const bool several = boundaries.size() > 1;
  return "its two ends do not both come within " +
         (several ? "reach of any of the " + std::to_string(boundaries.size()) + " boundaries"
                  : textFormat::fixed(boundaries.front().reach(), 3) + " m of the boundary") +
         ", or are closer than that to each other";
}

}  // namespace

double ringArea(const VertexLine& ring) {
  double twice = 0.0;
  for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
    const gdfVertex& origin = ring.front();  // map coordinates would swallow small areas
    twice += (ring[i].x() - origin.x()) * (ring[i + 1].y() - origin.y()) -
             (ring[i + 1].x() - origin.x()) * (ring[i].y() - origin.y());
  }
  return std::abs(twice) / 2.0;
}

std::size_t selfCrossings(const VertexLine& ring, double tolerance) {
  const double apart = std::max(tolerance, kSamePlace);
  std::size_t count = 0;
  for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
    for (std::size_t j = i + 1; j + 1 < ring.size(); ++j) {
      gdfVertex hit;
      if (zr2DTools::getSegmentSegmentIntersect(ring[i], ring[i + 1], ring[j], ring[j + 1], hit,
                                                0.0) &&
          !hit.equalXY(ring[i], apart) && !hit.equalXY(ring[i + 1], apart) &&
          !hit.equalXY(ring[j], apart) && !hit.equalXY(ring[j + 1], apart)) {
        ++count;
      }
    }
  }
  return count;
}

NestedRings nestInput(const std::vector<InputLine>& lines, double tolerance, BadFeatures& bad) {
  NestedRings nested;
  VertexLineList rings;
  for (const InputLine& line : lines) {
    InputLine ring = line;
    const std::string reason = closeWithin(ring.vertices, tolerance);
    if (!reason.empty()) {
      bad.report(whereIs(line), reason);
      continue;
    }
    rings.push_back(ring.vertices);
    nested.rings.push_back(std::move(ring));
  }
  nested.places = nestRings(rings, tolerance);
  return nested;
}

std::vector<ConditionedPolygon> conditionInput(const std::vector<InputLine>& lines,
                                               double tolerance, BadFeatures& bad) {
  const double apart = std::max(tolerance, kSamePlace);  // below it rounding makes nodes of nodes
  std::vector<ConditionedPolygon> polygons;
  for (std::size_t first = 0; first < lines.size();) {
    const std::size_t count = ringsFrom(lines, first);
    ConditionedPolygon polygon;
    polygon.source = lines[first];
    std::string reason;
    for (std::size_t i = first; i < first + count && reason.empty(); ++i) {
      VertexLine ring = lines[i].vertices;
      const RingRepair repair = conditionRing(ring, apart);
      reason = repair.reason;
      if (!reason.empty()) {
        bad.report(whereIs(lines[i]), reason);
      }
      polygon.removed += repair.removed;
      polygon.nodes += repair.nodes;
      polygon.crossingsLeft += selfCrossings(ring, apart);
      if (i == first) {
        polygon.source.vertices = std::move(ring);
      } else {
        polygon.holes.push_back(std::move(ring));
      }
    }
    if (reason.empty()) {
      polygons.push_back(std::move(polygon));
    }
    first += count;
  }
  return polygons;
}

std::vector<CompletedLine> completeInput(const std::vector<InputLine>& lines,
                                         const std::vector<InputLine>& boundaries,
                                         std::optional<double> reach, double tolerance,
                                         BadFeatures& bad) {
  std::vector<Boundary> prepared;
  prepared.reserve(boundaries.size());
  for (const InputLine& boundary : boundaries) {
    prepared.emplace_back(boundary.vertices, reach.value_or(defaultReach(boundary.vertices)),
                          tolerance);
  }
  std::vector<CompletedLine> completed;
  ProgressLine progress("zrbase polygons: line", lines.size());
  for (const InputLine& line : lines) {
    progress.show(completed.size());
    CompletedLine result = {line, std::nullopt, 0};
    bool done = isClosed(line.vertices);
    for (std::size_t i = 0; i < prepared.size() && !done; ++i) {
      if (std::optional<ClosedLine> closed = prepared[i].close(line.vertices)) {
        result.source.vertices = std::move(closed->ring);
        result.boundary = boundaries[i];
        result.added = closed->boundaryVertices;
        done = result.source.vertices.size() >= kFewestInARing;
      }
    }
    if (done) {
      completed.push_back(std::move(result));
    } else {
      bad.report(whereIs(line), reasonAgainstClosing(prepared));
    }
  }
  return completed;
}
