#ifndef ZRBASE_APPS_FUSE_LINECHAINS_H
#define ZRBASE_APPS_FUSE_LINECHAINS_H

#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <vector>

#include "common/vectorInput.h"

/// A line made of lines that follow each other.
struct LineChain {
  VertexLine vertices;
  std::vector<std::size_t> members;  ///< places in the list of lines, in the order along the chain
  bool closed = false;               ///< whether its ends match
};

/// Chains lines whose ends match, by zr3DTools::fuseLines: in space, with coordinate differences
/// strictly within the tolerance.
///
/// Every line is a member of exactly one chain. A chain runs in the direction of its lowest member;
/// where several lines could go on, the one with the lowest number does. The matching vertices at a
/// junction become one, the earlier along the chain; all other vertices stay as they are. A line
/// whose own ends match is a closed one and is never joined, nor is one that fusing would use up
/// without adding it.
/// @param tolerance  above 0
/// @return in the order of their lowest members
std::vector<LineChain> chainLines(const std::vector<InputLine>& lines, double tolerance);

#endif  // ZRBASE_APPS_FUSE_LINECHAINS_H
