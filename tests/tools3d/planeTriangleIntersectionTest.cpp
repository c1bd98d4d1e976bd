#include <zrBase/tools3d/planeTriangleIntersection.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <zrBase/tools3d/planeIntersection.h>

#include "support/geometryText.h"

#include <cmath>
#include <limits>
#include <ostream>

// The stretch in which a plane cuts a triangle.

namespace {

constexpr double tolerance = 1e-05;
const gdfVertex up(0, 0, 1);

/// The result and both ends, which start as "-1 -2 -3" and "-4 -5 -6".
struct Stretch {
  bool result = false;
  gdfVertex first{-1, -2, -3};
  gdfVertex second{-4, -5, -6};

  bool operator==(const Stretch& o) const {
    return result == o.result && first == o.first && second == o.second;
  }
};

std::ostream& operator<<(std::ostream& stream, const Stretch& s) {
  return stream << s.result << ", " << toText(s.first) << " to " << toText(s.second);
}

/// Cuts a triangle that is given as a line of three vertices.
Stretch cut(double d, const char* corners, const gdfVertex& normal = up,
            double withTolerance = tolerance) {
  const VertexLine t = line(corners);
  Stretch s;
  s.result = zr3DTools::planeTriangleIntersect(d, normal, t.at(0), t.at(1), t.at(2), s.first,
                                               s.second, withTolerance);
  return s;
}

Stretch stretch(const char* first, const char* second) {
  return {true, vertex(first), vertex(second)};
}

TEST(PlaneTriangleIntersect, CutsTwoEdgesInTheirOrder) {
  // The corner that stands alone on its side is b, then c, then a.
  EXPECT_EQ(cut(5.0, "0 0 0, 4 0 10, 8 0 0"), stretch("2 0 5", "6 0 5"));
  EXPECT_EQ(cut(5.0, "0 0 0, 8 0 0, 4 0 10"), stretch("6 0 5", "2 0 5"));
  EXPECT_EQ(cut(5.0, "4 0 10, 0 0 0, 8 0 0"), stretch("2 0 5", "6 0 5"));
}

TEST(PlaneTriangleIntersect, IsFalseOnOneSide) {
  EXPECT_EQ(cut(50.0, "0 0 0, 4 0 10, 8 0 0"), Stretch());
  EXPECT_EQ(cut(-5.0, "0 0 0, 4 0 10, 8 0 0"), Stretch());
}

TEST(PlaneTriangleIntersect, RunsFromACornerToTheOppositeEdge) {
  EXPECT_EQ(cut(5.0, "0 0 5, 4 0 0, 8 0 10"), stretch("0 0 5", "6 0 5"));
  EXPECT_EQ(cut(5.0, "4 0 0, 0 0 5, 8 0 10"), stretch("0 0 5", "6 0 5"));
  EXPECT_EQ(cut(5.0, "4 0 0, 8 0 10, 0 0 5"), stretch("0 0 5", "6 0 5"));
}

TEST(PlaneTriangleIntersect, RunsAlongAnEdgeOnThePlane) {
  EXPECT_EQ(cut(5.0, "0 0 5, 4 0 5, 8 0 10"), stretch("0 0 5", "4 0 5"));
  EXPECT_EQ(cut(5.0, "0 0 5, 8 0 10, 4 0 5"), stretch("0 0 5", "4 0 5"));
  EXPECT_EQ(cut(5.0, "8 0 10, 0 0 5, 4 0 5"), stretch("0 0 5", "4 0 5"));
}

TEST(PlaneTriangleIntersect, GivesFirstTwoCornersOfATriangleOnThePlane) {
  EXPECT_EQ(cut(5.0, "0 0 5, 4 0 5, 8 1 5"), stretch("0 0 5", "4 0 5"));
}

TEST(PlaneTriangleIntersect, GivesACornerNearThePlaneAsItIs) {
  EXPECT_EQ(cut(5.0, "0 0 5.00005, 4 0 0, 8 0 10"), stretch("0 0 5.00005", "6 0 5"));
}

TEST(PlaneTriangleIntersect, KeptTriangleToleranceIsFixed) {
  // A corner 0.00005 off is on the plane, one 0.0002 off is not, whatever is asked for.
  for (const double asked : {0.0, 1e-05, 1.0, -1.0, 1e300}) {
    EXPECT_EQ(cut(0.0, "0 0 0.00005, 4 0 -1, 8 0 1", up, asked), stretch("0 0 0.00005", "6 0 0"));
    const Stretch off = cut(0.0, "0 0 0.0002, 4 0 -1, 8 0 1", up, asked);
    EXPECT_TRUE(off.result);
    EXPECT_THAT(off.first, VertexNear("0.00079984 0 0", 1e-08));
    EXPECT_EQ(off.second, gdfVertex(6, 0, 0));
  }
}

TEST(PlaneTriangleIntersect, TakesCornersWithBothBoundsClosed) {
  EXPECT_EQ(cut(0.0, "0 0 0.0001, 4 0 -0.0001, 8 0 1"), stretch("0 0 0.0001", "4 0 -0.0001"));
  // A hair farther off: no corner lies on the plane, and the edge from b to c is cut.
  const double off = std::nextafter(0.0001, 1.0);
  Stretch s;
  EXPECT_FALSE(zr3DTools::planeTriangleIntersect(0.0, up, {0, 0, off}, {4, 0, off}, {8, 0, 1},
                                                 s.first, s.second, tolerance));
  EXPECT_EQ(s, Stretch());
}

TEST(PlaneTriangleIntersect, ScalesItsToleranceWithTheNormal) {
  EXPECT_EQ(cut(0.0, "0 0 0.0002, 4 0 -1, 8 0 1", {0, 0, 0.5}), stretch("0 0 0.0002", "6 0 0"));
}

TEST(PlaneTriangleIntersect, KeptTouchingCornerIsWrittenAndFalse) {
  const Stretch touching{false, {0, 0, 5}, {-4, -5, -6}};
  EXPECT_EQ(cut(5.0, "0 0 5, 4 0 6, 8 0 10"), touching);
  EXPECT_EQ(cut(5.0, "4 0 6, 0 0 5, 8 0 10"), touching);
  EXPECT_EQ(cut(5.0, "4 0 6, 8 0 10, 0 0 5"), touching);
}

TEST(PlaneTriangleIntersect, PassesRejectedPlacesOn) {
  const double infinity = std::numeric_limits<double>::infinity();
  // On a-b and on c-a x overflows; b and c lie on one side.
  EXPECT_EQ(cut(0.0, "-1e308 3 -1, 1e308 3 1, 1e308 9 1"),
            (Stretch{false, {infinity, 3, 0}, {-4, -5, -6}}));
  EXPECT_EQ(cut(0.0, "1e308 0 0, -1e308 3 -1, 1e308 3 1"),
            (Stretch{false, {1e308, 0, 0}, {infinity, 3, 0}}));
  // On b-c and on c-a x overflows; a and b lie on one side.
  EXPECT_EQ(cut(0.0, "1e308 9 -1, -1e308 3 -1, 1e308 3 1"),
            (Stretch{false, {infinity, 3, 0}, {-4, -5, -6}}));
}

TEST(PlaneTriangleIntersect, OutputsMayBeCorners) {
  VertexLine t = line("0 0 0, 4 0 10, 8 0 0");
  EXPECT_TRUE(zr3DTools::planeTriangleIntersect(5.0, up, t[0], t[1], t[2], t[1], t[0], tolerance));
  EXPECT_THAT(t, LineIs("6 0 5, 2 0 5, 8 0 0"));
  VertexLine onCorner = line("0 0 5, 4 0 0, 8 0 10");
  EXPECT_TRUE(zr3DTools::planeTriangleIntersect(5.0, up, onCorner[0], onCorner[1], onCorner[2],
                                                onCorner[1], onCorner[2], tolerance));
  EXPECT_THAT(onCorner, LineIs("0 0 5, 0 0 5, 6 0 5"));
  gdfVertex normal = up;
  gdfVertex second;
  EXPECT_TRUE(zr3DTools::planeTriangleIntersect(5.0, normal, {0, 0, 0}, {4, 0, 10}, {8, 0, 0},
                                                normal, second, tolerance));
  EXPECT_THAT(normal, VertexIs("2 0 5"));
  EXPECT_THAT(second, VertexIs("6 0 5"));
}

/// The same cases spelled out one by one, from the corners' places and the cuts of the edges.
Stretch plainCut(double d, const gdfVertex& n, const gdfVertex& a, const gdfVertex& b,
                 const gdfVertex& c) {
  const auto on = [&](const gdfVertex& v) {
    const double r = n * v - d;
    return r >= -0.0001 && r <= 0.0001;
  };
  const auto cutEdge = [&](const gdfVertex& u, const gdfVertex& v, gdfVertex& out) {
    return zr3DTools::planeSegmentIntersect(d, n, u, v, out, 0.0001);
  };
  Stretch s;
  if (on(a) && on(b)) {
    s = {true, a, b};
  } else if (on(a) && on(c)) {
    s = {true, a, c};
  } else if (on(a)) {
    s.first = a;
    s.result = cutEdge(b, c, s.second);
  } else if (on(b) && on(c)) {
    s = {true, b, c};
  } else if (on(b)) {
    s.first = b;
    s.result = cutEdge(a, c, s.second);
  } else if (on(c)) {
    s.first = c;
    s.result = cutEdge(a, b, s.second);
  } else if (cutEdge(a, b, s.first)) {
    s.result = cutEdge(b, c, s.second);
    if (!s.result) s.result = cutEdge(c, a, s.second);
  } else if (cutEdge(b, c, s.first)) {
    s.result = cutEdge(c, a, s.second);
  }
  return s;
}

RC_GTEST_PROP(PlaneTriangleIntersect, AgreesWithAPlainWriting, ()) {
  const auto drawn = [] {
    const int x = *rc::gen::inRange(-4, 5);
    const int y = *rc::gen::inRange(-4, 5);
    return gdfVertex(x, y, *rc::gen::inRange(-4, 5)) / 64.0;
  };
  const gdfVertex n = drawn(), a = drawn(), b = drawn(), c = drawn();
  const double d = *rc::gen::inRange(-8, 9) / 4096.0;
  Stretch s;
  s.result = zr3DTools::planeTriangleIntersect(d, n, a, b, c, s.first, s.second, 0.5);
  RC_ASSERT(s == plainCut(d, n, a, b, c));
}

}  // namespace
