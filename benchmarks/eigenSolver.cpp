// Eigenvalues and eigenvectors of symmetric 3x3 matrices: the scatter matrices of plane fits.

#include "support/cases.h"
#include "support/random.h"

#include <zrBase/numerics/mgcEigenD.h>

#include <Eigen/Eigenvalues>

#include <array>
#include <vector>

namespace {

using Symmetric = std::array<std::array<double, 3>, 3>;

constexpr std::size_t matrixCount = 1024;

/// Scatter matrices of 20 points about planes in all directions.
const std::vector<Symmetric>& scatterMatrices() {
  static const std::vector<Symmetric> all = [] {
    Random random;
    std::vector<Symmetric> result(matrixCount);
    for (Symmetric& m : result) {
      m = Symmetric{};
      const double dipX = random.between(-2.0, 2.0);
      const double dipY = random.between(-2.0, 2.0);
      for (int i = 0; i < 20; ++i) {
        const double x = random.between(-100.0, 100.0);
        const double y = random.between(-100.0, 100.0);
        const std::array<double, 3> p = {x, y, dipX * x + dipY * y + random.between(-1.0, 1.0)};
        for (std::size_t row = 0; row < 3; ++row) {
          for (std::size_t col = 0; col < 3; ++col) m[row][col] += p[row] * p[col];
        }
      }
    }
    return result;
  }();
  return all;
}

void zrBaseSolve(benchmark::State& state) {
  const std::vector<Symmetric>& matrices = scatterMatrices();
  mgcEigenD solver(3);
  for (auto _ : state) {
    for (const Symmetric& m : matrices) {
      for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < 3; ++col) {
          solver.Matrix(row, col) = m[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
        }
      }
      solver.DecrSortEigenStuff3();
      benchmark::DoNotOptimize(solver.Eigenvector(0, 2));
    }
  }
  cases::countOperations(state, matrices.size());
}

Eigen::Matrix3d eigenMatrix(const Symmetric& m) {
  Eigen::Matrix3d result;
  for (int row = 0; row < 3; ++row) {
    for (int col = 0; col < 3; ++col) {
      result(row, col) = m[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
    }
  }
  return result;
}

/// Householder and QR iterations: the method that is as exact as ours.
void eigenIterative(benchmark::State& state) {
  Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
  for (auto _ : state) {
    for (const Symmetric& m : scatterMatrices()) {
      solver.compute(eigenMatrix(m));
      benchmark::DoNotOptimize(solver.eigenvectors()(0, 0));
    }
  }
  cases::countOperations(state, matrixCount);
}

/// Roots of the cubic in closed form, with half of the digits where eigenvalues lie close together.
void eigenClosedForm(benchmark::State& state) {
  Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
  for (auto _ : state) {
    for (const Symmetric& m : scatterMatrices()) {
      solver.computeDirect(eigenMatrix(m));
      benchmark::DoNotOptimize(solver.eigenvectors()(0, 0));
    }
  }
  cases::countOperations(state, matrixCount);
}

BENCHMARK(zrBaseSolve)->Name("eigen3/zrBase");
BENCHMARK(eigenIterative)->Name("eigen3/Eigen");
BENCHMARK(eigenClosedForm)->Name("eigen3/Eigen_direct*");

}  // namespace
