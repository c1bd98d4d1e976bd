#include <zrBase/survey/zrSurveyCoordinates.h>

#include <gtest/gtest.h>

#include "survey/support/surveyPoints.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iostream>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

// Both fits written down once more in plain arrays, step by step, and held against the library's to
// the last bit: results, messages, corners, matrices and figures.

namespace {

/// inline, trace, x, y.
using Corner = std::array<double, 4>;
/// Only what moves x and y: each row holds what one input adds to outputs 0 and 1; the last row is
/// the translation.
using Plane = std::array<std::array<double, 2>, 3>;
constexpr Plane identityPlane = {{{1.0, 0.0}, {0.0, 1.0}, {0.0, 0.0}}};

void scale(Plane& m, std::size_t column, double factor) {
  for (auto& row : m) row[column] *= factor;
}

void rotate(Plane& m, double angle) {
  for (auto& row : m) {
    row = {row[0] * std::cos(angle) - row[1] * std::sin(angle),
           row[0] * std::sin(angle) + row[1] * std::cos(angle)};
  }
}

void translate(Plane& m, double x, double y) {
  m[2][0] += x;
  m[2][1] += y;
}

std::array<double, 2> moved(const Plane& m, double x, double y) {
  return {x * m[0][0] + y * m[1][0] + m[2][0], x * m[0][1] + y * m[1][1] + m[2][1]};
}

bool finite(const Plane& m) {
  for (const auto& row : m) {
    if (!std::isfinite(row[0]) || !std::isfinite(row[1])) return false;
  }
  return true;
}

/// Angle of a direction from the x axis, exact on the axes; north for none.
double direction(double x, double y) {
  const double pi = 3.141592653589793;
  if (x == 0.0) return y < 0.0 ? -pi / 2.0 : pi / 2.0;
  if (y == 0.0) return x < 0.0 ? pi : 0.0;
  return std::atan2(y, x);
}

double distance(double x, double y) { return std::sqrt(x * x + y * y); }

struct ReferenceGrid {
  Corner one{}, two{}, three{};
  Plane surveyToWorld = identityPlane;
  Plane worldToSurvey = identityPlane;
  bool valid = false;
  double rotation = 0.0, inlineDistance = 12.5, xlineDistance = 12.5;
  std::string message;

  bool isDefault() const {
    return one == Corner{0, 0, 0, 0} && two == Corner{0, 100, 1250, 0} &&
           three == Corner{100, 0, 0, 1250};
  }

  static bool same(const Corner& a, const Corner& b, std::size_t first) {
    return a[first] == b[first] && a[first + 1] == b[first + 1];
  }

  bool fit() {
    valid = false;
    if (one[0] == two[0] && one[0] == three[0] && two[0] == three[0]) return false;
    if (one[1] == two[1] && one[1] == three[1] && two[1] == three[1]) return false;
    for (const std::size_t first : {std::size_t{0}, std::size_t{2}}) {
      if (same(one, two, first) || same(one, three, first) || same(two, three, first)) return false;
    }
    bool alongTrace = true;
    if (one[0] == two[0]) {
      alongTrace = true;
    } else if (one[1] == two[1]) {
      alongTrace = false;
    } else if (two[0] == three[0]) {
      std::swap(one, three);
    } else if (one[0] == three[0]) {
      std::swap(two, three);
    } else if (two[1] == three[1]) {
      std::swap(one, three);
      alongTrace = false;
    } else if (one[1] == three[1]) {
      std::swap(two, three);
      alongTrace = false;
    } else {
      message = "Invalidate survey coordinates\n";
      return false;
    }
    const double k =
        distance(one[0] - two[0], one[1] - two[1]) / distance(one[2] - two[2], one[3] - two[3]);
    const double rotS = direction(two[0] - one[0], two[1] - one[1]);
    const double rotW = direction(k * two[2] - k * one[2], k * two[3] - k * one[3]);
    const double delta = rotW - rotS;
    Plane turn = identityPlane;
    rotate(turn, -delta);
    const auto v1 = moved(turn, k * one[2], k * one[3]);
    const double ox = one[0] - v1[0];
    const double oy = one[1] - v1[1];
    worldToSurvey = identityPlane;
    scale(worldToSurvey, 0, k);
    scale(worldToSurvey, 1, k);
    rotate(worldToSurvey, -delta);
    translate(worldToSurvey, ox, oy);
    const auto q = moved(worldToSurvey, three[2], three[3]);
    double fx = 1.0, fy = 1.0, o2x = 0.0, o2y = 0.0;
    if (alongTrace) {
      fx = (three[0] - one[0]) / (q[0] - one[0]);
      o2x = three[0] - q[0] * fx;
    } else {
      fy = (three[1] - one[1]) / (q[1] - one[1]);
      o2y = three[1] - q[1] * fy;
    }
    scale(worldToSurvey, 0, fx);
    scale(worldToSurvey, 1, fy);
    translate(worldToSurvey, o2x, o2y);
    surveyToWorld = identityPlane;
    translate(surveyToWorld, -o2x, -o2y);
    scale(surveyToWorld, 0, 1.0 / fx);
    scale(surveyToWorld, 1, 1.0 / fy);
    translate(surveyToWorld, -ox, -oy);
    rotate(surveyToWorld, delta);
    scale(surveyToWorld, 1, 1.0 / k);
    scale(surveyToWorld, 0, 1.0 / k);
    if (!finite(surveyToWorld)) return false;
    const auto s = moved(worldToSurvey, three[2], three[3]);
    if (s[0] > three[0] + 5 || s[0] < three[0] - 5 || s[1] > three[1] + 5 || s[1] < three[1] - 5) {
      message = "Invalid or inconsistant survey data detected\n";
      return false;
    }
    rotation = delta * 57.29577951308232;
    if (!isDefault()) reset();
    valid = true;
    return true;
  }

