#include <zrBase/geometry/gdfVertex.h>

#include <gtest/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>

// The record: what it is made of, how it is built, set and read, its arithmetic and its measures.

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(VertexRecord, IsThreePlainDoublesInTheOrderXYZ) {
  static_assert(std::is_trivially_copyable_v<gdfVertex>);
  static_assert(std::is_standard_layout_v<gdfVertex>);
  static_assert(!std::is_polymorphic_v<gdfVertex>);
  ASSERT_EQ(sizeof(gdfVertex), 3 * sizeof(double));
  const gdfVertex v(1.0, 2.0, 3.0);
  double fields[3] = {};
  std::memcpy(fields, &v, sizeof fields);
  EXPECT_EQ(fields[0], 1.0);
  EXPECT_EQ(fields[1], 2.0);
  EXPECT_EQ(fields[2], 3.0);
}

TEST(VertexConstants, HaveTheirValuesToTheLastBit) {
  EXPECT_EQ(GDF_2PI, 6.283185307179586);
  EXPECT_EQ(GDF_RADIANStoDEGREES, 57.29577951308232);
  EXPECT_EQ(GDF_DEGREEStoRADIANS, 0.017453292519943295);
  EXPECT_EQ(GDF_EXACTNESS_LIMIT, 1e-05);
}

TEST(VertexConstants, AxesAndOrigin) {
  EXPECT_THAT(X_AXIS, VertexIs("1 0 0"));
  EXPECT_THAT(Y_AXIS, VertexIs("0 1 0"));
  EXPECT_THAT(Z_AXIS, VertexIs("0 0 1"));
  EXPECT_THAT(ORIGIN, VertexIs("0 0 0"));
}

// Static initialisers of other files may use the constants: this one runs before main.
const gdfVertex axisSeenBeforeMain = X_AXIS;

TEST(VertexConstants, AreReadyBeforeMain) { EXPECT_THAT(axisSeenBeforeMain, VertexIs("1 0 0")); }

TEST(VertexConstruction, DefaultIsZero) { EXPECT_THAT(gdfVertex(), VertexIs("0 0 0")); }

TEST(VertexConstruction, TwoNumbersLeaveHeightZero) {
  EXPECT_THAT(gdfVertex(1.5, -2.5), VertexIs("1.5 -2.5 0"));
}

TEST(VertexConstruction, ThreeNumbersOfAnyArithmeticTypes) {
  EXPECT_THAT(gdfVertex(1.5, 2.5, 3.5), VertexIs("1.5 2.5 3.5"));
  EXPECT_THAT(gdfVertex(1, 2, 3), VertexIs("1 2 3"));
  EXPECT_THAT(gdfVertex(1e-05, 0, 0), VertexIs("1e-05 0 0"));
  EXPECT_THAT(gdfVertex(1, 2.5F, 3L), VertexIs("1 2.5 3"));
}

TEST(VertexConstruction, CopiesFromReferenceAndFromPointer) {
  const gdfVertex source(1.0, 2.0, 3.0);
  const gdfVertex fromReference(source);
  const gdfVertex fromPointer(&source);
  EXPECT_THAT(fromReference, VertexIs("1 2 3"));
  EXPECT_THAT(fromPointer, VertexIs("1 2 3"));
}

TEST(VertexAssignment, EveryFormCopiesAndReturnsItsTarget) {
  gdfVertex source(1.0, 2.0, 3.0);
  gdfVertex target;
  EXPECT_EQ(&(target = source), &target);
  EXPECT_THAT(target, VertexIs("1 2 3"));

  target = gdfVertex();
  EXPECT_EQ(&(target = &source), &target);
  EXPECT_THAT(target, VertexIs("1 2 3"));

  target = gdfVertex();
  const gdfVertex* constantSource = &source;
  EXPECT_EQ(&(target = constantSource), &target);
  EXPECT_THAT(target, VertexIs("1 2 3"));
}

TEST(VertexAssignment, FromItselfChangesNothing) {
  gdfVertex v(1.0, 2.0, 3.0);
  const gdfVertex& same = v;
  v = same;
  v = &v;
  v = &same;
  v.setVertex(same);
  EXPECT_THAT(v, VertexIs("1 2 3"));
}

TEST(VertexSetVertex, ThreeNumbersSetAll) {
  gdfVertex v(9.0, 9.0, 9.0);
  v.setVertex(1.5, 2.5, 3.5);
  EXPECT_THAT(v, VertexIs("1.5 2.5 3.5"));
  v.setVertex(1, 2, 3);
  EXPECT_THAT(v, VertexIs("1 2 3"));
  v.setVertex(1, 2.5, 3);
  EXPECT_THAT(v, VertexIs("1 2.5 3"));
}

TEST(VertexSetVertex, TwoNumbersResetHeightToZero) {
  gdfVertex v(1.0, 2.0, 3.0);
  v.setVertex(5.0, 6.0);
  EXPECT_THAT(v, VertexIs("5 6 0"));
  v.setVertex(1.0, 2.0, 3.0);
  v.setVertex(5, 6);
  EXPECT_THAT(v, VertexIs("5 6 0"));
}

