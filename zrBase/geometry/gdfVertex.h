#ifndef ZRBASE_GEOMETRY_GDFVERTEX_H
#define ZRBASE_GEOMETRY_GDFVERTEX_H

#include <zrBase/export.h>

#include <cmath>
#include <cstddef>
#include <iosfwd>
#include <type_traits>
#include <vector>

class gdfTransMatrix;
class gdfTriMatrix;

/// 2 pi.
extern ZRBASE_EXPORT const double GDF_2PI;
/// Degrees in one radian: radians times this are degrees.
extern ZRBASE_EXPORT const double GDF_RADIANStoDEGREES;
/// Radians in one degree: degrees times this are radians.
extern ZRBASE_EXPORT const double GDF_DEGREEStoRADIANS;
/// The library's default closeness, 1e-05 model units.
extern ZRBASE_EXPORT const double GDF_EXACTNESS_LIMIT;

/// Values that inline code needs as compile-time constants.
namespace gdfInternal {
constexpr double exactnessLimit = 1e-05;
/// Largest finite single-precision value: the mark of a distance, height or coordinate that is not
/// set.
constexpr double unset = 3.4028234663852886e+38;
}  // namespace gdfInternal

/// Whether a number lies within a tolerance of zero: `-tolerance <= value <= tolerance`, both ends
/// included.
///
/// A tolerance of 0 accepts the value 0; a NaN is never accepted. The forms on a vertex are open
/// where this one is closed: see gdfVertex::equalZero.
constexpr bool gdfEqualZero(double value, double tolerance) {
  // Kept on purpose (KeptScalarZeroTestIsClosed): closed here, open in the vertex forms below, so
  // that gdfEqualZero(1e-05, 1e-05) holds while gdfVertex(1e-05, 0, 0).equalZero(1e-05) does not.
  return -tolerance <= value && value <= tolerance;
}

/// Three doubles: a point, a direction or a plane normal. x is east, y is north, z is up.
///
/// Azimuths run clockwise from north, in degrees. The record is trivially copyable, 24 bytes, and
/// has no hidden members. In map-plane work z is free and often carries an attribute. Nothing but
/// operator[] tests its arguments: a division by zero gives infinities or NaNs, which valid()
/// detects.
///
///          y, north (azimuth 0)
///          |
///          |
///          +------ x, east (azimuth 90)
///
class ZRBASE_EXPORT gdfVertex {
 public:
  /// (0, 0, 0).
  constexpr gdfVertex() = default;

  /// (x, y, 0). Any arithmetic types, each converted to double.
  template <class X, class Y,
            std::enable_if_t<std::is_arithmetic_v<X> && std::is_arithmetic_v<Y>, int> = 0>
  constexpr gdfVertex(X x, Y y) : x_(static_cast<double>(x)), y_(static_cast<double>(y)) {}

  /// (x, y, z). Any mix of arithmetic types, each converted to double.
  template <
      class X, class Y, class Z,
      std::enable_if_t<
          std::is_arithmetic_v<X> && std::is_arithmetic_v<Y> && std::is_arithmetic_v<Z>, int> = 0>
  constexpr gdfVertex(X x, Y y, Z z)
      : x_(static_cast<double>(x)), y_(static_cast<double>(y)), z_(static_cast<double>(z)) {}

  /// A copy.
  constexpr gdfVertex(const gdfVertex&) = default;
  /// A copy of the record pointed to, which must not be null.
  constexpr gdfVertex(const gdfVertex* other) : gdfVertex(*other) {}

  /// Copies all three coordinates.
  gdfVertex& operator=(const gdfVertex&) = default;
  /// Copies the record pointed to, which must not be null.
  gdfVertex& operator=(gdfVertex* other) { return *this = *other; }
  /// Copies the record pointed to, which must not be null.
  gdfVertex& operator=(const gdfVertex* other) { return *this = *other; }

