#include <zrBase/survey/zrCordinateConversion.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <zrBase/tools3d/planeFit.h>

#include "support/geometryText.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
const char* const anywhere = "1 2 3, -40 50 -60, 0 0 0, 1000.125 -0.5 7";

zrCordinateConversion frameOf(const gdfVertex& normal, bool force = false) {
  zrCordinateConversion frame;
  frame.setLocalCoordinates(normal, force);
  return frame;
}

VertexLine toLocal(const zrCordinateConversion& frame, VertexLine vertices) {
  frame.convertToLocalCoordinates(vertices);
  return vertices;
}

VertexLine toModel(const zrCordinateConversion& frame, VertexLine vertices) {
  frame.convertToModelCoordinates(vertices);
  return vertices;
}

#define EXPECT_MODEL_FRAME(frame)                                  \
  do {                                                             \
    EXPECT_THAT(toLocal(frame, line(anywhere)), LineIs(anywhere)); \
    EXPECT_THAT(toModel(frame, line(anywhere)), LineIs(anywhere)); \
  } while (false)

TEST(LocalFrame, StartsAsTheModelsOwn) {
  const zrCordinateConversion frame;
  EXPECT_MODEL_FRAME(frame);
  EXPECT_THAT(frame.getNormal(), VertexIs("0 0 0"));
}

TEST(LocalFrame, LeavesALevelPlaneAlone) {
  zrCordinateConversion frame;
  frame.setLocalCoordinates(vertex("0 0 1"), false);
  EXPECT_MODEL_FRAME(frame);
  EXPECT_THAT(frame.getNormal(), VertexIs("0 0 0"));
}

TEST(LocalFrame, KeptNearlyLevelPlaneKeepsOldNormal) {
  zrCordinateConversion frame = frameOf(vertex("0.6 0 0.8"));
  frame.setLocalCoordinates(vertex("0 0 -1"), false);
  EXPECT_MODEL_FRAME(frame);
  EXPECT_THAT(frame.getNormal(), VertexIs("0.6 0 0.8"));
}

TEST(LocalFrame, TurnsASlopingPlaneLevel) {
  const zrCordinateConversion frame = frameOf(vertex("0.6 0 0.8"));
  EXPECT_THAT(frame.getNormal(), VertexIs("0.6 0 0.8"));
  // About the y axis, (0.6, 0, 0.8) up to z: down dip goes east, along strike nothing moves.
  EXPECT_THAT(toLocal(frame, line("0.6 0 0.8, 0.8 0 -0.6, 0 5 0, 8 5 -6, 3 0 4")),
              LineNear("0 0 1, 1 0 0, 0 5 0, 10 5 0, 0 0 5", 1e-14));
  EXPECT_THAT(toModel(frame, line("0 0 1, 1 0 0, 0 5 0, 10 5 0, 0 0 5")),
              LineNear("0.6 0 0.8, 0.8 0 -0.6, 0 5 0, 8 5 -6, 3 0 4", 1e-14));
}

TEST(LocalFrame, TurnsAnUprightPlaneLevel) {
  // North up to z, z down to the south.
  const zrCordinateConversion frame = frameOf(vertex("0 1 0"));
  EXPECT_THAT(toLocal(frame, line("1 0 0, 0 1 0, 0 0 1")), LineNear("1 0 0, 0 0 1, 0 -1 0", 1e-15));
}

TEST(LocalFrame, TakesTheLimitsForLevel) {
  for (const double z : {0.9, -0.9}) {
    const double x = std::sqrt(1.0 - z * z);
    const zrCordinateConversion level = frameOf(gdfVertex(x, 0.0, z));
    EXPECT_MODEL_FRAME(level);
    EXPECT_THAT(level.getNormal(), VertexIs("0 0 0"));
    const gdfVertex inside(x, 0.0, std::nextafter(z, 0.0));
    const zrCordinateConversion sloping = frameOf(inside);
    EXPECT_EQ(sloping.getNormal(), inside);
    EXPECT_THAT(toLocal(sloping, {inside}), LineNear("0 0 1", 1e-14));
  }
}