TEST(VertexSetVertex, CopiesAnotherVertex) {
  gdfVertex v;
  v.setVertex(gdfVertex(1.0, 2.0, 3.0));
  EXPECT_THAT(v, VertexIs("1 2 3"));
}

TEST(VertexCopy, KeptCopyAddsItsArgument) {
  const gdfVertex step(1.0, 2.0, 3.0);
  gdfVertex v(1.0, 1.0, 1.0);
  v.copy(step);
  EXPECT_THAT(v, VertexIs("2 3 4"));
  v.copy(&step);
  EXPECT_THAT(v, VertexIs("3 5 7"));
}

TEST(VertexOffset, AddsByReferenceAndByPointer) {
  const gdfVertex step(1.0, 2.0, 3.0);
  gdfVertex v(1.0, 1.0, 1.0);
  v.offset(step);
  EXPECT_THAT(v, VertexIs("2 3 4"));
  v.offset(&step);
  EXPECT_THAT(v, VertexIs("3 5 7"));
}

TEST(VertexOffset, OfItselfDoubles) {
  gdfVertex v(1.0, 2.0, 3.0);
  v.offset(v);
  EXPECT_THAT(v, VertexIs("2 4 6"));
  v.copy(&v);
  EXPECT_THAT(v, VertexIs("4 8 12"));
}

TEST(VertexAccessors, ReadTheFields) {
  const gdfVertex v(1.0, 2.0, 3.0);
  static_assert(std::is_same_v<decltype(v.x()), double>);
  static_assert(std::is_same_v<decltype(v.getX()), double>);
  EXPECT_EQ(v.x(), 1.0);
  EXPECT_EQ(v.y(), 2.0);
  EXPECT_EQ(v.z(), 3.0);
  EXPECT_EQ(v.getX(), 1.0);
  EXPECT_EQ(v.getY(), 2.0);
  EXPECT_EQ(v.getZ(), 3.0);
}

TEST(VertexAccessors, GiveReferencesToWriteTo) {
  gdfVertex v;
  static_assert(std::is_same_v<decltype(v.x()), double&>);
  v.x() = 1.0;
  v.y() = 2.0;
  v.z() = 3.0;
  EXPECT_THAT(v, VertexIs("1 2 3"));
  v.getX() = 4.0;
  v.getY() = 5.0;
  v.getZ() = 6.0;
  EXPECT_THAT(v, VertexIs("4 5 6"));
}

TEST(VertexIndex, ZeroOneTwoAreXYZ) {
  const gdfVertex constant(1.0, 2.0, 3.0);
  EXPECT_EQ(constant[0], 1.0);
  EXPECT_EQ(constant[1], 2.0);
  EXPECT_EQ(constant[2], 3.0);
  gdfVertex v;
  v[0] = 4.0;
  v[1] = 5.0;
  v[2] = 6.0;
  EXPECT_THAT(v, VertexIs("4 5 6"));
}

/// The message of the error that reading an index raises; empty when none is raised.
template <class Vertex>
std::string messageOfIndex(Vertex& v, std::size_t index) {
  try {
    static_cast<void>(v[index]);
  } catch (const std::out_of_range& error) {
    return error.what();
  }
  return "";
}

TEST(VertexIndex, OutOfRangeThrowsWithItsText) {
  const std::string text = "out of range index in gdfVertex::operator[]";
  gdfVertex v(1.0, 2.0, 3.0);
  const gdfVertex constant(1.0, 2.0, 3.0);
  EXPECT_EQ(messageOfIndex(v, 3), text);
  EXPECT_EQ(messageOfIndex(constant, 3), text);
  EXPECT_EQ(messageOfIndex(v, static_cast<std::size_t>(-1)), text);
  EXPECT_EQ(messageOfIndex(constant, static_cast<std::size_t>(-1)), text);
  EXPECT_THROW(static_cast<void>(v[3]), std::logic_error);
}

TEST(VertexArithmetic, SumAndDifference) {
  const gdfVertex a(1.0, 2.0, 3.0);
  const gdfVertex b(10.0, 30.0, 50.0);
  EXPECT_THAT(a + b, VertexIs("11 32 53"));
  EXPECT_THAT(a - b, VertexIs("-9 -28 -47"));
}

TEST(VertexArithmetic, InPlaceFormsReturnTheirRecord) {
  gdfVertex v(1.0, 2.0, 3.0);
  EXPECT_EQ(&(v += gdfVertex(1.0, 1.0, 1.0)), &v);
  EXPECT_THAT(v, VertexIs("2 3 4"));
  EXPECT_EQ(&(v -= gdfVertex(1.0, 2.0, 3.0)), &v);
  EXPECT_THAT(v, VertexIs("1 1 1"));
  EXPECT_EQ(&(v *= 6.0), &v);
  EXPECT_THAT(v, VertexIs("6 6 6"));
  EXPECT_EQ(&(v /= 4.0), &v);
  EXPECT_THAT(v, VertexIs("1.5 1.5 1.5"));
  v = gdfVertex(1.0, 0.0, 0.0);
  EXPECT_EQ(&(v ^= gdfVertex(0.0, 1.0, 0.0)), &v);
  EXPECT_THAT(v, VertexIs("0 0 1"));
}