  /// Sets all three coordinates. Any mix of arithmetic types.
  template <
      class X, class Y, class Z,
      std::enable_if_t<
          std::is_arithmetic_v<X> && std::is_arithmetic_v<Y> && std::is_arithmetic_v<Z>, int> = 0>
  void setVertex(X x, Y y, Z z) {
    *this = gdfVertex(x, y, z);
  }
  /// Sets x and y, and resets z to 0.
  template <class X, class Y,
            std::enable_if_t<std::is_arithmetic_v<X> && std::is_arithmetic_v<Y>, int> = 0>
  void setVertex(X x, Y y) {
    *this = gdfVertex(x, y);
  }
  /// Copies another vertex.
  void setVertex(const gdfVertex& other) { *this = other; }

  /// Adds the argument to this record. The name says copy, the operation adds: it is offset().
  void copy(const gdfVertex& other) {
    // Kept on purpose (KeptCopyAddsItsArgument): (1, 1, 1).copy((1, 2, 3)) is (2, 3, 4). A caller
    // that wants an assignment has operator= and setVertex; callers of this name rely on the sum.
    offset(other);
  }
  /// Adds the record pointed to, which must not be null; see copy(const gdfVertex&).
  void copy(const gdfVertex* other) { offset(*other); }
  /// Adds the argument to this record, component by component.
  void offset(const gdfVertex& other) { *this += other; }
  /// Adds the record pointed to, which must not be null.
  void offset(const gdfVertex* other) { *this += *other; }

  /// East coordinate, or first component of a direction.
  constexpr double x() const { return x_; }
  /// North coordinate.
  constexpr double y() const { return y_; }
  /// Height, or the attribute that a map-plane vertex carries.
  constexpr double z() const { return z_; }
  /// The field x, to write to.
  double& x() { return x_; }
  /// The field y, to write to.
  double& y() { return y_; }
  /// The field z, to write to.
  double& z() { return z_; }
  /// As x().
  constexpr double getX() const { return x_; }
  /// As y().
  constexpr double getY() const { return y_; }
  /// As z().
  constexpr double getZ() const { return z_; }
  /// As x(), to write to.
  double& getX() { return x_; }
  /// As y(), to write to.
  double& getY() { return y_; }
  /// As z(), to write to.
  double& getZ() { return z_; }

  /// Coordinate by number: 0, 1, 2 are x, y, z.
  /// @throws std::out_of_range "out of range index in gdfVertex::operator[]" for any other index
  double operator[](std::size_t i) const {
    return i == 0 ? x_ : i == 1 ? y_ : i == 2 ? z_ : throwOutOfRange();
  }
  /// Coordinate by number, to write to; throws as the constant form.
  double& operator[](std::size_t i) {
    return i == 0 ? x_ : i == 1 ? y_ : i == 2 ? z_ : throwOutOfRange();
  }

  /// Sum, component by component.
  constexpr gdfVertex operator+(const gdfVertex& o) const {
    return {x_ + o.x_, y_ + o.y_, z_ + o.z_};
  }
  /// Difference, component by component.
  constexpr gdfVertex operator-(const gdfVertex& o) const {
    return {x_ - o.x_, y_ - o.y_, z_ - o.z_};
  }
  /// Adds in place.
  gdfVertex& operator+=(const gdfVertex& o) { return *this = *this + o; }
  /// Subtracts in place.
  gdfVertex& operator-=(const gdfVertex& o) { return *this = *this - o; }
  /// All three signs flipped.
  constexpr gdfVertex operator-() const { return {-x_, -y_, -z_}; }
  /// Each component times the factor.
  constexpr gdfVertex operator*(double factor) const {
    return {x_ * factor, y_ * factor, z_ * factor};
  }
  /// Each component divided by the divisor, which is not tested.
  constexpr gdfVertex operator/(double divisor) const {
    return {x_ / divisor, y_ / divisor, z_ / divisor};
  }
  /// Scales in place.
  gdfVertex& operator*=(double factor) { return *this = *this * factor; }
  /// Divides in place; the divisor is not tested.
  gdfVertex& operator/=(double divisor) { return *this = *this / divisor; }

