#include <zrBase/geometry/gdfTransMatrix.h>
#include <zrBase/geometry/gdfTuple_4.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <sstream>
#include <type_traits>

#include "support/geometryText.h"
#include "support/matrixText.h"

namespace {

const char* const counting = "1 2 3 4, 5 6 7 8, 9 10 11 12, 13 14 15 16";

}  // namespace

TEST(Tuple4Construction, KeptTuple4DefaultWeightIsZero) {
  EXPECT_EQ(gdfTuple_4().d(), 0.0);
  EXPECT_THAT(gdfTuple_4(), ElementsAreExactly("0 0 0 0"));
}

TEST(Tuple4Construction, IsAPlainRecord) {
  EXPECT_TRUE(std::is_trivially_copyable_v<gdfTuple_4>);
  EXPECT_FALSE(std::is_polymorphic_v<gdfTuple_4>);
}

TEST(Tuple4Construction, TakesAndCopiesFourValues) {
  const gdfTuple_4 t(1.0, 2.0, 3.0, 4.0);
  const gdfTuple_4 copied(t);
  EXPECT_THAT(t, ElementsAreExactly("1 2 3 4"));
  EXPECT_THAT(copied, ElementsAreExactly("1 2 3 4"));
}

TEST(Tuple4Fields, NonConstAccessorsWrite) {
  gdfTuple_4 t;
  t.a() = 1.0;
  t.b() = 2.0;
  t.c() = 3.0;
  t.d() = 4.0;
  EXPECT_THAT(t, ElementsAreExactly("1 2 3 4"));
}

TEST(Tuple4Fields, FreeSetsAllToZero) {
  gdfTuple_4 t(1.0, 2.0, 3.0, 4.0);
  t.free();
  EXPECT_THAT(t, ElementsAreExactly("0 0 0 0"));
}

TEST(Tuple4Sum, AddsTheWeightsToo) {
  gdfTuple_4 t(1.0, 2.0, 3.0, 4.0);
  EXPECT_THAT(t + gdfTuple_4(10.0, 20.0, 30.0, 40.0), ElementsAreExactly("11 22 33 44"));
  EXPECT_EQ(&(t += gdfTuple_4(10.0, 20.0, 30.0, 40.0)), &t);
  EXPECT_THAT(t, ElementsAreExactly("11 22 33 44"));
}

TEST(Tuple4Difference, KeptTuple4DifferenceAddsWeights) {
  gdfTuple_4 t(1.0, 2.0, 3.0, 4.0);
  EXPECT_THAT(t - gdfTuple_4(1.0, 1.0, 1.0, 1.0), ElementsAreExactly("0 1 2 5"));
  EXPECT_EQ(&(t -= gdfTuple_4(1.0, 1.0, 1.0, 1.0)), &t);
  EXPECT_THAT(t, ElementsAreExactly("0 1 2 5"));
}

TEST(Tuple4Difference, OfItselfInPlaceDoublesTheWeight) {
  gdfTuple_4 t(1.0, 2.0, 3.0, 4.0);
  t -= t;
  EXPECT_THAT(t, ElementsAreExactly("0 0 0 8"));
}

TEST(Tuple4Negation, FlipsAllFourSigns) {
  EXPECT_THAT(-gdfTuple_4(1.0, -2.0, 3.0, 4.0), ElementsAreExactly("-1 2 -3 -4"));
}

// (1, 2, 3, 4) by the counting matrix: 1 + 10 + 3 * 11 + 52 = 96 first, for the third term takes
// m[2][2]; then 100, 110 and 120 as in a plain product.
TEST(Tuple4TimesMatrix, CarriesTheAsymmetryOfPreMult) {
  gdfTuple_4 t(1.0, 2.0, 3.0, 4.0);
  EXPECT_THAT(t * transMatrix(counting), ElementsAreExactly("96 100 110 120"));
  EXPECT_EQ(&(t *= transMatrix(counting)), &t);
  EXPECT_THAT(t, ElementsAreExactly("96 100 110 120"));
}