TEST(VertexArithmetic, NegationFlipsAllSigns) {
  EXPECT_THAT(-gdfVertex(1.0, -2.0, 3.0), VertexIs("-1 2 -3"));
  EXPECT_TRUE(std::signbit((-gdfVertex()).x()));
}

TEST(VertexArithmetic, ScalesByNumbersOfAnyType) {
  EXPECT_THAT(gdfVertex(1.0, -2.0, 3.0) * 2.5, VertexIs("2.5 -5 7.5"));
  EXPECT_THAT(gdfVertex(1.0, -2.0, 3.0) * 2, VertexIs("2 -4 6"));
  EXPECT_THAT(gdfVertex(1.0, -2.0, 3.0) / 4.0, VertexIs("0.25 -0.5 0.75"));
}

// 49 * (1 / 49) is below 1: a reciprocal taken once and multiplied would show here.
TEST(VertexArithmetic, DividesEachComponentBySeparateDivisions) {
  EXPECT_THAT(gdfVertex(49.0, 49.0, 49.0) / 49.0, VertexIs("1 1 1"));
}

TEST(VertexArithmetic, ZeroDivisorIsNotTested) {
  const gdfVertex v = gdfVertex(1.0, -1.0, 0.0) / 0.0;
  EXPECT_EQ(v.x(), infinity);
  EXPECT_EQ(v.y(), -infinity);
  EXPECT_TRUE(std::isnan(v.z()));
  EXPECT_FALSE(v.valid());
}

TEST(VertexArithmetic, ScalarProductHasTwoNames) {
  const gdfVertex a(1.0, 2.0, 3.0);
  const gdfVertex b(10.0, 30.0, 50.0);
  EXPECT_EQ(a * b, 220.0);
  EXPECT_EQ(a.dotProduct(b), 220.0);
}

TEST(VertexArithmetic, CrossProductIsRightHanded) {
  EXPECT_THAT(X_AXIS ^ Y_AXIS, VertexIs("0 0 1"));
  EXPECT_THAT(Y_AXIS ^ Z_AXIS, VertexIs("1 0 0"));
  EXPECT_THAT(Z_AXIS ^ X_AXIS, VertexIs("0 1 0"));
  // (2*7 - 3*6, 3*5 - 1*7, 1*6 - 2*5)
  EXPECT_THAT(gdfVertex(1, 2, 3) ^ gdfVertex(5, 6, 7), VertexIs("-4 8 -4"));
}

TEST(VertexArithmetic, CrossProductInPlaceWithItselfIsZero) {
  gdfVertex v(1.0, 2.0, 3.0);
  const gdfVertex& same = v;
  v ^= same;
  EXPECT_THAT(v, VertexIs("0 0 0"));
}

TEST(VertexMeasures, LengthInSpaceAndInTheMap) {
  const gdfVertex v(3.0, 4.0, 12.0);
  EXPECT_EQ(v.length(), 13.0);
  EXPECT_EQ(v.length2(), 169.0);
  EXPECT_EQ(v.mapLength(), 5.0);
}

TEST(VertexMeasures, DistanceInSpaceAndInTheMap) {
  const gdfVertex a(1.0, 1.0, 1.0);
  const gdfVertex b(4.0, 5.0, 13.0);
  EXPECT_EQ(a.distance(b), 13.0);
  EXPECT_EQ(a.distance2(b), 169.0);
  EXPECT_EQ(a.mapDistance(b), 5.0);
  EXPECT_EQ(a.mapDistance2(b), 25.0);
  EXPECT_EQ(a.distanceXY(b), 5.0);
  EXPECT_EQ(a.distanceXY2(b), 25.0);
}

// Squares of components beyond 1e154 overflow; a scaled length would not. Callers get the plain
// formula.
TEST(VertexMeasures, LengthIsThePlainRootOfTheSumOfSquares) {
  EXPECT_EQ(gdfVertex(1e200, 0.0, 0.0).length(), infinity);
  EXPECT_EQ(gdfVertex(1e-200, 0.0, 0.0).length(), 0.0);
  EXPECT_EQ(gdfVertex(1e200, 0.0, 0.0).mapLength(), infinity);
}

TEST(VertexValid, NeedsThreeFiniteComponents) {
  EXPECT_TRUE(gdfVertex(1.0, 2.0, 3.0).valid());
  EXPECT_TRUE(gdfVertex(std::numeric_limits<double>::max(), 0.0, -0.0).valid());
  for (const char* text : {"inf 0 0", "0 -inf 0", "0 0 inf", "nan 0 0", "0 nan 0", "0 0 nan"}) {
    EXPECT_FALSE(vertex(text).valid()) << text;
  }
}

}  // namespace
