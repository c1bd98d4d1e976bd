#include <zrBase/tools2d/segmentIntersection.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

// Laws of the crossing of two segments. Coordinates are k/64, so that touching, collinear and equal
// cases come up often, and an exact answer can be had in integers.

namespace {

/// A place in 64ths.
struct Grid {
  int x = 0;
  int y = 0;
};

gdfVertex toVertex(const Grid& g, double z = 0.0) { return {g.x / 64.0, g.y / 64.0, z}; }

rc::Gen<Grid> gridPlace() {
  return rc::gen::apply(
      [](int x, int y) {
        return Grid{x, y};
      },
      rc::gen::inRange(-16, 17), rc::gen::inRange(-16, 17));
}

rc::Gen<gdfVertex> mapVertex() {
  return rc::gen::apply([](const Grid& g, int z) { return toVertex(g, z / 64.0); }, gridPlace(),
                        rc::gen::inRange(-16, 17));
}

struct Answer {
  bool found = false;
  gdfVertex out{-99.0, -98.0, -97.0};
};

Answer intersect(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c, const gdfVertex& d,
                 double tolerance) {
  Answer answer;
  answer.found = zr2DTools::getSegmentSegmentIntersect(a, b, c, d, answer.out, tolerance);
  return answer;
}

bool sameInPlane(const Answer& a, const Answer& b) {
  return a.found == b.found && a.out.x() == b.out.x() && a.out.y() == b.out.y();
}

RC_GTEST_PROP(SegmentSegmentIntersectProperty, SwappedEndsOfTheFirstGiveTheSameBits, ()) {
  const gdfVertex a = *mapVertex(), b = *mapVertex(), c = *mapVertex(), d = *mapVertex();
  const double tolerance = *rc::gen::element(0.0, 1e-09, 0.125);
  const Answer straight = intersect(a, b, c, d, tolerance);
  const Answer swapped = intersect(b, a, c, d, tolerance);
  RC_ASSERT(sameInPlane(straight, swapped));
  RC_ASSERT(straight.out.z() == swapped.out.z());
}

RC_GTEST_PROP(SegmentSegmentIntersectProperty, SwappedEndsOfTheSecondGiveTheSameBitsInThePlane,
              ()) {
  const gdfVertex a = *mapVertex(), b = *mapVertex(), c = *mapVertex(), d = *mapVertex();
  RC_PRE(!c.equalXY(d, 1e-05));  // a segment of one place has the height of its start
  const double tolerance = *rc::gen::element(0.0, 1e-09, 0.125);
  const Answer straight = intersect(a, b, c, d, tolerance);
  const Answer swapped = intersect(a, b, d, c, tolerance);
  RC_ASSERT(sameInPlane(straight, swapped));
  RC_ASSERT(std::fabs(straight.out.z() - swapped.out.z()) < 1e-11);
}

gdfVertex leftEnd(const gdfVertex& a, const gdfVertex& b) { return a.x() > b.x() ? b : a; }

// The same lines are reckoned in the same order, but for two segments with one left end: those keep
// the given order.
RC_GTEST_PROP(SegmentSegmentIntersectProperty, SwappedSegmentsGiveTheSameBitsInThePlane, ()) {
  const gdfVertex a = *mapVertex(), b = *mapVertex(), c = *mapVertex(), d = *mapVertex();
  const double tolerance = *rc::gen::element(0.0, 1e-09, 0.125);
  RC_PRE(!leftEnd(a, b).equalXY(leftEnd(c, d), 1e-05));
  RC_ASSERT(sameInPlane(intersect(a, b, c, d, tolerance), intersect(c, d, a, b, tolerance)));
}

RC_GTEST_PROP(SegmentSegmentIntersectProperty, SwappedSegmentsFromOneLeftEndAgreeInX, ()) {
  const gdfVertex a = *mapVertex(), b = *mapVertex(), d = *mapVertex();
  const gdfVertex c = leftEnd(a, b);
  RC_PRE(c.x() <= d.x());
  const Answer straight = intersect(a, b, c, d, 1e-09);
  const Answer swapped = intersect(c, d, a, b, 1e-09);
  RC_ASSERT(straight.found == swapped.found);
  RC_ASSERT(straight.out.x() == swapped.out.x());
  RC_ASSERT(std::fabs(straight.out.y() - swapped.out.y()) < 1e-11);
}

// Where the exact crossing of the lines is, as fractions along both, by integers: the first at n1 /
// den of a-b.
struct ExactCrossing {
  int den = 0;
  int n1 = 0;
  int n2 = 0;
};

ExactCrossing exactCrossing(const Grid& a, const Grid& b, const Grid& c, const Grid& d) {
  const int ux = b.x - a.x, uy = b.y - a.y, vx = d.x - c.x, vy = d.y - c.y;
  const int wx = c.x - a.x, wy = c.y - a.y;
  ExactCrossing e{ux * vy - uy * vx, wx * vy - wy * vx, wx * uy - wy * ux};
  if (e.den < 0) e = {-e.den, -e.n1, -e.n2};
  return e;
}

// In 64ths the nearest miss is 7e-6 off and rounding stays below 1e-11, so 1e-9 separates hit from
// miss.
RC_GTEST_PROP(SegmentSegmentIntersectProperty, AgreesWithExactArithmetic, ()) {
  const Grid a = *gridPlace(), b = *gridPlace(), c = *gridPlace(), d = *gridPlace();
  const ExactCrossing exact = exactCrossing(a, b, c, d);
  RC_PRE(exact.den != 0);
  const Answer answer =
      intersect(toVertex(a), toVertex(b), toVertex(c, 1.0), toVertex(d, 2.0), 1e-09);
  const bool meet =
      0 <= exact.n1 && exact.n1 <= exact.den && 0 <= exact.n2 && exact.n2 <= exact.den;
  const bool boxesApart =
      std::max(a.x, b.x) < std::min(c.x, d.x) || std::max(c.x, d.x) < std::min(a.x, b.x) ||
      std::max(a.y, b.y) < std::min(c.y, d.y) || std::max(c.y, d.y) < std::min(a.y, b.y);
  RC_CLASSIFY(meet, "meet");
  RC_CLASSIFY(boxesApart, "boxes apart");
  RC_ASSERT(answer.found == meet);
  if (boxesApart) RC_ASSERT(!answer.found);
  if (!meet) return;
  const double along1 = static_cast<double>(exact.n1) / exact.den;
  const double along2 = static_cast<double>(exact.n2) / exact.den;
  RC_ASSERT(std::fabs(answer.out.x() - (a.x + (b.x - a.x) * along1) / 64.0) < 1e-11);
  RC_ASSERT(std::fabs(answer.out.y() - (a.y + (b.y - a.y) * along1) / 64.0) < 1e-11);
  // On a steep second segment the height is interpolated over a narrow reach of x.
  RC_ASSERT(std::fabs(answer.out.z() - (1.0 + along2)) < 1e-9);
}

RC_GTEST_PROP(SegmentSegmentIntersectProperty, ParallelNeverMeet, ()) {
  const Grid a = *gridPlace();
  const int dx = *rc::gen::inRange(-2, 3);
  const int dy = *rc::gen::inRange(-2, 3);
  RC_PRE(dx != 0 || dy != 0);
  const auto onTheLine = [&](int steps) { return toVertex({a.x + steps * dx, a.y + steps * dy}); };
  const int from = *rc::gen::inRange(-4, 5), to = *rc::gen::inRange(-4, 5);
  RC_PRE(from != to);
  const gdfVertex aside(*rc::gen::inRange(0, 2) / 64.0, *rc::gen::inRange(0, 2) / 64.0);
  RC_ASSERT(
      !intersect(onTheLine(0), onTheLine(2), aside + onTheLine(from), aside + onTheLine(to), 1.0)
           .found);
}

/// A segment that is level, vertical or at 45 degrees: slopes and intercepts of these are exact in
/// 64ths.
struct EightWaySegment {
  Grid from;
  Grid to;
};

rc::Gen<EightWaySegment> eightWaySegment() {
  return rc::gen::apply(
      [](const Grid& from, int direction, int length) {
        constexpr int steps[4][2] = {{1, 0}, {0, 1}, {1, 1}, {1, -1}};
        return EightWaySegment{
            from, {from.x + steps[direction][0] * length, from.y + steps[direction][1] * length}};
      },
      gridPlace(), rc::gen::inRange(0, 4),
      rc::gen::suchThat(rc::gen::inRange(-16, 17), [](int n) { return n != 0; }));
}

RC_GTEST_PROP(SegmentSegmentIntersectProperty, EightWaySegmentsMeetExactly, ()) {
  const EightWaySegment s = *eightWaySegment(), t = *eightWaySegment();
  const ExactCrossing exact = exactCrossing(s.from, s.to, t.from, t.to);
  const bool meet = exact.den != 0 && 0 <= exact.n1 && exact.n1 <= exact.den && 0 <= exact.n2 &&
                    exact.n2 <= exact.den;
  const Answer answer =
      intersect(toVertex(s.from), toVertex(s.to), toVertex(t.from), toVertex(t.to), 0.0);
  RC_ASSERT(answer.found == meet);
  if (meet) {
    // Twice the crossing is a whole number of 64ths.
    RC_ASSERT(answer.out.x() * 128.0 * exact.den ==
              2.0 * (s.from.x * exact.den + (s.to.x - s.from.x) * exact.n1));
    RC_ASSERT(answer.out.y() * 128.0 * exact.den ==
              2.0 * (s.from.y * exact.den + (s.to.y - s.from.y) * exact.n1));
  }
}

RC_GTEST_PROP(SegmentSegmentIntersectProperty, EightWaySegmentsMoveWithAShift, ()) {
  const EightWaySegment s = *eightWaySegment(), t = *eightWaySegment();
  const gdfVertex shift(*rc::gen::inRange(-6400, 6401) / 64.0,
                        *rc::gen::inRange(-6400, 6401) / 64.0);
  const Answer here =
      intersect(toVertex(s.from), toVertex(s.to), toVertex(t.from), toVertex(t.to), 0.0);
  const Answer there = intersect(toVertex(s.from) + shift, toVertex(s.to) + shift,
                                 toVertex(t.from) + shift, toVertex(t.to) + shift, 0.0);
  RC_ASSERT(here.found == there.found);
  if (here.found) RC_ASSERT(here.out + shift == there.out);
}

RC_GTEST_PROP(SegmentSegmentIntersectProperty, AnySegmentsMoveWithAShift, ()) {
  const gdfVertex a = *mapVertex(), b = *mapVertex(), c = *mapVertex(), d = *mapVertex();
  const gdfVertex shift(*rc::gen::inRange(-256, 257) / 64.0, *rc::gen::inRange(-256, 257) / 64.0);
  const Answer here = intersect(a, b, c, d, 1e-08);
  const Answer there = intersect(a + shift, b + shift, c + shift, d + shift, 1e-08);
  RC_ASSERT(here.found == there.found);
  if (here.found) RC_ASSERT((here.out + shift).mapDistance(there.out) < 1e-09);
}

// The foot lies on the segment, and the way to it is square to the segment.
RC_GTEST_PROP(NearestPointOnLineProperty, FootIsOnTheSegmentAndSquareToIt, ()) {
  const gdfVertex a = *mapVertex(), b = *mapVertex(), p = *mapVertex();
  Answer answer;
  answer.found = zr2DTools::nearestPointOnLine(a, b, p, answer.out, 0.0);
  RC_PRE(answer.found);
  const gdfVertex along(b.x() - a.x(), b.y() - a.y());
  const gdfVertex offset(p.x() - answer.out.x(), p.y() - answer.out.y());
  RC_ASSERT(answer.out.z() == 0.0);
  RC_ASSERT(std::fabs(along * offset) < 1e-11);
  RC_ASSERT(offset.mapLength() <= along.mapLength() + 1e-11);
}

}  // namespace
