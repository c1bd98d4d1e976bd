#include <zrBase/tools3d/linePosition.h>

#include <zrBase/tools2d/lineLocation.h>
#include <zrBase/tools3d/lineMeasures3D.h>

#include <cmath>
#include <cstddef>

namespace zr3DTools {

namespace {

/// Straight distance from p to vertex `index`, plus the whole segments before that vertex.
double lengthBackToStart(const VertexLine& line, const gdfVertex& p, std::size_t index) {
  double length = (p - line[index]).length();
  for (std::size_t i = index; i > 0; --i) length += line[i].distance(line[i - 1]);
  return length;
}

/// Straight distance from p to vertex `index`, plus the whole segments after that vertex.
double lengthOnToEnd(const VertexLine& line, const gdfVertex& p, std::size_t index) {
  double length = (p - line[index]).length();
  for (std::size_t i = index; i + 1 < line.size(); ++i) length += line[i].distance(line[i + 1]);
  return length;
}

/// The place found so far where a line passes a height.
struct HeightMatch {
  bool accepted = false;
  double offsetX = gdfInternal::unset;
  double offsetY = gdfInternal::unset;
  double length = 0.0;
  double ratio = 0.0;
  std::size_t segment = 0;

  bool isFartherThan(double dx, double dy) const { return offsetX + offsetY > dx + dy; }
};

/// Holds segment i - 1 to i against the best match so far; `run` is the length up to its start.
void matchSegmentAtHeight(const VertexLine& line, std::size_t i, const gdfVertex& p, double run,
                          HeightMatch& best) {
  const gdfVertex& previous = line[i - 1];
  const gdfVertex& current = line[i];
  const double segmentLength = previous.distance(current);
  const double dx = std::fabs(p.x() - current.x());
  const double dy = std::fabs(p.y() - current.y());
  if (p.z() == current.z()) {
    if (!best.isFartherThan(dx, dy)) return;
    // Kept on purpose (KeptVertexMatchMarksRatio): the unset value, not 1, tells callers that the
    // match is a vertex.
    best = {true, dx, dy, run + segmentLength, gdfInternal::unset, i};
    return;
  }
  // Kept on purpose (KeptRisingSegmentIsNotMatched): only a fall through the height counts, both
  // bounds open. Lines that come here run downwards, and a place where one turns up again is not
  // wanted.
  if (!(previous.z() > p.z() && p.z() > current.z())) return;
  // Kept on purpose (KeptCandidateIsJudgedByFarEnd): the far end decides whether the segment is
  // taken, the interpolated point what the next candidates have to beat. Results of whole models
  // hang on this mixture.
  if (!best.isFartherThan(dx, dy)) return;
  // Kept on purpose (KeptPartIsStraightDistanceToVertex): to p itself, not to the point of the
  // segment at its height; for p beside the line the part may exceed the segment, and the ratio 1.
  const double part = previous.distance(p);
  const double ratio = part / segmentLength;
  best = {true,
          std::fabs(p.x() - (previous.x() + ratio * (current.x() - previous.x()))),
          std::fabs(p.y() - (previous.y() + ratio * (current.y() - previous.y()))),
          run + part,
          ratio,
          i};
}

}  // namespace

bool getSignedDistanceFromLineEndpoint(const VertexLine& line, const gdfVertex& p, EndSpecifier end,
                                       double& distance, bool allowBeforeStart, bool allowBeyondEnd,
                                       double maxDistance) {
  int index = 0;
  if (!zr2DTools::getLineSegmentContaining(line, p, index, allowBeforeStart, allowBeyondEnd,
                                           maxDistance)) {
    return false;
  }
  const bool beforeStart = index == -1;
  const auto segment = beforeStart ? std::size_t{0} : static_cast<std::size_t>(index);
  if (beforeStart) {
    // Kept on purpose (KeptUnknownEndAddsNoLength): here and beyond the end an end that is neither
    // enumerator counts as the near one.
    const double outside = (p - line.front()).length();
    distance = end == LastEnd ? -(outside + calcLength(line)) : -outside;
  } else if (segment + 1 == line.size()) {
    const double outside = (p - line.back()).length();
    distance = end == FirstEnd ? outside + calcLength(line) : outside;
  } else if (end == FirstEnd) {
    // Kept on purpose (KeptSignedDistanceIsStraight): no foot of a perpendicular is taken, here nor
    // below, so that the two ends' distances of a vertex beside the line differ by more than the
    // length of the line.
    distance = lengthBackToStart(line, p, segment);
  } else if (end == LastEnd) {
    distance = -lengthOnToEnd(line, p, segment + 1);
  }
  // Kept on purpose (KeptUnknownEndLeavesInteriorDistance): found is found, so the result is true
  // although an end that is neither enumerator wrote nothing for a vertex on the line.
  return true;
}

bool lengthAlongLine(const VertexLine& line, const gdfVertex& p, double& length, int& segment,
                     double& ratio) {
  if (line.size() < 2) return false;
  if (line.front() == p) {
    // Kept on purpose (KeptFirstVertexLeavesSegmentAndRatio): only the length is told.
    length = 0.0;
    return true;
  }
  HeightMatch best;
  double run = 0.0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    matchSegmentAtHeight(line, i, p, run, best);
    run += line[i - 1].distance(line[i]);
  }
  if (best.accepted) {
    ratio = best.ratio;
    segment = static_cast<int>(best.segment);
  }
  // The start value, not the flag: a match whose offset in x is that very value counts as none.
  if (best.offsetX == gdfInternal::unset) return false;
  length = best.length;
  return true;
}

bool vertexAtDistanceAlongLine(const VertexLine& line, double distance, gdfVertex& vertex,
                               int& segment) {
  if (line.size() < 2) return false;
  double run = 0.0;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    const double segmentLength = line[i].distance(line[i + 1]);
    const double next = run + segmentLength;
    if (next == distance) {
      vertex = line[i + 1];
      segment = static_cast<int>(i);
      return true;
    }
    if (next > distance) {
      // Kept on purpose (KeptNegativeDistanceExtrapolates): a distance below 0 is not stopped. It
      // ends here in the first segment, with a negative fraction.
      const double fraction = 1.0 - (next - distance) / segmentLength;
      vertex = line[i] + (line[i + 1] - line[i]) * fraction;
      segment = static_cast<int>(i);
      return true;
    }
    run = next;
  }
  constexpr double endTolerance = 0.001;
  if (!(distance <= run + endTolerance)) return false;
  vertex = line.back();
  // Kept on purpose (KeptPastTheEndIsNumberedAsSegment): n - 1, although the last segment is n - 2,
  // so that callers can tell a distance past the end from one that hits it.
  segment = static_cast<int>(line.size() - 1);
  return true;
}

}  // namespace zr3DTools
