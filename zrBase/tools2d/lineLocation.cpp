#include <zrBase/tools2d/lineLocation.h>

#include <zrBase/tools2d/internal/lineLineScan.h>
#include <zrBase/tools2d/internal/sideFilter.h>
#include <zrBase/tools2d/lineMeasures.h>
#include <zrBase/tools2d/segmentIntersection.h>
#include <zrBase/tools2d/sideTests.h>

#include <algorithm>
#include <cmath>

namespace zr2DTools {

namespace {

/// Unit vector from one vertex to another.
gdfVertex unitStep(const gdfVertex& from, const gdfVertex& to) {
  gdfVertex step = to - from;
  step.normalise();
  return step;
}

/// Index of the last vertex that equals p in x and y; the size of the line when there is none.
std::size_t lastVertexAt(const VertexLine& line, const gdfVertex& p) {
  for (std::size_t k = line.size(); k-- > 0;) {
    if (line[k].x() == p.x() && line[k].y() == p.y()) return k;
  }
  return line.size();
}

/// The segment whose foot of the perpendicular from p lies nearest to its own start.
/// @param offset  the distance of that foot from that start
/// @return -1 when no segment has a foot
int segmentOfLeastOffset(const VertexLine& line, const gdfVertex& p, double& offset) {
  // Kept on purpose (KeptLeastOffsetFromSegmentStartWins): what is made smallest is the way from
  // the segment's start to the foot, not the distance from p to the line, so that a far segment may
  // win over the one p lies beside.
  int winner = -1;
  offset = gdfInternal::unset;
  gdfVertex foot;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    if (!nearestPointOnLine(line[i], line[i + 1], p, foot, 0.0)) continue;
    const double t = line[i].mapDistance(foot);
    if (t < offset) {
      offset = t;
      winner = static_cast<int>(i);
    }
  }
  return winner;
}

/// How many times the length of its end segment a line is carried on beyond each end.
constexpr double extensionFactor = 10000.0;

/// Projects p on the straight continuations of a line; 0 before the start, -2 beyond the end, else
/// -1.
int lengthOnExtensions(const VertexLine& line, const gdfVertex& p, double& length) {
  gdfVertex foot;
  const gdfVertex& start = line.front();
  const gdfVertex before = start + (start - line[1]) * extensionFactor;
  // Kept on purpose (KeptStartExtensionIsTriedFirst): where both continuations have a foot the
  // start's is taken, however much nearer the other is.
  if (nearestPointOnLine(before, start, p, foot, 0.0)) {
    length = -start.mapDistance(foot);
    return 0;
  }
  const gdfVertex& end = line.back();
  const gdfVertex beyond = end + (end - line[line.size() - 2]) * extensionFactor;
  if (!nearestPointOnLine(end, beyond, p, foot, 0.0)) return -1;
  length = calcLength(line) + end.mapDistance(foot);
  return -2;
}

int projectOnLine(const VertexLine& line, const gdfVertex& p, double& length, bool extend) {
  // Kept on purpose (KeptLastEqualVertexIsTaken): the last vertex at the place of p, so that the
  // end of a closed ring has the whole length, not 0.
  const std::size_t vertex = lastVertexAt(line, p);
  if (vertex < line.size()) {
    length = calcLength(line, 0, static_cast<int>(vertex));
    return static_cast<int>(vertex);
  }
  double offset = 0.0;
  const int segment = segmentOfLeastOffset(line, p, offset);
  if (segment >= 0) {
    length = calcLength(line, 0, segment) + offset;
    return segment;
  }
  return extend && line.size() > 1 ? lengthOnExtensions(line, p, length) : -1;
}

/// Whether some coordinate differs by at least the tolerance. A NaN does not differ.
bool differs(const gdfVertex& v, const gdfVertex& w, double tolerance) {
  return std::fabs(v.x() - w.x()) >= tolerance || std::fabs(v.y() - w.y()) >= tolerance ||
         std::fabs(v.z() - w.z()) >= tolerance;
}

}  // namespace

zre::side getSideOfLine(const VertexLine& line, const gdfVertex& p, double tolerance) {
  if (line.size() < 2) return zre::sideNone;
  int index = -1;
  if (!getLineSegmentContaining(line, p, index, true, true, gdfInternal::unset)) {
    return zre::sideNone;
  }
  const std::size_t last = line.size() - 2;
  const std::size_t segment = index < 0 ? 0 : std::min(static_cast<std::size_t>(index), last);
  return getSideOfSegment(line[segment], line[segment + 1], p, tolerance);
}

