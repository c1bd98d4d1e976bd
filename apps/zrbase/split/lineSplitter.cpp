#include "split/lineSplitter.h"

#include <zrBase/tools2d/segmentIntersection.h>

#include <algorithm>
#include <tuple>

namespace {

// Where zr2DTools::fastSplitLineWithLine tells two cuts apart.
constexpr double kSamePlace = 1e-5;

struct Cut {
  std::size_t segment = 0;
  double along = 0.0;  // distance from the start of the segment; 0 for a cut at its first vertex
  gdfVertex point;
};

Extent extentOf(const VertexLine& line) {
  Extent extent;
  for (const gdfVertex& vertex : line) {
    extent.add(vertex.x(), vertex.y());
  }
  return extent;
}

Extent extentOf(const gdfVertex& start, const gdfVertex& end) {
  Extent extent;
  extent.add(start.x(), start.y());
  extent.add(end.x(), end.y());
  return extent;
}

bool areApart(const Extent& a, const Extent& b, double tolerance) {
  return a.minX > b.maxX + tolerance || b.minX > a.maxX + tolerance ||
         a.minY > b.maxY + tolerance || b.minY > a.maxY + tolerance;
}

// The cut of a segment at a hit: at one of its vertices if that is near.
Cut cutAt(const VertexLine& line, std::size_t i, const gdfVertex& hit, double samePlace) {
  const gdfVertex& start = line[i];
  const gdfVertex& end = line[i + 1];
  const double length = start.mapDistance(end);
  const double along = length == 0.0 ? 0.0
                                     : ((hit.x() - start.x()) * (end.x() - start.x()) +
                                        (hit.y() - start.y()) * (end.y() - start.y())) /
                                           length;
  if (along <= samePlace) {
    return {i, 0.0, start};
  }
  if (length - along <= samePlace) {
    return {i + 1, 0.0, end};
  }
  const double height = start.z() + along / length * (end.z() - start.z());
  return {i, along, gdfVertex(hit.x(), hit.y(), height)};
}

// In order along the line, each place once, without the line's own ends.
void tidy(std::vector<Cut>& cuts, const VertexLine& line, double samePlace) {
  std::sort(cuts.begin(), cuts.end(), [](const Cut& a, const Cut& b) {
    return std::tie(a.segment, a.along) < std::tie(b.segment, b.along);
  });
  const auto repeats = [samePlace](const Cut& kept, const Cut& next) {
    return next.segment == kept.segment && next.along - kept.along <= samePlace;
  };
  cuts.erase(std::unique(cuts.begin(), cuts.end(), repeats), cuts.end());
  const auto isEnd = [&line](const Cut& cut) {
    return cut.along == 0.0 && (cut.segment == 0 || cut.segment + 1 == line.size());
  };
  cuts.erase(std::remove_if(cuts.begin(), cuts.end(), isEnd), cuts.end());
}

// zr2DTools::fastSplitLineWithLine lists no piece for a single cut and leaves the end out behind a
// cut on the last segment; its callers look after both. A file that is handed back must hold the
// whole line, cut by several lines at once.
VertexLineList piecesBetween(const std::vector<Cut>& cuts, const VertexLine& line) {
  VertexLineList pieces;
  VertexLine piece = {line.front()};
  std::size_t next = 1;
  for (const Cut& cut : cuts) {
    for (; next <= cut.segment; ++next) {
      piece.push_back(line[next]);
    }
    if (cut.along > 0.0) {
      piece.push_back(cut.point);
    }
    pieces.push_back(std::move(piece));
    piece = {cut.point};
  }
  for (; next < line.size(); ++next) {
    piece.push_back(line[next]);
  }
  pieces.push_back(std::move(piece));
  return pieces;
}

}  // namespace

LineSplitter::LineSplitter(const std::vector<InputLine>& splitters, double tolerance)
    : tolerance_(tolerance), samePlace_(std::max(tolerance, kSamePlace)) {
  for (const InputLine& splitter : splitters) {
    splitters_.push_back({&splitter.vertices, extentOf(splitter.vertices)});
  }
}

SplitLine LineSplitter::split(const VertexLine& line) const {
  const Extent extent = extentOf(line);
  std::vector<Cut> cuts;
  for (const Splitter& splitter : splitters_) {
    const VertexLine& other = *splitter.line;
    if (areApart(extent, splitter.extent, samePlace_) || other == line) {
      continue;
    }
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
      if (areApart(extentOf(line[i], line[i + 1]), splitter.extent, samePlace_)) {
        continue;
      }
      for (std::size_t j = 0; j + 1 < other.size(); ++j) {
        gdfVertex hit;
        if (zr2DTools::getSegmentSegmentIntersect(line[i], line[i + 1], other[j], other[j + 1], hit,
                                                  tolerance_)) {
          cuts.push_back(cutAt(line, i, hit, samePlace_));
        }
      }
    }
  }
  tidy(cuts, line, samePlace_);
  return {piecesBetween(cuts, line), cuts.size()};
}
