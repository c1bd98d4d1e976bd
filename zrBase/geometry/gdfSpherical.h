#ifndef ZRBASE_GEOMETRY_GDFSPHERICAL_H
#define ZRBASE_GEOMETRY_GDFSPHERICAL_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

#include <cmath>
#include <iosfwd>
#include <type_traits>

/// A direction and a length: azimuth, tilt, length. A plain record of three doubles.
///
/// Angles are radians here, not degrees. The azimuth runs from +y (north) towards +x (east),
/// clockwise seen from above; the tilt runs from +z downward, so that pi/2 is horizontal. No field
/// is wrapped or tested.
///
///     z, tilt 0                     y, azimuth 0
///     |  /                          |  /
///     | / length                    | /
///     |/                            |/
///     +------ tilt pi/2             +------ x, azimuth pi/2
///
class ZRBASE_EXPORT gdfSpherical {
 public:
  /// All three fields 0.
  constexpr gdfSpherical() = default;

  /// The length comes first here, though it is the last of the fields and of the stream forms.
  constexpr gdfSpherical(double length, double azimuth, double tilt)
      // Kept on purpose (KeptSphericalTakesLengthFirst): the fields are azimuth, tilt, length, the
      // arguments length, azimuth, tilt. gdfSpherical(2, 0, 0) has length 2. setSpherical has the
      // same order; callers are written to it.
      : azimuth_(azimuth), tilt_(tilt), length_(length) {}

  /// The azimuth in radians.
  constexpr double azimuth() const { return azimuth_; }
  /// As azimuth().
  constexpr double getAzimuth() const { return azimuth_; }
  /// The tilt in radians.
  constexpr double tilt() const { return tilt_; }
  /// As tilt().
  constexpr double getTilt() const { return tilt_; }
  /// The length in model units.
  constexpr double length() const { return length_; }
  /// As length().
  constexpr double getLength() const { return length_; }

  /// Sets the azimuth, in radians.
  void setAzimuth(double azimuth) { azimuth_ = azimuth; }
  /// Sets the tilt, in radians.
  void setTilt(double tilt) { tilt_ = tilt; }
  /// Sets the length.
  void setLength(double length) { length_ = length; }
  /// Sets all three, the length first as in the constructor.
  void setSpherical(double length, double azimuth, double tilt) {
    *this = gdfSpherical(length, azimuth, tilt);
  }

  /// East component, length * sin(tilt) * sin(azimuth).
  double x() const { return length_ * std::sin(tilt_) * std::sin(azimuth_); }
  /// North component, length * sin(tilt) * cos(azimuth).
  double y() const { return length_ * std::sin(tilt_) * std::cos(azimuth_); }
  /// Upward component, length * cos(tilt).
  double z() const { return length_ * std::cos(tilt_); }
  /// The vertex (x(), y(), z()).
  operator gdfVertex() const { return gdfVertex(x(), y(), z()); }

  /// Field by field, all three added. This is not the sum of the two vectors.
  constexpr gdfSpherical operator+(gdfSpherical other) const {
    return gdfSpherical(length_ + other.length_, azimuth_ + other.azimuth_, tilt_ + other.tilt_);
  }
  /// Adds all three fields in place.
  gdfSpherical& operator+=(gdfSpherical other) { return *this = *this + other; }

  /// Azimuth and tilt subtracted; the length of the result is that of the left operand, but for the
  /// rounding of a subtraction and an addition of the right one. operator-= differs: it subtracts
  /// the length too.
  constexpr gdfSpherical operator-(gdfSpherical other) const {
    // Kept on purpose (KeptSphericalDifferenceKeepsLength): the other length is taken away and
    // added again, so a difference turns the left operand and does not shorten it. Callers count on
    // the length coming through.
    return gdfSpherical((length_ - other.length_) + other.length_, azimuth_ - other.azimuth_,
                        tilt_ - other.tilt_);
  }
  /// Subtracts all three fields in place, the length included; operator- keeps the length.
  gdfSpherical& operator-=(gdfSpherical other) {
    azimuth_ -= other.azimuth_;
    tilt_ -= other.tilt_;
    length_ -= other.length_;
    return *this;
  }

  /// Sets all three fields to 0.
  void free() { *this = gdfSpherical(); }

  /// Reads azimuth, tilt, length, separated by white space: the order of the fields, not that of
  /// the constructor.
  friend ZRBASE_EXPORT std::istream& operator>>(std::istream& stream, gdfSpherical& spherical);

 private:
  double azimuth_ = 0.0;
  double tilt_ = 0.0;
  double length_ = 0.0;
};

static_assert(std::is_trivially_copyable_v<gdfSpherical>);
static_assert(sizeof(gdfSpherical) == 3 * sizeof(double));

ZRBASE_EXPORT std::istream& operator>>(std::istream& stream, gdfSpherical& spherical);
/// Writes azimuth, tilt and length with a blank between them, in the stream's current format; no
/// line end.
ZRBASE_EXPORT std::ostream& operator<<(std::ostream& stream, const gdfSpherical& spherical);

#endif  // ZRBASE_GEOMETRY_GDFSPHERICAL_H
