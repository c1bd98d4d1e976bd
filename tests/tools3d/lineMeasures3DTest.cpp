#include <zrBase/tools3d/lineMeasures3D.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cstddef>
#include <limits>
#include <vector>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// Coordinates k/64: differences and sums are exact.
VertexLine drawLine(std::size_t size) {
  const auto numbers = *rc::gen::container<std::vector<int>>(3 * size, rc::gen::inRange(-256, 257));
  VertexLine drawn;
  for (std::size_t i = 0; i < size; ++i) {
    drawn.emplace_back(numbers[3 * i] / 64.0, numbers[3 * i + 1] / 64.0, numbers[3 * i + 2] / 64.0);
  }
  return drawn;
}

TEST(CalcLength3D, SumsSegmentsInSpace) {
  EXPECT_EQ(zr3DTools::calcLength(line("0 0 0, 3 4 0, 3 4 12")), 17.0);
}

TEST(CalcLength3D, IsZeroForFewerThanTwoVertices) {
  EXPECT_EQ(zr3DTools::calcLength(VertexLine()), 0.0);
  EXPECT_EQ(zr3DTools::calcLength(line("1 2 3")), 0.0);
}

TEST(CalcLength3D, SumsTheSegmentsOfARange) {
  const VertexLine bent = line("0 0 0, 3 4 0, 3 4 12, 11 10 12");
  EXPECT_EQ(zr3DTools::calcLength(bent, 0, 1), 5.0);
  EXPECT_EQ(zr3DTools::calcLength(bent, 1, 2), 12.0);
  EXPECT_EQ(zr3DTools::calcLength(bent, 1, 3), 22.0);
  EXPECT_EQ(zr3DTools::calcLength(bent, 0, 3), 27.0);
}

TEST(CalcLength3D, TakesAnEmptyRangeAsInvalid) {
  EXPECT_EQ(zr3DTools::calcLength(line("0 0, 3 4, 3 9, 8 9"), 2, 2), 0.0);
}

TEST(CalcLength3D, DoesNotClipARangeThatLeavesTheLine) {
  const VertexLine bent = line("0 0, 3 4, 3 9");
  EXPECT_EQ(zr3DTools::calcLength(bent, -1, 2), 0.0);
  EXPECT_EQ(zr3DTools::calcLength(bent, 0, 3), 0.0);
  EXPECT_EQ(zr3DTools::calcLength(bent, 2, 1), 0.0);
  EXPECT_EQ(zr3DTools::calcLength(bent, 0, std::numeric_limits<int>::max()), 0.0);
  EXPECT_EQ(zr3DTools::calcLength(bent, std::numeric_limits<int>::min(), 1), 0.0);
  EXPECT_EQ(zr3DTools::calcLength(line("5 5"), 0, 1), 0.0);
  EXPECT_EQ(zr3DTools::calcLength(VertexLine(), 0, 1), 0.0);
}

RC_GTEST_PROP(CalcLength3D, WholeRangeEqualsWholeLine, ()) {
  const VertexLine drawn = drawLine(*rc::gen::inRange<std::size_t>(2, 9));
  const int last = static_cast<int>(drawn.size()) - 1;
  RC_ASSERT(zr3DTools::calcLength(drawn, 0, last) == zr3DTools::calcLength(drawn));
}

RC_GTEST_PROP(CalcLength3D, NeverFallsShortOfTheStraightDistance, ()) {
  const VertexLine drawn = drawLine(*rc::gen::inRange<std::size_t>(2, 9));
  RC_ASSERT(zr3DTools::calcLength(drawn) >= drawn.front().distance(drawn.back()) - 1e-12);
}

TEST(CalcAverageVertex, IsTheMeanOfTheVertices) {
  EXPECT_THAT(zr3DTools::calcAverageVertex(line("0 0 0, 10 0 6, 2 9 0")), VertexIs("4 3 2"));
}

TEST(CalcAverageVertex, CountsTheClosingVertex) {
  EXPECT_THAT(zr3DTools::calcAverageVertex(line("0 0, 4 0, 4 4, 0 0")), VertexIs("2 1"));
}

TEST(CalcAverageVertex, IsZeroForAnEmptyLine) {
  EXPECT_THAT(zr3DTools::calcAverageVertex(VertexLine()), VertexIs("0 0 0"));
}

TEST(CalcMidVertex, HalvesASingleSegment) {
  EXPECT_THAT(zr3DTools::calcMidVertex(line("0 0 0, 10 0 0")), VertexIs("5 0 0"));
}

// Length 3 + 4, so half a unit into the second segment.
TEST(CalcMidVertex, MeasuresAlongTheLineInSpace) {
  EXPECT_THAT(zr3DTools::calcMidVertex(line("0 0 0, 0 0 3, 4 0 3")), VertexNear("0.5 0 3", 1e-15));
}

TEST(CalcMidVertex, MayFallOnAVertex) {
  EXPECT_THAT(zr3DTools::calcMidVertex(line("0 0 7, 5 0 7, 5 5 7")), VertexIs("5 0 7"));
}

TEST(CalcMidVertex, HandlesShortLines) {
  EXPECT_THAT(zr3DTools::calcMidVertex(VertexLine()), VertexIs("0 0 0"));
  EXPECT_THAT(zr3DTools::calcMidVertex(line("1 2 3")), VertexIs("1 2 3"));
  EXPECT_THAT(zr3DTools::calcMidVertex(line("1 2 3, 1 2 3")), VertexIs("1 2 3"));
}

TEST(CalcMidVertex, IsZeroWhereTheLengthIsNotANumber) {
  const VertexLine broken = {gdfVertex(1, 1, 1), gdfVertex(notANumber, 0.0, 0.0)};
  EXPECT_THAT(zr3DTools::calcMidVertex(broken), VertexIs("0 0 0"));
}

}  // namespace
