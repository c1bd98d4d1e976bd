#include <zrBase/geometry/gdfVertex.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <iomanip>
#include <locale>
#include <sstream>
#include <string>

// The text form of a vertex.

namespace {

std::string written(const gdfVertex& v) {
  std::ostringstream stream;
  stream.imbue(std::locale::classic());
  stream << v;
  return stream.str();
}

// Ten decimals in a field of 12: "1.0000000000" fills it, "0" and a sign make it wider.
TEST(VertexWrite, FixedTenDecimalsOneBlankBetweenNoLineEnd) {
  EXPECT_EQ(written(gdfVertex(1.0, 2.5, 3.25)), "1.0000000000 2.5000000000 3.2500000000");
  EXPECT_EQ(written(gdfVertex(-1.0, 1234.5, 0.0)), "-1.0000000000 1234.5000000000 0.0000000000");
  EXPECT_EQ(written(gdfVertex(1e-11, 6e-11, 1e15)),
            "0.0000000000 0.0000000001 1000000000000000.0000000000");
}

TEST(VertexWrite, PadsEachFieldToTwelveOnTheLeft) {
  EXPECT_EQ(written(vertex("inf -inf inf")), "         inf         -inf          inf");
  std::ostringstream filled;
  filled << std::setfill('*') << vertex("inf -inf inf");
  EXPECT_EQ(filled.str(), "*********inf ********-inf *********inf");
}

TEST(VertexWrite, KeptStreamStaysFixed) {
  std::ostringstream stream;
  stream << std::scientific << std::setprecision(3) << gdfVertex(1.0, 2.0, 3.0);
  EXPECT_EQ(stream.str(), "1.0000000000 2.0000000000 3.0000000000");
  EXPECT_EQ(stream.precision(), 10);
  EXPECT_EQ(stream.flags() & std::ios_base::floatfield, std::ios_base::fixed);
  EXPECT_EQ(stream.width(), 0);
  stream << ' ' << 0.5;
  EXPECT_EQ(stream.str(), "1.0000000000 2.0000000000 3.0000000000 0.5000000000");
}

TEST(VertexWrite, WidthSetBeforehandAppliesToNothing) {
  std::ostringstream stream;
  stream << std::setw(40) << gdfVertex(1.0, 2.0, 3.0);
  EXPECT_EQ(stream.str(), "1.0000000000 2.0000000000 3.0000000000");
}

TEST(VertexWrite, ReturnsItsStream) {
  std::ostringstream stream;
  EXPECT_EQ(&(stream << gdfVertex()), &stream);
}

TEST(VertexRead, ThreeNumbersSeparatedByAnyWhiteSpace) {
  std::istringstream stream("  1.5\t-2\n3e2 rest");
  gdfVertex v;
  EXPECT_EQ(&(stream >> v), &stream);
  EXPECT_THAT(v, VertexIs("1.5 -2 300"));
  std::string rest;
  stream >> rest;
  EXPECT_EQ(rest, "rest");
}

TEST(VertexRead, SeveralInARow) {
  std::istringstream stream("1 2 3 4 5 6");
  gdfVertex first;
  gdfVertex second;
  EXPECT_TRUE(static_cast<bool>(stream >> first >> second));
  EXPECT_THAT(first, VertexIs("1 2 3"));
  EXPECT_THAT(second, VertexIs("4 5 6"));
}

// The fields that were read before the text ended are written; the stream tells the failure.
TEST(VertexRead, TextThatEndsEarlySetsTheFailBit) {
  std::istringstream stream("1 2");
  gdfVertex v(7.0, 8.0, 9.0);
  stream >> v;
  EXPECT_TRUE(stream.fail());
  EXPECT_EQ(v.x(), 1.0);
  EXPECT_EQ(v.y(), 2.0);
}

TEST(VertexRead, CommasAreNoSeparators) {
  std::istringstream stream("1,2,3");
  gdfVertex v(7.0, 8.0, 9.0);
  stream >> v;
  EXPECT_TRUE(stream.fail());
  EXPECT_EQ(v.x(), 1.0);
  EXPECT_EQ(v.z(), 9.0);
}

// Ten decimals hold every k/64 exactly, so text and vertex are one.
RC_GTEST_PROP(VertexRead, GivesBackWhatWasWritten, ()) {
  const auto coordinate =
      rc::gen::map(rc::gen::inRange(-100000, 100000), [](int k) { return k / 64.0; });
  const gdfVertex v(*coordinate, *coordinate, *coordinate);
  std::istringstream stream(written(v));
  gdfVertex back;
  stream >> back;
  RC_ASSERT(static_cast<bool>(stream));
  RC_ASSERT(back == v);
}

}  // namespace