TEST(Tuple4TimesMatrix, IdentityLetsTheThirdComponentIntoTheFirst) {
  EXPECT_THAT(gdfTuple_4(1.0, 2.0, 3.0, 4.0) * I_Trans, ElementsAreExactly("4 2 3 4"));
}

TEST(Tuple4Length, KeptTuple4LengthCountsTheWeight) {
  const gdfTuple_4 t(1.0, 2.0, 2.0, 4.0);
  EXPECT_EQ(t.length2(), 25.0);
  EXPECT_EQ(t.length(), 5.0);
}

TEST(SetTuple4, TakesFourValues) {
  gdfTuple_4 t;
  t.setTuple4(1.0, 2.0, 3.0, 4.0);
  EXPECT_THAT(t, ElementsAreExactly("1 2 3 4"));
}

TEST(SetTuple4, TakesAVertexAndAWeight) {
  gdfTuple_4 t;
  t.setTuple4(gdfVertex(1, 2, 3), 0.5);
  EXPECT_THAT(t, ElementsAreExactly("1 2 3 0.5"));
}

TEST(SetTuple4, TakesADirectionWithLengthAndAWeight) {
  gdfTuple_4 t;
  t.setTuple4(gdfSpherical(2.0, 0.7, 1.1), 0.5);
  EXPECT_EQ(t.a(), 2.0 * std::sin(1.1) * std::sin(0.7));
  EXPECT_EQ(t.b(), 2.0 * std::sin(1.1) * std::cos(0.7));
  EXPECT_EQ(t.c(), 2.0 * std::cos(1.1));
  EXPECT_EQ(t.d(), 0.5);
}

TEST(Tuple4Stream, ReadsFourNumbers) {
  std::istringstream in("1 2\n3 4");
  gdfTuple_4 t;
  in >> t;
  EXPECT_THAT(t, ElementsAreExactly("1 2 3 4"));
}

TEST(Tuple4Stream, StopsAtTheFirstThatIsNoNumber) {
  std::istringstream in("1 2 x 4");
  gdfTuple_4 t(7.0, 7.0, 7.0, 7.0);
  in >> t;
  EXPECT_TRUE(in.fail());
  EXPECT_THAT(t, ElementsAreExactly("1 2 0 7"));
}

TEST(Tuple4Stream, WritesFieldsOfTwelveInBrackets) {
  std::ostringstream out;
  out << gdfTuple_4(1.0, 2.5, -3.0, 1234.5678);
  EXPECT_EQ(out.str(), "[       1.000,        2.500,       -3.000,     1234.568]");
}

TEST(Tuple4Stream, KeptTuple4OutputLeavesFormatOnStream) {
  std::ostringstream out;
  out << std::scientific << gdfTuple_4() << ' ' << 0.5;
  EXPECT_EQ(out.str(), "[       0.000,        0.000,        0.000,        0.000] 0.500");
  EXPECT_EQ(out.precision(), 3);
  EXPECT_EQ(out.flags() & std::ios_base::floatfield, std::ios_base::fixed);
}

RC_GTEST_PROP(Tuple4Difference, DiffersFromTheSumWithTheOppositeInTheWeightAlone, ()) {
  const auto draw = [] { return *rc::gen::inRange(-512, 512) / 64.0; };
  const gdfTuple_4 t(draw(), draw(), draw(), draw());
  const gdfTuple_4 u(draw(), draw(), draw(), draw());
  const gdfTuple_4 difference = t - u;
  const gdfTuple_4 sum = t + -u;
  RC_ASSERT(difference.a() == sum.a());
  RC_ASSERT(difference.b() == sum.b());
  RC_ASSERT(difference.c() == sum.c());
  RC_ASSERT(difference.d() - sum.d() == 2.0 * u.d());
}
