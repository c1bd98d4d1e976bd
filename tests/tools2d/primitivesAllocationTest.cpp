#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/tools2d/lineSolvers.h>
#include <zrBase/tools2d/segmentIntersection.h>
#include <zrBase/tools2d/sideTests.h>
#include <zrBase/tools2d/vectorIntersection.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <new>

// The primitives sit inside double loops over segments and allocate nothing. Every allocation of
// this test program, the library's included, goes through the counting operators below.

namespace {

thread_local std::size_t allocationCount = 0;

void* countedAllocation(std::size_t size) {
  ++allocationCount;
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) { return countedAllocation(size); }
void* operator new[](std::size_t size) { return countedAllocation(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

/// Number of allocations that an operation makes.
template <class Operation>
std::size_t allocationsOf(const Operation& operation) {
  const std::size_t before = allocationCount;
  operation();
  return allocationCount - before;
}

// Hits, misses, parallels, verticals and places without length.
const std::array<gdfVertex, 8> vertices = {
    gdfVertex(0, 0, 1), gdfVertex(4, 4, 2), gdfVertex(0, 4, 3), gdfVertex(4, 0, 4),
    gdfVertex(2, 2, 1), gdfVertex(2, 9, 0), gdfVertex(9, 4, 0), gdfVertex(0, 0, 1)};

/// Runs an operation on every choice of four of the vertices, repeats included.
template <class Operation>
void onAllFours(const Operation& operation) {
  for (const gdfVertex& a : vertices) {
    for (const gdfVertex& b : vertices) {
      for (const gdfVertex& c : vertices) {
        for (const gdfVertex& d : vertices) operation(a, b, c, d);
      }
    }
  }
}

TEST(Allocations, AreCounted) {
  EXPECT_EQ(allocationsOf([] { VertexLine line(3); }), 1U);
  EXPECT_EQ(allocationsOf([] {}), 0U);
}

TEST(Allocations, NoneInTheIntersections) {
  using Primitive = bool (*)(const gdfVertex&, const gdfVertex&, const gdfVertex&, const gdfVertex&,
                             gdfVertex&, double);
  constexpr std::array<Primitive, 11> primitives = {
      &zr2DTools::getIntersect,
      &zr2DTools::getIntersect2,
      &zr2DTools::getIntersectionVertex3,
      &zr2DTools::getSegmentSegmentIntersect,
      &zr2DTools::getVectorSegmentIntersect,
      &zr2DTools::getVectorSegmentIntersect2,
      &zr2DTools::getVectorVectorIntersect,
      &zr2DTools::getVectorVectorIntersect2,
      &zr2DTools::getVectorBiVectorIntersect,
      &zr2DTools::getBiVectorSegmentIntersect,
      &zr2DTools::getBiVectorBiVectorIntersect,
  };
  for (const Primitive primitive : primitives) {
    std::size_t hits = 0;
    const std::size_t allocations = allocationsOf([primitive, &hits] {
      onAllFours([primitive, &hits](const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                                    const gdfVertex& d) {
        gdfVertex out;
        for (const double tolerance : {0.0, 1e-05, 1.0}) {
          if (primitive(a, b, c, d, out, tolerance)) ++hits;
        }
      });
    });
    EXPECT_EQ(allocations, 0U);
    EXPECT_GT(hits, 0U);
  }
}

TEST(Allocations, NoneInTheSideTestsDistancesAndSorts) {
  double sum = 0.0;
  const std::size_t allocations = allocationsOf([&sum] {
    onAllFours([&sum](const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                      const gdfVertex&) {
      gdfVertex first, second, last;
      zr2DTools::sortVertices(a, b, first, second);
      zr2DTools::sortVertices(a, b, c, first, second, last);
      zr2DTools::nearestPointOnLine(a, b, c, last, 1e-05);
      sum += zr2DTools::getSideOfVector(a, b, c, 1e-05) +
             zr2DTools::getSideOfSegment(a, b, c, 1e-05) +
             zr2DTools::getDistanceFromVertexToSegment(a, b, c) + zr2DTools::angle(a, b) + last.x();
    });
  });
  EXPECT_EQ(allocations, 0U);
  EXPECT_GT(sum, 0.0);
}

TEST(Allocations, NoneInTheVertexOperations) {
  double sum = 0.0;
  const std::size_t allocations = allocationsOf([&sum] {
    onAllFours([&sum](const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                      const gdfVertex& d) {
      gdfVertex v = (a + b - c) * 2.0 / 3.0 ^ -d;
      v += a;
      v -= b;
      v *= 2.0;
      v /= 3.0;
      v ^= c;
      v.copy(a);
      v.offset(&b);
      v.normalise();
      v.rotateAroundZAxis(0.5);
      gdfVertex e1, e2, e3;
      v.calculateOrthogonalAxis(e1, e2, e3);
      e1.setPlaneNormalWithAzimDip(30.0, 40.0);
      e2.setPlaneNormalWithStrikeDip(30.0, 40.0);
      e3.setVectorAzimuthPlunge(30.0, 40.0);
      sum += v * a + v.length() + v.mapLength() + v.distance(a) + v.mapDistance(b) + v[0] +
             v.rotation() + v.rotationDegrees() + v.tilt() + v.planeAzimuth() + v.planeStrike() +
             v.planeDip() + v.vectorAzimuth() + v.vectorDip() + e1.x() + e2.x() + e3.x();
      if (a < b || a == c || a.equal(d, 1e-05) || a.equalXY(b, 1e-05) || a.equalZero(1e-05) ||
          !a.valid())
        sum += 1.0;
    });
  });
  EXPECT_EQ(allocations, 0U);
  EXPECT_TRUE(std::isfinite(sum));
}

}  // namespace
