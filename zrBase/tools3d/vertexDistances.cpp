#include <zrBase/tools3d/vertexDistances.h>

#include <cstddef>

namespace zr3DTools {

double getMinimumDistanceToLine(const VertexLine& line, const gdfVertex& p) {
  double smallest = gdfInternal::unset;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const double distance = getMinimumDistanceToSegment(line[i - 1], line[i], p);
    // False for the NaN of a segment without length.
    if (distance < smallest) smallest = distance;
  }
  return smallest;
}

double getMaximumPerpendicularDistance(const VertexLine& line, const gdfVertex& p) {
  double largest = 0.0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const double distance = getPerpendicularDistance(line[i - 1], line[i], p);
    if (distance > largest) largest = distance;
  }
  return largest;
}

}  // namespace zr3DTools
