#include <gtest/gtest.h>

#include <zrBase/tools2d/lineLocation.h>
#include <zrBase/tools2d/lineMeasures.h>
#include <zrBase/tools2d/polygonBoundary.h>
#include <zrBase/tools2d/polygonContainment.h>
#include <zrBase/tools2d/polygonRepair.h>
#include <zrBase/tools2d/segmentIntersection.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <random>
#include <vector>

#include "support/geometryText.h"

// The polygon operations against plain rewritings of their rules, which keep no boxes, insert one
// vertex at a time and test every pair. Results have to be equal to the last bit.
namespace {

using zr2DTools::getSegmentSegmentIntersect;

constexpr int rounds = 6000;

/// Lines near the bad cases: few distinct places, so that touching, collinear, equal and repeated
/// ones come up often; in a share of the rounds any double, or a NaN or infinity among them.
class LineMaker {
 public:
  explicit LineMaker(unsigned seed) : engine_(seed) {}

  int whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
  double tolerance() {
    constexpr double tolerances[] = {1e-05, 1e-05, 1e-05, 0.25, 0.0, 1e-9};
    return tolerances[whole(0, 5)];
  }
  void chooseStyle() { style_ = whole(0, 9); }

  VertexLine make(int fewest, int most, bool mayClose) {
    VertexLine drawn;
    for (int i = whole(fewest, most); i > 0; --i) drawn.push_back(place());
    if (mayClose && !drawn.empty() && whole(0, 1) == 0) drawn.push_back(drawn.front());
    return drawn;
  }

 private:
  gdfVertex place() { return {coordinate(), coordinate(), whole(0, 2) * 1.5}; }
  double coordinate() {
    if (style_ == 0 && whole(0, 15) == 0) {
      constexpr double infinity = std::numeric_limits<double>::infinity();
      constexpr double wild[] = {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity};
      return wild[whole(0, 2)];
    }
    if (style_ < 5) return whole(-6, 6) / 2.0;
    return std::uniform_real_distribution<double>(-5.0, 5.0)(engine_);
  }

  std::mt19937 engine_;
  int style_ = 0;
};

bool sameNumber(double a, double b) { return a == b || (a != a && b != b); }

bool same(const VertexLine& a, const VertexLine& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!sameNumber(a[i].x(), b[i].x()) || !sameNumber(a[i].y(), b[i].y()) ||
        !sameNumber(a[i].z(), b[i].z())) {
      return false;
    }
  }
  return true;
}

bool differs(const gdfVertex& v, const gdfVertex& w, double tolerance) {
  return std::fabs(v.x() - w.x()) >= tolerance || std::fabs(v.y() - w.y()) >= tolerance;
}

void plainRemoval(VertexLine& line, double tolerance) {
  const VertexLine before = line;
  for (std::size_t i = before.size(); i-- > 1;) {
    const double dx = before[i].x() - before[i - 1].x();
    const double dy = before[i].y() - before[i - 1].y();
    if (-tolerance < dx && dx < tolerance && -tolerance < dy && dy < tolerance) {
      line.erase(line.begin() + static_cast<std::ptrdiff_t>(i));
    }
  }
}

bool plainConditioning(VertexLine& polygon, double tolerance) {
  plainRemoval(polygon, tolerance);
  const int size = static_cast<int>(polygon.size());
  if (size < 3) return false;
  gdfVertex hit;
  for (int i = 0; i < size - 3; ++i) {
    for (int j = i + 2; j < size - 1; ++j) {
      if (i == 0 && j == size - 2) break;
      const VertexLine ends = {polygon[i], polygon[i + 1], polygon[j], polygon[j + 1]};
      if (!getSegmentSegmentIntersect(ends[0], ends[1], ends[2], ends[3], hit, 0.0)) continue;
      if (differs(hit, ends[0], tolerance) && differs(hit, ends[1], tolerance) &&
          differs(hit, ends[2], tolerance) && differs(hit, ends[3], tolerance)) {
        if (static_cast<double>(polygon.size()) > size * 1.5) return false;
        polygon.insert(polygon.begin() + i + 1, hit);
        --i;
      }
      break;
    }
  }
  if (polygon.back().equal(polygon.front(), tolerance)) polygon.back() = polygon.front();
  return true;
}

