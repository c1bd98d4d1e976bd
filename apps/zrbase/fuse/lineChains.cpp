#include "fuse/lineChains.h"

#include <zrBase/tools3d/lineFusion.h>

#include <algorithm>

namespace {

constexpr std::size_t kStandInSize = 3;

// fuseLines looks at the ends of lines only, and does not tell which line went where: a stand-in of
// first vertex, number and last vertex comes out of it with both told, and the vertices between
// need not be moved about.
VertexLine standIn(const VertexLine& line, std::size_t number) {
  return {line.front(), gdfVertex(static_cast<double>(number), 0.0, 0.0), line.back()};
}

// Appends the line; the vertex at which it joins is kept once. zr3DTools::
// removeDuplicateAdjacentVertices would look beyond the junctions, too, and take the detail of a
// line that has vertices closer than the tolerance.
void append(VertexLine& chain, const VertexLine& line, bool reversed, double tolerance) {
  const gdfVertex& joint = reversed ? line.back() : line.front();
  const std::ptrdiff_t skipped = !chain.empty() && chain.back().equal(joint, tolerance) ? 1 : 0;
  if (reversed) {
    chain.insert(chain.end(), line.rbegin() + skipped, line.rend());
  } else {
    chain.insert(chain.end(), line.begin() + skipped, line.end());
  }
}

LineChain chainOf(const VertexLine& standIns, const std::vector<InputLine>& lines,
                  double tolerance) {
  LineChain chain;
  for (std::size_t i = 0; i + kStandInSize <= standIns.size(); i += kStandInSize) {
    const auto number = static_cast<std::size_t>(standIns[i + 1].x());
    const VertexLine& line = lines[number].vertices;
    append(chain.vertices, line, standIns[i] != line.front(), tolerance);
    chain.members.push_back(number);
  }
  return chain;
}

std::size_t lowestMember(const LineChain& chain) {
  return *std::min_element(chain.members.begin(), chain.members.end());
}

}  // namespace

std::vector<LineChain> chainLines(const std::vector<InputLine>& lines, double tolerance) {
  VertexLineList standIns;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const VertexLine& line = lines[i].vertices;
    if (!line.front().equal(line.back(), tolerance)) {
      standIns.push_back(standIn(line, i));
    }
  }
  VertexLineList fused;
  zr3DTools::fuseLines(standIns, fused, tolerance);
  std::vector<LineChain> chains;
  std::vector<bool> used(lines.size(), false);
  for (const VertexLine& each : fused) {
    chains.push_back(chainOf(each, lines, tolerance));
    for (const std::size_t member : chains.back().members) {
      used[member] = true;
    }
  }
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!used[i]) {
      chains.push_back({lines[i].vertices, {i}});
    }
  }
  for (LineChain& chain : chains) {
    chain.closed = chain.vertices.front().equal(chain.vertices.back(), tolerance);
  }
  std::sort(chains.begin(), chains.end(), [](const LineChain& a, const LineChain& b) {
    return lowestMember(a) < lowestMember(b);
  });
  return chains;
}
