#include <zrBase/tools2d/lineLocation.h>
#include <zrBase/tools2d/segmentIntersection.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstddef>

// getNumberIntersections leaves out segments that the oblique segment misses for certain. Here the
// count is held against one that leaves none out.

namespace {

bool differs(const gdfVertex& p, const gdfVertex& q, double tolerance) {
  return std::fabs(p.x() - q.x()) >= tolerance || std::fabs(p.y() - q.y()) >= tolerance ||
         std::fabs(p.z() - q.z()) >= tolerance;
}

/// The count, with every segment of the ring asked.
int plainCount(const VertexLine& ring, const gdfVertex& a, const gdfVertex& b, double tolerance) {
  const bool closed = ring.front() == ring.back();
  gdfVertex previous(3.4028234663852886e+38, 0.0, 0.0);
  gdfVertex first = previous;
  gdfVertex hit;
  bool any = false;
  int count = 0;
  for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
    if (!zr2DTools::getSegmentSegmentIntersect(a, b, ring[i], ring[i + 1], hit, tolerance))
      continue;
    if (closed && i + 2 == ring.size()) {
      count += differs(hit, previous, tolerance) && differs(hit, first, tolerance) ? 1 : 0;
    } else if (!any || differs(hit, previous, tolerance)) {
      previous = hit;
      if (!any) first = hit;
      ++count;
    }
    any = true;
  }
  if (!closed &&
      zr2DTools::getSegmentSegmentIntersect(a, b, ring.back(), ring.front(), hit, tolerance)) {
    count += !any || hit != previous ? 1 : 0;
  }
  return count;
}

double between(int low, int high) { return *rc::gen::inRange(low, high); }

/// A ring whose vertices lie on a grid, or hardly off it: so that its segments touch the cast, miss
/// it by next to nothing, and are upright but for the last digits.
VertexLine drawnRing(double scale, double offset) {
  VertexLine ring(*rc::gen::inRange<std::size_t>(2, 14));
  for (gdfVertex& v : ring) {
    const double off = *rc::gen::element(0.0, 0.0, 1e-15, -1e-13, 1e-9, 1e-5);
    v = gdfVertex(offset + scale * (between(-6, 7) + off), scale * (between(-6, 7) - off),
                  between(0, 2));
  }
  if (*rc::gen::arbitrary<bool>()) ring.back() = ring.front();
  return ring;
}

RC_GTEST_PROP(NumberIntersections, LeavesOutNoSegmentThatIsHit, ()) {
  const double scale = *rc::gen::element(1.0, 0.015625, 1000.0);
  const double offset = *rc::gen::element(0.0, 500000.0, 4e9);
  const double tolerance = scale * *rc::gen::element(0.0, 1e-5, 0.5, 2.0, -0.25);
  const VertexLine ring = drawnRing(scale, offset);
  for (int cast = 0; cast < 50; ++cast) {
    const gdfVertex a(offset + scale * between(-9, 10), scale * between(-9, 10), 0.0);
    const gdfVertex b(offset + scale * between(-9, 10), scale * between(-9, 10), 0.0);
    RC_ASSERT(zr2DTools::getNumberIntersections(ring, a, b, tolerance) ==
              plainCount(ring, a, b, tolerance));
  }
}

}  // namespace