bool plainTidying(VertexLine& first, VertexLine& second, double tolerance) {
  const int firstSize = static_cast<int>(first.size());
  const int secondSize = static_cast<int>(second.size());
  gdfVertex hit;
  for (int i = firstSize - 1; i >= 1 && firstSize > 1 && secondSize > 1; --i) {
    const gdfVertex a1 = first[i];
    const gdfVertex a0 = first[i - 1];
    for (int j = static_cast<int>(second.size()) - 1; j >= 1; --j) {
      const gdfVertex b1 = second[j];
      const gdfVertex b0 = second[j - 1];
      if (!getSegmentSegmentIntersect(a1, a0, b1, b0, hit, tolerance)) continue;
      if (differs(hit, b1, tolerance) && differs(hit, b0, tolerance)) {
        second.insert(second.begin() + j, hit);
      }
      if (!differs(hit, a1, tolerance) || !differs(hit, a0, tolerance)) continue;
      if (a0.x() != a1.x()) {
        hit.z() = (hit.x() - a1.x()) / (a0.x() - a1.x()) * (a0.z() - a1.z()) + a1.z();
      } else if (a0.y() != a1.y()) {
        hit.z() = (hit.y() - a1.y()) / (a0.y() - a1.y()) * (a0.z() - a1.z()) + a1.z();
      } else {
        hit.z() = a1.z();
      }
      first.insert(first.begin() + i, hit);
    }
  }
  return static_cast<int>(first.size()) > firstSize || static_cast<int>(second.size()) > secondSize;
}

bool plainCompletion(const VertexLine& boundary, VertexLine& polygon, double tolerance) {
  const int nb = static_cast<int>(boundary.size());
  const int np = static_cast<int>(polygon.size());
  if (nb <= 4 || np <= 4) return false;
  const double step = zr2DTools::calcLength(boundary) / nb;
  if (step > polygon[0].distance(polygon[np - 1])) return false;
  gdfVertex back = polygon[0] - polygon[1];
  back.normalise();
  gdfVertex forth = polygon[np - 1] - polygon[np - 2];
  forth.normalise();
  const gdfVertex start = polygon[0] + back * step;
  const gdfVertex end = polygon[np - 1] + forth * step;
  int startHit = -1;
  int endHit = -1;
  gdfVertex hit;
  for (int k = 0; k <= nb - 2 && (startHit < 0 || endHit < 0); ++k) {
    const gdfVertex& c = boundary[k];
    const gdfVertex& d = boundary[k + 1];
    if (getSegmentSegmentIntersect(c, d, start, polygon[1], hit, tolerance)) startHit = k;
    if (getSegmentSegmentIntersect(c, d, polygon[np - 2], end, hit, tolerance)) endHit = k;
  }
  if (startHit < 0 || endHit < 0) return false;
  const int a = startHit;
  const int b = endHit + 1 == nb ? 0 : endHit + 1;
  const auto add = [&polygon, &boundary](int k) { polygon.push_back(boundary[k]); };
  if (a == b) {
    add(a);
  } else if (a < b && b - a < nb / 2) {
    for (int k = b; k >= a + 1; --k) add(k);
  } else if (a < b) {
    for (int k = b; k <= nb - 1; ++k) add(k);
    for (int k = 0; k <= a - 1; ++k) add(k);
  } else if (a - b < nb / 2) {
    for (int k = b; k <= a - 1; ++k) add(k);
  } else {
    for (int k = b; k >= 0; --k) add(k);
  }
  plainRemoval(polygon, tolerance);
  if (polygon.front() != polygon.back()) polygon.push_back(gdfVertex(polygon.front()));
  return true;
}

void plainArc(VertexLine& ring, const VertexLine& second, int js, int je) {
  const int ns = static_cast<int>(second.size());
  const int h = ns / 2;
  const auto add = [&ring, &second](int k) { ring.push_back(second[k]); };
  if (js < je && je - js > h) {
    for (int k = je; k >= js + 1; --k) add(k);
  } else if (js < je) {
    for (int k = je; k <= ns - 1; ++k) add(k);
    for (int k = 0; k <= js - 1; ++k) add(k);
  } else if (js - je > h) {
    for (int k = je; k <= js - 1; ++k) add(k);
  } else {
    for (int k = js; k <= ns - 1; ++k) add(k);
    for (int k = 0; k <= je - 1; ++k) add(k);
  }
}

