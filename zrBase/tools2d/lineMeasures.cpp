#include <zrBase/tools2d/lineMeasures.h>

#include <algorithm>

namespace zr2DTools {

namespace {

/// Sum over the segments first to last - 1, which must exist.
double lengthOfStretch(const VertexLine& line, std::size_t first, std::size_t last) {
  double length = 0.0;
  for (std::size_t i = first; i < last; ++i) length += line[i].mapDistance(line[i + 1]);
  return length;
}

gdfVertex flattened(const gdfVertex& v) { return {v.x(), v.y()}; }

}  // namespace

double calcLength(const VertexLine& line) {
  return line.size() < 2 ? 0.0 : lengthOfStretch(line, 0, line.size() - 1);
}

double calcLength(const VertexLine& line, int first, int last) {
  if (line.size() < 2 || first >= last || first < 0) return 0.0;
  if (static_cast<std::size_t>(last) >= line.size()) return 0.0;
  return lengthOfStretch(line, static_cast<std::size_t>(first), static_cast<std::size_t>(last));
}

bool calculateMinMax(const VertexLine& line, double& minX, double& maxX, double& minY,
                     double& maxY) {
  if (line.empty()) return false;
  gdfVertex lowest = line.front();
  gdfVertex highest = line.front();
  for (const gdfVertex& v : line) {
    lowest.setVertex(std::min(lowest.x(), v.x()), std::min(lowest.y(), v.y()));
    highest.setVertex(std::max(highest.x(), v.x()), std::max(highest.y(), v.y()));
  }
  minX = lowest.x();
  maxX = highest.x();
  minY = lowest.y();
  maxY = highest.y();
  return true;
}

double getMinimumDistanceToSegment(const gdfVertex& start, const gdfVertex& end,
                                   const gdfVertex& p) {
  const gdfVertex a = flattened(start);
  const gdfVertex b = flattened(end);
  const gdfVertex q = flattened(p);
  if ((a - b) * (a - q) >= 0.0 && (b - a) * (b - q) >= 0.0) {
    // Kept on purpose (KeptDistanceToZeroLengthSegmentIsNaN): equal ends pass both tests and give
    // 0/0, not the distance to the place they share. No guard: getMinimumDistanceToLine passes over
    // such a segment just because of that.
    return ((b - a) ^ (q - b)).length() / (b - a).length();
  }
  return std::min((a - q).length(), (b - q).length());
}

double getMinimumDistanceToLine(const VertexLine& line, const gdfVertex& p) {
  // Kept on purpose (KeptDistanceToLoneVertexIsUnset): without a segment the start value is the
  // answer; the distance to a lone vertex is not measured. Callers test for this value.
  double smallest = gdfInternal::unset;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    const double distance = getMinimumDistanceToSegment(line[i], line[i + 1], p);
    if (distance < smallest) smallest = distance;
  }
  return smallest;
}

bool getDownSampleAngle(const VertexLine& /*line*/, int, double& /*angle*/) {
  // Kept on purpose (KeptDownSampleAngleIsNeverFound): no angle is ever looked for. The thinning of
  // lines takes its angle as a percentage from its caller, and nothing in the library calls this.
  return false;
}

}  // namespace zr2DTools
