#include <zrBase/bisectors/zrFlowPath.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <vector>

#include "support/geometryText.h"

using testing::ElementsAre;
using testing::IsEmpty;

TEST(VerticalShear, InsertsNothingForAPointExactlyAboveAVertex) {
  zrFlowPath path;
  EXPECT_TRUE(
      path.calculateVerticalShearFlowPath(line("0 0 1, 10 0 5, 20 10 9"), vertex("10 3 8")));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 3 1, 10 3 5, 20 13 9"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-10.0, 0.0, 10.0));
}

TEST(VerticalShear, InsertsOneVertexAboveTheMiddleOfTheFirstSegment) {
  zrFlowPath path;
  EXPECT_TRUE(path.calculateVerticalShearFlowPath(line("0 0, 10 20, 20 0"), vertex("5 4")));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 -6, 5 4, 10 14, 20 -6"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-5.0, 0.0, 5.0, 15.0));
}

TEST(VerticalShear, FailsLeftOfTheWholeLine) {
  zrFlowPath path;
  EXPECT_FALSE(path.calculateVerticalShearFlowPath(line("0 0, 10 0"), vertex("-1 0")));
}

TEST(VerticalShear, FailsRightOfTheWholeLine) {
  zrFlowPath path;
  EXPECT_FALSE(path.calculateVerticalShearFlowPath(line("0 0, 10 0"), vertex("11 0")));
}

TEST(VerticalShear, KeptAnchorTakesHeightOfVertexBefore) {
  zrFlowPath path;
  EXPECT_TRUE(path.calculateVerticalShearFlowPath(line("0 0 7, 10 0 9"), vertex("5 0 100")));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 0 7, 5 0 7, 10 0 9"));
}

TEST(VerticalShear, TakesTheFirstSegmentThatPassesThePoint) {
  zrFlowPath path;
  EXPECT_TRUE(path.calculateVerticalShearFlowPath(line("0 0, 10 0, 2 1, 10 2"), vertex("5 0")));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 0, 5 0, 10 0, 2 1, 10 2"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-5.0, 0.0, 5.0, -3.0, 5.0));
}

TEST(VerticalShear, PrefersAVertexToASegment) {
  zrFlowPath path;
  EXPECT_TRUE(path.calculateVerticalShearFlowPath(line("0 0, 10 0, 5 1"), vertex("5 2")));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 1, 10 1, 5 2"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-5.0, 5.0, 0.0));
}

TEST(VerticalShear, KeptVerticalShearTakesLastMatch) {
  zrFlowPath path;
  EXPECT_TRUE(path.calculateVerticalShearFlowPath(line("0 0, 5 1, 5 9, 10 0"), vertex("5 2")));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 -7, 5 -6, 5 2, 10 -7"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-5.0, 0.0, 0.0, 5.0));
}

TEST(VerticalShear, KeptVerticalShearNeedsRisingX) {
  zrFlowPath path;
  EXPECT_FALSE(path.calculateVerticalShearFlowPath(line("10 0, 0 0"), vertex("5 0")));
  EXPECT_TRUE(path.calculateVerticalShearFlowPath(line("10 0, 0 10, 10 20"), vertex("5 0")));
  EXPECT_THAT(path.getFlowLine(), LineIs("10 -15, 0 -5, 5 0, 10 5"));
}

TEST(VerticalShear, KeptFailedVerticalShearReplacesVertices) {
  zrFlowPath path;
  path.setFlow(line("7 7, 8 8"), {3.0, 4.0});
  EXPECT_FALSE(path.calculateVerticalShearFlowPath(line("0 0, 1 0, 2 5"), vertex("9 9")));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 0, 1 0, 2 5"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(3.0, 4.0));
}

TEST(VerticalShear, TakesALineOfOneVertex) {
  zrFlowPath path;
  EXPECT_TRUE(path.calculateVerticalShearFlowPath(line("4 5 6"), vertex("4 9 9")));
  EXPECT_THAT(path.getFlowLine(), LineIs("4 9 6"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(0.0));
  EXPECT_FALSE(path.calculateVerticalShearFlowPath(line("4 5 6"), vertex("5 5 6")));
}

TEST(VerticalShear, OfAnEmptyLineFails) {
  zrFlowPath path;
  path.setFlow(line("7 7, 8 8"), {3.0, 4.0});
  EXPECT_FALSE(path.calculateVerticalShearFlowPath({}, vertex("9 9")));
  EXPECT_THAT(path.getFlowLine(), IsEmpty());
}

TEST(VerticalShear, ReplacesALongerListOfSlips) {
  zrFlowPath path;
  path.getSlipValues() = {1.0, 2.0, 3.0, 4.0, 5.0};
  EXPECT_TRUE(path.calculateVerticalShearFlowPath(line("0 0, 1 0"), vertex("1 0")));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-1.0, 0.0));
}

TEST(VerticalShear, LeavesEndVectorsHeightAndLAlone) {
  zrFlowPath path;
  path.setFlow(line("0 0, 0 5"), {0.0, 5.0});
  path.setH(2.0);
  path.setL(3.0);
  EXPECT_TRUE(path.calculateVerticalShearFlowPath(line("0 0, 10 0"), vertex("5 0")));
  EXPECT_THAT(path.getStartVector(), VertexIs("0 -1"));
  EXPECT_THAT(path.getEndVector(), VertexIs("0 1"));
  EXPECT_EQ(path.getH(), 2.0);
  EXPECT_EQ(path.getL(), 3.0);
  EXPECT_THAT(path.getVertex(6.0), VertexIs("10 1"));
  path.calcNormalisedEndVectors();
  EXPECT_THAT(path.getVertex(6.0), VertexIs("11 0"));
}

TEST(VerticalShear, MayTakeThePathsOwnLineAndVertex) {
  zrFlowPath path;
  path.getFlowLine() = line("0 0, 10 5, 20 0");
  EXPECT_TRUE(path.calculateVerticalShearFlowPath(path.getFlowLine(), path.getFlowLine()[1]));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 0, 10 5, 20 0"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-10.0, 0.0, 10.0));
}

// On a line of rising x: the path passes through the point, at slip 0, and keeps the line's shape.
RC_GTEST_PROP(VerticalShear, PassesThroughThePointAtSlipZero, ()) {
  VertexLine shape;
  double x = 0.0;
  const int size = *rc::gen::inRange(2, 10);
  for (int i = 0; i < size; ++i) {
    shape.emplace_back(x, *rc::gen::inRange(-128, 128) / 64.0);
    x += *rc::gen::inRange(1, 64) / 64.0;
  }
  const double last = shape.back().x() * 64.0;
  const gdfVertex point(*rc::gen::inRange(0, static_cast<int>(last) + 1) / 64.0,
                        *rc::gen::inRange(-128, 128) / 64.0);
  zrFlowPath path;
  RC_ASSERT(path.calculateVerticalShearFlowPath(shape, point));
  RC_ASSERT(path.valid());
  RC_ASSERT(path.getVertex(0.0).distance(point) < 1e-12);
  for (std::size_t i = 0; i < path.getSlipValues().size(); ++i) {
    RC_ASSERT(path.getSlipValues()[i] == path.getFlowLine()[i].x() - point.x());
  }
}
