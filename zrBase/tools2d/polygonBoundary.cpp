#include <zrBase/tools2d/polygonBoundary.h>

#include <zrBase/tools2d/internal/lineLineScan.h>
#include <zrBase/tools2d/lineCleaning.h>
#include <zrBase/tools2d/lineMeasures.h>
#include <zrBase/tools2d/segmentIntersection.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace zr2DTools {

namespace {

/// Appends the vertices from one number up to, not including, another.
void appendForward(VertexLine& line, const VertexLine& source, std::size_t from, std::size_t end) {
  for (std::size_t k = from; k < end; ++k) line.push_back(source[k]);
}

/// Appends the vertices from one number down to, and including, another.
void appendBackward(VertexLine& line, const VertexLine& source, std::size_t from,
                    std::size_t last) {
  for (std::size_t k = from + 1; k-- > last;) line.push_back(source[k]);
}

/// A vertex carried on beyond its neighbour by a step.
gdfVertex carriedOn(const gdfVertex& end, const gdfVertex& neighbour, double step) {
  gdfVertex direction = end - neighbour;
  direction.normalise();
  return end + direction * step;
}

/// The boundary segments that the two carried-on ends of a polygon meet.
bool findEndSegments(const VertexLine& boundary, const VertexLine& polygon, double step,
                     double tolerance, std::size_t& startSegment, std::size_t& endSegment) {
  const gdfVertex& second = polygon[1];
  const gdfVertex& secondLast = polygon[polygon.size() - 2];
  const gdfVertex start = carriedOn(polygon.front(), second, step);
  const gdfVertex end = carriedOn(polygon.back(), secondLast, step);
  bool startFound = false;
  bool endFound = false;
  gdfVertex hit;
  for (std::size_t k = 0; k + 1 < boundary.size(); ++k) {
    // Kept on purpose (KeptLaterBoundaryHitReplacesEarlier): until both ends have their segment a
    // later hit takes over, be it farther away; the end that is found first may change, the other
    // one not.
    if (getSegmentSegmentIntersect(boundary[k], boundary[k + 1], start, second, hit, tolerance)) {
      startSegment = k;
      startFound = true;
    }
    if (getSegmentSegmentIntersect(boundary[k], boundary[k + 1], secondLast, end, hit, tolerance)) {
      endSegment = k;
      endFound = true;
    }
    if (startFound && endFound) return true;
  }
  return false;
}

void appendBoundaryArc(VertexLine& polygon, const VertexLine& boundary, std::size_t a,
                       std::size_t b) {
  const std::size_t size = boundary.size();
  const std::size_t half = size / 2;
  if (a == b) {
    polygon.push_back(boundary[a]);
  } else if (a < b && b - a < half) {
    appendBackward(polygon, boundary, b, a + 1);
  } else if (a < b) {
    appendForward(polygon, boundary, b, size);
    appendForward(polygon, boundary, 0, a);
  } else if (a - b < half) {
    appendForward(polygon, boundary, b, a);
  } else {
    // Kept on purpose (KeptBackwardArcStopsAtFirstBoundaryVertex): the way round would go on from
    // the far end of the list down to a + 1; it stops at vertex 0, where the polygon is closed
    // straight.
    appendBackward(polygon, boundary, b, 0);
  }
}

/// A crossing of two boundaries, with the segments that it lies on.
struct Crossing {
  std::size_t onFirst;
  std::size_t onSecond;
  gdfVertex vertex;
};

bool shareAnEnd(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c, const gdfVertex& d) {
  return a == c || a == d || b == c || b == d;
}

/// The first crossing of each segment of `first`, in order.
std::vector<Crossing> crossingsOf(const VertexLine& first, const VertexLine& second,
                                  double tolerance, bool& touching) {
  std::vector<Crossing> crossings;
  gdfVertex hit;
  for (std::size_t i = 0; i + 1 < first.size(); ++i) {
    const gdfVertex& a = first[i];
    const gdfVertex& b = first[i + 1];
    const internal::SegmentBox box(a, b);
    bool isCrossed = false;
    int startBeyond = box.sidesBeyond(second[0]);
    // Kept on purpose (KeptOneCrossingForEachSegment): the crossing with the lowest-numbered
    // segment of `second` stays. The others of the same segment are lost, so that one side through
    // a whole boundary is a single crossing. The walk then goes on for the sake of `touching`
    // alone.
    for (std::size_t j = 0; j + 1 < second.size() && !(isCrossed && touching); ++j) {
      const gdfVertex& c = second[j];
      const gdfVertex& d = second[j + 1];
      // Both ends beyond one side: no end in common, and no crossing.
      const int endBeyond = box.sidesBeyond(d);
      const bool apart = (startBeyond & endBeyond) != 0;
      startBeyond = endBeyond;
      if (apart) continue;
      if (shareAnEnd(a, b, c, d)) {
        // Kept on purpose (KeptTouchingIsOnlyEverSet): never cleared, so that a caller may gather
        // it over several calls.
        touching = true;
      } else if (!isCrossed && getSegmentSegmentIntersect(a, b, c, d, hit, tolerance)) {
        crossings.push_back({i, j, hit});
        isCrossed = true;
      }
    }
  }
  return crossings;
}

/// The crossing at the end of the longest stretch of `first`, which starts at the crossing before;
/// 0 for the stretch from the last crossing past both ends to the first one.
std::size_t longestStretch(const VertexLine& first, const std::vector<Crossing>& crossings) {
  const auto lengthBetween = [&first](std::size_t from, std::size_t to) {
    return calcLength(first, static_cast<int>(from), static_cast<int>(to));
  };
  // Kept on purpose (KeptStretchesAreMeasuredBetweenVertices): from the start vertex of one crossed
  // segment to that of the next; where on the segments the crossings lie is left aside.
  double best = lengthBetween(crossings.back().onFirst, first.size() - 1) +
                lengthBetween(0, crossings.front().onFirst);
  std::size_t choice = 0;
  for (std::size_t m = 1; m < crossings.size(); ++m) {
    const double length = lengthBetween(crossings[m - 1].onFirst, crossings[m].onFirst);
    if (length > best) {
      best = length;
      choice = m;
    }
  }
  return choice;
}

/// Appends the arc of the second boundary that leads from the end of the stretch back to its start.
void appendArc(VertexLine& ring, const VertexLine& second, std::size_t start, std::size_t end) {
  const std::size_t size = second.size();
  const std::size_t half = size / 2;
  // Kept on purpose (KeptLongerWayRoundTheSecondBoundary): the way with more vertices, where
  // completePolygon takes the one with fewer.
  if (start < end && end - start > half) {
    appendBackward(ring, second, end, start + 1);
  } else if (start < end) {
    appendForward(ring, second, end, size);
    appendForward(ring, second, 0, start);
  } else if (start - end > half) {
    appendForward(ring, second, end, start);
  } else {
    // Kept on purpose (KeptLastArcBeginsAtTheStartCrossing): not at the end crossing, where the
    // ring stands; the ring crosses over to it.
    appendForward(ring, second, start, size);
    appendForward(ring, second, 0, end);
  }
}

}  // namespace