TEST(LocalFrame, TurnsANearlyLevelPlaneByForce) {
  const gdfVertex normal(std::sqrt(1.0 - 0.95 * 0.95), 0.0, 0.95);
  EXPECT_MODEL_FRAME(frameOf(normal));
  const zrCordinateConversion forced = frameOf(normal, true);
  EXPECT_EQ(forced.getNormal(), normal);
  EXPECT_THAT(toLocal(forced, {normal}), LineNear("0 0 1", 1e-14));
}

TEST(LocalFrame, LeavesANormalOfNaNsAlone) {
  EXPECT_MODEL_FRAME(frameOf(gdfVertex(nan, nan, nan)));
  EXPECT_THAT(frameOf(gdfVertex(nan, nan, nan)).getNormal(), VertexIs("0 0 0"));
}

TEST(LocalFrame, KeptVerticalNormalTurnsAboutZ) {
  const zrCordinateConversion up = frameOf(vertex("0 0 1"), true);
  EXPECT_MODEL_FRAME(up);
  EXPECT_THAT(up.getNormal(), VertexIs("0 0 1"));
  // Downward: a half turn in the map, and the plane stays upside down.
  const zrCordinateConversion down = frameOf(vertex("0 0 -1"), true);
  EXPECT_THAT(toLocal(down, line("1 2 3")), LineNear("-1 -2 3", 1e-14));
  EXPECT_THAT(toModel(down, line("1 2 3")), LineNear("-1 -2 3", 1e-14));
  EXPECT_THAT(down.getNormal(), VertexIs("0 0 -1"));
  // No normal at all: a quarter turn, not stopped by the test for level planes.
  for (const bool force : {false, true}) {
    zrCordinateConversion none = frameOf(vertex("0.6 0 0.8"));
    none.setLocalCoordinates(vertex("0 0 0"), force);
    EXPECT_THAT(none.getNormal(), VertexIs("0 0 0"));
    EXPECT_THAT(toLocal(none, line("1 2 3")), LineNear("-2 1 3", 1e-15));
    EXPECT_THAT(toModel(none, line("1 2 3")), LineNear("2 -1 3", 1e-15));
  }
}

TEST(LocalFrame, TakesANormalThatRoundingMadeTooLong) {
  // The cosine of its tilt is a hair above 1: no turn, about the x axis. Upside down it is a half
  // turn about that axis.
  const double hairAboveOne = std::nextafter(1.0, 2.0);
  const zrCordinateConversion up = frameOf(gdfVertex(0.0, 1e-9, hairAboveOne), true);
  EXPECT_THAT(toLocal(up, line("1 2 3")), LineNear("1 2 3", 1e-14));
  EXPECT_THAT(toModel(up, line("1 2 3")), LineNear("1 2 3", 1e-14));
  const zrCordinateConversion down = frameOf(gdfVertex(0.0, 1e-9, -hairAboveOne), true);
  EXPECT_THAT(toLocal(down, line("1 2 3")), LineNear("1 -2 -3", 1e-14));
  EXPECT_THAT(toModel(down, line("1 2 3")), LineNear("1 -2 -3", 1e-14));
}

TEST(LocalFrame, ReplacesAnEarlierFrame) {
  zrCordinateConversion frame = frameOf(vertex("0.6 0 0.8"));
  frame.setLocalCoordinates(vertex("0 0.6 0.8"), false);
  EXPECT_EQ(toLocal(frame, line(anywhere)), toLocal(frameOf(vertex("0 0.6 0.8")), line(anywhere)));
  frame.setLocalCoordinates(frame.getNormal(), true);
  EXPECT_EQ(toLocal(frame, line(anywhere)), toLocal(frameOf(vertex("0 0.6 0.8")), line(anywhere)));
}

