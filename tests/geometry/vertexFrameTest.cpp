#include <zrBase/geometry/gdfVertex.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <string>

// Unit vectors, and the frames built on them.

namespace {

gdfVertex normalised(const std::string& text) {
  gdfVertex v = vertex(text);
  v.normalise();
  return v;
}

gdfVertex cleaned(const std::string& text) {
  gdfVertex v = vertex(text);
  v.cleanNormal();
  return v;
}

rc::Gen<gdfVertex> anyVertex() {
  const auto coordinate = rc::gen::map(rc::gen::inRange(-512, 513), [](int k) { return k / 64.0; });
  return rc::gen::apply([](double x, double y, double z) { return gdfVertex(x, y, z); }, coordinate,
                        coordinate, coordinate);
}

TEST(Normalise, ScalesToUnitLength) {
  EXPECT_THAT(normalised("3 4 0"), VertexIs("0.6 0.8 0"));
  EXPECT_THAT(normalised("0 -3 4"), VertexIs("0 -0.6 0.8"));
  EXPECT_THAT(normalised("0 0 -7"), VertexIs("0 0 -1"));
}

TEST(Normalise, LengthAtTheLimitGivesTheZeroVector) {
  EXPECT_THAT(normalised("1e-05 0 0"), VertexIs("0 0 0"));
  EXPECT_THAT(normalised("0 0 -1e-06"), VertexIs("0 0 0"));
  EXPECT_THAT(normalised("0 0 0"), VertexIs("0 0 0"));
}

TEST(Normalise, LengthAboveTheLimitGivesTheAxis) {
  EXPECT_THAT(normalised("2e-05 0 0"), VertexIs("1 0 0"));
  EXPECT_THAT(normalised("0 -2e-05 0"), VertexIs("0 -1 0"));
}

// 1e-9 of sideways is lost in the length, so x reaches 1 and the rest is swept away.
TEST(Normalise, SnapsOntoAnAxisThatRoundingReached) {
  EXPECT_THAT(normalised("1 1e-09 0"), VertexIs("1 0 0"));
  EXPECT_THAT(normalised("1e-09 0 -1"), VertexIs("0 0 -1"));
}

TEST(Normalise, NaNStaysNaN) {
  EXPECT_TRUE(std::isnan(normalised("nan 1 0").x()));
  EXPECT_TRUE(std::isnan(normalised("inf 1 0").x()));
  EXPECT_EQ(normalised("inf 1 0").y(), 0.0);
}

RC_GTEST_PROP(Normalise, GivesUnitLengthOrZero, ()) {
  const gdfVertex v = *anyVertex();
  gdfVertex unit = v;
  unit.normalise();
  if (v == ORIGIN) {
    RC_ASSERT(unit == ORIGIN);
  } else {
    RC_ASSERT(std::fabs(unit.length() - 1.0) < 1e-15);
    RC_ASSERT((unit ^ v).length() < 1e-14 * v.length());
    RC_ASSERT(unit * v > 0.0);
  }
}

RC_GTEST_PROP(Normalise, OfTheOppositeIsTheOpposite, ()) {
  gdfVertex forward = *anyVertex();
  gdfVertex backward = -forward;
  forward.normalise();
  backward.normalise();
  RC_ASSERT(backward == -forward);
}

TEST(CleanNormal, SnapsEachComponentAtOrBeyondOne) {
  EXPECT_THAT(cleaned("1 0.1 0.2"), VertexIs("1 0 0"));
  EXPECT_THAT(cleaned("0.1 1 0.2"), VertexIs("0 1 0"));
  EXPECT_THAT(cleaned("0.1 0.2 1"), VertexIs("0 0 1"));
  EXPECT_THAT(cleaned("-1 0.1 0.2"), VertexIs("-1 0 0"));
  EXPECT_THAT(cleaned("0.1 -1 0.2"), VertexIs("0 -1 0"));
  EXPECT_THAT(cleaned("0.1 0.2 -1"), VertexIs("0 0 -1"));
  EXPECT_THAT(cleaned("1.5 0.1 0.2"), VertexIs("1 0 0"));
  EXPECT_THAT(cleaned("0.1 0.2 -1.5"), VertexIs("0 0 -1"));
}

// Pairs of components beyond 1, for every neighbour in the order x, y, z, -x, -y, -z.
TEST(CleanNormal, FirstTestThatHoldsDecides) {
  EXPECT_THAT(cleaned("1 2 0"), VertexIs("1 0 0"));
  EXPECT_THAT(cleaned("0 1 2"), VertexIs("0 1 0"));
  EXPECT_THAT(cleaned("-2 0 1"), VertexIs("0 0 1"));
  EXPECT_THAT(cleaned("-2 1 0"), VertexIs("0 1 0"));
  EXPECT_THAT(cleaned("-1 -2 0"), VertexIs("-1 0 0"));
  EXPECT_THAT(cleaned("0 -1 -2"), VertexIs("0 -1 0"));
}

TEST(CleanNormal, LeavesAllElseAlone) {
  EXPECT_THAT(cleaned("0.9999999999999999 0.1 0.2"), VertexIs("0.9999999999999999 0.1 0.2"));
  EXPECT_THAT(cleaned("-0.5 0.5 -0.5"), VertexIs("-0.5 0.5 -0.5"));
  EXPECT_THAT(cleaned("0 0 0"), VertexIs("0 0 0"));
}

struct Frame {
  bool found = false;
  gdfVertex e1, e2, e3;
};

Frame frameOf(const gdfVertex& v) {
  Frame frame;
  frame.found = v.calculateOrthogonalAxis(frame.e1, frame.e2, frame.e3);
  return frame;
}

TEST(CalculateOrthogonalAxis, OfTheZeroVectorIsFalseWithTheGlobalAxes) {
  for (const char* text : {"0 0 0", "1e-05 0 0", "0 -1e-05 0"}) {
    Frame frame;
    frame.e1 = frame.e2 = frame.e3 = vertex("9 9 9");
    EXPECT_FALSE(vertex(text).calculateOrthogonalAxis(frame.e1, frame.e2, frame.e3)) << text;
    EXPECT_THAT(frame.e1, VertexIs("1 0 0"));
    EXPECT_THAT(frame.e2, VertexIs("0 1 0"));
    EXPECT_THAT(frame.e3, VertexIs("0 0 1"));
  }
}

TEST(CalculateOrthogonalAxis, LengthJustAboveTheLimitHasAFrame) {
  const Frame frame = frameOf(vertex("0 0 2e-05"));
  EXPECT_TRUE(frame.found);
  EXPECT_THAT(frame.e3, VertexIs("0 0 1"));
}

TEST(CalculateOrthogonalAxis, AlongZ) {
  const Frame frame = frameOf(vertex("0 0 2"));
  EXPECT_TRUE(frame.found);
  EXPECT_THAT(frame.e1, VertexIs("1 0 0"));
  EXPECT_THAT(frame.e2, VertexIs("0 1 0"));
  EXPECT_THAT(frame.e3, VertexIs("0 0 1"));
}

TEST(CalculateOrthogonalAxis, AlongX) {
  const Frame frame = frameOf(vertex("3 0 0"));
  EXPECT_TRUE(frame.found);
  EXPECT_THAT(frame.e1, VertexIs("0 1 0"));
  EXPECT_THAT(frame.e2, VertexIs("0 0 1"));
  EXPECT_THAT(frame.e3, VertexIs("1 0 0"));
}

TEST(CalculateOrthogonalAxis, KeptFrameOfYAxisIsLeftHanded) {
  const Frame frame = frameOf(vertex("0 4 0"));
  EXPECT_TRUE(frame.found);
  EXPECT_THAT(frame.e1, VertexIs("1 0 0"));
  EXPECT_THAT(frame.e2, VertexIs("0 0 1"));
  EXPECT_THAT(frame.e3, VertexIs("0 1 0"));
  EXPECT_EQ((frame.e1 ^ frame.e2) * frame.e3, -1.0);
}

// e3 = (0, 0, -1): e3 ^ X = (0, -1, 0) and e3 ^ Y = (1, 0, 0) are equally long, and a tie takes the
// first. e1 = e3 ^ (0, -1, 0) = (-1, 0, 0), e2 = e3 ^ e1 = (0, 1, 0).
TEST(CalculateOrthogonalAxis, TieTakesTheProductWithX) {
  const Frame frame = frameOf(vertex("0 0 -2"));
  EXPECT_TRUE(frame.found);
  EXPECT_THAT(frame.e1, VertexIs("-1 0 0"));
  EXPECT_THAT(frame.e2, VertexIs("0 1 0"));
  EXPECT_THAT(frame.e3, VertexIs("0 0 -1"));
}

// e3 = (-1, 0, 0): e3 ^ X vanishes, e3 ^ Y = (0, 0, -1); e1 = e3 ^ that = (0, -1, 0), e2 = e3 ^ e1
// = (0, 0, 1).
TEST(CalculateOrthogonalAxis, LongerProductIsTaken) {
  const Frame frame = frameOf(vertex("-5 0 0"));
  EXPECT_THAT(frame.e1, VertexIs("0 -1 0"));
  EXPECT_THAT(frame.e2, VertexIs("0 0 1"));
  EXPECT_THAT(frame.e3, VertexIs("-1 0 0"));
}

// e3 = (0, 0.6, 0.8): e3 ^ X = (0, 0.8, -0.6), longer than e3 ^ Y = (-0.8, 0, 0).
// e1 = e3 ^ (0, 0.8, -0.6) = (-0.36 - 0.64, 0, 0), e2 = e3 ^ (-1, 0, 0) = (0, -0.8, 0.6).
TEST(CalculateOrthogonalAxis, GeneralDirection) {
  const Frame frame = frameOf(vertex("0 3 4"));
  EXPECT_THAT(frame.e1, VertexNear("-1 0 0", 1e-15));
  EXPECT_THAT(frame.e2, VertexNear("0 -0.8 0.6", 1e-15));
  EXPECT_THAT(frame.e3, VertexIs("0 0.6 0.8"));
}

// The third axis is a plain quotient: what normalise would snap to (1, 0, 0) keeps its 1e-9 and
// takes the general way. There e3 ^ Y = (0, 0, 1) is the longer, e1 = e3 ^ (0, 0, 1) = (1e-9, -1,
// 0), and that one is snapped.
TEST(CalculateOrthogonalAxis, KeptThirdAxisIsNotSnapped) {
  const Frame frame = frameOf(vertex("1 1e-09 0"));
  EXPECT_THAT(frame.e3, VertexIs("1 1e-09 0"));
  EXPECT_THAT(frame.e1, VertexIs("0 -1 0"));
  EXPECT_THAT(frame.e2, VertexIs("0 0 -1"));
}

TEST(CalculateOrthogonalAxis, AnyOutputMayBeTheVectorItself) {
  const gdfVertex source(1.0, 2.0, 2.0);
  const Frame expected = frameOf(source);
  gdfVertex v = source;
  Frame frame;
  EXPECT_TRUE(v.calculateOrthogonalAxis(frame.e1, frame.e2, v));
  EXPECT_EQ(v, expected.e3);
  EXPECT_EQ(frame.e1, expected.e1);
  EXPECT_EQ(frame.e2, expected.e2);
  v = source;
  EXPECT_TRUE(v.calculateOrthogonalAxis(v, frame.e2, frame.e3));
  EXPECT_EQ(v, expected.e1);
  EXPECT_EQ(frame.e3, expected.e3);
  v = source;
  EXPECT_TRUE(v.calculateOrthogonalAxis(frame.e1, v, frame.e3));
  EXPECT_EQ(v, expected.e2);
}

RC_GTEST_PROP(CalculateOrthogonalAxis, IsOrthonormalAndRightHandedButForY, ()) {
  const gdfVertex v = *anyVertex();
  RC_PRE(v != ORIGIN);
  const Frame frame = frameOf(v);
  RC_ASSERT(frame.found);
  for (const gdfVertex& axis : {frame.e1, frame.e2, frame.e3}) {
    RC_ASSERT(std::fabs(axis.length() - 1.0) < 1e-14);
  }
  RC_ASSERT(std::fabs(frame.e1 * frame.e2) < 1e-14);
  RC_ASSERT(std::fabs(frame.e2 * frame.e3) < 1e-14);
  RC_ASSERT(std::fabs(frame.e3 * frame.e1) < 1e-14);
  RC_ASSERT(frame.e3 == v / v.length());
  const double handedness = frame.e3 == Y_AXIS ? -1.0 : 1.0;
  RC_ASSERT(std::fabs((frame.e1 ^ frame.e2) * frame.e3 - handedness) < 1e-14);
}

}  // namespace