int plainCombination(const VertexLine& first, const VertexLine& second, VertexLine& result,
                     double tolerance, bool& touching) {
  const int nf = static_cast<int>(first.size());
  const int ns = static_cast<int>(second.size());
  if (nf < 2 || ns < 2) return 0;
  std::map<int, int> crossed;
  std::map<int, gdfVertex> hits;
  gdfVertex hit;
  for (int i = 0; i < nf - 1; ++i) {
    for (int j = 0; j < ns - 1; ++j) {
      if (first[i] == second[j] || first[i] == second[j + 1] || first[i + 1] == second[j] ||
          first[i + 1] == second[j + 1]) {
        touching = true;
      } else if (getSegmentSegmentIntersect(first[i], first[i + 1], second[j], second[j + 1], hit,
                                            tolerance)) {
        crossed.emplace(i, j);
        hits.emplace(i, hit);
      }
    }
  }
  const int c = static_cast<int>(crossed.size());
  if (c < 2) return 0;
  std::vector<int> keys;
  for (const auto& entry : crossed) keys.push_back(entry.first);
  std::vector<double> lengths = {zr2DTools::calcLength(first, 0, keys[0])};
  for (int m = 1; m < c; ++m) {
    lengths.push_back(zr2DTools::calcLength(first, keys[m - 1], keys[m]));
  }
  lengths.push_back(zr2DTools::calcLength(first, keys[c - 1], nf - 1));
  double best = lengths[c] + lengths[0];
  int choice = 0;
  for (int m = 0; m < c; ++m) {
    if (lengths[m] > best) {
      best = lengths[m];
      choice = m;
    }
  }
  const int from = choice == 0 ? keys[c - 1] : keys[choice - 1];
  const int to = keys[choice];
  VertexLine ring = {hits[from]};
  for (int k = from + 1; k <= (choice == 0 ? nf - 1 : to - 1); ++k) ring.push_back(first[k]);
  for (int k = 0; choice == 0 && k <= to - 1; ++k) ring.push_back(first[k]);
  if (hits[to] != ring.back()) ring.push_back(hits[to]);
  plainArc(ring, second, crossed[from], crossed[to]);
  plainRemoval(ring, tolerance);
  result = ring;
  return result.size() > 1 ? c : 0;
}

bool plainInside(const VertexLine& polygon, const gdfVertex& p, double step, double tolerance) {
  const gdfVertex far(p.x() + step, p.y() + 2 * step, p.z());
  const gdfVertex other(p.x() + 3 * step, p.y() - step, p.z());
  return zr2DTools::getNumberIntersections(polygon, far, p, tolerance) % 2 == 1 &&
         zr2DTools::getNumberIntersections(polygon, other, p, tolerance) % 2 == 1;
}

bool plainAllInside(const VertexLine& polygon, const VertexLine& other, double step,
                    double tolerance) {
  double minX = 0, maxX = 0, minY = 0, maxY = 0;
  zr2DTools::calculateMinMax(other, minX, maxX, minY, maxY);
  for (const gdfVertex& v : polygon) {
    const bool within = v.x() >= minX && v.x() <= maxX && v.y() >= minY && v.y() <= maxY;
    if (!within || !plainInside(other, v, step, tolerance)) return false;
  }
  return true;
}

void plainIdentification(VertexLineList& polygons, VertexLineList& inner, double step,
                         double tolerance) {
  for (int i = static_cast<int>(polygons.size()) - 1; i >= 0; --i) {
    for (int j = static_cast<int>(polygons.size()) - 1; j >= 0; --j) {
      if (j == i || !plainAllInside(polygons[i], polygons[j], step, tolerance)) continue;
      inner.push_back(polygons[i]);
      polygons.erase(polygons.begin() + i);
      break;
    }
  }
}

/// Runs a comparison with lines of many styles; it gives true where something came of the inputs.
void compare(int atLeast, const std::function<bool(LineMaker&)>& round) {
  int came = 0;
  for (unsigned seed = 0; seed < rounds && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    LineMaker maker(seed);
    maker.chooseStyle();
    if (round(maker)) ++came;
  }
  EXPECT_GE(came, atLeast);
}

