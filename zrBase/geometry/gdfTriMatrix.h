#ifndef ZRBASE_GEOMETRY_GDFTRIMATRIX_H
#define ZRBASE_GEOMETRY_GDFTRIMATRIX_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

#include <iosfwd>
#include <type_traits>

/// 3x3 matrix of doubles, row-major: a rotation, or any linear map of directions.
///
/// `m[r][c]` below is the element in row r, column c. Vectors are row vectors on the main path:
/// preMult() and `vertex * matrix` are v * M, while `matrix * vertex` is the column form M * v. In
/// A * B the matrix A acts first on row vectors; every rotation is multiplied on from the right, so
/// it acts after what the matrix holds already. Angles are radians. A positive angle of rotateZ
/// carries +x towards +y, of rotateX +y towards +z, of rotateY +z towards +x, for row vectors.
/// Nothing allocates and nothing throws.
class ZRBASE_EXPORT gdfTriMatrix {
 public:
  /// The identity.
  constexpr gdfTriMatrix() : m_{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}} {}
  /// The three vertices become rows 0, 1 and 2.
  constexpr gdfTriMatrix(const gdfVertex& row0, const gdfVertex& row1, const gdfVertex& row2)
      : m_{{row0.x(), row0.y(), row0.z()},
           {row1.x(), row1.y(), row1.z()},
           {row2.x(), row2.y(), row2.z()}} {}

  /// Element in a row and a column, 0 to 2 each; not checked.
  constexpr double operator()(int row, int col) const { return m_[row][col]; }
  /// The element, to write to; not checked.
  double& operator()(int row, int col) { return m_[row][col]; }

  /// Matrix product, this on the left.
  gdfTriMatrix operator*(const gdfTriMatrix& o) const;
  /// this = this * o; o may be this matrix.
  gdfTriMatrix& operator*=(const gdfTriMatrix& o);
  /// Column form M * v: output j is x*m[j][0] + y*m[j][1] + z*m[j][2].
  gdfVertex operator*(const gdfVertex& v) const;
  /// Row form v * M: output j is x*m[0][j] + y*m[1][j] + z*m[2][j].
  /// m.preMult(v) equals v * m, and m.transpose() * v.
  gdfVertex preMult(const gdfVertex& v) const;

  /// All nine elements times the factor.
  gdfTriMatrix operator*(double factor) const;
  /// Scales in place.
  gdfTriMatrix& operator*=(double factor);
  /// All nine elements times 1/divisor.
  ///
  /// A divisor within [-1e-5, 1e-5], both ends included, counts as zero: the result is the
  /// identity, and one line goes to the standard error stream. A NaN divisor is not caught and
  /// spreads.
  gdfTriMatrix operator/(double divisor) const;
  /// As operator/, in place; a divisor that counts as zero leaves the matrix as it is, with one
  /// line on the standard error stream.
  gdfTriMatrix& operator/=(double divisor);

  /// Sum, element by element.
  gdfTriMatrix operator+(const gdfTriMatrix& o) const;
  /// Difference, element by element.
  gdfTriMatrix operator-(const gdfTriMatrix& o) const;
  /// Adds in place.
  gdfTriMatrix& operator+=(const gdfTriMatrix& o);
  /// Subtracts in place.
  gdfTriMatrix& operator-=(const gdfTriMatrix& o);

  /// Whether every element lies in [-1e-5, 1e-5], both ends included. False with any NaN.
  bool closeToZero() const;

  /// Signed cofactor of an element: the 2x2 determinant of the two following rows and columns,
  /// taken cyclically, which brings the sign along. gdfTransMatrix::coffactor has no sign.
  double coffactor(int row, int col) const;
  /// Determinant, expanded along row 0.
  double determinant() const;
  /// The inverse; the identity, without a word, when the determinant is exactly 0. A NaN
  /// determinant is not 0 and spreads. Test determinant() to tell an inverse from the answer for a
  /// singular matrix.
  gdfTriMatrix invert() const;
  /// Fills out with the inverse, one division per element. out may be this matrix.
  /// @return the determinant; when it is exactly 0, the result is 0 and out holds what it held
  /// before
  double invert(gdfTriMatrix& out) const;

  /// Multiplies the rotation by an angle about x on from the right: in each row
  /// m[r][1], m[r][2] become m[r][1]*cos - m[r][2]*sin, m[r][1]*sin + m[r][2]*cos.
  void rotateX(double angle);
  /// The same about y: m[r][0], m[r][2] become m[r][0]*cos + m[r][2]*sin, m[r][2]*cos -
  /// m[r][0]*sin.
  void rotateY(double angle);
  /// The same about z: m[r][0], m[r][1] become m[r][0]*cos - m[r][1]*sin, m[r][0]*sin +
  /// m[r][1]*cos.
  void rotateZ(double angle);
  /// rotateX with the cosine and sine given. The pair is taken as it stands: one whose length is
  /// not 1 also scales, and (0, 0) zeroes the two columns.
  void rotateX(double cosA, double sinA);
  /// rotateY with the cosine and sine given; as rotateX(double, double).
  void rotateY(double cosA, double sinA);
  /// rotateZ with the cosine and sine given; as rotateX(double, double).
  void rotateZ(double cosA, double sinA);

  /// Multiplies on from the right the rotation that carries a direction onto +x, for row vectors:
  /// afterwards the identity's preMult(direction) is (length, 0, 0). The direction need not be of
  /// unit length.
  ///
  /// A vertical direction, and one within GDF_EXACTNESS_LIMIT of zero, gives no rotation: columns 0
  /// and 1 of the matrix are zeroed before the second turn. That is so for rotateToY and rotateToZ
  /// too.
  void rotateToX(const gdfVertex& direction);
  /// As rotateToX, onto +y.
  void rotateToY(const gdfVertex& direction);
  /// As rotateToX, onto +z. A direction that is +z already also zeroes columns 0 and 1.
  void rotateToZ(const gdfVertex& direction);

  /// Overwrites with the identity.
  void setToIdentity();
  /// Overwrites with zeros.
  void setToZero();
  /// The three vertices become rows 0, 1 and 2.
  void setTriMatrix(const gdfVertex& row0, const gdfVertex& row1, const gdfVertex& row2);
  /// The transposed matrix; this one stays. gdfTransMatrix::transpose works in place instead.
  gdfTriMatrix transpose() const;

  /// Column 0.
  gdfVertex e1Dir() const { return column(0); }
  /// Column 1.
  gdfVertex e2Dir() const { return column(1); }
  /// Column 2.
  gdfVertex e3Dir() const { return column(2); }

  /// Does nothing. The free() of a gdfTuple_4 or a gdfSpherical sets its fields to 0.
  void free() {
    // Kept on purpose (KeptTriMatrixFreeDoesNothing): there is nothing to give back, and callers go
    // on using the elements afterwards.
  }

 private:
  gdfVertex column(int col) const { return gdfVertex(m_[0][col], m_[1][col], m_[2][col]); }

  double m_[3][3];
};

