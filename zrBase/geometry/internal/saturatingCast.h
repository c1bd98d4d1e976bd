#ifndef ZRBASE_GEOMETRY_INTERNAL_SATURATINGCAST_H
#define ZRBASE_GEOMETRY_INTERNAL_SATURATINGCAST_H

#include <limits>

namespace gdfInternal {

/// A double as an integer of at most 32 bits, truncated toward zero. Values beyond the type's
/// limits give the limit, a NaN gives 0: the plain cast would be undefined for them.
template <class Integer>
constexpr Integer saturatingCast(double value) {
  static_assert(std::numeric_limits<Integer>::digits <= 32,
                "both limits must be exact as a double");
  constexpr Integer lowest = std::numeric_limits<Integer>::lowest();
  constexpr Integer highest = std::numeric_limits<Integer>::max();
  if (value >= static_cast<double>(highest)) return highest;
  if (value <= static_cast<double>(lowest)) return lowest;
  // Only a NaN is still unequal to itself here.
  return value == value ? static_cast<Integer>(value) : Integer{0};
}

/// Whole part of a double, saturating at the limits of int; a NaN gives 0.
constexpr int toInt(double value) { return saturatingCast<int>(value); }

/// Whole part of a double, saturating at 0 and at the highest unsigned int; a NaN gives 0.
constexpr unsigned int toUnsigned(double value) { return saturatingCast<unsigned int>(value); }

}  // namespace gdfInternal

#endif  // ZRBASE_GEOMETRY_INTERNAL_SATURATINGCAST_H
