#ifndef ZRBASE_UTILITIES_ANGLES_H
#define ZRBASE_UTILITIES_ANGLES_H

#include <zrBase/export.h>

#include <cmath>

/// Compass angles, in degrees clockwise from north, and inverse functions that a cosine or a sine
/// just outside its range does not upset. An angle is corrected by one full turn at most, as each
/// function tells: what lies further out stays out of range.
namespace zrUtils {

/// Sum of two angles: with 360 added if it is below 0, and then 360 subtracted if it is at least
/// 360. In [0, 360) for a sum in [-360, 720).
constexpr double addAngle(double a, double b) {
  double sum = a + b;
  // Kept on purpose (KeptAngleSumIsCorrectedOnce): one turn each way and no more, -400 gives -40.
  if (sum < 0.0) sum += 360.0;
  if (sum >= 360.0) sum -= 360.0;
  return sum;
}

/// Whether direction a lies on the shorter arc between two others.
///
/// The arc runs clockwise, from s to e or from e to s, whichever is shorter; from s to e where they
/// lie opposite each other. The end it starts from is excluded, the other included, so which of
/// the two belongs to the arc does not depend on the order of s and e, unless they lie opposite
/// each other: 180 lies between 0 and 180, but not between 180 and 0. Each of the three angles gets
/// 360 added if it is negative, once: one below -360 stays negative and is compared as it is.
///
/// Where s equals e after that, every direction from 0 to 360 lies between them. 0 and 360 are not
/// equal: between these, in either order, lies a direction of exactly 0 alone, not one of 360.
/// False for a NaN in a.
ZRBASE_EXPORT bool betweenAngles(double a, double s, double e);

/// Angle between two directions, without a sign: in [0, 180] for directions in [0, 360].
///
/// A difference of 360 or more counts less 360, once: directions that are more than two turns apart
/// give a negative angle.
inline double minimumAngleBetween(double a, double b) {
  double difference = std::fabs(a - b);
  // Kept on purpose (KeptAngleDifferenceIsReducedOnce): 800 apart is 440, and that gives -80.
  if (difference >= 360.0) difference -= 360.0;
  return difference > 180.0 ? 360.0 - difference : difference;
}

/// Turn from direction a to direction b by the shorter way: positive clockwise, in [-180, 180] for
/// directions in [0, 360].
///
/// Opposite directions give 180 if b is above a, else -180; equal ones -0.0. A difference of 360 or
/// more counts less 360, once.
inline double minimumClockwiseAngleBetween(double a, double b) {
  double difference = std::fabs(a - b);
  if (difference >= 360.0) difference -= 360.0;
  if (difference > 180.0) difference -= 360.0;
  // Kept on purpose (KeptOppositeTurnGoesTowardsTheLarger): half a turn is clockwise from 0 to 180
  // and anticlockwise from 180 to 0, and no turn at all is negated to -0.0.
  return b <= a ? -difference : difference;
}

/// Strike of a plane with its dip to the right, from its dip azimuth: azimuth - 90, less 360 if
/// that is at least 360. A negative strike stays negative. 0.0 for a dip of exactly 0, which has
/// none.
constexpr double convertAzimuthToStrike(double azimuth, double dip) {
  if (dip == 0.0) return 0.0;
  const double strike = azimuth - 90.0;
  // Kept on purpose (KeptNegativeStrikeStays): azimuth 45 gives -45, not 315. Callers that want a
  // range correct it themselves.
  return strike >= 360.0 ? strike - 360.0 : strike;
}

/// Dip azimuth of a plane from its strike, with the dip to the right of it: strike + 90, less 360
/// if that is at least 360. 0.0 for a dip of exactly 0, which has none.
constexpr double convertStrikeToAzimuth(double strike, double dip) {
  // Kept on purpose (KeptLevelPlaneHasAzimuthZero): the strike of a level plane is forgotten, so
  // that the way there and back does not give it again.
  if (dip == 0.0) return 0.0;
  const double azimuth = strike + 90.0;
  return azimuth >= 360.0 ? azimuth - 360.0 : azimuth;
}

/// Degrees in radians.
constexpr double degreesToRads(double degrees) { return degrees * 0.017453292519943295; }

/// Inverse cosine in radians of x brought into [-1, 1]: a value beyond by rounding gives no NaN.
inline double acos(double x) { return std::acos(x > 1.0 ? 1.0 : x < -1.0 ? -1.0 : x); }

/// Inverse sine in radians of x brought into [-1, 1]: a value beyond by rounding gives no NaN.
inline double asin(double x) { return std::asin(x > 1.0 ? 1.0 : x < -1.0 ? -1.0 : x); }

}  // namespace zrUtils

#endif  // ZRBASE_UTILITIES_ANGLES_H
