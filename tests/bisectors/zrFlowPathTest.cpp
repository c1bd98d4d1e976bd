#include <zrBase/bisectors/zrFlowPath.h>
#include <zrBase/geometry/gdfTransMatrix.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <locale>
#include <string>
#include <vector>

#include "support/geometryText.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

zrFlowPath makePath(const std::string& vertices, const std::vector<double>& slips) {
  zrFlowPath path;
  path.setFlow(line(vertices), slips);
  return path;
}

/// Three vertices along x; slip is x - 1.
zrFlowPath examplePath() { return makePath("0 0, 1 0, 3 0", {-1.0, 0.0, 2.0}); }

std::string messageOf(const zrFlowPath& path, double slip) {
  CaptureStderr();
  path.getSegment(slip);
  return GetCapturedStderr();
}

/// A random path with exact coordinates; slips ascend, with equal neighbours among them.
zrFlowPath randomPath() {
  const auto size = static_cast<std::size_t>(*rc::gen::inRange(2, 12));
  VertexLine vertices;
  std::vector<double> slips;
  double slip = *rc::gen::inRange(-200, 1) / 64.0;
  for (std::size_t i = 0; i < size; ++i) {
    vertices.emplace_back(*rc::gen::inRange(-64, 64) / 64.0, *rc::gen::inRange(-64, 64) / 64.0,
                          *rc::gen::inRange(-8, 8) / 64.0);
    slips.push_back(slip);
    slip += *rc::gen::inRange(0, 40) / 64.0;
  }
  zrFlowPath path;
  path.setFlow(vertices, slips);
  return path;
}

}  // namespace

TEST(FlowPath, StartsEmptyWithIdMinusOne) {
  const zrFlowPath path;
  EXPECT_THAT(path.getFlowLine(), IsEmpty());
  EXPECT_THAT(path.getSlipValues(), IsEmpty());
  EXPECT_THAT(path.getStartVector(), VertexIs("0 0 0"));
  EXPECT_THAT(path.getEndVector(), VertexIs("0 0 0"));
  EXPECT_EQ(path.getH(), 0.0);
  EXPECT_EQ(path.getL(), 0.0);
  EXPECT_EQ(path.getId(), -1.0);
}

TEST(FlowPath, CopiesAllSevenFields) {
  zrFlowPath original = makePath("0 0, 5 0, 5 5", {-5.0, 0.0, 5.0});
  original.setH(1.5);
  original.setL(2.5);
  original.setId(3.5);
  zrFlowPath assigned;
  assigned = original;
  for (const zrFlowPath& copy : {zrFlowPath(original), assigned}) {
    EXPECT_THAT(copy.getFlowLine(), LineIs("0 0, 5 0, 5 5"));
    EXPECT_THAT(copy.getSlipValues(), ElementsAre(-5.0, 0.0, 5.0));
    EXPECT_THAT(copy.getStartVector(), VertexIs("-1 0"));
    EXPECT_THAT(copy.getEndVector(), VertexIs("0 1"));
    EXPECT_EQ(copy.getH(), 1.5);
    EXPECT_EQ(copy.getL(), 2.5);
    EXPECT_EQ(copy.getId(), 3.5);
  }
  original.getFlowLine().clear();
  original.getSlipValues().clear();
  EXPECT_TRUE(assigned.valid());
}

TEST(FlowPath, ClearEmptiesTheListsOnly) {
  zrFlowPath path = makePath("0 0, 5 0, 5 5", {-5.0, 0.0, 5.0});
  path.setH(1.5);
  path.setL(2.5);
  path.setId(3.5);
  path.clear();
  EXPECT_THAT(path.getFlowLine(), IsEmpty());
  EXPECT_THAT(path.getSlipValues(), IsEmpty());
  EXPECT_THAT(path.getStartVector(), VertexIs("-1 0"));
  EXPECT_THAT(path.getEndVector(), VertexIs("0 1"));
  EXPECT_EQ(path.getH(), 1.5);
  EXPECT_EQ(path.getL(), 2.5);
  EXPECT_EQ(path.getId(), 3.5);
}

