#include <zrBase/numerics/internal/symmetricEigenSteps.h>

#include <cmath>

namespace mgcInternal {

namespace {

struct Triple {
  double x;
  double y;
  double z;
};

double dot(const Triple& a, const Triple& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

Triple cross(const Triple& a, const Triple& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double length(const Triple& a) { return std::sqrt(dot(a, a)); }

Triple divided(const Triple& a, double divisor) {
  return {a.x / divisor, a.y / divisor, a.z / divisor};
}

/// The lower 3x3 block of a symmetric 4x4 matrix, from its upper triangle.
struct LowerBlock {
  explicit LowerBlock(double** mat)
      : m11(mat[1][1]),
        m12(mat[1][2]),
        m13(mat[1][3]),
        m22(mat[2][2]),
        m23(mat[2][3]),
        m33(mat[3][3]) {}

  Triple times(const Triple& v) const {
    return {m11 * v.x + m12 * v.y + m13 * v.z, m12 * v.x + m22 * v.y + m23 * v.z,
            m13 * v.x + m23 * v.y + m33 * v.z};
  }

  double m11, m12, m13, m22, m23, m33;
};

void setToIdentity(int n, double** mat) {
  for (int row = 0; row < n; ++row) {
    for (int col = 0; col < n; ++col) mat[row][col] = row == col ? 1.0 : 0.0;
  }
}

/// Puts v into rows 1 to 3 of a column.
void setColumn(double** mat, int col, const Triple& v) {
  mat[1][col] = v.x;
  mat[2][col] = v.y;
  mat[3][col] = v.z;
}

/// A 4x4 matrix whose first row is tridiagonal already: what is left is the 3x3 reduction, one row
/// further down.
void reduceLowerBlock(const LowerBlock& a, double** mat, double* diag, double* subd) {
  setToIdentity(4, mat);
  diag[1] = a.m11;
  // Kept on purpose (KeptCornerOfTheLowerBlockIsComparedWithZeroExactly): as for size three.
  if (a.m13 == 0.0) {
    diag[2] = a.m22;
    diag[3] = a.m33;
    subd[1] = a.m12;
    subd[2] = a.m23;
    return;
  }
  const double ell = std::sqrt(a.m13 * a.m13 + a.m12 * a.m12);
  const double b = a.m12 / ell;
  const double c = a.m13 / ell;
  const double q = (a.m33 - a.m22) * c + 2.0 * b * a.m23;
  diag[2] = a.m22 + q * c;
  diag[3] = a.m33 - q * c;
  subd[1] = ell;
  subd[2] = a.m23 - q * b;
  mat[2][2] = b;
  mat[2][3] = c;
  mat[3][2] = c;
  mat[3][3] = -b;
}

/// The basis u, s, r of the lower block with T between its vectors; u is given.
struct LowerBasis {
  Triple s;
  Triple r;
};

/// u is an eigenvector of the block, so that any s and r square to it will do.
LowerBasis basisAroundEigenvector(const LowerBlock& a, const Triple& u, double* diag,
                                  double* subd) {
  subd[1] = 0.0;
  const double h = u.y * u.y + u.z * u.z;
  if (h > 0.0) {
    const double t = u.x - 1.0;
    const Triple s{-u.y, 1.0 + t * u.y * u.y / h, t * u.y * u.z / h};
    const Triple r{-u.z, t * u.y * u.z / h, 1.0 + t * u.z * u.z / h};
    const Triple as = a.times(s);
    diag[2] = dot(s, as);
    subd[2] = dot(r, as);
    diag[3] = dot(r, a.times(r));
    return {s, r};
  }
  diag[2] = a.m22;
  diag[3] = a.m33;
  subd[2] = a.m23;
  return {{0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};
}

/// One Householder step: carries all but the last of row i's elements left of the diagonal to 0.
/// l = i - 1 > 0, scale is not 0.
/// @return h, half the squared length of the reflection's vector, which stays in row i
double reflectRow(int i, double scale, double** a, double* e) {
  const int l = i - 1;
  double h = 0.0;
  for (int k = 0; k <= l; ++k) {
    a[i][k] /= scale;
    h += a[i][k] * a[i][k];
  }
  double f = a[i][l];
  double g = std::sqrt(h);
  if (f > 0.0) g = -g;
  e[i] = scale * g;
  h -= f * g;
  a[i][l] = f - g;
  f = 0.0;
  for (int j = 0; j <= l; ++j) {
    a[j][i] = a[i][j] / h;
    g = 0.0;
    for (int k = 0; k <= j; ++k) g += a[j][k] * a[i][k];
    for (int k = j + 1; k <= l; ++k) g += a[k][j] * a[i][k];
    e[j] = g / h;
    f += e[j] * a[i][j];
  }
  const double hh = f / (h + h);
  for (int j = 0; j <= l; ++j) {
    f = a[i][j];
    g = e[j] - hh * f;
    e[j] = g;
    for (int k = 0; k <= j; ++k) a[j][k] -= f * e[k] + g * a[i][k];
  }
  return h;
}

/// Turns the reflections' vectors, left in a, into the product of the reflections.
void accumulateReflections(int n, double** a, double* d) {
  for (int i = 0; i < n; ++i) {
    if (d[i] != 0.0) {
      for (int j = 0; j < i; ++j) {
        double g = 0.0;
        for (int k = 0; k < i; ++k) g += a[i][k] * a[k][j];
        for (int k = 0; k < i; ++k) a[k][j] -= g * a[k][i];
      }
    }
    d[i] = a[i][i];
    a[i][i] = 1.0;
    for (int j = 0; j < i; ++j) {
      a[i][j] = 0.0;
      a[j][i] = 0.0;
    }
  }
}

}  // namespace

void tridiagonal2(double** mat, double* diag, double* subd) {
  diag[0] = mat[0][0];
  diag[1] = mat[1][1];
  subd[0] = mat[0][1];
  subd[1] = 0.0;
  setToIdentity(2, mat);
}

void tridiagonal3(double** mat, double* diag, double* subd) {
  const double m01 = mat[0][1];
  const double m02 = mat[0][2];
  const double m11 = mat[1][1];
  const double m12 = mat[1][2];
  const double m22 = mat[2][2];
  diag[0] = mat[0][0];
  subd[2] = 0.0;
  setToIdentity(3, mat);
  // Kept on purpose (KeptCornerIsComparedWithZeroExactly): no tolerance and no scaling. A corner
  // element that is not 0, but whose square underflows beside m01 = 0, gives 0/0: eigenvalues that
  // are no numbers, and the flag. Clearing such noise is the caller's part; a tolerance here would
  // change the vectors of well-scaled matrices.
  if (m02 == 0.0) {
    diag[1] = m11;
    diag[2] = m22;
    subd[0] = m01;
    subd[1] = m12;
    return;
  }
  const double ell = std::sqrt(m01 * m01 + m02 * m02);
  const double b = m01 / ell;
  const double c = m02 / ell;
  const double q = 2.0 * b * m12 + c * (m22 - m11);
  diag[1] = m11 + c * q;
  diag[2] = m22 - c * q;
  subd[0] = ell;
  subd[1] = m12 - b * q;
  // Kept on purpose (KeptEigenvectorsMayBeLeftHanded): this is a reflection, with determinant -1,
  // and not a rotation, so that the eigenvectors' handedness depends on the input. Plane fits have
  // their normals' sense from it.
  mat[1][1] = b;
  mat[1][2] = c;
  mat[2][1] = c;
  mat[2][2] = -b;
}

void tridiagonal4(double** mat, double* diag, double* subd) {
  const Triple first{mat[0][1], mat[0][2], mat[0][3]};
  const LowerBlock a(mat);
  diag[0] = mat[0][0];
  subd[3] = 0.0;
  // Kept on purpose (KeptCornersOfSizeFourAreComparedWithZeroExactly): as for size three.
  if (first.y == 0.0 && first.z == 0.0) {
    subd[0] = first.x;
    reduceLowerBlock(a, mat, diag, subd);
    return;
  }
  const double ell = length(first);
  const Triple u = divided(first, ell);
  const Triple au = a.times(u);
  subd[0] = ell;
  diag[1] = dot(u, au);
  const Triple p = cross(u, au);
  const double len = length(p);
  LowerBasis basis{};
  // Kept on purpose (KeptShortestCrossProductStillGivesTheBasis): any length above 0 will do, since
  // its direction is good down to the last digits. A tolerance would turn the eigenvectors of
  // nearly equal values.
  if (len > 0.0) {
    basis.r = divided(p, len);
    basis.s = cross(basis.r, u);
    const Triple as = a.times(basis.s);
    subd[1] = dot(u, as);
    diag[2] = dot(basis.s, as);
    subd[2] = dot(basis.r, as);
    diag[3] = dot(basis.r, a.times(basis.r));
  } else {
    basis = basisAroundEigenvector(a, u, diag, subd);
  }
  setToIdentity(4, mat);
  setColumn(mat, 1, u);
  setColumn(mat, 2, basis.s);
  setColumn(mat, 3, basis.r);
}

// Householder reduction as in Martin, Reinsch and Wilkinson (1968), from the last row upwards; a is
// the matrix, d its diagonal, e its subdiagonal.
void tridiagonalN(int n, double** mat, double* diag, double* subd) {
  // Kept on purpose (KeptGeneralReductionReadsLowerTriangle): this one reads the lower triangle,
  // while the reductions for 2, 3 and 4 read the upper. Callers who fill one triangle only know the
  // size they fill it for.
  for (int i = n - 1; i >= 1; --i) {
    double h = 0.0;
    double scale = 0.0;
    if (i > 1) {
      for (int k = 0; k < i; ++k) scale += std::fabs(mat[i][k]);
    }
    // For i = 1 there is nothing to carry to 0. A NaN scale is not 0 and goes on.
    if (i == 1 || scale == 0.0) {
      subd[i] = mat[i][i - 1];
    } else {
      h = reflectRow(i, scale, mat, subd);
    }
    diag[i] = h;
  }
  diag[0] = 0.0;
  subd[0] = 0.0;
  accumulateReflections(n, mat, diag);
  for (int i = 1; i < n; ++i) subd[i - 1] = subd[i];
  subd[n - 1] = 0.0;
}

}  // namespace mgcInternal
