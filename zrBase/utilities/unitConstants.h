#ifndef ZRBASE_UTILITIES_UNITCONSTANTS_H
#define ZRBASE_UTILITIES_UNITCONSTANTS_H

#include <zrBase/export.h>

/// @file
/// Unit codes and z directions of zrUnits, and the older table of conversion factors.

/// A length unit of an axis, as zrUnits holds it. No function tests a code: one that is not listed
/// here has the ratio 1.0 and no text.
/// @{
inline constexpr int GDF_UNIT_INCHES = 0;
inline constexpr int GDF_UNIT_METRES = 1;
inline constexpr int GDF_UNIT_FEET = 2;
inline constexpr int GDF_UNIT_MILES = 3;
inline constexpr int GDF_UNIT_KILOMETRES = 5;
inline constexpr int GDF_UNIT_DECIMETRES = 9;
/// @}

/// A time unit of the z axis. Time counts as length: a millisecond as a metre, a second as 1000.
/// @{
inline constexpr int GDF_UNIT_SECONDS = 6;
inline constexpr int GDF_UNIT_MILLISECONDS = 7;
/// @}

/// A code that nothing uses: ratio 1.0, no text.
inline constexpr int GDF_UNIT_RESERVED = 4;
/// A unit whose ratio the caller supplies (1.0 where it does not), without text.
inline constexpr int GDF_UNIT_CUSTOM = 8;

/// z grows upward.
inline constexpr int GDF_Z_ELEVATION = 64;
/// z grows downward.
inline constexpr int GDF_Z_DEPTH = 128;

/// Added to the unit code by the words that begin with "ELEVATION_": zrUnits::isTextUnit.
inline constexpr int GDF_ELEVATION_FLAG = 0x40;
/// Added to the unit code by the words that begin with "DEPTH_": zrUnits::isTextUnit.
inline constexpr int GDF_DEPTH_FLAG = 0x80;

/// Factor from the first unit to the second: a value in the first times the factor is the value in
/// the second.
///
/// An older table than the ratios of zrUnits, which does not read it; nor does zrUnits::unitSwap.
/// Its factors come from rounded figures of different sources, so they agree neither with one
/// another nor with the international units: a kilometre has 39364.788 inches and 3280.399 feet, a
/// metre 39.3700788 inches. There and back is near 1, not 1. Time counts as length: a millisecond
/// as a metre, a second as a kilometre.
/// @{
extern ZRBASE_EXPORT const double GDF_METRES_TO_DECIMETRES;
extern ZRBASE_EXPORT const double GDF_METRES_TO_KILOMETRES;
extern ZRBASE_EXPORT const double GDF_METRES_TO_MILES;
extern ZRBASE_EXPORT const double GDF_METRES_TO_FEET;
extern ZRBASE_EXPORT const double GDF_METRES_TO_INCHES;
extern ZRBASE_EXPORT const double GDF_METRES_TO_MILLISECONDS;
extern ZRBASE_EXPORT const double GDF_METRES_TO_SECONDS;
extern ZRBASE_EXPORT const double GDF_DECIMETRES_TO_KILOMETRES;
extern ZRBASE_EXPORT const double GDF_DECIMETRES_TO_MILES;
extern ZRBASE_EXPORT const double GDF_DECIMETRES_TO_FEET;
extern ZRBASE_EXPORT const double GDF_DECIMETRES_TO_INCHES;
extern ZRBASE_EXPORT const double GDF_DECIMETRES_TO_MILLISECONDS;
extern ZRBASE_EXPORT const double GDF_DECIMETRES_TO_SECONDS;
extern ZRBASE_EXPORT const double GDF_INCHES_TO_METRES;
extern ZRBASE_EXPORT const double GDF_FEET_TO_METRES;
extern ZRBASE_EXPORT const double GDF_MILES_TO_METRES;
extern ZRBASE_EXPORT const double GDF_KILOMETRES_TO_METRES;
extern ZRBASE_EXPORT const double GDF_DECIMETRES_TO_METRES;
extern ZRBASE_EXPORT const double GDF_SECONDS_TO_METRES;
extern ZRBASE_EXPORT const double GDF_MILLISECONDS_TO_METRES;
extern ZRBASE_EXPORT const double GDF_INCHES_TO_KILOMETRES;
extern ZRBASE_EXPORT const double GDF_INCHES_TO_MILES;
extern ZRBASE_EXPORT const double GDF_INCHES_TO_FEET;
extern ZRBASE_EXPORT const double GDF_INCHES_TO_DECIMETRES;
extern ZRBASE_EXPORT const double GDF_INCHES_TO_MILLISECONDS;
extern ZRBASE_EXPORT const double GDF_INCHES_TO_SECONDS;
extern ZRBASE_EXPORT const double GDF_FEET_TO_KILOMETRES;
extern ZRBASE_EXPORT const double GDF_FEET_TO_MILES;
extern ZRBASE_EXPORT const double GDF_FEET_TO_INCHES;
extern ZRBASE_EXPORT const double GDF_FEET_TO_DECIMETRES;
extern ZRBASE_EXPORT const double GDF_FEET_TO_MILLISECONDS;
extern ZRBASE_EXPORT const double GDF_FEET_TO_SECONDS;
extern ZRBASE_EXPORT const double GDF_MILES_TO_KILOMETRES;
extern ZRBASE_EXPORT const double GDF_MILES_TO_FEET;
extern ZRBASE_EXPORT const double GDF_MILES_TO_INCHES;
extern ZRBASE_EXPORT const double GDF_MILES_TO_DECIMETRES;
extern ZRBASE_EXPORT const double GDF_MILES_TO_MILLISECONDS;
extern ZRBASE_EXPORT const double GDF_MILES_TO_SECONDS;
extern ZRBASE_EXPORT const double GDF_KILOMETRES_TO_INCHS;
extern ZRBASE_EXPORT const double GDF_KILOMETRES_TO_FEET;
extern ZRBASE_EXPORT const double GDF_KILOMETRES_TO_MILES;
extern ZRBASE_EXPORT const double GDF_KILOMETRES_TO_DECIMETRES;
extern ZRBASE_EXPORT const double GDF_KILOMETRES_TO_MILLISECONDS;
extern ZRBASE_EXPORT const double GDF_KILOMETRES_TO_SECONDS;
/// @}

#endif  // ZRBASE_UTILITIES_UNITCONSTANTS_H