  void reset() {
    const double minI = std::min(one[0], std::min(two[0], three[0]));
    const double maxI = std::max(one[0], std::max(two[0], three[0]));
    const double minT = std::min(one[1], std::min(two[1], three[1]));
    const double maxT = std::max(one[1], std::max(two[1], three[1]));
    const auto w1 = moved(surveyToWorld, minI, minT);
    const auto w2 = moved(surveyToWorld, minI, maxT);
    const auto w3 = moved(surveyToWorld, maxI, minT);
    one = {minI, minT, w1[0], w1[1]};
    two = {minI, maxT, w2[0], w2[1]};
    three = {maxI, minT, w3[0], w3[1]};
    inlineDistance = distance(w3[0] - w1[0], w3[1] - w1[1]) / (maxI - minI);
    xlineDistance = distance(w2[0] - w1[0], w2[1] - w1[1]) / (maxT - minT);
  }

  void alternativeFit() {
    const double i1 = one[0], i2 = two[0], i3 = three[0];
    const double t1 = one[1], t2 = two[1], t3 = three[1];
    const double det =
        1.0 * (i2 * t3 - t2 * i3) - i1 * (1.0 * t3 - 1.0 * t2) + t1 * (1.0 * i3 - 1.0 * i2);
    std::array<std::array<double, 3>, 3> n = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    if (det != 0.0) {
      n = {{{(i2 * t3 - t2 * i3) / det, (i3 * t1 - t3 * i1) / det, (i1 * t2 - t1 * i2) / det},
            {(t2 - t3) / det, (t3 - t1) / det, (t1 - t2) / det},
            {(i3 - i2) / det, (i1 - i3) / det, (i2 - i1) / det}}};
    }
    std::array<double, 3> c, d;
    for (std::size_t r = 0; r < 3; ++r) {
      c[r] = one[2] * n[r][0] + two[2] * n[r][1] + three[2] * n[r][2];
      d[r] = one[3] * n[r][0] + two[3] * n[r][1] + three[3] * n[r][2];
    }
    const double sx = std::sqrt(c[1] * c[1] + d[1] * d[1]);
    double sy = std::sqrt(c[2] * c[2] + d[2] * d[2]);
    if (d[2] * c[1] - c[2] * d[1] < 0) sy = -sy;
    const double twoPi = 4 * std::asin(1.0);
    double theta = std::atan2(d[1], c[1]);
    if (theta < 0) theta += twoPi;
    if (theta > twoPi) theta -= twoPi;
    surveyToWorld = identityPlane;
    scale(surveyToWorld, 0, sx);
    scale(surveyToWorld, 1, sy);
    rotate(surveyToWorld, theta);
    translate(surveyToWorld, c[0], d[0]);
    worldToSurvey = identityPlane;
    translate(worldToSurvey, -c[0], -d[0]);
    rotate(worldToSurvey, -theta);
    scale(worldToSurvey, 0, 1 / sx);
    scale(worldToSurvey, 1, 1 / sy);
    valid = true;
  }

