#include <zrBase/tools3d/lineSampling.h>

#include <zrBase/geometry/internal/saturatingCast.h>
#include <zrBase/tools3d/lineMeasures3D.h>

#include <cmath>
#include <cstddef>

namespace zr3DTools {

namespace {

/// From 2^53 intervals on, a distance along the segment plus the interval may round to the distance
/// itself: the walk would stand still for ever. Infinite lengths and NaNs count as too long as
/// well.
bool isWalkable(double segmentLength, double interval) {
  return segmentLength / interval < 9007199254740992.0;
}

/// Samples one segment at exact spacing.
/// @param carry  distance walked since the last sample
/// @return the same at the end of the segment
double sampleSegment(const gdfVertex& previous, const gdfVertex& current, double interval,
                     double carry, VertexLine& result) {
  const double length = previous.distance(current);
  if (length + carry == interval) {
    result.push_back(current);
    return 0.0;
  }
  if (!(length + carry > interval)) return length + carry;
  if (!isWalkable(length, interval)) return 0.0;

  double walked = interval - carry;
  for (;;) {
    result.push_back(previous + (current - previous) * walked / length);
    const double next = walked + interval;
    if (next > length) break;
    walked = next;
    // Kept on purpose (KeptSampleDueAtVertexIsSkipped): a step that lands exactly on the segment's
    // end takes no sample there, and nothing is carried: (0, 0)-(10, 0) at 5 gives 0 and 5. A first
    // step that does so takes one, above.
    if (next >= length) break;
  }
  return length - walked;
}

void replaceVertices(const VertexLine& line, double interval, VertexLine& result) {
  double carry = 0.0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    carry = sampleSegment(line[i - 1], line[i], interval, carry, result);
  }
}

/// Appends what splits the segment, its ends left out.
void splitSegment(const gdfVertex& previous, const gdfVertex& current, double interval,
                  VertexLine& result) {
  // Kept on purpose (KeptSplitStartsAtSinglePrecisionFactor): 1.3 in single precision. Stored
  // models were sampled with this very bound, and a segment of exactly 1.3 intervals is split by
  // it.
  constexpr double splitFactor = 1.2999999523162842;
  const double length = previous.distance(current);
  if (!(length > splitFactor * interval) || std::isinf(length)) return;
  if (length < 2.0 * interval) {
    result.push_back((previous + current) * 0.5);
    return;
  }
  const unsigned int pieces = gdfInternal::toUnsigned(length / interval);
  for (unsigned int k = 1; k < pieces; ++k) {
    const double fraction = static_cast<double>(k) / static_cast<double>(pieces);
    result.push_back(previous + (current - previous) * fraction);
  }
}

void subdivideSegments(const VertexLine& line, double interval, VertexLine& result) {
  for (std::size_t i = 1; i < line.size(); ++i) {
    splitSegment(line[i - 1], line[i], interval, result);
    result.push_back(line[i]);
  }
}

/// Appends the end of the line where the samples fell short of it.
void appendLineEnd(const gdfVertex& lineEnd, VertexLine& result) {
  // Kept on purpose (KeptShortResultOmitsLineEnd): a result of one or two vertices stays as it is,
  // so that a line shorter than the interval, its vertices not kept, gives its first vertex alone.
  // Kept on purpose (KeptEndRuleCountsEarlierContent): the size is that of the whole list, not of
  // what this call added.
  const std::size_t size = result.size();
  if (size <= 2) return;
  if (lineEnd.equal(result[size - 1], gdfInternal::exactnessLimit)) return;
  const gdfVertex& lastButOne = result[size - 2];
  if (lastButOne.distance2(lineEnd) > lastButOne.distance2(result[size - 1])) {
    result.push_back(lineEnd);
  }
}

}  // namespace

bool sampleLineFixedInterval(const VertexLine& line, VertexLine& result, double interval,
                             bool keepVertices) {
  if (&line == &result) {
    const VertexLine original = line;
    return sampleLineFixedInterval(original, result, interval, keepVertices);
  }
  if (line.empty()) return false;
  result.push_back(line.front());
  if (line.size() == 1) return true;
  // Also false for a NaN.
  if (!(interval > 0.0)) return false;

  if (keepVertices) {
    subdivideSegments(line, interval, result);
  } else {
    replaceVertices(line, interval, result);
  }
  appendLineEnd(line.back(), result);
  return true;
}

bool sampleLineUsingRatio(const VertexLine& line, VertexLine& result, double ratio,
                          bool keepVertices) {
  if (ratio == 1.0 || ratio <= 0.0) return false;
  if (line.empty()) return false;
  if (line.size() == 1) {
    result.push_back(line.front());
    return true;
  }
  const double scaledCount = (static_cast<double>(line.size()) - 2.0) * ratio;
  // The 1 is added as a double: the whole part may be the highest int.
  const double interval = calcLength(line) / (gdfInternal::toInt(scaledCount) + 1.0);
  // Kept on purpose (KeptThinningGivesUpVertices): below 1 the caller's wish to keep them is passed
  // over.
  return sampleLineFixedInterval(line, result, interval, keepVertices && !(ratio < 1.0));
}

}  // namespace zr3DTools
