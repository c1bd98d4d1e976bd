#include "polygons/boundaryClosure.h"

#include <zrBase/tools2d/lineMeasures.h>
#include <zrBase/tools2d/polygonBoundary.h>

#include <algorithm>
#include <cmath>

namespace {

// completePolygon works in plan and carries z along: z tells which vertex is which afterwards.
constexpr double kOfLine = 0.0;
constexpr double kBetweenCorners = 1.0;
constexpr double kFirstCorner = 2.0;

constexpr double kSidesOfABoundary = 1000.0;
constexpr std::size_t kFewestVertices = 5;  // completePolygon closes no shorter line

gdfVertex between(const gdfVertex& start, const gdfVertex& end, double t, double z) {
  return {start.x() + t * (end.x() - start.x()), start.y() + t * (end.y() - start.y()), z};
}

bool samePlace(const gdfVertex& a, const gdfVertex& b) { return a.x() == b.x() && a.y() == b.y(); }

// In plan, with vertices added if there are too few: near the middle, since only the end segments
// are held against the boundary.
VertexLine standIn(const VertexLine& line) {
  VertexLine flat;
  for (const gdfVertex& vertex : line) {
    flat.emplace_back(vertex.x(), vertex.y(), kOfLine);
  }
  while (flat.size() < kFewestVertices) {
    const std::size_t segment = flat.size() == 4 ? 1 : 0;
    const double t = flat.size() == 3 ? 0.9 : 0.5;
    const gdfVertex added = between(flat[segment], flat[segment + 1], t, kOfLine);
    flat.insert(flat.begin() + static_cast<std::ptrdiff_t>(segment) + 1, added);
  }
  return flat;
}

}  // namespace

Boundary::Boundary(const VertexLine& ring, double reach, double tolerance)
    : corners_(ring), tolerance_(tolerance) {
  for (std::size_t i = 0; i + 1 < corners_.size(); ++i) {
    const gdfVertex& start = corners_[i];
    const gdfVertex& end = corners_[i + 1];
    const double length = start.mapDistance(end);
    const double count = std::max(1.0, std::ceil(length / reach));
    divided_.emplace_back(start.x(), start.y(), kFirstCorner + static_cast<double>(i));
    for (double k = 1.0; k < count; k += 1.0) {
      divided_.push_back(between(start, end, k / count, kBetweenCorners));
    }
    longestSide_ = std::max(longestSide_, length / count);
  }
  divided_.emplace_back(corners_.front().x(), corners_.front().y(), kFirstCorner);
}

double Boundary::reach() const {
  return zr2DTools::calcLength(divided_) / static_cast<double>(divided_.size());
}

std::optional<Boundary::Attempt> Boundary::attempt(VertexLine flat) const {
  if (!zr2DTools::completePolygon(divided_, flat, tolerance_)) {
    return std::nullopt;
  }
  Attempt result;
  result.gap = flat[flat.size() - 2].mapDistance(flat.front());
  for (const gdfVertex& vertex : flat) {
    if (vertex.z() >= kFirstCorner) {
      result.corners.push_back(static_cast<std::size_t>(vertex.z() - kFirstCorner));
    }
  }
  return result;
}

std::optional<ClosedLine> Boundary::close(const VertexLine& line) const {
  VertexLine flat = standIn(line);
  std::optional<Attempt> best = attempt(flat);
  if (!best) {
    return std::nullopt;
  }
  ClosedLine closed;
  closed.ring = line;
  // Against the order of the boundary the longer way ends at the boundary's first vertex, far from
  // the line's start; the same line turned round follows the boundary past it.
  std::reverse(flat.begin(), flat.end());
  std::optional<Attempt> reversed = attempt(flat);
  if (reversed && best->gap > reversed->gap + 2.0 * longestSide_) {
    best = std::move(reversed);
    std::reverse(best->corners.begin(), best->corners.end());
  }
  for (const std::size_t corner : best->corners) {
    if (!samePlace(corners_[corner], closed.ring.back())) {
      closed.ring.push_back(corners_[corner]);
      ++closed.boundaryVertices;
    }
  }
  if (samePlace(closed.ring.front(), closed.ring.back())) {
    closed.ring.back() = closed.ring.front();
  } else {
    closed.ring.push_back(closed.ring.front());
  }
  return closed;
}

double defaultReach(const VertexLine& boundary) {
  return zr2DTools::calcLength(boundary) / kSidesOfABoundary;
}