TEST(LocalFrame, ComesFromVertices) {
  // A plane that dips at 3 in 4 towards east, off the axes by more than the tolerance of the fit.
  const VertexLine plane = line("0 0 0, 4 0 -3, 0 5 0, 4 5 -3, 8 1 -6");
  zrCordinateConversion frame;
  frame.setLocalCoordinates(plane, false);
  EXPECT_EQ(frame.getNormal(), zr3DTools::calcAverageNormal(plane));
  EXPECT_NEAR(std::fabs(frame.getNormal().x()), 0.6, 1e-9);
  for (const gdfVertex& v : toLocal(frame, plane)) EXPECT_NEAR(v.z(), 0.0, 1e-9);
  const zrCordinateConversion same = frameOf(zr3DTools::calcAverageNormal(plane));
  EXPECT_EQ(toLocal(frame, line(anywhere)), toLocal(same, line(anywhere)));
}

TEST(LocalFrame, ComesFromIndexedVertices) {
  const VertexLine vertices = line("0 0 0, 100 30 70, 4 0 -3, 0 5 0, 4 5 -3, 8 1 -6");
  const std::vector<int> indices = {0, 2, 3, 4, 5};
  zrCordinateConversion frame;
  frame.setLocalCoordinates(vertices, indices, false);
  EXPECT_EQ(frame.getNormal(), zr3DTools::calcAverageNormal(vertices, indices));
  const VertexLine local = toLocal(frame, vertices);
  for (const int i : indices) EXPECT_NEAR(local[static_cast<std::size_t>(i)].z(), 0.0, 1e-9);
  EXPECT_GT(std::fabs(local[1].z()), 50.0);
}

TEST(LocalFrame, TakesForceFromVerticesToo) {
  // Dips at 1 in 4: the z of the unit normal is 0.970, and no axis is near enough to snap to.
  const VertexLine plane = line("0 0 0, 4 0 -1, 0 5 0, 4 5 -1, 8 1 -2");
  zrCordinateConversion frame;
  frame.setLocalCoordinates(plane, false);
  EXPECT_MODEL_FRAME(frame);
  frame.setLocalCoordinates(plane, std::vector<int>{0, 1, 2}, false);
  EXPECT_MODEL_FRAME(frame);
  EXPECT_THAT(frame.getNormal(), VertexIs("0 0 0"));
  frame.setLocalCoordinates(plane, true);
  EXPECT_NEAR(std::fabs(frame.getNormal().z()), 4.0 / std::sqrt(17.0), 1e-9);
  frame.setLocalCoordinates(plane, std::vector<int>{0, 1, 2, 3, 4}, true);
  for (const gdfVertex& v : toLocal(frame, plane)) EXPECT_NEAR(v.z(), 0.0, 1e-9);
}

TEST(LocalFrame, MakesAQuarterTurnOfNoVertices) {
  zrCordinateConversion frame;
  frame.setLocalCoordinates(VertexLine(), false);
  EXPECT_THAT(toLocal(frame, line("1 2 3")), LineNear("-2 1 3", 1e-15));
}

TEST(LocalFrame, ConvertsAVertexAsItDoesALine) {
  const zrCordinateConversion frame = frameOf(vertex("0.48 0.64 0.6"));
  for (const gdfVertex& v : line(anywhere)) {
    gdfVertex alone = v;
    frame.convertToLocalCoordinates(alone);
    EXPECT_EQ(VertexLine{alone}, toLocal(frame, {v}));
    alone = v;
    frame.convertToModelCoordinates(alone);
    EXPECT_EQ(VertexLine{alone}, toModel(frame, {v}));
  }
}

TEST(LocalFrame, ConvertsListedVerticesOnly) {
  const zrCordinateConversion frame = frameOf(vertex("0.48 0.64 0.6"));
  const VertexLine before = line(anywhere);
  VertexLine some = before;
  frame.convertToLocalCoordinates(some, {3, 1});
  const VertexLine all = toLocal(frame, before);
  EXPECT_EQ(some, (VertexLine{before[0], all[1], before[2], all[3]}));
  some = before;
  frame.convertToModelCoordinates(some, {0});
  EXPECT_EQ(some, (VertexLine{toModel(frame, before)[0], before[1], before[2], before[3]}));
}

