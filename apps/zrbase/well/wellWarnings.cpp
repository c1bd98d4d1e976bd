#include "well/wellWarnings.h"

#include <algorithm>
#include <cmath>

#include "common/textFormat.h"

namespace {

constexpr double kDegree = 3.14159265358979323846 / 180.0;
constexpr double kNearlyBack = 179.0;  // a dogleg from which the arc has next to no plane

std::string number(double value) {
  std::string text = textFormat::fixed(value, 6);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') {
    text.pop_back();
  }
  return text;
}

std::string azimuths(const SurveyStation& upper, const SurveyStation& lower) {
  return "azimuth " + number(upper.azimuth) + " to " + number(lower.azimuth);
}

// The same expression as the method's own, whose choice it tells.
double cosineOfDogleg(const SurveyStation& upper, const SurveyStation& lower) {
  const double degree = 0.017453292519943295;
  const double i1 = upper.inclination * degree;
  const double i2 = lower.inclination * degree;
  return std::cos(i2 - i1) - (1.0 - std::cos(lower.azimuth * degree - upper.azimuth * degree)) *
                                 std::sin(i1) * std::sin(i2);
}

// Whether the plain mean of two azimuths lies on the far side of the circle.
bool meanIsOpposite(const SurveyStation& upper, const SurveyStation& lower) {
  return std::abs(std::remainder(lower.azimuth - upper.azimuth, 720.0)) > 180.0;
}

std::string plainMean(const SurveyStation& upper, const SurveyStation& lower) {
  return "their plain mean " + number((upper.azimuth + lower.azimuth) / 2.0);
}

// A vertical station points nowhere in the map, but its azimuth is averaged all the same.
bool verticalBesideAnotherAzimuth(const SurveyStation& upper, const SurveyStation& lower) {
  const bool vertical = upper.inclination == 0.0 || lower.inclination == 0.0;
  return vertical && std::remainder(lower.azimuth - upper.azimuth, 360.0) != 0.0;
}

std::string averageWarning(const SurveyStation& upper, const SurveyStation& lower) {
  if (meanIsOpposite(upper, lower)) {
    return azimuths(upper, lower) + " crosses north: the average angle method goes by " +
           plainMean(upper, lower);
  }
  if (verticalBesideAnotherAzimuth(upper, lower)) {
    return azimuths(upper, lower) +
           " with one station vertical: the average angle method goes by " +
           plainMean(upper, lower);
  }
  return "";
}

std::string curvatureWarning(const SurveyStation& upper, const SurveyStation& lower) {
  const double cosine = cosineOfDogleg(upper, lower);
  const bool nearRightAngle = -0.01 < cosine && cosine < 0.01;
  const std::string dogleg = "dogleg of " + number(doglegDegrees(upper, lower)) + " degrees";
  if (nearRightAngle) {
    return dogleg +
           ", near a right angle: minimum curvature gives way to the average angle method" +
           (meanIsOpposite(upper, lower)
                ? ", which goes by " + plainMean(upper, lower) + " of " + azimuths(upper, lower)
                : "");
  }
  if (cosine >= 1.0 && meanIsOpposite(upper, lower)) {
    return azimuths(upper, lower) +
           " without a dogleg: minimum curvature gives way to the average angle method, which goes "
           "by " +
           plainMean(upper, lower);
  }
  if (doglegDegrees(upper, lower) > kNearlyBack) {
    return dogleg + ", nearly back: the arc of minimum curvature is not determined";
  }
  return "";
}

std::string radiusWarning(const SurveyStation& upper, const SurveyStation& lower) {
  if (upper.inclination == lower.inclination || upper.azimuth == lower.azimuth) {
    return "";  // balanced tangential, which works on sines and cosines
  }
  if (std::abs(lower.azimuth - upper.azimuth) > 180.0) {
    return azimuths(upper, lower) +
           " crosses north: the radius of curvature method turns the long way round, by " +
           number(std::abs(lower.azimuth - upper.azimuth)) + " degrees";
  }
  if (verticalBesideAnotherAzimuth(upper, lower)) {
    return azimuths(upper, lower) +
           " with one station vertical: the radius of curvature method turns by " +
           number(std::abs(lower.azimuth - upper.azimuth)) + " degrees all the same";
  }
  return "";
}

}  // namespace

double doglegDegrees(const SurveyStation& upper, const SurveyStation& lower) {
  const double i1 = upper.inclination * kDegree;
  const double i2 = lower.inclination * kDegree;
  const double build = std::sin((i2 - i1) / 2.0);
  const double turn = std::sin((lower.azimuth - upper.azimuth) * kDegree / 2.0);
  const double square = build * build + std::sin(i1) * std::sin(i2) * turn * turn;
  return 2.0 * std::asin(std::sqrt(std::clamp(square, 0.0, 1.0))) / kDegree;
}

std::string methodWarning(WellMethod method, const SurveyStation& upper,
                          const SurveyStation& lower) {
  if (upper.inclination == 0.0 && lower.inclination == 0.0) {
    return "";  // vertical by every method
  }
  switch (method) {
    case WellMethod::tangential:
      return lower.inclination != 0.0 && (lower.azimuth < 0.0 || lower.azimuth > 360.0)
                 ? "azimuth " + number(lower.azimuth) +
                       " is outside 0 to 360: the tangential method moves down only"
                 : "";
    case WellMethod::average:
      return averageWarning(upper, lower);
    case WellMethod::minimumCurvature:
      return curvatureWarning(upper, lower);
    case WellMethod::radius:
      return radiusWarning(upper, lower);
    case WellMethod::balanced:
      break;
  }
  return "";
}
