#include "survey/gridFit.h"

#include <cmath>
#include <cstddef>
#include <iostream>
#include <sstream>
#include <utility>

#include "common/commandError.h"
#include "common/textFormat.h"

namespace {

// The largest sine of the angle between two sides that still counts as one line.
constexpr double kOneLine = 1e-6;
// A last line that misses a whole number of steps by rounding alone is counted.
constexpr double kRoundingOfSteps = 1e-9;

/// Keeps what is written to the standard error stream while it lives: the library tells there why a
/// fit failed, and this program tells it once, in its own line.
class QuietErrors {
 public:
  QuietErrors() : before_(std::cerr.rdbuf(kept_.rdbuf())) {}
  ~QuietErrors() { std::cerr.rdbuf(before_); }
  QuietErrors(const QuietErrors&) = delete;
  QuietErrors& operator=(const QuietErrors&) = delete;

 private:
  std::ostringstream kept_;
  std::streambuf* before_;
};

std::string numbersText(const zrSurveyPoint& p) {
  return "inline " + textFormat::shortest(p.inlineNumber) + ", crossline " +
         textFormat::shortest(p.traceNumber);
}

bool sameInline(const Corner& a, const Corner& b) {
  return a.point.inlineNumber == b.point.inlineNumber;
}

bool sameCrossline(const Corner& a, const Corner& b) {
  return a.point.traceNumber == b.point.traceNumber;
}

void refuseCoincidence(const Corner& a, const Corner& b) {
  const std::string both = a.label + " and " + b.label;
  if (sameInline(a, b) && sameCrossline(a, b)) {
    throw CommandError(both + ": the same corner twice, " + numbersText(a.point));
  }
  if (a.point.x == b.point.x && a.point.y == b.point.y) {
    throw CommandError(both + ": two corners at one place, " + textFormat::shortest(a.point.x) +
                       " " + textFormat::shortest(a.point.y));
  }
}

// Whether two sides of the triangle that the differences span have one direction.
bool onOneLine(double ax, double ay, double bx, double by) {
  const double product = std::sqrt(ax * ax + ay * ay) * std::sqrt(bx * bx + by * by);
  return std::abs(ax * by - ay * bx) <= kOneLine * product;
}

void refuseOneLine(const std::array<Corner, 3>& corners) {
  const auto& [a, b, c] = corners;
  if (sameInline(a, b) && sameInline(b, c)) {
    throw CommandError("the three corners lie on one line: inline " +
                       textFormat::shortest(a.point.inlineNumber));
  }
  if (sameCrossline(a, b) && sameCrossline(b, c)) {
    throw CommandError("the three corners lie on one line: crossline " +
                       textFormat::shortest(a.point.traceNumber));
  }
  const zrSurveyPoint& p = a.point;
  const zrSurveyPoint& q = b.point;
  const zrSurveyPoint& r = c.point;
  if (onOneLine(q.inlineNumber - p.inlineNumber, q.traceNumber - p.traceNumber,
                r.inlineNumber - p.inlineNumber, r.traceNumber - p.traceNumber)) {
    throw CommandError("the three corners lie on one line by their inlines and crosslines");
  }
  if (onOneLine(q.x - p.x, q.y - p.y, r.x - p.x, r.y - p.y)) {
    throw CommandError("the three corners lie on one line by their x and y");
  }
}

// The corner that the fit takes third: not one of the two that share a number and are met exactly.
// It looks for those in this order.
std::size_t thirdCorner(const std::array<Corner, 3>& corners) {
  const auto& [a, b, c] = corners;
  if (sameInline(a, b) || sameCrossline(a, b)) {
    return 2;
  }
  if (sameInline(b, c)) {
    return 0;
  }
  if (sameInline(a, c)) {
    return 1;
  }
  if (sameCrossline(b, c)) {
    return 0;
  }
  if (sameCrossline(a, c)) {
    return 1;
  }
  throw CommandError("no two of the three corners share an inline or a crossline");
}

Residual residualAt(const zrSurveyPoint& corner, const zrSurveyCoordinates& coordinates) {
  Residual residual;
  residual.corner = corner;
  gdfVertex numbers(corner.x, corner.y);
  coordinates.World2Survey(numbers);
  residual.inlineNumber = numbers.x() - corner.inlineNumber;
  residual.crosslineNumber = numbers.y() - corner.traceNumber;
  gdfVertex place(corner.inlineNumber, corner.traceNumber);
  coordinates.Survey2World(place);
  residual.distance = place.distance(gdfVertex(corner.x, corner.y));
  return residual;
}

double countOf(double lowest, double highest, double step) {
  return std::floor((highest - lowest) / step + kRoundingOfSteps) + 1.0;
}

}  // namespace

FittedGrid fitGrid(const std::array<Corner, 3>& corners) {
  refuseCoincidence(corners[0], corners[1]);
  refuseCoincidence(corners[1], corners[2]);
  refuseCoincidence(corners[0], corners[2]);
  refuseOneLine(corners);
  const Corner& third = corners[thirdCorner(corners)];
  FittedGrid grid;
  grid.coordinates.SetOne(corners[0].point);
  grid.coordinates.SetTwo(corners[1].point);
  grid.coordinates.SetThree(corners[2].point);
  bool fitted = false;
  {
    const QuietErrors quiet;
    fitted = grid.coordinates.CalculateTransMatrices();
  }
  grid.residual = residualAt(third.point, grid.coordinates);
  const Residual& r = grid.residual;
  if (!std::isfinite(r.inlineNumber + r.crosslineNumber + r.distance)) {
    throw CommandError("the numbers of the corners are too large, or too far apart, for a grid");
  }
  if (!fitted) {
    throw CommandError(third.label + ": the corners contradict each other: by the other two " +
                       numbersText(third.point) + " is off by " +
                       textFormat::fixed(std::abs(r.inlineNumber), 1) + " inlines and " +
                       textFormat::fixed(std::abs(r.crosslineNumber), 1) +
                       " crosslines, more than 5");
  }
  grid.coordinates.resetPoints();
  return grid;
}

void FittedGrid::setRange(double lowestInline, double highestInline, double lowestCrossline,
                          double highestCrossline) {
  coordinates.SetOne(lowestInline, lowestCrossline, 0.0, 0.0);
  coordinates.SetTwo(lowestInline, highestCrossline, 0.0, 0.0);
  coordinates.SetThree(highestInline, lowestCrossline, 0.0, 0.0);
  coordinates.resetPoints();  // gives them their places
}

double FittedGrid::inlineCount() const {
  return countOf(lowestInline(), highestInline(), inlineStep);
}

double FittedGrid::crosslineCount() const {
  return countOf(lowestCrossline(), highestCrossline(), crosslineStep);
}

double FittedGrid::rotation() const {
  // Which axis the library takes it from depends on which corners came first, and in a left-handed
  // grid the two are half a turn apart. Those of the rectangle always come along the crosslines.
  zrSurveyCoordinates rectangle(coordinates);
  {
    const QuietErrors quiet;
    rectangle.CalculateTransMatrices();
  }
  const double degrees = std::remainder(rectangle.RotationDegrees(), 360.0);
  return degrees == -180.0 ? 180.0 : degrees;
}

gdfVertex FittedGrid::placeOf(double inlineNumber, double crosslineNumber) const {
  gdfVertex place(inlineNumber, crosslineNumber);
  coordinates.Survey2World(place);
  return place;
}