TEST(PolygonReference, ConditioningFollowsItsRules) {
  int refused = 0;
  compare(rounds / 4, [&refused](LineMaker& maker) {
    const double tolerance = maker.tolerance();
    const VertexLine drawn = maker.make(0, 14, true);
    VertexLine expected = drawn;
    const bool expectedResult = plainConditioning(expected, tolerance);
    VertexLine polygon = drawn;
    EXPECT_EQ(zr2DTools::conditionPolygon(polygon, tolerance), expectedResult);
    EXPECT_TRUE(same(polygon, expected)) << toText(drawn);
    if (!expectedResult && polygon.size() > 2) ++refused;
    return polygon.size() > drawn.size();
  });
  EXPECT_GT(refused, 0);
}

TEST(PolygonReference, TidyingFollowsItsRules) {
  compare(rounds / 2, [](LineMaker& maker) {
    const double tolerance = maker.tolerance();
    VertexLine first = maker.make(0, 9, true);
    VertexLine second = maker.make(0, 9, true);
    VertexLine expectedFirst = first;
    VertexLine expectedSecond = second;
    const bool expected = plainTidying(expectedFirst, expectedSecond, tolerance);
    EXPECT_EQ(zr2DTools::tidyIntersectingPolygons(first, second, tolerance), expected);
    EXPECT_TRUE(same(first, expectedFirst)) << toText(first);
    EXPECT_TRUE(same(second, expectedSecond)) << toText(second);
    return expected;
  });
}

TEST(PolygonReference, CompletionFollowsItsRules) {
  compare(rounds / 10, [](LineMaker& maker) {
    const double tolerance = maker.tolerance();
    const VertexLine boundary = maker.make(3, 16, true);
    const VertexLine drawn = maker.make(3, 8, false);
    VertexLine expected = drawn;
    const bool expectedResult = plainCompletion(boundary, expected, tolerance);
    VertexLine polygon = drawn;
    EXPECT_EQ(zr2DTools::completePolygon(boundary, polygon, tolerance), expectedResult);
    EXPECT_TRUE(same(polygon, expected)) << toText(boundary) << " and " << toText(drawn);
    return expectedResult;
  });
}

TEST(PolygonReference, CombinationFollowsItsRules) {
  compare(rounds / 3, [](LineMaker& maker) {
    const double tolerance = maker.tolerance();
    const VertexLine first = maker.make(0, 9, true);
    const VertexLine second = maker.make(0, 12, true);
    VertexLine expected = line("7 7");
    VertexLine result = expected;
    bool expectedTouching = maker.whole(0, 4) == 0;
    bool touching = expectedTouching;
    const int count = plainCombination(first, second, expected, tolerance, expectedTouching);
    EXPECT_EQ(zr2DTools::combineBoundaries(first, second, result, 0.0, tolerance, touching), count);
    EXPECT_EQ(touching, expectedTouching);
    EXPECT_TRUE(same(result, expected)) << toText(first) << " and " << toText(second);
    return count > 0;
  });
}

TEST(PolygonReference, IdentificationFollowsItsRules) {
  compare(rounds / 20, [](LineMaker& maker) {
    const double tolerance = maker.tolerance();
    const double step = maker.whole(0, 3) == 0 ? 4.0 : 64.0;
    VertexLineList polygons;
    for (int i = maker.whole(0, 6); i > 0; --i) {
      polygons.push_back(maker.make(maker.whole(0, 3), 6, true));
    }
    VertexLineList expected = polygons;
    VertexLineList expectedInner;
    plainIdentification(expected, expectedInner, step, tolerance);
    VertexLineList inner;
    EXPECT_EQ(zr2DTools::identifyInnerOuterPolygons(polygons, inner, step, tolerance),
              !expectedInner.empty());
    const auto sameLists = [](const VertexLineList& a, const VertexLineList& b) {
      return std::equal(a.begin(), a.end(), b.begin(), b.end(), same);
    };
    EXPECT_TRUE(sameLists(polygons, expected));
    EXPECT_TRUE(sameLists(inner, expectedInner));
    return !inner.empty();
  });
}

}  // namespace