  /// Scalar product.
  constexpr double operator*(const gdfVertex& o) const { return x_ * o.x_ + y_ * o.y_ + z_ * o.z_; }
  /// Scalar product.
  constexpr double dotProduct(const gdfVertex& o) const { return *this * o; }
  /// Cross product, this ^ other. a ^ b is -(b ^ a).
  constexpr gdfVertex operator^(const gdfVertex& o) const {
    return {y_ * o.z_ - z_ * o.y_, z_ * o.x_ - x_ * o.z_, x_ * o.y_ - y_ * o.x_};
  }
  /// Cross product in place.
  gdfVertex& operator^=(const gdfVertex& o) { return *this = *this ^ o; }

  // Defined with the matrices: include gdfTransMatrix.h or gdfTriMatrix.h to use these.

  /// Point by a 4x4 matrix, row vector form, with the perspective divide: gdfTransMatrix::preMultd.
  inline gdfVertex operator*(const gdfTransMatrix& matrix) const;
  /// The same in place: gdfTransMatrix::qPreMultD.
  inline gdfVertex& operator*=(const gdfTransMatrix& matrix);
  /// Point by a 4x4 matrix, row vector form, affine: no divide.
  inline gdfVertex operator%(const gdfTransMatrix& matrix) const;
  /// The same in place.
  inline gdfVertex& operator%=(const gdfTransMatrix& matrix);
  /// Vector by a 3x3 matrix, row vector form: gdfTriMatrix::preMult.
  inline gdfVertex operator*(const gdfTriMatrix& matrix) const;
  /// The same in place.
  inline gdfVertex& operator*=(const gdfTriMatrix& matrix);

  /// Euclidean length.
  double length() const { return std::sqrt(length2()); }
  /// Square of length().
  constexpr double length2() const { return x_ * x_ + y_ * y_ + z_ * z_; }
  /// Length of (x, y).
  double mapLength() const { return std::sqrt(x_ * x_ + y_ * y_); }
  /// Distance in space.
  double distance(const gdfVertex& o) const { return (*this - o).length(); }
  /// Square of distance().
  constexpr double distance2(const gdfVertex& o) const { return (*this - o).length2(); }
  /// Distance in the x-y plane.
  double mapDistance(const gdfVertex& o) const { return std::sqrt(mapDistance2(o)); }
  /// Square of mapDistance().
  constexpr double mapDistance2(const gdfVertex& o) const {
    const double dx = x_ - o.x_;
    const double dy = y_ - o.y_;
    return dx * dx + dy * dy;
  }
  /// As mapDistance().
  double distanceXY(const gdfVertex& o) const { return mapDistance(o); }
  /// As mapDistance2().
  constexpr double distanceXY2(const gdfVertex& o) const { return mapDistance2(o); }

  /// All three components compare equal. False with any NaN.
  constexpr bool operator==(const gdfVertex& o) const {
    return x_ == o.x_ && y_ == o.y_ && z_ == o.z_;
  }
  /// The exact negation of ==. True with any NaN.
  constexpr bool operator!=(const gdfVertex& o) const { return !(*this == o); }
  /// Lexicographic order on x, then y, then z. A coordinate neither less nor greater (equal, or a
  /// NaN on either side) leaves the decision to the next; after z the answer is false.
  constexpr bool operator<(const gdfVertex& o) const { return order(o) < 0; }
  /// As operator<, but true when no coordinate decides: also for NaNs.
  constexpr bool operator<=(const gdfVertex& o) const { return order(o) <= 0; }
  /// As operator<, the other way round.
  constexpr bool operator>(const gdfVertex& o) const { return order(o) > 0; }
  /// As operator>, but true when no coordinate decides: also for NaNs.
  constexpr bool operator>=(const gdfVertex& o) const {
    // Kept on purpose (KeptOrderingLetsNaNFallThrough): an undecided coordinate passes on to the
    // next, so that two vertices with a NaN each can be <= and >= and yet != at once. Sorted
    // containers keyed by vertex rely on it.
    return order(o) >= 0;
  }