TEST(FlowPathValid, NeedsTwoVerticesAndAsManySlips) {
  EXPECT_FALSE(zrFlowPath().valid());
  EXPECT_FALSE(makePath("0 0", {0.0}).valid());
  EXPECT_FALSE(makePath("0 0, 1 0", {0.0}).valid());
  EXPECT_TRUE(makePath("0 0, 1 0", {0.0, 1.0}).valid());
  EXPECT_FALSE(makePath("0 0, 1 0", {0.0, 1.0, 2.0}).valid());
}

TEST(FlowPathSetFlow, TakesListsOfDifferentSizesAndCalculatesTheEndVectors) {
  const zrFlowPath path = makePath("0 0, 3 4, 3 5", {1.0});
  EXPECT_THAT(path.getFlowLine(), LineIs("0 0, 3 4, 3 5"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(1.0));
  EXPECT_THAT(path.getStartVector(), VertexIs("-0.6 -0.8"));
  EXPECT_THAT(path.getEndVector(), VertexIs("0 1"));
}

TEST(FlowPathEndVectors, PointOutOfThePathInSpace) {
  zrFlowPath path;
  path.getFlowLine() = line("0 0 0, 3 0 4, 3 0 0");
  path.calcNormalisedEndVectors();
  EXPECT_THAT(path.getStartVector(), VertexIs("-0.6 0 -0.8"));
  EXPECT_THAT(path.getEndVector(), VertexIs("0 0 -1"));
}

TEST(FlowPathEndVectors, StayForFewerThanTwoVertices) {
  zrFlowPath path = examplePath();
  path.getFlowLine() = line("9 9");
  path.calcNormalisedEndVectors();
  EXPECT_THAT(path.getStartVector(), VertexIs("-1 0"));
  path.getFlowLine().clear();
  path.calcNormalisedEndVectors();
  EXPECT_THAT(path.getEndVector(), VertexIs("1 0"));
}

TEST(FlowPathEndVectors, AreZeroForSegmentsUpToTheExactnessLimit) {
  const zrFlowPath path = makePath("0 0, 0.00001 0, 5 0, 5 0.00002", {0.0, 1.0, 2.0, 3.0});
  EXPECT_THAT(path.getStartVector(), VertexIs("0 0"));
  EXPECT_THAT(path.getEndVector(), VertexIs("0 1"));
}

TEST(FlowPathGetSegment, OfAnEmptyPathIsMinusThree) {
  EXPECT_EQ(zrFlowPath().getSegment(0.0), -3);
  EXPECT_EQ(zrFlowPath().getSegment(notANumber), -3);
  EXPECT_EQ(makePath("0 0, 1 0", {}).getSegment(0.0), -3);
}

TEST(FlowPathGetSegment, TakesAValueEqualToAnEndAsInside) {
  EXPECT_EQ(examplePath().getSegment(-1.0), 0);
  EXPECT_EQ(examplePath().getSegment(2.0), 1);
}

TEST(FlowPathGetSegment, TellsBeforeFromBeyond) {
  EXPECT_EQ(examplePath().getSegment(-1.5), -1);
  EXPECT_EQ(examplePath().getSegment(2.5), -2);
}

// Of three segments the middle one is looked at first, and takes the slips of both its vertices.
TEST(FlowPathGetSegment, GivesAVertexToTheSegmentThatTheSearchMeetsFirst) {
  const zrFlowPath path = makePath("0 0, 1 0, 2 0, 3 0", {0.0, 1.0, 2.0, 3.0});
  EXPECT_EQ(path.getSegment(1.0), 1);
  EXPECT_EQ(path.getSegment(2.0), 1);
  EXPECT_EQ(examplePath().getSegment(0.0), 0);
}

TEST(FlowPathGetSegment, GivesASlipThatIsNoNumberToTheMiddle) {
  EXPECT_EQ(makePath("0 0, 1 0, 2 0, 3 0", {0.0, 1.0, 2.0, 3.0}).getSegment(notANumber), 1);
}

// 3 vertices bound the search to segments 0 and 1, whatever the number of slips: of equal slips
// segment 0 is met first, where 5 vertices would let it begin at segment 1; and slip 3.5 is not
// found.
TEST(FlowPathGetSegment, KeptSegmentSearchIsBoundedByVertices) {
  EXPECT_EQ(makePath("0 0, 1 0, 2 0", {0.0, 0.0, 0.0, 0.0, 0.0}).getSegment(0.0), 0);
  EXPECT_EQ(makePath("0 0, 1 0, 2 0, 3 0, 4 0", {0.0, 0.0, 0.0, 0.0, 0.0}).getSegment(0.0), 1);
  const zrFlowPath fewVertices = makePath("0 0, 1 0, 2 0", {0.0, 1.0, 2.0, 3.0, 4.0});
  EXPECT_EQ(fewVertices.getSegment(1.5), 1);
  CaptureStderr();
  EXPECT_EQ(fewVertices.getSegment(3.5), -1);
  EXPECT_NE(GetCapturedStderr(), "");
}

TEST(FlowPathGetSegment, KeptSegmentMessageIsFollowedByNothing) {
  const zrFlowPath path = makePath("0 0", {0.0, 4.0});
  EXPECT_EQ(messageOf(path, 3.5),
            "Problem detected during zrFlowPath::getSegment(3.5), flowpath follows:\n");
  EXPECT_EQ(path.getSegment(-0.5), -1);
}

TEST(FlowPathGetSegment, WritesTheSlipAsAStreamDoes) {
  const zrFlowPath path = makePath("0 0", {-1e+20, 1e+20});
  EXPECT_EQ(messageOf(path, 1234567.0),
            "Problem detected during zrFlowPath::getSegment(1.23457e+06), flowpath follows:\n");
  EXPECT_EQ(messageOf(path, -1.0 / 3.0),
            "Problem detected during zrFlowPath::getSegment(-0.333333), flowpath follows:\n");
  EXPECT_EQ(messageOf(path, 2.0),
            "Problem detected during zrFlowPath::getSegment(2), flowpath follows:\n");
}

TEST(FlowPathGetSegment, WritesADecimalPointInEveryLocale) {
  struct DecimalComma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale before =
      std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
  const std::string message = messageOf(makePath("0 0", {0.0, 4000.0}), 1234.5);
  std::locale::global(before);
  EXPECT_EQ(message, "Problem detected during zrFlowPath::getSegment(1234.5), flowpath follows:\n");
}

TEST(FlowPathGetSegment, WritesNothingForTheThreeCodes) {
  EXPECT_EQ(messageOf(zrFlowPath(), 1.0), "");
  EXPECT_EQ(messageOf(examplePath(), -9.0), "");
  EXPECT_EQ(messageOf(examplePath(), 9.0), "");
}

TEST(FlowPathGetSegment, EndsWhereEitherListEnds) {
  CaptureStderr();
  EXPECT_EQ(makePath("", {0.0, 1.0}).getSegment(0.5), -1);
  EXPECT_EQ(makePath("0 0", {0.0}).getSegment(0.0), -1);
  EXPECT_EQ(makePath("0 0, 1 0", {0.0}).getSegment(0.0), -1);
  EXPECT_EQ(makePath("0 0, 1 0, 2 0, 3 0, 4 0, 5 0", {0.0, 1.0}).getSegment(0.5), -1);
  EXPECT_EQ(makePath("0 0, 1 0, 2 0, 3 0", {0.0, 9.0, 5.0}).getSegment(0.0), 0);
  EXPECT_EQ(makePath("0 0, 1 0", {1.0, 2.0, 1.0}).getSegment(notANumber), 0);
  GetCapturedStderr();
}

// With as many slips as vertices some segment is always found, in whatever order the slips stand.
TEST(FlowPathGetSegment, FindsASegmentAmongSlipsThatDoNotAscend) {
  const std::string vertices = "0 0, 1 0, 2 0, 3 0";
  CaptureStderr();
  EXPECT_EQ(makePath(vertices, {notANumber, 9.0, 9.0, 9.0}).getSegment(5.0), 0);
  EXPECT_EQ(makePath(vertices, {0.0, -3.0, -5.0, 9.0}).getSegment(1.0), 2);
  EXPECT_EQ(makePath(vertices, {2.0, 7.0, 1.0, 9.0}).getSegment(3.0), 0);
  EXPECT_EQ(GetCapturedStderr(), "");
}

TEST(FlowPathGetVertex, OfAnEmptyPathIsTheOrigin) {
  EXPECT_THAT(zrFlowPath().getVertex(5.0), VertexIs("0 0 0"));
  EXPECT_THAT(zrFlowPath().getVertex(5.0, 1.0), VertexIs("0 0 0"));
  EXPECT_THAT(makePath("7 8, 9 9", {}).getVertex(5.0), VertexIs("0 0 0"));
}

TEST(FlowPathGetVertex, InterpolatesBetweenVertices) {
  EXPECT_THAT(examplePath().getVertex(1.0), VertexIs("2 0 0"));
  EXPECT_THAT(makePath("0 0 0, 4 8 2", {0.0, 4.0}).getVertex(1.0), VertexIs("1 2 0.5"));
}

TEST(FlowPathGetVertex, RunsOnStraightPastItsLastVertex) {
  EXPECT_THAT(examplePath().getVertex(3.0), VertexIs("4 0 0"));
}

TEST(FlowPathGetVertex, RunsOnStraightPastItsFirstVertex) {
  EXPECT_THAT(examplePath().getVertex(-3.0), VertexIs("-2 0 0"));
}

TEST(FlowPathGetVertex, StaysAtTheEndsWithoutEndVectors) {
  zrFlowPath path;
  path.getFlowLine() = line("0 0, 1 0, 3 0");
  path.getSlipValues() = {-1.0, 0.0, 2.0};
  EXPECT_THAT(path.getVertex(3.0), VertexIs("3 0 0"));
  EXPECT_THAT(path.getVertex(-3.0), VertexIs("0 0 0"));
}

TEST(FlowPathGetVertex, OfEqualSlipsIsTheFirstVertex) {
  EXPECT_THAT(makePath("0 0, 1 0, 1 5, 2 5", {0.0, 1.0, 1.0, 2.0}).getVertex(1.0), VertexIs("1 0"));
  EXPECT_THAT(makePath("0 0, 1 0, 1 5", {0.0, 1.0, 1.0}).getVertex(1.0), VertexIs("1 0"));
  EXPECT_THAT(makePath("1 0, 1 5, 2 5", {1.0, 1.0, 2.0}).getVertex(1.0), VertexIs("1 0"));
}

TEST(FlowPathGetVertex, KeptLostSegmentRunsOnFromTheStart) {
  zrFlowPath path = makePath("0 0, 1 0, 2 0", {0.0, 1.0, 2.0, 3.0, 4.0});
  CaptureStderr();
  EXPECT_THAT(path.getVertex(3.5), VertexIs("3.5 0"));  // startVector (-1, 0) times 0 - 3.5
  EXPECT_NE(GetCapturedStderr(), "");
}

TEST(FlowPathGetVertex, TurnsAShearAngleIntoASlip) {
  zrFlowPath path = examplePath();
  path.setH(2.0);
  const double angle = 0.7853981633974483;  // 45 degrees: tan is 1
  EXPECT_THAT(path.getVertex(-1.0, angle), VertexNear("2 0", 1e-12));
  path.setH(-2.0);
  EXPECT_THAT(path.getVertex(1.0, angle), VertexNear("0 0", 1e-12));
}

TEST(FlowPathGetVertex, WithoutAShearAngleIgnoresTheHeight) {
  zrFlowPath path = examplePath();
  path.setH(1e+6);
  EXPECT_THAT(path.getVertex(1.0, 0.0), VertexIs("2 0 0"));
}

RC_GTEST_PROP(FlowPathGetVertex, EqualsItselfAtAngleZeroForEveryHeight, ()) {
  zrFlowPath path = randomPath();
  path.setH(*rc::gen::inRange(-100000, 100000) / 64.0);
  const double slip = *rc::gen::inRange(-500, 500) / 64.0;
  RC_ASSERT(path.getVertex(slip, 0.0) == path.getVertex(slip));
}

RC_GTEST_PROP(FlowPathGetSegment, HoldsTheSlipBetweenItsVertices, ()) {
  const zrFlowPath path = randomPath();
  const double slip = *rc::gen::inRange(-300, 500) / 64.0;
  const std::vector<double>& slips = path.getSlipValues();
  const int segment = path.getSegment(slip);
  RC_ASSERT((segment == -1) == (slip < slips.front()));
  RC_ASSERT((segment == -2) == (slip > slips.back()));
  if (segment < 0) return;
  const auto i = static_cast<std::size_t>(segment);
  RC_ASSERT(i + 1 < slips.size());
  RC_ASSERT(slips[i] <= slip && slip <= slips[i + 1]);
}

// End vectors, the height and L stay; so do the values, which descend afterwards.
TEST(FlowPathReverse, KeptReverseNegatesNothing) {
  zrFlowPath path = makePath("0 0, 1 0, 1 3", {-1.0, 0.0, 3.0});
  path.setH(4.0);
  path.setL(5.0);
  path.reverse();
  EXPECT_THAT(path.getFlowLine(), LineIs("1 3, 1 0, 0 0"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(3.0, 0.0, -1.0));
  EXPECT_THAT(path.getStartVector(), VertexIs("-1 0"));
  EXPECT_THAT(path.getEndVector(), VertexIs("0 1"));
  EXPECT_EQ(path.getH(), 4.0);
  EXPECT_EQ(path.getL(), 5.0);
}

TEST(FlowPathReverse, TakesListsOfDifferentSizes) {
  zrFlowPath path = makePath("0 0, 1 0, 1 3", {-1.0, 0.0});
  path.reverse();
  EXPECT_THAT(path.getFlowLine(), LineIs("1 3, 1 0, 0 0"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(0.0, -1.0));
}

RC_GTEST_PROP(FlowPathReverse, TwiceIsTheIdentity, ()) {
  const zrFlowPath path = randomPath();
  zrFlowPath turned = path;
  turned.reverse();
  RC_ASSERT(turned.getFlowLine().front() == path.getFlowLine().back());
  turned.reverse();
  RC_ASSERT(turned.getFlowLine() == path.getFlowLine());
  RC_ASSERT(turned.getSlipValues() == path.getSlipValues());
}

TEST(FlowPathTransform, MovesVerticesAndEndVectorsOnly) {
  zrFlowPath path = examplePath();
  path.setH(4.0);
  path.setL(5.0);
  const double quarterTurn[4][4] = {{0, 2, 0, 0}, {-2, 0, 0, 0}, {0, 0, 1, 0}, {10, 20, 30, 1}};
  path.transform(gdfTransMatrix(quarterTurn));  // (x, y, z) to (10 - 2 y, 20 + 2 x, 30 + z)
  EXPECT_THAT(path.getFlowLine(), LineIs("10 20 30, 10 22 30, 10 26 30"));
  EXPECT_THAT(path.getStartVector(), VertexIs("0 -1"));
  EXPECT_THAT(path.getEndVector(), VertexIs("0 1"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-1.0, 0.0, 2.0));
  EXPECT_EQ(path.getH(), 4.0);
  EXPECT_EQ(path.getL(), 5.0);
}

TEST(FlowPathTransform, DividesByTheFourthComponent) {
  zrFlowPath path = examplePath();
  const double halved[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 2}};
  path.transform(gdfTransMatrix(halved));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 0, 0.5 0, 1.5 0"));
}

TEST(FlowPathTransform, LeavesAnEmptyPathEmpty) {
  zrFlowPath path;
  path.transform(gdfTransMatrix());
  EXPECT_THAT(path.getFlowLine(), IsEmpty());
}
