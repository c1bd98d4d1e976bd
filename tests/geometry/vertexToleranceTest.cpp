#include <zrBase/geometry/gdfVertex.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <limits>

// Exact comparison and order, and the tolerant comparisons: closed for a number, open for a vertex.

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(VertexEquality, ComparesAllThreeComponentsExactly) {
  const gdfVertex v(1.0, 2.0, 3.0);
  EXPECT_TRUE(v == gdfVertex(1.0, 2.0, 3.0));
  EXPECT_FALSE(v != gdfVertex(1.0, 2.0, 3.0));
  for (const char* other :
       {"1.0000000000000002 2 3", "1 2.0000000000000004 3", "1 2 3.0000000000000004"}) {
    EXPECT_FALSE(v == vertex(other)) << other;
    EXPECT_TRUE(v != vertex(other)) << other;
  }
  EXPECT_TRUE(gdfVertex(0.0, 0.0, 0.0) == gdfVertex(-0.0, -0.0, -0.0));
}

TEST(VertexEquality, NaNInAnyComponentMakesUnequal) {
  for (const char* text : {"nan 2 3", "1 nan 3", "1 2 nan"}) {
    EXPECT_FALSE(vertex(text) == vertex(text)) << text;
    EXPECT_TRUE(vertex(text) != vertex(text)) << text;
  }
}

struct Relation {
  const char* smaller;
  const char* larger;
};

class VertexOrderOf : public testing::TestWithParam<Relation> {};

TEST_P(VertexOrderOf, FirstDifferingCoordinateDecides) {
  const gdfVertex a = vertex(GetParam().smaller);
  const gdfVertex b = vertex(GetParam().larger);
  EXPECT_TRUE(a < b && a <= b && b > a && b >= a);
  EXPECT_FALSE(b < a || b <= a || a > b || a >= b);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, VertexOrderOf,
    testing::Values(Relation{"1 9 9", "2 0 0"}, Relation{"1 1 9", "1 2 0"},
                    Relation{"1 1 1", "1 1 2"}, Relation{"-inf 0 0", "inf 0 0"},
                    // A NaN on either side, or on both, hands the decision to the next coordinate.
                    Relation{"nan 1 9", "5 2 0"}, Relation{"5 1 9", "nan 2 0"},
                    Relation{"nan 1 9", "nan 2 0"}, Relation{"1 nan 1", "1 7 2"}));

TEST(VertexOrder, EqualVerticesAreNeitherBelowNorAbove) {
  const gdfVertex v(1.0, 2.0, 3.0);
  EXPECT_FALSE(v < v);
  EXPECT_FALSE(v > v);
  EXPECT_TRUE(v <= v);
  EXPECT_TRUE(v >= v);
}

TEST(VertexOrder, KeptOrderingLetsNaNFallThrough) {
  const gdfVertex v(1.0, 2.0, notANumber);
  EXPECT_TRUE(v != gdfVertex(1.0, 2.0, notANumber));
  EXPECT_FALSE(v == gdfVertex(1.0, 2.0, notANumber));
  EXPECT_TRUE(v <= gdfVertex(1.0, 2.0, notANumber));
  EXPECT_TRUE(v >= gdfVertex(1.0, 2.0, notANumber));
  EXPECT_FALSE(v < gdfVertex(1.0, 2.0, notANumber));
  EXPECT_FALSE(v > gdfVertex(1.0, 2.0, notANumber));
  // Against a number too, and with the NaN in front of deciding coordinates.
  EXPECT_TRUE(v <= gdfVertex(1.0, 2.0, 3.0) && v >= gdfVertex(1.0, 2.0, 3.0));
  EXPECT_TRUE(gdfVertex(notANumber, 1.0, 0.0) < gdfVertex(0.0, 2.0, 0.0));
}

/// A coordinate out of few values, so that ties in x and y come up all the time.
rc::Gen<gdfVertex> vertexWithTies() {
  const auto coordinate = rc::gen::map(rc::gen::inRange(-2, 3), [](int k) { return k / 64.0; });
  return rc::gen::apply([](double x, double y, double z) { return gdfVertex(x, y, z); }, coordinate,
                        coordinate, coordinate);
}

RC_GTEST_PROP(VertexOrder, ExactlyOneOfBelowEqualAboveHolds, ()) {
  const gdfVertex a = *vertexWithTies();
  const gdfVertex b = *vertexWithTies();
  RC_ASSERT((a < b) + (a == b) + (a > b) == 1);
}

RC_GTEST_PROP(VertexOrder, SwappedSidesMirrorTheAnswer, ()) {
  const gdfVertex a = *vertexWithTies();
  const gdfVertex b = *vertexWithTies();
  RC_ASSERT((a < b) == (b > a));
  RC_ASSERT((a <= b) == (b >= a));
  RC_ASSERT((a <= b) == !(b < a));
  RC_ASSERT((a >= b) == !(a < b));
}

RC_GTEST_PROP(VertexOrder, IsTransitive, ()) {
  const gdfVertex a = *vertexWithTies();
  const gdfVertex b = *vertexWithTies();
  const gdfVertex c = *vertexWithTies();
  if (a < b && b < c) RC_ASSERT(a < c);
  if (a <= b && b <= c) RC_ASSERT(a <= c);
}

