#ifndef ZRBASE_APPS_WELL_LENGTHUNIT_H
#define ZRBASE_APPS_WELL_LENGTHUNIT_H

#include <string>

/// The unit of depths and offsets.
enum class LengthUnit { metre, foot, surveyFoot };

/// "m", "ft" or "usft".
inline std::string unitName(LengthUnit unit) {
  return unit == LengthUnit::metre ? "m" : unit == LengthUnit::foot ? "ft" : "usft";
}

/// Metres in one; the US survey foot is 1200/3937 m.
inline double metresIn(LengthUnit unit) {
  return unit == LengthUnit::metre ? 1.0 : unit == LengthUnit::foot ? 0.3048 : 1200.0 / 3937.0;
}

/// The length that dogleg severities are told over: 30 m or 100 ft.
inline double doglegLength(LengthUnit unit) { return unit == LengthUnit::metre ? 30.0 : 100.0; }

/// "deg/30 m" or "deg/100 ft".
inline std::string doglegUnitName(LengthUnit unit) {
  return unit == LengthUnit::metre ? "deg/30 m" : "deg/100 " + unitName(unit);
}

#endif  // ZRBASE_APPS_WELL_LENGTHUNIT_H
