#include "polygons/ringNesting.h"

#include <zrBase/tools2d/lineMeasures.h>
#include <zrBase/tools2d/polygonContainment.h>

#include <algorithm>

#include "common/modelSystem.h"
#include "common/progressLine.h"

namespace {

// Two crossings this close together are one, at the vertex that two sides share.
constexpr double kSameCrossing = 1e-5;

// A ring laid flat about an origin near by, where map coordinates lose no digits.
struct FlatRing {
  VertexLine vertices;
  VertexLine turned;  // x and y exchanged
  Extent extent;
};

gdfVertex turned(const gdfVertex& v) { return {v.y(), v.x(), 0.0}; }

FlatRing flattened(const VertexLine& ring, const gdfVertex& origin) {
  FlatRing flat;
  for (const gdfVertex& vertex : ring) {
    flat.vertices.emplace_back(vertex.x() - origin.x(), vertex.y() - origin.y(), 0.0);
    flat.turned.push_back(turned(flat.vertices.back()));
    flat.extent.add(flat.vertices.back().x(), flat.vertices.back().y());
  }
  return flat;
}

bool fitsInto(const Extent& inner, const Extent& outer, double tolerance) {
  return inner.minX >= outer.minX - tolerance && inner.maxX <= outer.maxX + tolerance &&
         inner.minY >= outer.minY - tolerance && inner.maxY <= outer.maxY + tolerance;
}

class Nesting {
 public:
  Nesting(const VertexLineList& rings, double tolerance) : tolerance_(tolerance) {
    const gdfVertex origin = rings.empty() ? gdfVertex() : rings.front().front();
    Extent all;
    for (const VertexLine& ring : rings) {
      rings_.push_back(flattened(ring, origin));
      all.add(rings_.back().extent.minX, rings_.back().extent.minY);
      all.add(rings_.back().extent.maxX, rings_.back().extent.maxY);
    }
    farAway_ = 2.0 * (all.maxX - all.minX + all.maxY - all.minY) + 1.0;
  }

  bool liesIn(std::size_t inner, std::size_t outer) const {
    const FlatRing& ring = rings_[inner];
    const FlatRing& around = rings_[outer];
    if (inner == outer || !fitsInto(ring.extent, around.extent, tolerance_)) {
      return false;
    }
    bool counted = false;
    for (std::size_t i = 0; i + 1 < ring.vertices.size(); ++i) {
      const gdfVertex& start = ring.vertices[i];
      const gdfVertex& end = ring.vertices[i + 1];
      const gdfVertex middle((start.x() + end.x()) / 2.0, (start.y() + end.y()) / 2.0, 0.0);
      for (const gdfVertex& place : {start, middle}) {
        if (zr2DTools::getMinimumDistanceToLine(around.vertices, place) <= tolerance_) {
          continue;
        }
        if (!isInside(around, place)) {
          return false;
        }
        counted = true;
      }
    }
    return counted;
  }

 private:
  // A place inside is missed where one of the two rays grazes a vertex: the exchanged coordinates
  // have rays in other directions.
  bool isInside(const FlatRing& ring, const gdfVertex& place) const {
    return zr2DTools::vertexInsidePolygon(ring.vertices, place, farAway_, kSameCrossing) ||
           zr2DTools::vertexInsidePolygon(ring.turned, turned(place), farAway_, kSameCrossing);
  }

  std::vector<FlatRing> rings_;
  double tolerance_;
  double farAway_ = 1.0;
};

// Of the rings around, the one that lies in most others itself; nothing if none is wanted.
template <typename Wanted>
std::optional<std::size_t> innermost(const std::vector<std::size_t>& around,
                                     const std::vector<RingPlace>& places, const Wanted& wanted) {
  std::optional<std::size_t> best;
  for (const std::size_t each : around) {
    if (wanted(places[each]) && (!best || places[each].depth > places[*best].depth)) {
      best = each;
    }
  }
  return best;
}

}  // namespace

std::vector<RingPlace> nestRings(const VertexLineList& rings, double tolerance) {
  const Nesting nesting(rings, tolerance);
  std::vector<std::vector<std::size_t>> around(rings.size());
  std::vector<RingPlace> places(rings.size());
  ProgressLine progress("zrbase polygons: ring", rings.size());
  for (std::size_t i = 0; i < rings.size(); ++i) {
    for (std::size_t j = 0; j < rings.size(); ++j) {
      if (nesting.liesIn(i, j)) {
        around[i].push_back(j);
      }
    }
    places[i].depth = static_cast<int>(around[i].size());
    progress.show(i + 1);
  }
  for (std::size_t i = 0; i < rings.size(); ++i) {
    places[i].inside = innermost(around[i], places, [](const RingPlace&) { return true; });
    if (places[i].depth % 2 == 1) {
      places[i].holeOf =
          innermost(around[i], places, [](const RingPlace& place) { return place.depth % 2 == 0; });
    }
  }
  return places;
}