  /// Whether each difference lies strictly between -tolerance and tolerance, in x, y and z.
  /// A tolerance of 0 never passes; nor does a NaN. distance() is not used: this is a box, not a
  /// ball.
  constexpr bool equal(const gdfVertex& o, double tolerance) const {
    return strictlyWithin(o.x_ - x_, tolerance) && strictlyWithin(o.y_ - y_, tolerance) &&
           strictlyWithin(o.z_ - z_, tolerance);
  }
  /// As equal(), on x and y only.
  constexpr bool equalXY(const gdfVertex& o, double tolerance) const {
    return strictlyWithin(o.x_ - x_, tolerance) && strictlyWithin(o.y_ - y_, tolerance);
  }
  /// Whether each component lies strictly between -tolerance and tolerance.
  constexpr bool equalZero(double tolerance) const {
    return strictlyWithin(x_, tolerance) && strictlyWithin(y_, tolerance) &&
           strictlyWithin(z_, tolerance);
  }

  /// Whether all three components are finite.
  bool valid() const { return std::isfinite(x_) && std::isfinite(y_) && std::isfinite(z_); }

  /// Scales to unit length and snaps onto an axis where rounding reached it (cleanNormal).
  /// A length within GDF_EXACTNESS_LIMIT of 0, that value included, gives (0, 0, 0).
  void normalise() {
    const double vectorLength = length();
    if (gdfEqualZero(vectorLength, gdfInternal::exactnessLimit)) {
      *this = gdfVertex();
      return;
    }
    *this /= vectorLength;
    cleanNormal();
  }
  /// Snaps a rounded unit vector onto an axis: the first of x, y, z at or above 1, else the first
  /// at or below -1, makes this that axis. Otherwise nothing changes.
  void cleanNormal();

  /// Mathematical angle of (x, y) from the x axis, counter-clockwise, in radians, in (-pi, pi].
  /// On the axes the values are exact; the zero vector, and any with x = 0 and y not below 0, gives
  /// +pi/2.
  double rotation() const;
  /// As rotation(), in degrees.
  double rotationDegrees() const;
  /// Turns (x, y) clockwise as seen from above, the sense in which azimuths grow. z stays.
  /// @param angle in radians
  void rotateAroundZAxis(double angle);
  /// Angle from the +z axis, in radians, in [0, pi]; 0 for the zero vector.
  double tilt() const;

  /// Dip azimuth of the plane whose normal this is, in degrees, in [0, 360): a direction a hair
  /// west of north may round up to 360. A vertical normal gives 0 when it points up and 180 when it
  /// points down.
  double planeAzimuth() const;
  /// Strike of the plane whose normal this is, in degrees, in [0, 360), 360 itself only by
  /// rounding: dip azimuth less 90 (dip right of strike). A vertical normal gives 0 when it points
  /// up and 180 when it points down.
  double planeStrike() const;
  /// Dip of the plane whose normal this is, in degrees, in [0, 90]: the same for a normal and its
  /// opposite. The zero vector gives 180.
  double planeDip() const;
  /// Makes this the unit normal of a plane, pointing up for dips below 90.
  /// @param azimuth dip azimuth, degrees clockwise from north
  /// @param dip degrees below the horizontal
  void setPlaneNormalWithAzimDip(double azimuth, double dip);
  /// As setPlaneNormalWithAzimDip, from the strike (dip to the right of strike), both in degrees.
  void setPlaneNormalWithStrikeDip(double strike, double dip);
  /// Makes this a unit vector of an azimuth and a plunge in degrees; a positive plunge points down.
  void setVectorAzimuthPlunge(double azimuth, double plunge);
  /// Azimuth of this vector, degrees clockwise from north, in [0, 360), 360 itself only by
  /// rounding; 0 for a vertical one.
  double vectorAzimuth() const;
  /// Plunge of this vector in degrees, positive downward, in [-90, 90]; 0 whenever z is 0.
  double vectorDip() const;