TEST(LocalFrame, ConvertsNothingByAnEmptyList) {
  const zrCordinateConversion frame = frameOf(vertex("0.6 0 0.8"));
  VertexLine vertices = line(anywhere);
  frame.convertToLocalCoordinates(vertices, {});
  frame.convertToModelCoordinates(vertices, {});
  EXPECT_THAT(vertices, LineIs(anywhere));
}

TEST(LocalFrame, KeptVertexListedTwiceTurnsTwice) {
  const zrCordinateConversion frame = frameOf(vertex("0.6 0 0.8"));
  VertexLine vertices = line("1 2 3, 4 5 6");
  const VertexLine twice = toLocal(frame, toLocal(frame, vertices));
  frame.convertToLocalCoordinates(vertices, {1, 1});
  EXPECT_EQ(vertices, (VertexLine{gdfVertex(1, 2, 3), twice[1]}));
}

TEST(LocalFrame, LeavesWhatItNeedNotTurnToTheLastBit) {
  // The identity is not multiplied with: no infinity becomes a NaN, no zero loses its sign.
  const double infinity = std::numeric_limits<double>::infinity();
  const gdfVertex odd(infinity, -0.0, nan);
  const auto expectUntouched = [infinity](const gdfVertex& v, const char* form) {
    EXPECT_EQ(v.x(), infinity) << form;
    EXPECT_TRUE(v.y() == 0.0 && std::signbit(v.y())) << form;
    EXPECT_TRUE(std::isnan(v.z())) << form;
  };
  for (const zrCordinateConversion& frame :
       {zrCordinateConversion(), frameOf(vertex("0 0 1"), true)}) {
    expectUntouched(toLocal(frame, {odd})[0], "line to local");
    expectUntouched(toModel(frame, {odd})[0], "line to model");
    gdfVertex alone = odd;
    frame.convertToLocalCoordinates(alone);
    expectUntouched(alone, "vertex to local");
    alone = odd;
    frame.convertToModelCoordinates(alone);
    expectUntouched(alone, "vertex to model");
    VertexLine listed = {odd};
    frame.convertToLocalCoordinates(listed, {0});
    expectUntouched(listed[0], "listed to local");
    listed = {odd};
    frame.convertToModelCoordinates(listed, {0});
    expectUntouched(listed[0], "listed to model");
  }
}

TEST(LocalFrame, CopiesAreIndependent) {
  zrCordinateConversion frame = frameOf(vertex("0.6 0 0.8"));
  const zrCordinateConversion copy = frame;
  frame.setLocalCoordinates(vertex("0 0 1"), false);
  EXPECT_THAT(toLocal(copy, line("0.6 0 0.8")), LineNear("0 0 1", 1e-14));
  frame = copy;
  EXPECT_EQ(toLocal(frame, line(anywhere)), toLocal(copy, line(anywhere)));
}

RC_GTEST_PROP(LocalFrame, TurnsTheNormalUpAndComesBack, ()) {
  gdfVertex normal(*rc::gen::inRange(-64, 65) / 64.0, *rc::gen::inRange(-64, 65) / 64.0,
                   *rc::gen::inRange(-64, 65) / 64.0);
  RC_PRE(normal.mapLength() > 0.0);
  normal.normalise();
  const zrCordinateConversion frame = frameOf(normal, true);
  RC_ASSERT(largestDifference(toLocal(frame, {normal}), {Z_AXIS}) <= 1e-14);
  const VertexLine vertices = {{*rc::gen::inRange(-640, 641) / 64.0,
                                *rc::gen::inRange(-640, 641) / 64.0,
                                *rc::gen::inRange(-640, 641) / 64.0}};
  const VertexLine local = toLocal(frame, vertices);
  // The height is the distance from the plane through the origin, and no length changes.
  RC_ASSERT(std::fabs(local[0].z() - normal * vertices[0]) <= 1e-12);
  RC_ASSERT(std::fabs(local[0].length() - vertices[0].length()) <= 1e-12);
  RC_ASSERT(largestDifference(toModel(frame, local), vertices) <= 1e-12);
}

}  // namespace