static_assert(std::is_trivially_copyable_v<gdfTriMatrix>);
static_assert(sizeof(gdfTriMatrix) == 9 * sizeof(double));

/// Reads nine doubles row by row, separated by white space.
ZRBASE_EXPORT std::istream& operator>>(std::istream& stream, gdfTriMatrix& matrix);
/// Writes three lines of three values with a blank between them, in the stream's current format,
/// each line ended by std::endl.
ZRBASE_EXPORT std::ostream& operator<<(std::ostream& stream, const gdfTriMatrix& matrix);

inline gdfVertex gdfTriMatrix::operator*(const gdfVertex& v) const {
  const double x = v.x();
  const double y = v.y();
  const double z = v.z();
  return gdfVertex(x * m_[0][0] + y * m_[0][1] + z * m_[0][2],
                   x * m_[1][0] + y * m_[1][1] + z * m_[1][2],
                   x * m_[2][0] + y * m_[2][1] + z * m_[2][2]);
}

inline gdfVertex gdfTriMatrix::preMult(const gdfVertex& v) const {
  const double x = v.x();
  const double y = v.y();
  const double z = v.z();
  return gdfVertex(x * m_[0][0] + y * m_[1][0] + z * m_[2][0],
                   x * m_[0][1] + y * m_[1][1] + z * m_[2][1],
                   x * m_[0][2] + y * m_[1][2] + z * m_[2][2]);
}

inline gdfVertex gdfVertex::operator*(const gdfTriMatrix& matrix) const {
  return matrix.preMult(*this);
}

inline gdfVertex& gdfVertex::operator*=(const gdfTriMatrix& matrix) {
  return *this = matrix.preMult(*this);
}

#endif  // ZRBASE_GEOMETRY_GDFTRIMATRIX_H
