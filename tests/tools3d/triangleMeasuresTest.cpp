#include <zrBase/tools3d/triangleMeasures.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>

namespace {

gdfVertex drawVertex() {
  const auto coordinate = rc::gen::inRange(-256, 257);
  const int x = *coordinate;
  const int y = *coordinate;
  const int z = *coordinate;
  return gdfVertex(x / 64.0, y / 64.0, z / 64.0);
}

TEST(GetArea, IsHalfTheCrossProduct) {
  EXPECT_EQ(zr3DTools::getArea(vertex("0 0"), vertex("4 0"), vertex("0 3")), 6.0);
  EXPECT_EQ(zr3DTools::getArea(vertex("5 1 0"), vertex("5 5 0"), vertex("5 1 3")), 6.0);
}

TEST(GetArea, DoesNotChangeSignWithTheOrder) {
  EXPECT_EQ(zr3DTools::getArea(vertex("0 0"), vertex("0 3"), vertex("4 0")), 6.0);
}

TEST(GetArea, IsZeroForVerticesOnOneLine) {
  EXPECT_EQ(zr3DTools::getArea(vertex("0 0 0"), vertex("1 2 3"), vertex("3 6 9")), 0.0);
  EXPECT_EQ(zr3DTools::getArea(vertex("1 1 1"), vertex("1 1 1"), vertex("3 6 9")), 0.0);
}

TEST(GetAreaAlongNormal, ChangesSignWithTheOrder) {
  const gdfVertex up = vertex("0 0 1");
  EXPECT_EQ(zr3DTools::getArea(vertex("0 0"), vertex("4 0"), vertex("0 3"), up), 6.0);
  EXPECT_EQ(zr3DTools::getArea(vertex("0 0"), vertex("0 3"), vertex("4 0"), up), -6.0);
}

TEST(GetAreaAlongNormal, FollowsTheNormalAndItsLength) {
  const VertexLine t = line("0 0, 4 0, 0 3");
  EXPECT_EQ(zr3DTools::getArea(t[0], t[1], t[2], vertex("0 0 -1")), -6.0);
  EXPECT_EQ(zr3DTools::getArea(t[0], t[1], t[2], vertex("0 0 2")), 12.0);
  EXPECT_EQ(zr3DTools::getArea(t[0], t[1], t[2], vertex("1 0 0")), 0.0);
  EXPECT_EQ(zr3DTools::getArea(t[0], t[1], t[2], vertex("0 0 0")), 0.0);
}

TEST(GetMapArea, LeavesHeightsAside) {
  EXPECT_EQ(zr3DTools::getMapArea(vertex("0 0 5"), vertex("4 0 9"), vertex("0 3 -2")), 6.0);
}

TEST(GetMapArea, IsNeverNegative) {
  EXPECT_EQ(zr3DTools::getMapArea(vertex("0 0"), vertex("0 3"), vertex("4 0")), 6.0);
}

TEST(GetMapArea, IsZeroForAnUprightTriangle) {
  EXPECT_EQ(zr3DTools::getMapArea(vertex("0 0 0"), vertex("4 0 0"), vertex("0 0 3")), 0.0);
}

TEST(GetVolume, IsASixthOfTheTripleProduct) {
  const VertexLine t = line("1 1 1, 7 1 1, 1 7 1, 1 1 7");
  EXPECT_EQ(zr3DTools::getVolume(t[0], t[1], t[2], t[3]), 36.0);
  EXPECT_EQ(zr3DTools::getVolume(t[0], t[2], t[1], t[3]), 36.0);
}

TEST(GetVolume, IsZeroForVerticesInOnePlane) {
  EXPECT_EQ(zr3DTools::getVolume(vertex("0 0"), vertex("4 0"), vertex("0 3"), vertex("9 9")), 0.0);
}

RC_GTEST_PROP(GetArea, IsTheSameForEveryOrder, ()) {
  const gdfVertex a = drawVertex();
  const gdfVertex b = drawVertex();
  const gdfVertex c = drawVertex();
  const double area = zr3DTools::getArea(a, b, c);
  RC_ASSERT(zr3DTools::getArea(b, c, a) == area);
  RC_ASSERT(zr3DTools::getArea(c, b, a) == area);
}

RC_GTEST_PROP(GetAreaAlongNormal, FlipsWhenTwoVerticesSwap, ()) {
  const gdfVertex a = drawVertex();
  const gdfVertex b = drawVertex();
  const gdfVertex c = drawVertex();
  const gdfVertex normal = drawVertex();
  RC_ASSERT(zr3DTools::getArea(a, b, c, normal) == -zr3DTools::getArea(b, a, c, normal));
}

RC_GTEST_PROP(GetMapArea, IsTheSizeOfTheAreaAlongZ, ()) {
  const gdfVertex a = drawVertex();
  const gdfVertex b = drawVertex();
  const gdfVertex c = drawVertex();
  RC_ASSERT(zr3DTools::getMapArea(a, b, c) ==
            std::fabs(zr3DTools::getArea(a, b, c, gdfVertex(0, 0, 1))));
}

RC_GTEST_PROP(GetVolume, IsTheSameForEveryOrder, ()) {
  const gdfVertex a = drawVertex();
  const gdfVertex b = drawVertex();
  const gdfVertex c = drawVertex();
  const gdfVertex d = drawVertex();
  const double volume = zr3DTools::getVolume(a, b, c, d);
  RC_ASSERT(zr3DTools::getVolume(d, b, c, a) == volume);
  RC_ASSERT(zr3DTools::getVolume(b, c, d, a) == volume);
}

}  // namespace
