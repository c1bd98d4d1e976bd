#ifndef ZRBASE_UTILITIES_WELLPATH_H
#define ZRBASE_UTILITIES_WELLPATH_H

#include <zrBase/export.h>

/// Well paths from directional surveys: the angles at two stations and the measured length between
/// them become an offset, and an offset becomes angles and a length.
///
///     offset:  x east, y north, z down, positive along a well that goes down (model vertices have
///              z up: negate it for them)
///     inclination:  degrees from the vertical, 0 straight down, 90 level, 180 straight up
///     azimuth:  degrees clockwise from north, 0 north, 90 east
///
/// Lengths come out in the unit they go in. Nothing is rejected: angles out of range and NaNs go
/// through the formulae. The arguments that are replaced must be variables of their own: no two of
/// them may be one and the same.
namespace zrUtils {

/// Offset over one survey interval, by the method of a number.
///
/// | Number | Method                | Function                      |
/// |--------|-----------------------|-------------------------------|
/// | 0      | tangential            | convertToXyzTangentialMethod  |
/// | 1      | average angle         | convertToXyzAverageAngle      |
/// | 2      | balanced tangential   | convertToXyzBalanceTangential |
/// | 3      | minimum curvature     | convertToXyzMinimumCurvature  |
/// | 4      | radius of curvature   | convertToXyzRadiusOfCurvature |
///
/// An interval whose two inclinations are exactly 0 is vertical, (0, 0, length), by every number,
/// those outside the table too. Otherwise a number outside the table changes nothing.
/// @param upperDepth  never read; only the length of the interval counts
/// @param upperInclination  at the upper station, degrees
/// @param upperAzimuth  at the upper station, degrees
/// @param a  in: measured length of the interval; out: x
/// @param b  in: inclination at the lower station, degrees; out: y
/// @param c  in: azimuth at the lower station, degrees; out: z
ZRBASE_EXPORT void convertToXyz(double upperDepth, double upperInclination, double upperAzimuth,
                                double& a, double& b, double& c, int method);

/// Offset along a straight segment of one inclination and azimuth.
///
/// Exact along the axes: an azimuth of 0, 90, 180, 270 or 360 gives an x or y of exactly 0, an
/// inclination of exactly 90 or 270 a z of exactly 0. An azimuth below 0 or above 360, and a NaN,
/// gives x = y = 0 with z as usual. An inclination below 0 or above 360 gives the negative of the z
/// that its cosine asks for.
/// @param inclination  in: degrees; out: x
/// @param azimuth  in: degrees, 0 to 360; out: y
/// @param length  in: measured length; out: z
ZRBASE_EXPORT void convertToXyz(double& inclination, double& azimuth, double& length);

/// Offset along a straight segment in a vertical plane: the plain sine and cosine.
///
/// Unlike the form with an azimuth it has no exact cases: at an inclination of 90 the depth is what
/// rounding leaves, about 6e-17 of the length.
/// @param inclination  in: degrees; out: level reach, sin(inclination) times length
/// @param length  in: measured length; out: depth, cos(inclination) times length
ZRBASE_EXPORT void convertToXyz(double& inclination, double& length);

/// Angles and measured length of the straight segment that makes an offset: undoes the straight
/// segment of convertToXyz.
///
/// The inclination is 0 to 180, the azimuth 0 to 360; a level offset has inclination 90. Three
/// zeros stay as they are. Straight up, (0, 0, -5), gives (180, 0, -5), the one case of a negative
/// length; an offset straight down or up has azimuth 0. A NaN in x or y beside an exact 0 in the
/// other gives length and azimuth 0; any other NaN spreads to what is computed from it.
/// @param x  in: east offset; out: inclination, degrees
/// @param y  in: north offset; out: azimuth, degrees
/// @param z  in: offset down; out: measured length
ZRBASE_EXPORT void convertToMD(double& x, double& y, double& z);

/// Tangential method: the whole interval runs as the lower station points, the upper one has no
/// part in it. That is the straight segment of convertToXyz, with its exact cases and its azimuths
/// of 0 to 360. Arguments as for the choice by number.
ZRBASE_EXPORT void convertToXyzTangentialMethod(double upperDepth, double upperInclination,
                                                double upperAzimuth, double& a, double& b,
                                                double& c);

/// Average angle method: the interval runs straight at the mean inclination and the mean azimuth.
///
/// The mean of the azimuths is that of two numbers: 350 and 10 make 180, so that an interval across
/// north goes off to the south. Arguments as for the choice by number.
ZRBASE_EXPORT void convertToXyzAverageAngle(double upperDepth, double upperInclination,
                                            double upperAzimuth, double& a, double& b, double& c);

/// Balanced tangential method: the upper half runs as the upper station points, the lower half as
/// the lower one. Arguments as for the choice by number.
ZRBASE_EXPORT void convertToXyzBalanceTangential(double upperDepth, double upperInclination,
                                                 double upperAzimuth, double& a, double& b,
                                                 double& c);

/// Minimum curvature method (Taylor and Mason, 1972; ratio factor after Zaremba, 1973): the
/// interval is an arc of a circle, in whichever plane holds the directions at both stations.
///
/// The balanced tangential offset times the ratio factor 2 tan(d / 2) / d, where the dogleg d is
/// the angle between the two directions. The average angle method stands in where the cosine of d
/// is 1 or rounds to it, and where it lies strictly between -0.01 and 0.01: within about 0.57
/// degrees of a right angle. Both are wrong across north, where that method is: azimuths 0 and 360
/// are one direction, but their mean is south. Opposite directions lie in many planes: the offset
/// is then finite, but what rounding makes of it. Arguments as for the choice by number.
ZRBASE_EXPORT void convertToXyzMinimumCurvature(double upperDepth, double upperInclination,
                                                double upperAzimuth, double& a, double& b,
                                                double& c);

/// Radius of curvature method (Wilson, 1968): the interval lies on a vertical cylinder, circular as
/// seen from above and, rolled flat, in the vertical section too.
///
/// The azimuth sweeps from one number to the other, never over north: from 350 to 10 by 340 degrees
/// anticlockwise. Where the two inclinations or the two azimuths are exactly equal the balanced
/// tangential method stands in. Arguments as for the choice by number.
ZRBASE_EXPORT void convertToXyzRadiusOfCurvature(double upperDepth, double upperInclination,
                                                 double upperAzimuth, double& a, double& b,
                                                 double& c);

}  // namespace zrUtils

#endif  // ZRBASE_UTILITIES_WELLPATH_H
