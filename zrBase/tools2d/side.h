#ifndef ZRBASE_TOOLS2D_SIDE_H
#define ZRBASE_TOOLS2D_SIDE_H

namespace zre {

/// Where a vertex lies as seen by someone who travels along a direction in the x-y plane, x east
/// and y north.
///
///            sideLeft
///     o ------------------>  direction of travel
///            sideRight
///
/// The same values choose a bisector chain: sideLeft the left one, sideRight the right one.
enum side {
  sideOn = 0,     ///< on the line, or closer to it than the tolerance
  sideLeft = 1,   ///< left of the direction of travel
  sideRight = 2,  ///< right of the direction of travel
  sideNone = 3    ///< no side could be determined
};

}  // namespace zre

#endif  // ZRBASE_TOOLS2D_SIDE_H
