#include "plane/stereonet.h"

#include <cmath>

namespace stereonet {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kDegree = kPi / 180.0;
constexpr int kPieces = 90;  // of a half circle

// From `a` by way of `b`, at right angles to it, around the circle that both span, with `centre`
// added: a half circle, or a whole one.
NetLine arc(const gdfVertex& centre, const gdfVertex& a, const gdfVertex& b, bool whole) {
  NetLine line;
  const int pieces = whole ? 2 * kPieces : kPieces;
  for (int i = 0; i <= pieces; ++i) {
    const double angle = kPi * i / kPieces;
    line.push_back(project(centre + a * std::cos(angle) + b * std::sin(angle)));
  }
  return line;
}

}  // namespace

// With c the angle from straight down, 2 sin(c / 2) / sqrt(2) along the direction's own azimuth is
// (x, y) / sqrt(1 + cos c), and cos c is -z.
NetPoint project(const gdfVertex& direction) {
  const gdfVertex down = direction.z() > 0.0 ? -direction : direction;
  const double scale = 1.0 / std::sqrt(1.0 - down.z());
  return {down.x() * scale, down.y() * scale};
}

NetPoint pole(const gdfVertex& normal) { return project(normal); }

NetLine greatCircle(const gdfVertex& normal) {
  const gdfVertex up = normal.z() < 0.0 ? -normal : normal;
  const double across = std::sqrt(up.x() * up.x() + up.y() * up.y());
  if (across == 0.0) {
    return arc(gdfVertex(), gdfVertex(0.0, 1.0, 0.0), gdfVertex(1.0, 0.0, 0.0), true);
  }
  const gdfVertex dipAzimuth = gdfVertex(up.x(), up.y(), 0.0) / across;
  const gdfVertex strike(-dipAzimuth.y(), dipAzimuth.x(), 0.0);
  const gdfVertex dip(dipAzimuth.x() * up.z(), dipAzimuth.y() * up.z(), -across);
  return arc(gdfVertex(), strike, dip, false);
}

std::vector<NetLine> netLines(int stepDegrees) {
  std::vector<NetLine> lines;
  const gdfVertex north(0.0, 1.0, 0.0);
  for (int degrees = stepDegrees; degrees < 180; degrees += stepDegrees) {
    const double angle = degrees * kDegree;
    lines.push_back(
        arc(gdfVertex(), north, gdfVertex(std::cos(angle), 0.0, -std::sin(angle)), false));
    lines.push_back(arc(north * std::cos(angle), gdfVertex(std::sin(angle), 0.0, 0.0),
                        gdfVertex(0.0, 0.0, -std::sin(angle)), false));
  }
  return lines;
}

}  // namespace stereonet