RC_GTEST_PROP(VertexOrder, StaysUnderAShift, ()) {
  const gdfVertex a = *vertexWithTies();
  const gdfVertex b = *vertexWithTies();
  const gdfVertex shift = *vertexWithTies();
  RC_ASSERT((a < b) == (a + shift < b + shift));
}

TEST(EqualZero, NumberWithinItsToleranceBothEndsIncluded) {
  EXPECT_TRUE(gdfEqualZero(0.0, 0.5));
  EXPECT_TRUE(gdfEqualZero(0.5, 0.5));
  EXPECT_TRUE(gdfEqualZero(-0.5, 0.5));
  EXPECT_FALSE(gdfEqualZero(0.50000000000000011, 0.5));
  EXPECT_FALSE(gdfEqualZero(-0.50000000000000011, 0.5));
}

TEST(EqualZero, KeptScalarZeroTestIsClosed) {
  EXPECT_TRUE(gdfEqualZero(1e-05, 1e-05));
  EXPECT_TRUE(gdfEqualZero(-1e-05, 1e-05));
  EXPECT_FALSE(gdfVertex(1e-05, 0, 0).equalZero(1e-05));
  EXPECT_FALSE(gdfVertex(-1e-05, 0, 0).equalZero(1e-05));
}

TEST(EqualZero, AtToleranceZeroOnlyTheNumberPasses) {
  EXPECT_TRUE(gdfEqualZero(0.0, 0.0));
  EXPECT_TRUE(gdfEqualZero(-0.0, 0.0));
  const gdfVertex zero;
  EXPECT_FALSE(gdfEqualZero(zero, 0.0));
  EXPECT_FALSE(zero.equalZero(0.0));
  EXPECT_FALSE(zero.equal(zero, 0.0));
  EXPECT_FALSE(zero.equalXY(zero, 0.0));
}

TEST(EqualZero, NaNNeverPasses) {
  EXPECT_FALSE(gdfEqualZero(notANumber, 1.0));
  EXPECT_FALSE(gdfEqualZero(0.0, notANumber));
  const gdfVertex zero;
  for (const char* text : {"nan 0 0", "0 nan 0", "0 0 nan"}) {
    EXPECT_FALSE(gdfEqualZero(vertex(text), 1.0)) << text;
    EXPECT_FALSE(vertex(text).equalZero(1.0)) << text;
    EXPECT_FALSE(vertex(text).equal(zero, 1.0)) << text;
    EXPECT_FALSE(zero.equal(vertex(text), 1.0)) << text;
  }
  EXPECT_FALSE(vertex("nan 0 0").equalXY(zero, 1.0));
  EXPECT_FALSE(vertex("0 nan 0").equalXY(zero, 1.0));
  EXPECT_FALSE(zero.equal(zero, notANumber));
}

TEST(EqualZero, VertexIsOpenInEachComponent) {
  EXPECT_TRUE(vertex("0.25 -0.25 0.25").equalZero(0.5));
  for (const char* text : {"0.5 0 0", "-0.5 0 0", "0 0.5 0", "0 -0.5 0", "0 0 0.5", "0 0 -0.5"}) {
    EXPECT_FALSE(vertex(text).equalZero(0.5)) << text;
    EXPECT_FALSE(gdfEqualZero(vertex(text), 0.5)) << text;
    EXPECT_TRUE(gdfEqualZero(vertex(text), 0.5000001)) << text;
  }
}

TEST(VertexEqual, IsAnOpenBoxNotABall) {
  const gdfVertex v(10.0, 20.0, 30.0);
  // Each difference is 0.25, the distance 0.43: within a box of 0.26, outside a ball of it.
  EXPECT_TRUE(v.equal(vertex("10.25 19.75 30.25"), 0.26));
  for (const char* text :
       {"10.25 20 30", "9.75 20 30", "10 20.25 30", "10 19.75 30", "10 20 30.25", "10 20 29.75"}) {
    EXPECT_FALSE(v.equal(vertex(text), 0.25)) << text;
    EXPECT_TRUE(v.equal(vertex(text), 0.2500001)) << text;
  }
}

TEST(VertexEqual, InTheMapLeavesHeightOut) {
  const gdfVertex v(10.0, 20.0, 30.0);
  EXPECT_TRUE(v.equalXY(vertex("10 20 -999"), 1e-05));
  EXPECT_TRUE(v.equalXY(vertex("10 20 nan"), 1e-05));
  for (const char* text : {"10.25 20 30", "9.75 20 30", "10 20.25 30", "10 19.75 30"}) {
    EXPECT_FALSE(v.equalXY(vertex(text), 0.25)) << text;
    EXPECT_TRUE(v.equalXY(vertex(text), 0.2500001)) << text;
  }
}

RC_GTEST_PROP(VertexEqual, IsSymmetricAndStaysUnderAShift, ()) {
  const gdfVertex a = *vertexWithTies();
  const gdfVertex b = *vertexWithTies();
  const gdfVertex shift = *vertexWithTies();
  const double tolerance = *rc::gen::inRange(0, 4) / 64.0;
  RC_ASSERT(a.equal(b, tolerance) == b.equal(a, tolerance));
  RC_ASSERT(a.equalXY(b, tolerance) == b.equalXY(a, tolerance));
  RC_ASSERT(a.equal(b, tolerance) == (a + shift).equal(b + shift, tolerance));
  RC_ASSERT(a.equal(b, tolerance) == (b - a).equalZero(tolerance));
}

}  // namespace
