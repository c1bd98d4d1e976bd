#include <zrBase/geometry/gdfSpherical.h>

#include <istream>
#include <ostream>

std::istream& operator>>(std::istream& stream, gdfSpherical& spherical) {
  return stream >> spherical.azimuth_ >> spherical.tilt_ >> spherical.length_;
}

std::ostream& operator<<(std::ostream& stream, const gdfSpherical& spherical) {
  return stream << spherical.azimuth() << ' ' << spherical.tilt() << ' ' << spherical.length();
}
