#include <zrBase/numerics/mgcEigen.h>
#include <zrBase/numerics/mgcEigenD.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <new>

#include "numerics/support/eigenMatrices.h"

// Every allocation of this test program, the library's included, goes through the operators below:
// they count, and can be told to run out of storage.

namespace {

thread_local std::size_t allocationCount = 0;
thread_local std::size_t releaseCount = 0;
/// Allocations that still succeed; negative for no limit.
thread_local int allocationsLeft = -1;

void* allocationOrNull(std::size_t size) noexcept {
  if (allocationsLeft == 0) return nullptr;
  if (allocationsLeft > 0) --allocationsLeft;
  ++allocationCount;
  return std::malloc(size == 0 ? 1 : size);
}

void* allocation(std::size_t size) {
  void* const memory = allocationOrNull(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void release(void* memory) noexcept {
  if (memory != nullptr) ++releaseCount;
  std::free(memory);
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
void operator delete(void* memory) noexcept { release(memory); }
void operator delete[](void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { release(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { release(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { release(memory); }

namespace {

/// What became of one solver that was built with so much storage and destroyed again.
struct Life {
  unsigned int error;
  std::size_t taken;
  std::size_t released;
};

template <class Solver>
Life lifeOf(int size, int allocationLimit) {
  Solver::error = 0;
  const std::size_t takenBefore = allocationCount;
  const std::size_t releasedBefore = releaseCount;
  allocationsLeft = allocationLimit;
  {
    const Solver solver(size);
    allocationsLeft = -1;
  }
  const Life life{Solver::error, allocationCount - takenBefore, releaseCount - releasedBefore};
  Solver::error = 0;
  return life;
}

template <class Solver>
void expectFlagAtEveryAllocation() {
  for (const int size : {2, 3, 7}) {
    // The row array, the rows, the diagonal, the subdiagonal.
    const int needed = size + 3;
    for (int limit = 0; limit < needed; ++limit) {
      const Life life = lifeOf<Solver>(size, limit);
      EXPECT_EQ(life.error, Solver::allocation_failed) << size << ", " << limit;
      EXPECT_EQ(life.taken, static_cast<std::size_t>(limit)) << size;
      EXPECT_EQ(life.released, static_cast<std::size_t>(limit)) << size;
    }
    const Life life = lifeOf<Solver>(size, needed);
    EXPECT_EQ(life.error, 0U) << size;
    EXPECT_EQ(life.taken, static_cast<std::size_t>(needed)) << size;
    EXPECT_EQ(life.released, static_cast<std::size_t>(needed)) << size;
  }
}

TEST(EigenAllocations, FailureRaisesTheFlagAndLeaksNothing) {
  expectFlagAtEveryAllocation<mgcEigen>();
  expectFlagAtEveryAllocation<mgcEigenD>();
}

TEST(EigenAllocations, FailureStopsTheConstructorAtOnce) {
  mgcEigen::error = 0;
  // The row array and all rows are there, the diagonal is not.
  allocationsLeft = 4;
  const mgcEigen solver(3);
  allocationsLeft = -1;
  EXPECT_EQ(mgcEigen::error, mgcEigen::allocation_failed);
  EXPECT_NE(solver.Eigenvector(), nullptr);
  EXPECT_EQ(solver.Eigenvalue(), nullptr);
  mgcEigen::error = 0;
}

TEST(EigenAllocations, InvalidSizesTakeNothing) {
  for (const int size : {1, 0, -1}) {
    const Life life = lifeOf<mgcEigenD>(size, -1);
    EXPECT_EQ(life.error, mgcEigenD::invalid_size) << size;
    EXPECT_EQ(life.taken, 0U) << size;
    EXPECT_EQ(life.released, 0U) << size;
  }
}

TEST(EigenAllocations, NoneInASolution) {
  for (int size = 2; size <= 8; ++size) {
    const Square m = randomSymmetric(size, 21);
    mgcEigen solver(size);
    fill(solver, m);
    const std::size_t before = allocationCount;
    solver.DecrSortEigenStuff();
    EXPECT_EQ(allocationCount, before) << size;
    fill(solver, m);
    solver.IncrSortEigenStuffN();
    EXPECT_EQ(allocationCount, before) << size;
  }
}

}  // namespace
