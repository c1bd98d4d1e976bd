#include <zrBase/geometry/gdfVertex.h>

#include <iomanip>
#include <istream>
#include <ostream>
#include <stdexcept>

const double GDF_2PI = 6.283185307179586;
const double GDF_RADIANStoDEGREES = 57.29577951308232;
const double GDF_DEGREEStoRADIANS = 0.017453292519943295;
const double GDF_EXACTNESS_LIMIT = gdfInternal::exactnessLimit;

const gdfVertex X_AXIS(1.0, 0.0, 0.0);
const gdfVertex Y_AXIS(0.0, 1.0, 0.0);
const gdfVertex Z_AXIS(0.0, 0.0, 1.0);
const gdfVertex ORIGIN(0.0, 0.0, 0.0);

namespace {

constexpr double pi = 3.141592653589793;

/// One addition or subtraction of a full turn; enough for the angles that come here.
double wrapDegrees(double degrees) {
  // Kept on purpose (KeptWrapMayRoundUpToFullTurn): a hair below 0 becomes 360.0 by the addition,
  // and stays.
  if (degrees < 0.0) return degrees + 360.0;
  if (degrees >= 360.0) return degrees - 360.0;
  return degrees;
}

}  // namespace

double& gdfVertex::throwOutOfRange() {
  throw std::out_of_range("out of range index in gdfVertex::operator[]");
}

double gdfVertex::rotation() const {
  // Kept on purpose (KeptRotationOfZeroVectorIsNorth): x = 0 is tested before y, so that the zero
  // vector has the rotation +pi/2 and not the 0 of atan2(0, 0).
  if (x_ == 0.0) return y_ < 0.0 ? -pi / 2.0 : pi / 2.0;
  if (y_ == 0.0) return x_ < 0.0 ? pi : 0.0;
  return std::atan2(y_, x_);
}

double gdfVertex::rotationDegrees() const {
  if (x_ == 0.0) return y_ < 0.0 ? -90.0 : 90.0;
  if (y_ == 0.0) return x_ < 0.0 ? 180.0 : 0.0;
  return std::atan2(y_, x_) * GDF_RADIANStoDEGREES;
}

void gdfVertex::rotateAroundZAxis(double angle) {
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  const double x = x_;
  x_ = x * cosine + y_ * sine;
  y_ = y_ * cosine - x * sine;
}

double gdfVertex::tilt() const {
  const double squaredMapLength = x_ * x_ + y_ * y_;
  if (squaredMapLength == 0.0 && z_ == 0.0) return 0.0;
  return std::atan2(std::sqrt(squaredMapLength), z_);
}

double gdfVertex::planeAzimuth() const {
  if (x_ == 0.0 && y_ == 0.0) return z_ < 0.0 ? 180.0 : 0.0;
  return wrapDegrees((z_ >= 0.0 ? 90.0 : 270.0) - rotationDegrees());
}

double gdfVertex::planeStrike() const {
  if (x_ == 0.0 && y_ == 0.0) return z_ < 0.0 ? 180.0 : 0.0;
  return wrapDegrees(z_ >= 0.0 ? -rotationDegrees() : 180.0 - rotationDegrees());
}

double gdfVertex::planeDip() const {
  const double tiltDegrees = tilt() * GDF_RADIANStoDEGREES;
  if (z_ > 0.0) return std::fabs(tiltDegrees);
  // Kept on purpose (KeptPlaneDipOfZeroVectorIs180): a normal that points down is turned up by 180
  // - tilt, and the zero vector, whose tilt counts as 0, goes the same way.
  return std::fabs(180.0 - tiltDegrees);
}

void gdfVertex::setPlaneNormalWithAzimDip(double azimuth, double dip) {
  const double a = azimuth * GDF_DEGREEStoRADIANS;
  const double d = dip * GDF_DEGREEStoRADIANS;
  *this = gdfVertex(std::sin(a) * std::sin(d), std::cos(a) * std::sin(d), std::cos(d));
}

void gdfVertex::setPlaneNormalWithStrikeDip(double strike, double dip) {
  const double s = strike * GDF_DEGREEStoRADIANS;
  const double d = dip * GDF_DEGREEStoRADIANS;
  *this = gdfVertex(std::cos(s) * std::sin(d), -std::sin(s) * std::sin(d), std::cos(d));
}

void gdfVertex::setVectorAzimuthPlunge(double azimuth, double plunge) {
  setPlaneNormalWithAzimDip(azimuth, plunge + 90.0);
}

double gdfVertex::vectorAzimuth() const {
  if (x_ == 0.0) return y_ < 0.0 ? 180.0 : 0.0;
  if (y_ == 0.0) return x_ < 0.0 ? 270.0 : 90.0;
  return wrapDegrees(90.0 - GDF_RADIANStoDEGREES * std::atan2(y_, x_));
}

double gdfVertex::vectorDip() const {
  if (z_ == 0.0) return 0.0;
  if (x_ == 0.0 && y_ == 0.0) return z_ > 0.0 ? -90.0 : 90.0;
  return std::atan2(std::sqrt(x_ * x_ + y_ * y_), z_) * GDF_RADIANStoDEGREES - 90.0;
}

bool gdfVertex::calculateOrthogonalAxis(gdfVertex& e1, gdfVertex& e2, gdfVertex& e3) const {
  const double vectorLength = length();
  if (gdfEqualZero(vectorLength, gdfInternal::exactnessLimit)) {
    e1 = X_AXIS;
    e2 = Y_AXIS;
    e3 = Z_AXIS;
    return false;
  }
  // Kept on purpose (KeptThirdAxisIsNotSnapped): plain division, where the other two axes pass
  // through normalise; so the frame may be off square by a rounding.
  const gdfVertex third = *this / vectorLength;
  gdfVertex first;
  gdfVertex second;
  if (third == X_AXIS) {
    first = Y_AXIS;
    second = Z_AXIS;
  } else if (third == Y_AXIS) {
    // Kept on purpose (KeptFrameOfYAxisIsLeftHanded): X ^ Z is -Y, so this one frame is left-handed
    // where the other two shortcuts and the general case are right-handed.
    first = X_AXIS;
    second = Z_AXIS;
  } else if (third == Z_AXIS) {
    first = X_AXIS;
    second = Y_AXIS;
  } else {
    const gdfVertex acrossX = third ^ X_AXIS;
    const gdfVertex acrossY = third ^ Y_AXIS;
    first = third ^ (acrossX.length2() < acrossY.length2() ? acrossY : acrossX);
    first.normalise();
    second = third ^ first;
    second.normalise();
  }
  e1 = first;
  e2 = second;
  e3 = third;
  return true;
}

std::istream& operator>>(std::istream& stream, gdfVertex& vertex) {
  return stream >> vertex.x() >> vertex.y() >> vertex.z();
}

std::ostream& operator<<(std::ostream& stream, const gdfVertex& vertex) {
  // Kept on purpose (KeptStreamStaysFixed): the fixed flag and the precision stay set on the
  // stream. Reports written after a vertex are laid out with them.
  stream << std::fixed << std::setprecision(10) << std::setw(12) << vertex.x() << ' ';
  stream << std::setprecision(10) << std::setw(12) << vertex.y() << ' ';
  stream << std::setprecision(10) << std::setw(12) << vertex.z();
  return stream;
}
