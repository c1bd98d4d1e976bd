#include <zrBase/geometry/gdfSpherical.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <iomanip>
#include <sstream>
#include <type_traits>

#include "support/geometryText.h"

namespace {

const double quarterTurn = std::acos(0.0);

void expectFields(const gdfSpherical& s, double azimuth, double tilt, double length) {
  EXPECT_EQ(s.azimuth(), azimuth);
  EXPECT_EQ(s.tilt(), tilt);
  EXPECT_EQ(s.length(), length);
}

}  // namespace

TEST(SphericalConstruction, DefaultIsAllZero) { expectFields(gdfSpherical(), 0.0, 0.0, 0.0); }

TEST(SphericalConstruction, IsAPlainRecord) {
  EXPECT_TRUE(std::is_trivially_copyable_v<gdfSpherical>);
  EXPECT_FALSE(std::is_polymorphic_v<gdfSpherical>);
}

TEST(SphericalConstruction, CopiesAllFields) {
  const gdfSpherical original(1.0, 2.0, 3.0);
  const gdfSpherical copied(original);
  gdfSpherical assigned;
  assigned = original;
  expectFields(copied, 2.0, 3.0, 1.0);
  expectFields(assigned, 2.0, 3.0, 1.0);
}

TEST(SphericalConstruction, KeptSphericalTakesLengthFirst) {
  const gdfSpherical built(2.0, 0.25, 0.5);
  expectFields(built, 0.25, 0.5, 2.0);
  gdfSpherical set;
  set.setSpherical(2.0, 0.25, 0.5);
  expectFields(set, 0.25, 0.5, 2.0);
}

TEST(SphericalFields, BothNamesReadTheSameField) {
  const gdfSpherical s(1.0, 2.0, 3.0);
  EXPECT_EQ(s.getAzimuth(), 2.0);
  EXPECT_EQ(s.getTilt(), 3.0);
  EXPECT_EQ(s.getLength(), 1.0);
}

TEST(SphericalFields, EachSetterWritesItsOwnField) {
  gdfSpherical s(9.0, 9.0, 9.0);
  s.setAzimuth(1.0);
  expectFields(s, 1.0, 9.0, 9.0);
  s.setTilt(2.0);
  expectFields(s, 1.0, 2.0, 9.0);
  s.setLength(3.0);
  expectFields(s, 1.0, 2.0, 3.0);
}

TEST(SphericalFields, FreeSetsAllToZero) {
  gdfSpherical s(1.0, 2.0, 3.0);
  s.free();
  expectFields(s, 0.0, 0.0, 0.0);
}

TEST(SphericalToVertex, LengthTwoWithoutAnglesPointsStraightUp) {
  const gdfSpherical up(2.0, 0.0, 0.0);
  EXPECT_EQ(up.length(), 2.0);
  const gdfVertex v = up;
  EXPECT_THAT(v, VertexIs("0 0 2"));
}

TEST(SphericalToVertex, HorizontalAtAzimuthZeroIsNorth) {
  const gdfVertex v = gdfSpherical(3.0, 0.0, quarterTurn);
  EXPECT_THAT(v, VertexNear("0 3 0", 1e-15));
}

TEST(SphericalToVertex, AzimuthGrowsTowardsEast) {
  const gdfVertex v = gdfSpherical(3.0, quarterTurn, quarterTurn);
  EXPECT_THAT(v, VertexNear("3 0 0", 1e-15));
}

TEST(SphericalToVertex, TiltPastTheHorizontalPointsDown) {
  const gdfVertex v = gdfSpherical(1.0, 0.0, 2.0 * quarterTurn);
  EXPECT_THAT(v, VertexNear("0 0 -1", 1e-15));
}

TEST(SphericalToVertex, ComponentsAreThoseOfTheVertex) {
  const gdfSpherical s(2.0, 0.7, 1.1);
  EXPECT_EQ(s.x(), 2.0 * std::sin(1.1) * std::sin(0.7));
  EXPECT_EQ(s.y(), 2.0 * std::sin(1.1) * std::cos(0.7));
  EXPECT_EQ(s.z(), 2.0 * std::cos(1.1));
  EXPECT_EQ(gdfVertex(s), gdfVertex(s.x(), s.y(), s.z()));
}

TEST(SphericalSum, AddsAllThreeFields) {
  gdfSpherical s(1.0, 2.0, 3.0);
  expectFields(s + gdfSpherical(10.0, 20.0, 30.0), 22.0, 33.0, 11.0);
  EXPECT_EQ(&(s += gdfSpherical(10.0, 20.0, 30.0)), &s);
  expectFields(s, 22.0, 33.0, 11.0);
}

TEST(SphericalDifference, KeptSphericalDifferenceKeepsLength) {
  expectFields(gdfSpherical(5.0, 1.0, 2.0) - gdfSpherical(3.0, 0.5, 0.25), 0.5, 1.75, 5.0);
}

// The other length is really taken away and added again: a small length drowns in the rounding.
TEST(SphericalDifference, LengthGoesThroughTheRoundTrip) {
  expectFields(gdfSpherical(1e-20, 0.0, 0.0) - gdfSpherical(1.0, 0.0, 0.0), 0.0, 0.0, 0.0);
}

TEST(SphericalDifference, InPlaceSubtractsTheLengthToo) {
  gdfSpherical s(5.0, 1.0, 2.0);
  EXPECT_EQ(&(s -= gdfSpherical(3.0, 0.5, 0.25)), &s);
  expectFields(s, 0.5, 1.75, 2.0);
}

TEST(SphericalStream, ReadsAzimuthTiltLength) {
  std::istringstream in("0.25 0.5\n2");
  gdfSpherical s;
  in >> s;
  expectFields(s, 0.25, 0.5, 2.0);
}

TEST(SphericalStream, WritesAzimuthTiltLengthWithoutLineEnd) {
  std::ostringstream out;
  out << gdfSpherical(2.0, 0.25, 0.5);
  EXPECT_EQ(out.str(), "0.25 0.5 2");
}

TEST(SphericalStream, WritesInTheStreamsOwnFormat) {
  std::ostringstream out;
  out << std::fixed << std::setprecision(2) << gdfSpherical(2.0, 0.25, 0.5);
  EXPECT_EQ(out.str(), "0.25 0.50 2.00");
}

RC_GTEST_PROP(SphericalDifference, UndoesTheSumInPlace, ()) {
  const auto draw = [] { return *rc::gen::inRange(-512, 512) / 64.0; };
  const gdfSpherical s(draw(), draw(), draw());
  const gdfSpherical other(draw(), draw(), draw());
  gdfSpherical moved = s + other;
  moved -= other;
  RC_ASSERT(moved.azimuth() == s.azimuth());
  RC_ASSERT(moved.tilt() == s.tilt());
  RC_ASSERT(moved.length() == s.length());
}
