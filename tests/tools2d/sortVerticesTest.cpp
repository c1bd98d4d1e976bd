#include <zrBase/tools2d/sideTests.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

// Vertices in ascending order, two and three at a time.

namespace {

VertexLine sorted(const std::string& text) {
  const VertexLine v = line(text);
  VertexLine out(v.size());
  if (v.size() == 2) zr2DTools::sortVertices(v[0], v[1], out[0], out[1]);
  if (v.size() == 3) zr2DTools::sortVertices(v[0], v[1], v[2], out[0], out[1], out[2]);
  return out;
}

TEST(SortTwoVertices, ByXThenYThenZ) {
  EXPECT_THAT(sorted("2 0 0, 1 9 9"), LineIs("1 9 9, 2 0 0"));
  EXPECT_THAT(sorted("1 9 9, 2 0 0"), LineIs("1 9 9, 2 0 0"));
  EXPECT_THAT(sorted("1 5 0, 1 4 9"), LineIs("1 4 9, 1 5 0"));
  EXPECT_THAT(sorted("1 4 9, 1 5 0"), LineIs("1 4 9, 1 5 0"));
  EXPECT_THAT(sorted("1 5 3, 1 5 2"), LineIs("1 5 2, 1 5 3"));
  EXPECT_THAT(sorted("1 5 2, 1 5 3"), LineIs("1 5 2, 1 5 3"));
}

// 0 and -0 compare equal, but can be told apart.
TEST(SortTwoVertices, EqualOnesStayInTheGivenOrder) {
  gdfVertex first;
  gdfVertex second;
  zr2DTools::sortVertices(gdfVertex(0.0, 1.0), gdfVertex(-0.0, 1.0), first, second);
  EXPECT_FALSE(std::signbit(first.x()));
  EXPECT_TRUE(std::signbit(second.x()));
  zr2DTools::sortVertices(gdfVertex(-0.0, 1.0), gdfVertex(0.0, 1.0), first, second);
  EXPECT_TRUE(std::signbit(first.x()));
  EXPECT_FALSE(std::signbit(second.x()));
}

TEST(SortTwoVertices, OutputsMayBeTheInputsEitherWayRound) {
  gdfVertex a = vertex("2 0 0");
  gdfVertex b = vertex("1 9 9");
  zr2DTools::sortVertices(a, b, a, b);
  EXPECT_THAT((VertexLine{a, b}), LineIs("1 9 9, 2 0 0"));
  zr2DTools::sortVertices(a, b, a, b);
  EXPECT_THAT((VertexLine{a, b}), LineIs("1 9 9, 2 0 0"));
  zr2DTools::sortVertices(a, b, b, a);
  EXPECT_THAT((VertexLine{b, a}), LineIs("1 9 9, 2 0 0"));
}

TEST(SortThreeVertices, ThirdGoesFirstMiddleOrLastByX) {
  EXPECT_THAT(sorted("3 0, 2 0, 1 9"), LineIs("1 9, 2 0, 3 0"));
  EXPECT_THAT(sorted("3 0, 1 0, 2 9"), LineIs("1 0, 2 9, 3 0"));
  EXPECT_THAT(sorted("2 0, 1 0, 3 -9"), LineIs("1 0, 2 0, 3 -9"));
  EXPECT_THAT(sorted("1 0, 2 0, 3 -9"), LineIs("1 0, 2 0, 3 -9"));
}

TEST(SortThreeVertices, ThirdWithTheXOfTheFirstIsSortedAgainstIt) {
  EXPECT_THAT(sorted("1 5, 3 0, 1 4"), LineIs("1 4, 1 5, 3 0"));
  EXPECT_THAT(sorted("1 5, 3 0, 1 6"), LineIs("1 5, 1 6, 3 0"));
  EXPECT_THAT(sorted("3 0, 1 5 2, 1 5 1"), LineIs("1 5 1, 1 5 2, 3 0"));
}

TEST(SortThreeVertices, ThirdWithTheXOfTheSecondIsSortedAgainstIt) {
  EXPECT_THAT(sorted("1 0, 3 5, 3 4"), LineIs("1 0, 3 4, 3 5"));
  EXPECT_THAT(sorted("1 0, 3 5, 3 6"), LineIs("1 0, 3 5, 3 6"));
  EXPECT_THAT(sorted("3 5 2, 1 0, 3 5 1"), LineIs("1 0, 3 5 1, 3 5 2"));
}

// All of one x: the third is sorted against the upper of the other two and no further.
TEST(SortThreeVertices, KeptThirdVertexIsPlacedByXAlone) {
  EXPECT_THAT(sorted("1 5, 1 9, 1 2"), LineIs("1 5, 1 2, 1 9"));
  EXPECT_THAT(sorted("1 9, 1 5, 1 2"), LineIs("1 5, 1 2, 1 9"));
  EXPECT_THAT(sorted("1 5, 1 9, 1 7"), LineIs("1 5, 1 7, 1 9"));
  EXPECT_THAT(sorted("1 5, 1 9, 1 10"), LineIs("1 5, 1 9, 1 10"));
}

// A NaN is on neither side of anything, so it is taken for the x of the second.
TEST(SortThreeVertices, NaNFallsThroughToTheLastRule) {
  gdfVertex first, second, last;
  zr2DTools::sortVertices(vertex("1 0"), vertex("2 5"), vertex("nan 4"), first, second, last);
  EXPECT_THAT(first, VertexIs("1 0"));
  EXPECT_EQ(second.y(), 4.0);
  EXPECT_THAT(last, VertexIs("2 5"));
}

TEST(SortThreeVertices, OutputsMayBeTheInputsInAnyOrder) {
  std::vector<std::size_t> order = {0, 1, 2};
  do {
    for (const char* text :
         {"3 0, 2 0, 1 9", "3 0, 1 0, 2 9", "1 0, 2 0, 3 -9", "1 5, 3 0, 1 4", "1 0, 3 5, 3 4"}) {
      VertexLine v = line(text);
      zr2DTools::sortVertices(v[0], v[1], v[2], v[order[0]], v[order[1]], v[order[2]]);
      EXPECT_EQ((VertexLine{v[order[0]], v[order[1]], v[order[2]]}), sorted(text)) << text;
    }
  } while (std::next_permutation(order.begin(), order.end()));
}

rc::Gen<gdfVertex> vertexWithTies() {
  const auto coordinate = rc::gen::map(rc::gen::inRange(-2, 3), [](int k) { return k / 64.0; });
  return rc::gen::apply([](double x, double y, double z) { return gdfVertex(x, y, z); }, coordinate,
                        coordinate, coordinate);
}

RC_GTEST_PROP(SortVerticesProperty, TwoComeOutAscendingInEitherOrder, ()) {
  const gdfVertex a = *vertexWithTies(), b = *vertexWithTies();
  gdfVertex first, second, first2, second2;
  zr2DTools::sortVertices(a, b, first, second);
  zr2DTools::sortVertices(b, a, first2, second2);
  RC_ASSERT(first <= second);
  RC_ASSERT(first == first2 && second == second2);
  RC_ASSERT((first == a && second == b) || (first == b && second == a));
}

RC_GTEST_PROP(SortVerticesProperty, ThreeComeOutAscendingInXAndComplete, ()) {
  const gdfVertex a = *vertexWithTies(), b = *vertexWithTies(), c = *vertexWithTies();
  VertexLine out(3);
  zr2DTools::sortVertices(a, b, c, out[0], out[1], out[2]);
  RC_ASSERT(out[0].x() <= out[1].x() && out[1].x() <= out[2].x());
  VertexLine all = {a, b, c};
  std::sort(all.begin(), all.end());
  // Wholly sorted, unless all three share their x.
  if (!(a.x() == b.x() && b.x() == c.x())) RC_ASSERT(out == all);
  std::sort(out.begin(), out.end());
  RC_ASSERT(out == all);
}

}  // namespace