bool completePolygon(const VertexLine& boundary, VertexLine& polygon, double tolerance) {
  if (&boundary == &polygon) {
    const VertexLine copy = boundary;
    return completePolygon(copy, polygon, tolerance);
  }
  if (boundary.size() < 5 || polygon.size() < 5) return false;
  // Kept on purpose (KeptStepDividesByVertexCount): by the number of vertices, not of segments, so
  // that the step is a little shorter than the mean segment.
  const double step = calcLength(boundary) / static_cast<double>(boundary.size());
  // Kept on purpose (KeptClosenessOfEndsIsMeasuredInSpace): the step is a length in plan, the
  // distance takes heights in; ends above one another are open when their heights lie far apart.
  if (step > polygon.front().distance(polygon.back())) return false;

  std::size_t startSegment = 0;
  std::size_t endSegment = 0;
  if (!findEndSegments(boundary, polygon, step, tolerance, startSegment, endSegment)) return false;
  appendBoundaryArc(polygon, boundary, startSegment, endSegment + 1);
  removeDuplicateAdjacentVertices(polygon, tolerance);
  if (polygon.front() != polygon.back()) polygon.push_back(polygon.front());
  return true;
}

// Kept on purpose (KeptFourthArgumentHasNoEffect): callers pass a double there, whose use is gone.
int combineBoundaries(const VertexLine& first, const VertexLine& second, VertexLine& result, double,
                      double tolerance, bool& touching) {
  if (first.size() < 2 || second.size() < 2) return 0;
  const std::vector<Crossing> crossings = crossingsOf(first, second, tolerance, touching);
  if (crossings.size() < 2) return 0;

  const std::size_t choice = longestStretch(first, crossings);
  const Crossing& start = choice == 0 ? crossings.back() : crossings[choice - 1];
  const Crossing& end = crossings[choice];
  VertexLine ring;
  ring.push_back(start.vertex);
  // Kept on purpose (KeptStretchLeavesOutItsLastVertex): the start vertex of the segment where the
  // stretch ends lies on the stretch, and is not taken.
  if (choice == 0) {
    appendForward(ring, first, start.onFirst + 1, first.size());
    appendForward(ring, first, 0, end.onFirst);
  } else {
    appendForward(ring, first, start.onFirst + 1, end.onFirst);
  }
  if (ring.back() != end.vertex) ring.push_back(end.vertex);
  appendArc(ring, second, start.onSecond, end.onSecond);
  removeDuplicateAdjacentVertices(ring, tolerance);
  // Kept on purpose (KeptCollapsedRingStillReplacesTheResult): a ring that shrinks to one vertex is
  // told as 0, as if nothing had been combined, and yet takes the place of the result.
  result = std::move(ring);
  return result.size() > 1 ? static_cast<int>(crossings.size()) : 0;
}

}  // namespace zr2DTools
