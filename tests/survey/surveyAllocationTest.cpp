#include <zrBase/survey/zrSurveyCoordinatePoints.h>
#include <zrBase/survey/zrSurveyCoordinates.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <new>

// Every allocation of this test program, the library's included, goes through the operators below.

namespace {

thread_local std::size_t allocationCount = 0;

void* allocationOrNull(std::size_t size) noexcept {
  ++allocationCount;
  return std::malloc(size == 0 ? 1 : size);
}

void* allocation(std::size_t size) {
  void* const memory = allocationOrNull(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) { return allocation(size); }
void* operator new[](std::size_t size) { return allocation(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return allocationOrNull(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return allocationOrNull(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }

namespace {

TEST(SurveyAllocations, CountingWorks) {
  zrSurveyCoordinatePoints points;
  const std::size_t before = allocationCount;
  points.AddStoredPoint(0.0, 0.0, 1.0, 1.0);
  EXPECT_EQ(allocationCount, before + 1);
}

TEST(SurveyAllocations, NoneForTheStreamFromPointsToMatrices) {
  zrSurveyCoordinates grid;
  const std::size_t before = allocationCount;
  grid.points.firstPoint = true;
  for (int i = 0; i < 300; ++i) {
    for (int t = 0; t < 300; ++t) grid.points.AddPoint(25.0 * t, 12.5 * i, 100.0 + i, 300.0 + t);
  }
  grid.points.End();
  ASSERT_TRUE(grid.CalculateSurveyCoordinates());
  ASSERT_TRUE(grid.CalculateTransMatrices());
  grid.CalculateTransMatrices1();
  gdfVertex v(100.0, 300.0, 0.0);
  for (int k = 0; k < 100; ++k) {
    grid.Survey2World(v);
    grid.World2Survey(v);
  }
  EXPECT_EQ(allocationCount, before);
  EXPECT_NEAR(v.x(), 100.0, 1e-6);
}

}  // namespace
