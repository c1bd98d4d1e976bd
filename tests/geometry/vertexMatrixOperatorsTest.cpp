#include <zrBase/geometry/gdfTransMatrix.h>
#include <zrBase/geometry/gdfTriMatrix.h>
#include <zrBase/geometry/gdfVertex.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"
#include "support/matrixText.h"

namespace {

const char* const counting = "1 2 3 4, 5 6 7 8, 9 10 11 12, 13 14 15 16";
// Weight of (1, 1, 1): 1 + 3 = 4. Row sums 3, 6, 11.
const char* const projective = "2 0 0 1, 0 4 0 0, 0 0 8 0, 1 2 3 3";
const char* const three = "1 2 3, 4 5 6, 7 8 10";

double drawCoordinate() { return *rc::gen::inRange(-256, 256) / 64.0; }

gdfVertex drawVertex() {
  const double x = drawCoordinate();
  const double y = drawCoordinate();
  return gdfVertex(x, y, drawCoordinate());
}

gdfTransMatrix drawAffine() {
  gdfTransMatrix m;
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 3; ++c) m(r, c) = drawCoordinate();
  }
  return m;
}

}  // namespace

TEST(VertexTimesTransMatrix, DividesByTheWeight) {
  EXPECT_THAT(vertex("1 1 1") * transMatrix(projective), VertexIs("0.75 1.5 2.75"));
}

TEST(VertexTimesTransMatrix, InPlaceGivesTheSameAndReturnsTheVertex) {
  gdfVertex v = vertex("1 1 1");
  EXPECT_EQ(&(v *= transMatrix(projective)), &v);
  EXPECT_THAT(v, VertexIs("0.75 1.5 2.75"));
}

TEST(VertexTimesTransMatrix, ZeroWeightGivesAVertexThatIsNotValid) {
  EXPECT_FALSE((vertex("1 2 3") * transMatrix("1 0 0 0, 0 1 0 0, 0 0 1 0, 0 0 0 0")).valid());
}

// 1 + 10 + 27 + 13, 2 + 12 + 30 + 14, 3 + 14 + 33 + 15; the weight of 72 plays no part.
TEST(VertexModuloTransMatrix, DoesNotDivide) {
  EXPECT_THAT(vertex("1 2 3") % transMatrix(counting), VertexIs("51 58 65"));
}

TEST(VertexModuloTransMatrix, InPlaceReadsAllBeforeItWrites) {
  gdfVertex v = vertex("1 2 3");
  EXPECT_EQ(&(v %= transMatrix(counting)), &v);
  EXPECT_THAT(v, VertexIs("51 58 65"));
}

// 1 + 8 + 21, 2 + 10 + 24, 3 + 12 + 30.
TEST(VertexTimesTriMatrix, IsTheRowForm) {
  EXPECT_THAT(vertex("1 2 3") * triMatrix(three), VertexIs("30 36 45"));
}

TEST(VertexTimesTriMatrix, InPlaceReadsAllBeforeItWrites) {
  gdfVertex v = vertex("1 2 3");
  EXPECT_EQ(&(v *= triMatrix(three)), &v);
  EXPECT_THAT(v, VertexIs("30 36 45"));
}

RC_GTEST_PROP(VertexModuloTransMatrix, ProductOfMatricesActsLeftFirst, ()) {
  const gdfVertex v = drawVertex();
  const gdfTransMatrix a = drawAffine();
  const gdfTransMatrix b = drawAffine();
  RC_ASSERT((v % a) % b == v % (a * b));
}

RC_GTEST_PROP(VertexTimesTransMatrix, EqualsModuloForAnAffineMatrix, ()) {
  const gdfVertex v = drawVertex();
  const gdfTransMatrix a = drawAffine();
  RC_ASSERT(v * a == v % a);
}

RC_GTEST_PROP(VertexTimesTransMatrix, IsNotChangedByAPowerOfTwoInAllElements, ()) {
  const gdfVertex v = drawVertex();
  const gdfTransMatrix a = drawAffine();
  RC_ASSERT(v * (a * 4.0) == v * a);
}
