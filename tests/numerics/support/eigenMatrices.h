#ifndef ZRBASE_TESTS_NUMERICS_SUPPORT_EIGENMATRICES_H
#define ZRBASE_TESTS_NUMERICS_SUPPORT_EIGENMATRICES_H

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Square matrices for the eigen solvers, as rows, and what has to hold of a solution.
using Square = std::vector<std::vector<double>>;

inline Square diagonal(const std::vector<double>& values) {
  const std::size_t n = values.size();
  Square m(n, std::vector<double>(n, 0.0));
  for (std::size_t i = 0; i < n; ++i) m[i][i] = values[i];
  return m;
}

/// The same matrix with two elements that mirror each other set.
inline Square with(Square m, int row, int col, double value) {
  m[row][col] = m[col][row] = value;
  return m;
}

/// Numbers k/64 with -640 <= k <= 640, the same sequence for the same seed everywhere.
class Numbers {
 public:
  explicit Numbers(std::uint32_t seed) : state_(seed * 2654435761U + 12345U) {}
  double next() {
    state_ = state_ * 1664525U + 1013904223U;
    return (static_cast<int>((state_ >> 8) % 1281U) - 640) / 64.0;
  }

 private:
  std::uint32_t state_;
};

inline Square randomSymmetric(int n, std::uint32_t seed) {
  Numbers numbers(seed);
  Square m(n, std::vector<double>(n));
  for (int row = 0; row < n; ++row) {
    for (int col = 0; col <= row; ++col) m[row][col] = m[col][row] = numbers.next();
  }
  return m;
}

template <class Solver>
void fill(Solver& solver, const Square& m) {
  const int n = static_cast<int>(m.size());
  for (int row = 0; row < n; ++row) {
    for (int col = 0; col < n; ++col) solver.Matrix(row, col) = m[row][col];
  }
}

/// What a solver holds: eigenvalues and vectors after a solution.
template <class Solver>
Square matrixOf(const Solver& solver, int n) {
  Square m(n, std::vector<double>(n));
  for (int row = 0; row < n; ++row) {
    for (int col = 0; col < n; ++col) m[row][col] = solver.Eigenvector(row, col);
  }
  return m;
}

template <class Solver>
std::vector<double> valuesOf(const Solver& solver, int n) {
  return std::vector<double>(solver.Eigenvalue(), solver.Eigenvalue() + n);
}

/// One eigenvector.
template <class Solver>
std::vector<double> vectorOf(const Solver& solver, int n, int col) {
  std::vector<double> v(n);
  for (int row = 0; row < n; ++row) v[row] = solver.Eigenvector(row, col);
  return v;
}

/// Largest element of |A v - lambda v| over all pairs.
template <class Solver>
double residual(const Solver& solver, const Square& a) {
  const int n = static_cast<int>(a.size());
  double worst = 0.0;
  for (int col = 0; col < n; ++col) {
    for (int row = 0; row < n; ++row) {
      double sum = -solver.Eigenvalue(col) * solver.Eigenvector(row, col);
      for (int k = 0; k < n; ++k) sum += a[row][k] * solver.Eigenvector(k, col);
      if (!(std::fabs(sum) <= worst)) worst = std::fabs(sum);
    }
  }
  return worst;
}

/// Largest element of |V^t V - I|.
template <class Solver>
double skewness(const Solver& solver, int n) {
  double worst = 0.0;
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      double sum = i == j ? -1.0 : 0.0;
      for (int k = 0; k < n; ++k) sum += solver.Eigenvector(k, i) * solver.Eigenvector(k, j);
      if (!(std::fabs(sum) <= worst)) worst = std::fabs(sum);
    }
  }
  return worst;
}

#endif  // ZRBASE_TESTS_NUMERICS_SUPPORT_EIGENMATRICES_H
