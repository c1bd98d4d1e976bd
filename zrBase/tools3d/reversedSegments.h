#ifndef ZRBASE_TOOLS3D_REVERSEDSEGMENTS_H
#define ZRBASE_TOOLS3D_REVERSEDSEGMENTS_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

namespace zr3DTools {

/// Reports a line with a segment that runs against it. In spite of the name nothing is removed.
///
/// The first segment gives the direction in y: rising for a step of 0 or more, else falling. The
/// first segment whose y step opposes it (below 0, above 0) makes the function write "zr3DTools
/// reversed line" and a line end to std::cerr, once per call however many there are.
/// @param line  stays as it is
/// @return false, always
ZRBASE_EXPORT bool removeSingleReversedSegments(VertexLine& line);

/// The same for each line in order, so one text for every line that has such a segment.
/// @return false, always
ZRBASE_EXPORT bool removeSingleReversedSegments(VertexLineList& lines);

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_REVERSEDSEGMENTS_H