  std::vector<double> numbers() const {
    std::vector<double> all = {valid ? 1.0 : 0.0, rotation, inlineDistance, xlineDistance};
    for (const Corner* p : {&one, &two, &three}) all.insert(all.end(), p->begin(), p->end());
    for (const Plane* m : {&surveyToWorld, &worldToSurvey}) {
      for (const auto& row : *m) all.insert(all.end(), row.begin(), row.end());
    }
    return all;
  }
};

std::vector<double> numbersOf(const zrSurveyCoordinates& grid) {
  std::vector<double> all = {grid.Valid() ? 1.0 : 0.0, grid.RotationDegrees(),
                             grid.inlineDistance(), grid.xlineDistance()};
  for (const zrSurveyPoint* p : {&grid.One(), &grid.Two(), &grid.Three()}) {
    for (const double number : numbersOf(*p)) all.push_back(number);
  }
  for (const gdfTransMatrix* m : {&grid.SurveyToWorld(), &grid.WorldToSurvey()}) {
    for (const int row : {0, 1, 3}) {
      all.push_back((*m)(row, 0));
      all.push_back((*m)(row, 1));
    }
  }
  return all;
}

/// Equal by ==, a NaN equal to a NaN.
bool agree(const std::vector<double>& a, const std::vector<double>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); });
}

/// What goes to the standard error stream for as long as this lives.
class ErrorText {
 public:
  ErrorText() : before_(std::cerr.rdbuf(text_.rdbuf())) {}
  ~ErrorText() { std::cerr.rdbuf(before_); }
  ErrorText(const ErrorText&) = delete;
  ErrorText& operator=(const ErrorText&) = delete;
  std::string take() {
    std::string text = text_.str();
    text_.str("");
    return text;
  }

 private:
  std::ostringstream text_;
  std::streambuf* before_;
};

/// Corners of rectangles in any turn, order and hand, some of them bent; or of a few whole numbers,
/// so that they coincide often.
std::array<Corner, 3> randomCorners(std::mt19937& random) {
  const auto below = [&random](unsigned n) { return static_cast<double>(random() % n); };
  std::array<Corner, 3> corners;
  if (random() % 3 == 0) {
    for (Corner& p : corners) p = {below(3), below(3), below(4), below(4)};
    return corners;
  }
  const double angle = below(5) == 0.0 ? 0.0 : below(1000) / 100.0;
  const double bend = below(3) == 0.0 ? below(300) / 50.0 : below(2) * 0.01;
  const double dI = (below(200) + 1.0) / 8.0 * (below(2) == 0.0 ? -1.0 : 1.0);
  const double dT = (below(200) + 1.0) / 8.0;
  const double x = below(1000000), y = below(7000000);
  const std::array<double, 2> i = {below(500), 500.0 + below(500)};
  const std::array<double, 2> t = {below(500), 500.0 + below(500)};
  for (std::size_t k = 0; k < 3; ++k) {
    const double ik = i[k == 2 ? 1 : 0];
    const double tk = t[k == 1 ? 1 : 0];
    const double u = ik * dI + (k == 2 ? bend * dI : 0.0);
    const double v = tk * dT + (k == 2 ? bend * dT : 0.0);
    corners[k] = {ik, tk, x + u * std::cos(angle) - v * std::sin(angle),
                  y + u * std::sin(angle) + v * std::cos(angle)};
  }
  if (below(8) == 0.0) corners[1][0] += 1.0;
  std::shuffle(corners.begin(), corners.end(), random);
  return corners;
}

TEST(SurveyFitReference, AgreesToTheLastBit) {
  std::mt19937 random(20240917);
  ErrorText errorText;
  int fitted = 0, missed = 0, unordered = 0;
  for (int trial = 0; trial < 20000; ++trial) {
    const auto corners = randomCorners(random);
    ReferenceGrid reference;
    reference.one = corners[0];
    reference.two = corners[1];
    reference.three = corners[2];
    zrSurveyCoordinates grid;
    for (int k = 0; k < 3; ++k) {
      const Corner& p = corners[static_cast<std::size_t>(k)];
      grid.SetSurveyPoint(k, p[0], p[1], p[2], p[3]);
    }
    const bool expected = reference.fit();
    ASSERT_EQ(grid.CalculateTransMatrices(), expected) << trial;
    ASSERT_EQ(errorText.take(), reference.message) << trial;
    ASSERT_TRUE(agree(numbersOf(grid), reference.numbers())) << trial;
    fitted += expected ? 1 : 0;
    missed += reference.message.rfind("Invalid or", 0) == 0 ? 1 : 0;
    unordered += reference.message.rfind("Invalidate", 0) == 0 ? 1 : 0;

    reference.alternativeFit();
    grid.CalculateTransMatrices1();
    ASSERT_TRUE(agree(numbersOf(grid), reference.numbers())) << trial;
  }
  EXPECT_GT(fitted, 5000);
  EXPECT_GT(missed, 500);
  EXPECT_GT(unordered, 100);
}

}  // namespace
