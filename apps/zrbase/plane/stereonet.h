#ifndef ZRBASE_APPS_PLANE_STEREONET_H
#define ZRBASE_APPS_PLANE_STEREONET_H

#include <zrBase/geometry/gdfVertex.h>

#include <vector>

/// @file
/// Lower hemisphere, equal-area net: Lambert's azimuthal equal-area projection (Lambert, 1772) of
/// the directions that point down, introduced for fabrics by Schmidt (1925).
///
/// A direction of trend T and plunge P lies on the ray of azimuth T at the distance
/// sqrt(2) sin((90 - P) / 2) from the centre: straight down is the centre, the horizontal is the
/// circle of radius 1, and equal solid angles have equal areas.
///
///          N, y
///           |   T
///      .----+---/.
///     /     |  / \    o  direction of trend T
///     |     | o   |
///   --+-----+-----+-- E, x
///     |     |     |
///      \    |    /
///       '---+---'

namespace stereonet {

/// Place on the net, whose radius is 1.
struct NetPoint {
  double x = 0.0;  ///< east
  double y = 0.0;  ///< north
};
using NetLine = std::vector<NetPoint>;

/// Where a line of this direction meets the net; up and down along it are the same.
/// @param direction  of unit length
NetPoint project(const gdfVertex& direction);

/// Where the pole of the plane is, the line at right angles to it: opposite to its dip.
/// @param normal  of unit length, either way
NetPoint pole(const gdfVertex& normal);

/// The trace of a plane through the centre of the sphere, from one end of its strike to the other
/// by way of its dip; the whole circle for a horizontal plane, a diameter for an upright one.
NetLine greatCircle(const gdfVertex& normal);

/// The lines of a net whose axis is north-south: great circles of planes that strike along it, and
/// small circles around it, every so many degrees, with both diameters.
std::vector<NetLine> netLines(int stepDegrees);

}  // namespace stereonet

#endif  // ZRBASE_APPS_PLANE_STEREONET_H
