#include <zrBase/tools3d/lineMeasures3D.h>

#include <zrBase/tools3d/linePosition.h>

#include <cstddef>

namespace zr3DTools {

double calcLength(const VertexLine& line) {
  double length = 0.0;
  for (std::size_t i = 1; i < line.size(); ++i) length += line[i - 1].distance(line[i]);
  return length;
}

double calcLength(const VertexLine& line, int first, int last) {
  if (line.size() < 2 || first < 0 || first >= last) return 0.0;
  const auto end = static_cast<std::size_t>(last);
  if (end >= line.size()) return 0.0;
  double length = 0.0;
  for (auto i = static_cast<std::size_t>(first); i < end; ++i)
    length += line[i].distance(line[i + 1]);
  return length;
}

gdfVertex calcAverageVertex(const VertexLine& line) {
  if (line.empty()) return gdfVertex();
  gdfVertex sum;
  for (const gdfVertex& v : line) sum += v;
  return sum / static_cast<double>(line.size());
}

gdfVertex calcMidVertex(const VertexLine& line) {
  if (line.empty()) return gdfVertex();
  if (line.size() == 1) return line.front();
  gdfVertex middle;
  int segment = 0;
  if (!vertexAtDistanceAlongLine(line, calcLength(line) * 0.5, middle, segment)) return gdfVertex();
  return middle;
}

}  // namespace zr3DTools
