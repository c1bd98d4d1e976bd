#include <zrBase/tools2d/lineSolvers.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

// The three solvers of two infinite lines: one formula, three rules for parallel lines and for bad
// crossings.

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

using Solver = bool (*)(const gdfVertex&, const gdfVertex&, const gdfVertex&, const gdfVertex&,
                        gdfVertex&, double);

struct NamedSolver {
  const char* name;
  Solver solve;
};

void PrintTo(const NamedSolver& solver, std::ostream* stream) { *stream << solver.name; }

const std::vector<NamedSolver> allSolvers = {
    {"getIntersect", &zr2DTools::getIntersect},
    {"getIntersect2", &zr2DTools::getIntersect2},
    {"getIntersectionVertex3", &zr2DTools::getIntersectionVertex3}};

struct Answer {
  bool found = false;
  gdfVertex out{-99.0, -98.0, -97.0};
};

constexpr const char* untouched = "-99 -98 -97";

/// Solves for the lines through the first two and the last two vertices of a text.
Answer solve(Solver solver, const std::string& text, double tolerance) {
  const VertexLine v = line(text);
  Answer answer;
  answer.found = solver(v.at(0), v.at(1), v.at(2), v.at(3), answer.out, tolerance);
  return answer;
}

class EverySolver : public testing::TestWithParam<NamedSolver> {
 protected:
  Answer solve(const std::string& text, double tolerance) const {
    return ::solve(GetParam().solve, text, tolerance);
  }
};