  /// Orthonormal frame whose third axis is this vector. An output may be this vector itself.
  ///
  /// Right-handed, but for a vector along Y_AXIS, whose frame (X_AXIS, Z_AXIS, Y_AXIS) is
  /// left-handed.
  /// @return false, with the three global axes, for a length within GDF_EXACTNESS_LIMIT of 0
  /// (closed); else true
  bool calculateOrthogonalAxis(gdfVertex& e1, gdfVertex& e2, gdfVertex& e3) const;

 private:
  static constexpr bool strictlyWithin(double value, double tolerance) {
    return -tolerance < value && value < tolerance;
  }
  /// -1, 0 or 1: the first coordinate that is strictly less or greater decides, 0 when none does.
  constexpr int order(const gdfVertex& o) const {
    if (x_ < o.x_) return -1;
    if (x_ > o.x_) return 1;
    if (y_ < o.y_) return -1;
    if (y_ > o.y_) return 1;
    if (z_ < o.z_) return -1;
    if (z_ > o.z_) return 1;
    return 0;
  }
  [[noreturn]] static double& throwOutOfRange();

  double x_ = 0.0;
  double y_ = 0.0;
  double z_ = 0.0;
};

static_assert(std::is_trivially_copyable_v<gdfVertex>);
static_assert(sizeof(gdfVertex) == 24);

/// As gdfVertex::equalZero: strictly within the tolerance in each component.
constexpr bool gdfEqualZero(const gdfVertex& vertex, double tolerance) {
  return vertex.equalZero(tolerance);
}

/// (1, 0, 0), east.
extern ZRBASE_EXPORT const gdfVertex X_AXIS;
/// (0, 1, 0), north.
extern ZRBASE_EXPORT const gdfVertex Y_AXIS;
/// (0, 0, 1), up.
extern ZRBASE_EXPORT const gdfVertex Z_AXIS;
/// (0, 0, 0).
extern ZRBASE_EXPORT const gdfVertex ORIGIN;

/// Reads x, y, z, separated by white space, with the stream's own extraction of a double.
ZRBASE_EXPORT std::istream& operator>>(std::istream& stream, gdfVertex& vertex);
/// Writes x, y and z in fixed notation, precision 10, each in a field of 12, one blank between, no
/// line end. The stream keeps the fixed flag and the precision.
ZRBASE_EXPORT std::ostream& operator<<(std::ostream& stream, const gdfVertex& vertex);

/// An ordered polyline: n vertices make n - 1 segments, segment i from vertex i to vertex i + 1. A
/// polygon is the same type: it is closed when its first and last vertices are equal.
using VertexLine = std::vector<gdfVertex>;
/// Several polylines.
using VertexLineList = std::vector<VertexLine>;

inline void gdfVertex::cleanNormal() {
  if (x_ >= 1.0) {
    *this = gdfVertex(1.0, 0.0, 0.0);
  } else if (y_ >= 1.0) {
    *this = gdfVertex(0.0, 1.0, 0.0);
  } else if (z_ >= 1.0) {
    *this = gdfVertex(0.0, 0.0, 1.0);
  } else if (x_ <= -1.0) {
    *this = gdfVertex(-1.0, 0.0, 0.0);
  } else if (y_ <= -1.0) {
    *this = gdfVertex(0.0, -1.0, 0.0);
  } else if (z_ <= -1.0) {
    *this = gdfVertex(0.0, 0.0, -1.0);
  }
}

#endif  // ZRBASE_GEOMETRY_GDFVERTEX_H