bool getLineSegmentContaining(const VertexLine& line, const gdfVertex& p, int& index,
                              bool allowBeforeStart, bool allowBeyondEnd, double maxDistance) {
  if (line.size() < 2) return false;
  index = -2;
  const std::size_t last = line.size() - 2;
  double best = gdfInternal::unset;
  // Of the segment before: its direction back to its start, and the measure of p against the plane
  // at its end, positive towards its start.
  gdfVertex unitBack;
  double insidePlane = 0.0;
  for (std::size_t i = 0; i <= last; ++i) {
    const gdfVertex& a = line[i];
    const gdfVertex& b = line[i + 1];
    if (a == b) {
      // Kept on purpose (KeptZeroLengthSegmentAnswersAtOnce): a vertex at a segment without length
      // belongs to it, over any segment found before and over any limit to the distance. The planes
      // around it stay as they are.
      if (p == a) {
        index = static_cast<int>(i);
        return true;
      }
      unitBack = unitStep(b, a);
      continue;
    }

    // The plane between two segments is tested once and serves both: turned round for the second.
    double afterStart = -insidePlane;
    gdfVertex endNormal;
    if (i == last && i > 0) {
      endNormal = a - b;
    } else {
      const gdfVertex unitBefore = unitBack;
      unitBack = unitStep(b, a);
      if (i > 0) {
        // Kept on purpose (KeptMitreLagsOneVertex): made of the segments that meet at a, yet it
        // stands at b, and at the start of the next segment. Only the plane at vertex 1 has the
        // normal of its own vertex.
        endNormal = unitBack + unitBefore;
      } else {
        afterStart = (p - a) * (b - a);
        endNormal = unitBack + (last > 0 ? unitStep(line[2], b) : unitBack);
      }
    }
    insidePlane = (p - b) * endNormal;

    if (afterStart < 0.0 && !(i == 0 && allowBeforeStart)) continue;
    // Kept on purpose (KeptTwoVertexLineStopsAtItsEnd): the end is open only on a last segment that
    // is not the first as well. Flow paths and sides of two-vertex templates count on nothing being
    // found beyond it.
    if (insidePlane < 0.0 && !(i == last && i > 0 && allowBeyondEnd)) continue;

    const double distance = getDistanceFromVertexToSegment(a, b, p);
    if (!(best > distance && maxDistance > distance)) continue;
    best = distance;
    if (afterStart < 0.0 && i == 0) {
      index = -1;
    } else if (insidePlane < 0.0) {
      index = static_cast<int>(line.size()) - 1;
    } else {
      index = static_cast<int>(i);
    }
  }
  return index != -2;
}

int lengthAlong2D(const VertexLine& line, const gdfVertex& p, double& length, bool extend) {
  // `length` may be a coordinate of p or of the line: it is written at the end.
  double along = 0.0;
  const int result = projectOnLine(line, p, along, extend);
  length = along;
  return result;
}

int getNumberIntersections(const VertexLine& line, const gdfVertex& a, const gdfVertex& b,
                           double tolerance) {
  if (line.size() < 2) return 0;
  const bool closed = line.front() == line.back();
  const std::size_t last = line.size() - 2;
  gdfVertex previous(gdfInternal::unset, 0.0, 0.0);
  gdfVertex firstHit = previous;
  gdfVertex hit;
  bool isFirst = true;
  int count = 0;
  // Most segments of a ring lie beyond a-b, or on one side of it: they cost no division.
  const internal::SegmentBox box(a, b);
  const internal::SideFilter filter(a, b, tolerance);
  int startBeyond = box.sidesBeyond(line.front());
  for (std::size_t i = 0; i <= last; ++i) {
    const int endBeyond = box.sidesBeyond(line[i + 1]);
    const bool isApart = (startBeyond & endBeyond) != 0;
    startBeyond = endBeyond;
    if (isApart || filter.isApartFrom(line[i], line[i + 1])) continue;
    if (!getSegmentSegmentIntersect(a, b, line[i], line[i + 1], hit, tolerance)) continue;
    if (closed && i == last) {
      if (differs(hit, previous, tolerance) && differs(hit, firstHit, tolerance)) ++count;
    } else if (isFirst || differs(hit, previous, tolerance)) {
      previous = hit;
      if (isFirst) firstHit = hit;
      ++count;
    }
    isFirst = false;
  }
  // Kept on purpose (KeptOpenLineIsCompletedToRing): an open line counts as a polygon, and its
  // crossings along the missing side are those of a polygon.
  if (!closed && getSegmentSegmentIntersect(a, b, line.back(), line.front(), hit, tolerance)) {
    // Kept on purpose (KeptCompletingSegmentComparesExactly): exact where the segments of the line
    // are tolerant, so that a repetition with other rounding counts.
    //
    // Kept on purpose (KeptCompletingSegmentIgnoresFirstHit): the first crossing is not looked at,
    // so that one through the first vertex of an open line counts again here once another has been
    // counted in between; on a closed line it does not.
    if (isFirst || hit != previous) ++count;
  }
  return count;
}

}  // namespace zr2DTools
