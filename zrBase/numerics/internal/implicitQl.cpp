#include <zrBase/numerics/internal/symmetricEigenSteps.h>

#include <cmath>
#include <utility>

namespace mgcInternal {

namespace {

/// Passes after which an eigenvalue is given up.
constexpr int passLimit = 30;

/// First index from i0 on whose subdiagonal element vanishes beside its neighbours on the diagonal,
/// in the sense of the floating addition; n - 1 when there is none. A NaN never vanishes.
int endOfBlock(int i0, int n, const double* d, const double* e) {
  for (int i2 = i0; i2 <= n - 2; ++i2) {
    const double t = std::fabs(d[i2]) + std::fabs(d[i2 + 1]);
    if (std::fabs(e[i2]) + t == t) return i2;
  }
  return n - 1;
}

/// Turns the columns col and col + 1 of every row.
void rotateColumns(int n, int col, double cs, double sn, double** mat) {
  for (int k = 0; k < n; ++k) {
    double* const row = mat[k];
    const double f = row[col + 1];
    row[col + 1] = sn * row[col] + cs * f;
    row[col] = cs * row[col] - sn * f;
  }
}

/// One QL pass over the block i0 .. i2, with the shift taken from its first two rows.
void qlPass(int i0, int i2, int n, double* d, double* e, double** mat) {
  double g = (d[i0 + 1] - d[i0]) / (2.0 * e[i0]);
  double r = std::sqrt(g * g + 1.0);
  if (g >= 0.0) {
    g += r;
  } else {
    g -= r;
  }
  g = d[i2] - d[i0] + e[i0] / g;
  double sn = 1.0;
  double cs = 1.0;
  double p = 0.0;
  for (int i3 = i2 - 1; i3 >= i0; --i3) {
    const double f = sn * e[i3];
    const double b = cs * e[i3];
    // Kept on purpose (KeptVanishingRotationIsNotSkipped): f and g can both come out 0, by
    // underflow, and then the second branch divides 0 by 0. The pass is not cut short for it: the
    // NaN runs through to the pass limit, so that the caller gets the flag and not a guess.
    if (std::fabs(f) < std::fabs(g)) {
      sn = f / g;
      r = std::sqrt(sn * sn + 1.0);
      e[i3 + 1] = g * r;
      cs = 1.0 / r;
      sn *= cs;
    } else {
      cs = g / f;
      r = std::sqrt(cs * cs + 1.0);
      e[i3 + 1] = f * r;
      sn = 1.0 / r;
      cs *= sn;
    }
    g = d[i3 + 1] - p;
    r = (d[i3] - g) * sn + 2.0 * b * cs;
    p = sn * r;
    d[i3 + 1] = g + p;
    g = cs * r - b;
    rotateColumns(n, i3, cs, sn, mat);
  }
  d[i0] -= p;
  e[i0] = g;
  e[i2] = 0.0;
}

/// Selection sort by a strict order, so that of equal values the first one found stays.
template <class Precedes>
void selectionSort(int n, double* values, double** vectors, Precedes precedes) {
  for (int i0 = 0; i0 <= n - 2; ++i0) {
    int best = i0;
    for (int i = i0 + 1; i < n; ++i) {
      if (precedes(values[i], values[best])) best = i;
    }
    if (best == i0) continue;
    std::swap(values[i0], values[best]);
    for (int row = 0; row < n; ++row) std::swap(vectors[row][i0], vectors[row][best]);
  }
}

}  // namespace

// The implicit QL method as in Dubrulle, Martin and Wilkinson (1968).
bool qlAlgorithm(int n, double* diag, double* subd, double** mat) {
  for (int i0 = 0; i0 < n; ++i0) {
    int pass = 0;
    for (; pass < passLimit; ++pass) {
      const int i2 = endOfBlock(i0, n, diag, subd);
      if (i2 == i0) break;
      qlPass(i0, i2, n, diag, subd, mat);
    }
    // Whether the last pass finished the block is not looked at: the limit alone decides.
    if (pass == passLimit) return false;
  }
  return true;
}

void decreasingSort(int n, double* eigval, double** eigvec) {
  selectionSort(n, eigval, eigvec, [](double a, double b) { return a > b; });
}

void increasingSort(int n, double* eigval, double** eigvec) {
  selectionSort(n, eigval, eigvec, [](double a, double b) { return a < b; });
}

bool decreasingSolutionOfThree(double (&mat)[3][3], double (&eigval)[3]) {
  double subd[3];
  double* rows[3] = {mat[0], mat[1], mat[2]};
  tridiagonal3(rows, eigval, subd);
  const bool converged = qlAlgorithm(3, eigval, subd, rows);
  decreasingSort(3, eigval, rows);
  return converged;
}

}  // namespace mgcInternal