INSTANTIATE_TEST_SUITE_P(Solvers, EverySolver, testing::ValuesIn(allSolvers),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

// den = 4 * -4 - 4 * 4 = -32, t = ((0 - 4) * 4 - 0) / -32 = 0.5.
TEST_P(EverySolver, CrossingTakesTheHeightOfTheFirstPoint) {
  const Answer answer = solve("0 0 7, 4 4 1, 0 4 2, 4 0 3", 1e-05);
  EXPECT_TRUE(answer.found);
  EXPECT_THAT(answer.out, VertexIs("2 2 7"));
}

TEST_P(EverySolver, LinesRunOnPastTheirPoints) {
  const Answer answer = solve("0 0 7, 1 0 7, 10 5, 10 6", 1e-05);
  EXPECT_TRUE(answer.found);
  EXPECT_THAT(answer.out, VertexIs("10 0 7"));
  EXPECT_THAT(solve("0 0, 1 0, -10 5, -10 6", 1e-05).out, VertexIs("-10 0 0"));
}

// t = 1 / 49, and 49 * (1 / 49) is one bit below 1: the second line would give exactly 1.
TEST_P(EverySolver, CrossingIsReckonedAlongTheFirstLine) {
  const Answer answer = solve("0 0, 49 49, 1 -1, 1 0", 0.0);
  EXPECT_TRUE(answer.found);
  EXPECT_THAT(answer.out, VertexIs("0.99999999999999989 0.99999999999999989 0"));
}

TEST_P(EverySolver, ParallelLinesLeaveTheOutputAlone) {
  for (const char* text : {"0 0, 4 0, 0 1, 4 1", "0 0, 4 4, 9 9, 5 5", "0 0, 0 0, 3 4, 5 6"}) {
    const Answer answer = solve(text, 1e-05);
    EXPECT_FALSE(answer.found) << text;
    EXPECT_THAT(answer.out, VertexIs(untouched));
  }
}

TEST_P(EverySolver, OutputMayBeAnyInput) {
  for (std::size_t aliased = 0; aliased < 4; ++aliased) {
    VertexLine v = line("0 0 7, 4 4 1, 0 4 2, 4 0 3");
    EXPECT_TRUE(GetParam().solve(v[0], v[1], v[2], v[3], v[aliased], 1e-05));
    EXPECT_THAT(v[aliased], VertexIs("2 2 7"));
  }
}

TEST_P(EverySolver, NaNIsNoCrossing) {
  for (const char* text : {"nan 0, 4 4, 0 4, 4 0", "0 0, 4 nan, 0 4, 4 0", "0 0, 4 4, nan 4, 4 0",
                           "0 0, 4 4, 0 4, 4 nan", "0 0 nan, 4 4, 0 4, 4 0"}) {
    EXPECT_FALSE(solve(text, 1e-05).found) << text;
  }
}

// den = 4 * 8 = 32: the bound itself is not parallel, on either sign.
TEST(GetIntersect, ToleranceIsAnOpenBoundOnTheRawDeterminant) {
  for (const Solver solver : {&zr2DTools::getIntersect, &zr2DTools::getIntersect2}) {
    EXPECT_TRUE(solve(solver, "0 0, 4 0, 2 -4, 2 4", 32.0).found);
    EXPECT_TRUE(solve(solver, "0 0, 4 0, 2 4, 2 -4", 32.0).found);
    EXPECT_FALSE(solve(solver, "0 0, 4 0, 2 -4, 2 4", 32.000001).found);
    EXPECT_FALSE(solve(solver, "0 0, 4 0, 2 4, 2 -4", 32.000001).found);
    EXPECT_THAT(solve(solver, "0 0, 4 0, 2 4, 2 -4", 32.000001).out, VertexIs(untouched));
  }
}

// Square to each other, but short: 0.001 * 0.001 lies below 1e-05. The same lines by longer
// stretches do cross.
TEST(GetIntersect, KeptToleranceIsAnAreaAndNoAngle) {
  for (const Solver solver : {&zr2DTools::getIntersect, &zr2DTools::getIntersect2}) {
    EXPECT_FALSE(solve(solver, "0 0, 0.001 0, 0 0, 0 0.001", 1e-05).found);
    EXPECT_TRUE(solve(solver, "0 0, 1 0, 0 0, 0 1", 1e-05).found);
    EXPECT_TRUE(solve(solver, "0 0, 1000 0, 0 0, 1000 0.001", 1e-05).found);
  }
}

// t = -1 / 0: x is 1 * -inf, y is 0 * -inf, and the candidate stays in the output.
TEST(GetIntersect, KeptSolverLeavesRejectedCandidate) {
  const Answer answer = solve(&zr2DTools::getIntersect, "0 0 7, 1 0, 0 1, 1 1", 0.0);
  EXPECT_FALSE(answer.found);
  EXPECT_EQ(answer.out.x(), -infinity);
  EXPECT_TRUE(std::isnan(answer.out.y()));
  EXPECT_EQ(answer.out.z(), 7.0);
}

TEST(GetIntersect, ZeroToleranceDividesParallelLinesByZero) {
  // 0 / 0 for lines that coincide, 1 / 0 for lines apart: no finite crossing either way.
  EXPECT_FALSE(solve(&zr2DTools::getIntersect, "0 0, 4 4, 1 1, 3 3", 0.0).found);
  EXPECT_FALSE(solve(&zr2DTools::getIntersect, "0 0, 4 4, 1 2, 3 4", 0.0).found);
  EXPECT_TRUE(std::isnan(solve(&zr2DTools::getIntersect, "0 0, 4 4, 1 1, 3 3", 0.0).out.x()));
}

TEST(GetIntersect2, DeterminantOfZeroIsParallelAtZeroTolerance) {
  const Answer answer = solve(&zr2DTools::getIntersect2, "0 0 7, 1 0, 0 1, 1 1", 0.0);
  EXPECT_FALSE(answer.found);
  EXPECT_THAT(answer.out, VertexIs(untouched));
}

// den = -1e200 - 1e200; the numerator -1e200 * 1e200 overflows, so t and with it x and y are
// infinite.
TEST(GetIntersect2, KeptSecondSolverAcceptsInfinity) {
  const std::string overflowing = "0 0 7, 1 1, 0 1e200, 1e200 0";
  const Answer second = solve(&zr2DTools::getIntersect2, overflowing, 1e-05);
  EXPECT_TRUE(second.found);
  EXPECT_THAT(second.out, VertexIs("inf inf 7"));
  for (const Solver finite : {&zr2DTools::getIntersect, &zr2DTools::getIntersectionVertex3}) {
    const Answer answer = solve(finite, overflowing, 1e-05);
    EXPECT_FALSE(answer.found);
    EXPECT_THAT(answer.out, VertexIs("inf inf 7"));
  }
}

TEST(GetIntersect2, InfiniteHeightPassesAndNaNHeightDoesNot) {
  EXPECT_TRUE(solve(&zr2DTools::getIntersect2, "0 0 inf, 4 4, 0 4, 4 0", 1e-05).found);
  EXPECT_FALSE(solve(&zr2DTools::getIntersect, "0 0 inf, 4 4, 0 4, 4 0", 1e-05).found);
  const Answer answer = solve(&zr2DTools::getIntersect2, "0 0 nan, 4 4, 0 4, 4 0", 1e-05);
  EXPECT_FALSE(answer.found);
  EXPECT_EQ(answer.out.x(), 2.0);
}

TEST(GetIntersectionVertex3, KeptThirdSolverIgnoresTolerance) {
  const Answer answer = solve(&zr2DTools::getIntersectionVertex3, "0 0, 4 0, 2 -4, 2 4", 1e9);
  EXPECT_TRUE(answer.found);
  EXPECT_THAT(answer.out, VertexIs("2 0 0"));
  EXPECT_FALSE(solve(&zr2DTools::getIntersect, "0 0, 4 0, 2 -4, 2 4", 1e9).found);
}

TEST(GetIntersectionVertex3, OnlyADeterminantOfZeroIsParallel) {
  const Answer parallel = solve(&zr2DTools::getIntersectionVertex3, "0 0, 1 0, 0 1, 1 1", 0.0);
  EXPECT_FALSE(parallel.found);
  EXPECT_THAT(parallel.out, VertexIs(untouched));
  // den = 1e-300, t = 1e-300 / 1e-300.
  const Answer nearly = solve(&zr2DTools::getIntersectionVertex3, "0 0, 1 0, 0 -1e-300, 1 0", 1.0);
  EXPECT_TRUE(nearly.found);
  EXPECT_THAT(nearly.out, VertexIs("1 0 0"));
}

/// k/64 with |k| <= 256: differences and their products are exact.
rc::Gen<gdfVertex> mapVertex() {
  const auto coordinate = rc::gen::map(rc::gen::inRange(-256, 257), [](int k) { return k / 64.0; });
  return rc::gen::apply([](double x, double y, double z) { return gdfVertex(x, y, z); }, coordinate,
                        coordinate, coordinate);
}

bool near(const gdfVertex& a, const gdfVertex& b) {
  return a.mapDistance(b) <= 1e-11 * (1.0 + a.mapLength());
}

RC_GTEST_PROP(EverySolverProperty, SwappedSecondPointsGiveTheSameBits, ()) {
  const gdfVertex a = *mapVertex(), b = *mapVertex(), c = *mapVertex(), d = *mapVertex();
  for (const NamedSolver& solver : allSolvers) {
    Answer straight, swapped;
    straight.found = solver.solve(a, b, c, d, straight.out, 1e-05);
    swapped.found = solver.solve(a, b, d, c, swapped.out, 1e-05);
    RC_ASSERT(straight.found == swapped.found);
    RC_ASSERT(straight.out == swapped.out);
  }
}

RC_GTEST_PROP(EverySolverProperty, SwappedFirstPointsAndSwappedLinesGiveTheSamePlace, ()) {
  const gdfVertex a = *mapVertex(), b = *mapVertex(), c = *mapVertex(), d = *mapVertex();
  for (const NamedSolver& solver : allSolvers) {
    Answer straight, ends, lines;
    straight.found = solver.solve(a, b, c, d, straight.out, 1e-05);
    ends.found = solver.solve(b, a, c, d, ends.out, 1e-05);
    lines.found = solver.solve(c, d, a, b, lines.out, 1e-05);
    RC_ASSERT(straight.found == ends.found);
    RC_ASSERT(straight.found == lines.found);
    RC_ASSERT(near(straight.out, ends.out));
    RC_ASSERT(near(straight.out, lines.out));
    if (straight.found) {
      RC_ASSERT(straight.out.z() == a.z());
      RC_ASSERT(ends.out.z() == b.z());
      RC_ASSERT(lines.out.z() == c.z());
    }
  }
}

RC_GTEST_PROP(EverySolverProperty, ShiftMovesTheCrossing, ()) {
  const gdfVertex a = *mapVertex(), b = *mapVertex(), c = *mapVertex(), d = *mapVertex();
  const gdfVertex shift = *mapVertex();
  for (const NamedSolver& solver : allSolvers) {
    Answer here, there;
    here.found = solver.solve(a, b, c, d, here.out, 1e-05);
    there.found = solver.solve(a + shift, b + shift, c + shift, d + shift, there.out, 1e-05);
    RC_ASSERT(here.found == there.found);
    if (here.found) RC_ASSERT(near(here.out + shift, there.out));
  }
}

RC_GTEST_PROP(EverySolverProperty, CrossingLiesOnBothLines, ()) {
  const gdfVertex a = *mapVertex(), b = *mapVertex(), c = *mapVertex(), d = *mapVertex();
  gdfVertex out;
  RC_PRE(zr2DTools::getIntersect(a, b, c, d, out, 1e-05));
  const auto offset = [&out](const gdfVertex& from, const gdfVertex& to) {
    return (to.x() - from.x()) * (out.y() - from.y()) - (to.y() - from.y()) * (out.x() - from.x());
  };
  RC_ASSERT(std::fabs(offset(a, b)) <= 1e-9 * (1.0 + out.mapLength()));
  RC_ASSERT(std::fabs(offset(c, d)) <= 1e-9 * (1.0 + out.mapLength()));
}

}  // namespace
