#include <zrBase/tools3d/planeIntersection.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <ostream>
#include <utility>

// Planes with segments, lines and polygons.

namespace {

constexpr double tolerance = 1e-05;
constexpr double infinity = std::numeric_limits<double>::infinity();
const gdfVertex up(0, 0, 1);

TEST(VertexOnPlane, IsClosedOnBothSides) {
  EXPECT_TRUE(zr3DTools::vertexOnPlane(5.0, up, {7, 8, 5}, 0.0));
  EXPECT_TRUE(zr3DTools::vertexOnPlane(5.0, up, {0, 0, 5.25}, 0.25));
  EXPECT_TRUE(zr3DTools::vertexOnPlane(5.0, up, {0, 0, 4.75}, 0.25));
  EXPECT_FALSE(zr3DTools::vertexOnPlane(5.0, up, {0, 0, 5.375}, 0.25));
  EXPECT_FALSE(zr3DTools::vertexOnPlane(5.0, up, {0, 0, 4.625}, 0.25));
}

TEST(VertexOnPlane, ScalesWithTheNormal) {
  // 0.25 from the plane z = 5, times the length 2 of the normal.
  EXPECT_FALSE(zr3DTools::vertexOnPlane(10.0, {0, 0, 2}, {0, 0, 5.25}, 0.25));
  EXPECT_TRUE(zr3DTools::vertexOnPlane(10.0, {0, 0, 2}, {0, 0, 5.25}, 0.5));
}

TEST(VertexOnPlane, HoldsNoNaN) {
  EXPECT_FALSE(zr3DTools::vertexOnPlane(5.0, up, vertex("0 0 nan"), 1e300));
}

/// Result and output of planeSegmentIntersect; the output starts as "-1 -2 -3".
using Hit = std::pair<bool, gdfVertex>;
const Hit untouched(false, {-1, -2, -3});

Hit cut(double d, const gdfVertex& normal, const gdfVertex& start, const gdfVertex& end,
        double withTolerance = tolerance) {
  Hit hit = untouched;
  hit.first = zr3DTools::planeSegmentIntersect(d, normal, start, end, hit.second, withTolerance);
  return hit;
}

TEST(PlaneSegmentIntersect, GivesThePlaceOnThePlane) {
  EXPECT_EQ(cut(5.0, up, {0, 0, 0}, {8, 4, 10}), Hit(true, {4, 2, 5}));
  EXPECT_EQ(cut(3.0, {1, 1, 0}, {0, 0, 7}, {4, 0, 3}), Hit(true, {3, 0, 4}));
}

TEST(PlaneSegmentIntersect, ScalesTheOffsetWithTheNormal) {
  EXPECT_EQ(cut(10.0, {0, 0, 2}, {0, 0, 0}, {8, 4, 10}), Hit(true, {4, 2, 5}));
}

TEST(PlaneSegmentIntersect, TakesThePlaneThroughAPoint) {
  gdfVertex out;
  EXPECT_TRUE(
      zr3DTools::planeSegmentIntersect({70, -3, 5}, {0, 0, 2}, {0, 0, 0}, {8, 4, 10}, out, 1e-05));
  EXPECT_THAT(out, VertexIs("4 2 5"));
  EXPECT_FALSE(
      zr3DTools::planeSegmentIntersect({70, -3, 11}, {0, 0, 2}, {0, 0, 0}, {8, 4, 10}, out, 1e-05));
}

TEST(PlaneSegmentIntersect, HasNoHitOnOneSide) {
  EXPECT_EQ(cut(5.0, up, {0, 0, 6}, {0, 0, 10}), untouched);
  EXPECT_EQ(cut(5.0, up, {0, 0, 4}, {0, 0, -10}), untouched);
}

TEST(PlaneSegmentIntersect, HasNoHitWithoutLength) {
  EXPECT_EQ(cut(5.0, up, {1, 2, 5}, {1, 2, 5}), untouched);
  // Not even where nothing counts as parallel and 0 / 0 would be written.
  EXPECT_EQ(cut(5.0, up, {1, 2, 5}, {1, 2, 5}, -1.0), untouched);
}

TEST(PlaneSegmentIntersect, KeptSegmentInPlaneIsNoHit) {
  EXPECT_EQ(cut(5.0, up, {0, 0, 5}, {10, 0, 5}), untouched);
  // It pierces the plane at a right angle, but reaches no farther than the tolerance.
  EXPECT_EQ(cut(5.0, up, {0, 0, 4.75}, {0, 0, 5.25}, 0.5), untouched);
  EXPECT_EQ(cut(5.0, up, {0, 0, 4.75}, {0, 0, 5.25}, 0.25), Hit(true, {0, 0, 5}));
}

TEST(PlaneSegmentIntersect, ComparesTheReachAlongTheNormalWithBothBoundsClosed) {
  // The reach is 1, times the length 2 of the normal.
  EXPECT_EQ(cut(1.0, {0, 0, 2}, {0, 0, 0}, {0, 0, 1}, 2.0), untouched);
  EXPECT_EQ(cut(1.0, {0, 0, 2}, {0, 1, 0}, {0, 0, 1}, 2.0), untouched);
  EXPECT_EQ(cut(1.0, {0, 0, 2}, {0, 0, 0}, {0, 0, 1}, 1.75), Hit(true, {0, 0, 0.5}));
}

TEST(PlaneSegmentIntersect, HitsAnEndExactlyOnThePlane) {
  EXPECT_EQ(cut(5.0, up, {1, 2, 5}, {3, 4, 9}), Hit(true, {1, 2, 5}));
  EXPECT_EQ(cut(5.0, up, {1, 2, 5}, {3, 4, 1}), Hit(true, {1, 2, 5}));
  EXPECT_EQ(cut(5.0, up, {3, 4, 9}, {1, 2, 5}), Hit(true, {1, 2, 5}));
  EXPECT_EQ(cut(5.0, up, {-3, 4, 9}, {1, 2, 5}), Hit(true, {1, 2, 5}));
}

TEST(PlaneSegmentIntersect, KeptEndJustOffThePlaneIsNoHit) {
  EXPECT_EQ(cut(5.0, up, {0, 0, 5.0000001}, {0, 0, 10}, 0.01), untouched);
  EXPECT_EQ(cut(5.0, up, {0, 0, 0}, {0, 0, std::nextafter(5.0, 0.0)}, 0.01), untouched);
}

TEST(PlaneSegmentIntersect, KeptUnderflowingSidesAreAHit) {
  // Both ends above z = 0, by 1e-200 and 2e-200, whose product is below the smallest double.
  EXPECT_EQ(cut(0.0, up, {0, 0, 1e-200}, {1, 0, 2e-200}, 0.0), Hit(true, {-1, 0, 0}));
  EXPECT_EQ(cut(0.0, up, {0, 0, 1e-100}, {1, 0, 2e-100}, 0.0), untouched);
}

TEST(PlaneSegmentIntersect, KeptHitNotFiniteIsWritten) {
  // From end to end x overflows, half of the way too.
  EXPECT_EQ(cut(0.0, up, {-1e308, 3, -1}, {1e308, 3, 1}), Hit(false, {infinity, 3, 0}));
  const Hit notANumber = cut(0.0, up, {0, 0, -1}, vertex("nan 0 1"));
  EXPECT_FALSE(notANumber.first);
  EXPECT_TRUE(std::isnan(notANumber.second.x()));
}

TEST(PlaneSegmentIntersect, OutputMayBeAnyInput) {
  gdfVertex start(0, 0, 0);
  const gdfVertex end(8, 4, 10);
  EXPECT_TRUE(zr3DTools::planeSegmentIntersect(5.0, up, start, end, start, tolerance));
  EXPECT_THAT(start, VertexIs("4 2 5"));
  gdfVertex normal(0, 0, 1);
  EXPECT_TRUE(zr3DTools::planeSegmentIntersect(normal * 5.0, normal, {0, 0, 0}, {8, 4, 10}, normal,
                                               tolerance));
  EXPECT_THAT(normal, VertexIs("4 2 5"));
}

TEST(PlaneSegmentIntersect, SaysNothingOfHitsThatRoundFarOffThePlane) {
  // At such a size neighbouring doubles are 8 and more apart, times 3.
  double farthest = 0.0;
  testing::internal::CaptureStderr();
  for (int i = 1; i <= 50; ++i) {
    const double d = 1e17 + i * 1000.0;
    const Hit hit = cut(d, {3, 0, 0}, {0, 0, 0}, {1e17, 0, 0});
    EXPECT_TRUE(hit.first);
    farthest = std::fmax(farthest, 3.0 * hit.second.x() - d);
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_GT(farthest, 1.0);
}

/// Coordinates k/64 with small k: ends on the plane and equal ends come up often.
rc::Gen<gdfVertex> smallVertex() {
  return rc::gen::apply([](int x, int y, int z) { return gdfVertex(x, y, z) / 64.0; },
                        rc::gen::inRange(-4, 5), rc::gen::inRange(-4, 5), rc::gen::inRange(-4, 5));
}

/// Coordinates whose products and quotients round.
rc::Gen<gdfVertex> roughVertex() {
  return rc::gen::apply([](int x, int y, int z) { return gdfVertex(x, y, z) / 7.0; },
                        rc::gen::inRange(-9999, 9999), rc::gen::inRange(-9999, 9999),
                        rc::gen::inRange(-9999, 9999));
}

rc::Gen<gdfVertex> anyVertex() { return rc::gen::oneOf(smallVertex(), roughVertex()); }
rc::Gen<double> anyTolerance() { return rc::gen::element(0.0, 1e-05, 0.03125, -1.0); }

RC_GTEST_PROP(PlaneSegmentIntersect, ReversedSegmentGivesTheSameBits, ()) {
  const gdfVertex normal = *anyVertex(), start = *anyVertex(), end = *anyVertex();
  const double d = *rc::gen::element(0.0, 1.0 / 64.0, 3.3);
  RC_ASSERT(cut(d, normal, start, end, 0.0) == cut(d, normal, end, start, 0.0));
}

RC_GTEST_PROP(PlaneSegmentIntersect, GivesAnEndOnThePlaneItself, ()) {
  const gdfVertex start = *smallVertex(), end = *smallVertex();
  RC_PRE(start.z() != end.z());
  RC_ASSERT(cut(start.z(), up, start, end, 0.0) == Hit(true, start));
  RC_ASSERT(cut(end.z(), up, start, end, 0.0) == Hit(true, end));
}

/// Result, hit and segment of the search for the first hit, or of one of the nearest.
struct Found {
  bool result = false;
  gdfVertex out{-1, -2, -3};
  int segment = -242;

  bool operator==(const Found& o) const {
    return result == o.result && out == o.out && segment == o.segment;
  }
};

std::ostream& operator<<(std::ostream& stream, const Found& found) {
  return stream << found.result << ", " << toText(found.out) << ", segment " << found.segment;
}

const Found nothing;

Found first(double d, const VertexLine& l, double withTolerance = tolerance,
            const gdfVertex& normal = up) {
  Found found;
  found.result =
      zr3DTools::planeLineIntersect(d, normal, l, found.out, found.segment, withTolerance);
  return found;
}

VertexLine all(double d, const VertexLine& l, double withTolerance = tolerance,
               const gdfVertex& normal = up) {
  VertexLine out = line("9 9 9");
  const bool found = zr3DTools::planeLineIntersect(d, normal, l, out, withTolerance);
  EXPECT_EQ(found, !out.empty());
  return out;
}

const char* const zigzag = "0 0 0, 1 0 10, 2 0 0, 3 0 10";

TEST(PlaneLineIntersect, StopsAtTheFirstHit) {
  EXPECT_EQ(first(5.0, line(zigzag)), (Found{true, {0.5, 0, 5}, 0}));
  EXPECT_EQ(first(5.0, line("0 0 0, 1 0 2, 2 0 8, 3 0 2")), (Found{true, {1.5, 0, 5}, 1}));
}

TEST(PlaneLineIntersect, LeavesTheOutputsAloneOnAMiss) {
  EXPECT_EQ(first(50.0, line(zigzag)), nothing);
  EXPECT_EQ(first(5.0, line("0 0 5, 9 0 5")), nothing);
}

TEST(PlaneLineIntersect, FindsNothingOnFewerThanTwoVertices) {
  EXPECT_EQ(first(5.0, line("")), nothing);
  EXPECT_EQ(first(5.0, line("0 0 5")), nothing);
  EXPECT_EQ(all(5.0, line("")), VertexLine());
  EXPECT_EQ(all(5.0, line("0 0 5")), VertexLine());
}

TEST(PlaneLineIntersect, ListsAllHitsInLineOrder) {
  EXPECT_THAT(all(5.0, line(zigzag)), LineIs("0.5 0 5, 1.5 0 5, 2.5 0 5"));
}

TEST(PlaneLineIntersect, ClearsTheListFirst) { EXPECT_EQ(all(50.0, line(zigzag)), VertexLine()); }

TEST(PlaneLineIntersect, KeptHitAtVertexIsListedTwice) {
  EXPECT_THAT(all(5.0, line("0 0 0, 0 0 5, 0 0 10")), LineIs("0 0 5, 0 0 5"));
}

TEST(PlaneLineIntersect, HitsBothNeighboursOfASegmentInThePlane) {
  EXPECT_THAT(all(5.0, line("0 0 0, 1 0 5, 2 0 5, 3 0 7")), LineIs("1 0 5, 2 0 5"));
}

TEST(PlaneLineIntersect, KeptFirstHitPassesRejectedPlaceOn) {
  const VertexLine overflowing = line("-1e308 3 -1, 1e308 3 1");
  EXPECT_EQ(first(0.0, overflowing), (Found{false, {infinity, 3, 0}, -242}));
  // A later hit takes its place; the list holds hits alone.
  const VertexLine andBack = line("-1e308 3 -1, 1e308 3 1, 1e308 5 -1");
  EXPECT_EQ(first(0.0, andBack), (Found{true, {1e308, 4, 0}, 1}));
  EXPECT_EQ(all(0.0, overflowing), VertexLine());
  EXPECT_THAT(all(0.0, andBack), LineIs("1e308 4 0"));
}

TEST(PlaneLineIntersect, ShortFormsAndPointFormsGiveTheSame) {
  const VertexLine l = line(zigzag);
  const gdfVertex point(7, 7, 5);
  const gdfVertex normal(0, 0, 2);
  gdfVertex out;
  EXPECT_TRUE(zr3DTools::planeLineIntersect(5.0, up, l, out, tolerance));
  EXPECT_THAT(out, VertexIs("0.5 0 5"));
  out = gdfVertex();
  EXPECT_TRUE(zr3DTools::planeLineIntersect(point, normal, l, out, tolerance));
  EXPECT_THAT(out, VertexIs("0.5 0 5"));
  Found found;
  EXPECT_TRUE(zr3DTools::planeLineIntersect(point, normal, l, found.out, found.segment, tolerance));
  EXPECT_THAT(found.out, VertexIs("0.5 0 5"));
  EXPECT_EQ(found.segment, 0);
  VertexLine hits = line("9 9 9");
  EXPECT_TRUE(zr3DTools::planeLineIntersect(point, normal, l, hits, tolerance));
  EXPECT_THAT(hits, LineIs("0.5 0 5, 1.5 0 5, 2.5 0 5"));
  EXPECT_FALSE(zr3DTools::planeLineIntersect({0, 0, 50}, normal, l, hits, tolerance));
  EXPECT_TRUE(hits.empty());
}

TEST(PlaneLineIntersect, OutputMayBeAnInput) {
  VertexLine l = line(zigzag);
  EXPECT_TRUE(zr3DTools::planeLineIntersect(5.0, up, l, l, tolerance));
  EXPECT_THAT(l, LineIs("0.5 0 5, 1.5 0 5, 2.5 0 5"));
  // The rejected place may not turn into a vertex of the line that is still to be read.
  VertexLine overflowing = line("-1e308 3 -1, 1e308 3 1, 1e308 5 -1");
  EXPECT_TRUE(zr3DTools::planeLineIntersect(0.0, up, overflowing, overflowing[1], tolerance));
  EXPECT_THAT(overflowing[1], VertexIs("1e308 4 0"));
  VertexLine normalFirst = line("0 0 1, 7 7 7");
  EXPECT_TRUE(
      zr3DTools::planeLineIntersect(5.0, normalFirst[0], line(zigzag), normalFirst, tolerance));
  EXPECT_THAT(normalFirst, LineIs("0.5 0 5, 1.5 0 5, 2.5 0 5"));
}

Found nearest(double d, const gdfVertex& reference, const VertexLine& l,
              double withTolerance = tolerance, const gdfVertex& normal = up) {
  Found found;
  found.result = zr3DTools::nearestPlaneLineIntersect(d, normal, reference, l, found.out,
                                                      found.segment, withTolerance);
  return found;
}

Found nearestOfPolygon(double d, const gdfVertex& reference, const VertexLine& l,
                       double withTolerance = tolerance, const gdfVertex& normal = up) {
  Found found;
  found.result = zr3DTools::nearestPlanePolygonIntersect(d, normal, reference, l, found.out,
                                                         found.segment, withTolerance);
  return found;
}

TEST(NearestPlaneLineIntersect, TakesTheHitNearestInSpace) {
  EXPECT_EQ(nearest(5.0, {1.75, 0, 5}, line(zigzag)), (Found{true, {1.5, 0, 5}, 1}));
  EXPECT_EQ(nearest(5.0, {99, 0, -7}, line(zigzag)), (Found{true, {2.5, 0, 5}, 2}));
  // In the map (0, 0) is nearer to the first hit, in space to the second.
  EXPECT_EQ(nearest(0.0, {0, 0, 9}, line("-1 0 0, 1 0 0, 3 0 9, 2 0 9"), tolerance, {1, 0, 0}),
            (Found{true, {0, 0, 0}, 0}));
  EXPECT_EQ(nearest(0.0, {0, 0, 9}, line("-1 0 0, 1 0 0, 1 2 9, -1 2 9"), tolerance, {1, 0, 0}),
            (Found{true, {0, 2, 9}, 2}));
}

TEST(NearestPlaneLineIntersect, KeepsTheEarlierOfEqualDistances) {
  EXPECT_EQ(nearest(5.0, {1, 0, 5}, line(zigzag)), (Found{true, {0.5, 0, 5}, 0}));
  EXPECT_EQ(nearest(5.0, {0, 0, 0}, line("0 0 0, 0 0 5, 0 0 10")), (Found{true, {0, 0, 5}, 0}));
}

TEST(NearestPlaneLineIntersect, LeavesTheOutputsAloneOnAMiss) {
  EXPECT_EQ(nearest(50.0, {0, 0, 0}, line(zigzag)), nothing);
  EXPECT_EQ(nearest(5.0, {0, 0, 0}, line("0 0 5")), nothing);
  EXPECT_EQ(nearest(5.0, {0, 0, 0}, line("")), nothing);
  // A place that is rejected as not finite is not passed on here.
  EXPECT_EQ(nearest(0.0, {0, 0, 0}, line("-1e308 3 -1, 1e308 3 1")), nothing);
}

TEST(NearestPlaneLineIntersect, FindsNothingAtUnsetDistanceAndBeyond) {
  EXPECT_EQ(nearest(5.0, {gdfInternal::unset, 0, 5}, line(zigzag)), nothing);
  EXPECT_EQ(nearest(5.0, vertex("nan 0 0"), line(zigzag)), nothing);
  EXPECT_TRUE(nearest(5.0, {3.4e38, 0, 5}, line(zigzag)).result);
}

TEST(NearestPlanePolygonIntersect, FindsTheImplicitClosingSegment) {
  // The last vertex, 2, is below the plane, the first above it.
  const VertexLine triangle = line("0 0 10, 10 0 10, 0 0 0");
  EXPECT_EQ(nearestOfPolygon(5.0, {-1, 0, 5}, triangle), (Found{true, {0, 0, 5}, 2}));
  EXPECT_EQ(nearestOfPolygon(5.0, {6, 0, 5}, triangle), (Found{true, {5, 0, 5}, 1}));
}

TEST(NearestPlanePolygonIntersect, PassesOverAClosingSegmentWithoutLength) {
  const VertexLine closed = line("0 0 10, 10 0 10, 0 0 0, 0 0 10");
  EXPECT_EQ(nearestOfPolygon(5.0, {-1, 0, 5}, closed), (Found{true, {0, 0, 5}, 2}));
}

TEST(NearestPlanePolygonIntersect, KeepsTheOnlySegmentOfTwoVertices) {
  // There and back are the same place.
  EXPECT_EQ(nearestOfPolygon(5.0, {0, 0, 0}, line("0 0 0, 0 0 10")), (Found{true, {0, 0, 5}, 0}));
}

TEST(NearestPlanePolygonIntersect, LeavesTheOutputsAloneOnAMiss) {
  EXPECT_EQ(nearestOfPolygon(50.0, {0, 0, 0}, line(zigzag)), nothing);
  EXPECT_EQ(nearestOfPolygon(5.0, {0, 0, 0}, line("0 0 5")), nothing);
  EXPECT_EQ(nearestOfPolygon(5.0, {0, 0, 0}, line("")), nothing);
}

TEST(NearestPlaneIntersect, OutputMayBeTheReference) {
  const VertexLine l = line(zigzag);
  gdfVertex reference(1.75, 0, 5);
  int segment = -1;
  EXPECT_TRUE(zr3DTools::nearestPlaneLineIntersect(5.0, up, reference, l, reference, segment, 0.0));
  EXPECT_THAT(reference, VertexIs("1.5 0 5"));
  VertexLine own = line("0 0 10, 10 0 10, 0 0 0");
  EXPECT_TRUE(zr3DTools::nearestPlanePolygonIntersect(5.0, up, own[1], own, own[0], segment, 0.0));
  EXPECT_THAT(own[0], VertexIs("5 0 5"));
}

// A second writing of the same rules, held against the library to the last bit.

bool plainCut(double d, const gdfVertex& n, gdfVertex low, gdfVertex high, gdfVertex& out,
              double within) {
  if (low == high) return false;
  if (high < low) std::swap(low, high);
  const double d1 = n.x() * low.x() + n.y() * low.y() + n.z() * low.z();
  const double d2 = n.x() * high.x() + n.y() * high.y() + n.z() * high.z();
  const double difference = d2 - d1;
  if (difference >= -within && difference <= within) return false;
  if ((d - d2) * (d - d1) > 0.0) return false;
  const double t = (d - d1) / difference;
  out = gdfVertex((high.x() - low.x()) * t + low.x(), (high.y() - low.y()) * t + low.y(),
                  (high.z() - low.z()) * t + low.z());
  return std::isfinite(out.x()) && std::isfinite(out.y()) && std::isfinite(out.z());
}

Found plainNearest(double d, const gdfVertex& n, const gdfVertex& reference, const VertexLine& l,
                   double within, bool closed) {
  Found found;
  double best = 3.4028234663852886e38;
  const std::size_t count = l.size() < 2 ? 0 : closed ? l.size() : l.size() - 1;
  for (std::size_t i = 0; i < count; ++i) {
    gdfVertex hit;
    if (!plainCut(d, n, l[i], l[(i + 1) % l.size()], hit, within)) continue;
    const double distance = (hit - reference).length();
    if (distance < best) {
      best = distance;
      found = {true, hit, static_cast<int>(i)};
    }
  }
  return found;
}

RC_GTEST_PROP(PlaneLineIntersect, AgreesWithAPlainWriting, ()) {
  const gdfVertex normal = *anyVertex(), reference = *anyVertex();
  const VertexLine l = *rc::gen::container<VertexLine>(anyVertex());
  const double within = *anyTolerance();
  // Often right through a vertex of the line.
  const double d = l.empty() ? 0.0 : *rc::gen::element(0.0, normal * l[0], normal * l.back(), 0.1);

  Found plainFirst;
  VertexLine plainAll;
  for (std::size_t i = 0; i + 1 < l.size(); ++i) {
    gdfVertex hit;
    if (!plainCut(d, normal, l[i], l[i + 1], hit, within)) continue;
    if (plainAll.empty()) plainFirst = {true, hit, static_cast<int>(i)};
    plainAll.push_back(hit);
  }
  // With a negative tolerance a segment within the plane is rejected as not finite, and leaves it.
  const Found libraryFirst = first(d, l, within, normal);
  RC_ASSERT(libraryFirst.result == plainFirst.result);
  RC_ASSERT(libraryFirst.segment == plainFirst.segment);
  if (plainFirst.result || within >= 0.0) RC_ASSERT(libraryFirst.out == plainFirst.out);
  RC_ASSERT(all(d, l, within, normal) == plainAll);
  RC_ASSERT(nearest(d, reference, l, within, normal) ==
            plainNearest(d, normal, reference, l, within, false));
  RC_ASSERT(nearestOfPolygon(d, reference, l, within, normal) ==
            plainNearest(d, normal, reference, l, within, true));
}

}  // namespace
