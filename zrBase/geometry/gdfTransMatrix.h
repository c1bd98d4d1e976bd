#ifndef ZRBASE_GEOMETRY_GDFTRANSMATRIX_H
#define ZRBASE_GEOMETRY_GDFTRANSMATRIX_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfTriMatrix.h>
#include <zrBase/geometry/gdfTuple_4.h>
#include <zrBase/geometry/gdfVertex.h>

#include <iosfwd>
#include <type_traits>

/// 4x4 homogeneous transform of doubles, row-major. A plain record of sixteen doubles.
///
/// `m[r][c]` below is the element in row r, column c. Points are row vectors, p' = p * M:
///
///                  | m00 m01 m02  m03 |   rows 0 to 2: where x, y and z go
///     (x y z 1)  * | m10 m11 m12  m13 |
///                  | m20 m21 m22  m23 |   column 3: the weight, 0 0 0 1 if affine
///                  | m30 m31 m32  m33 |   row 3: the translation
///
/// Two families apply a matrix to coordinates. In the *row* form output j is x*m[0][j] + y*m[1][j]
/// + z*m[2][j] + m[3][j]; in the *column* form it is x*m[j][0] + y*m[j][1] + z*m[j][2] + m[j][3].
/// Either comes with and without the division by the weight, which is output 3 of the same form:
///
/// - row, no division: preMult, parallel, preMultRot, qPreMult, transform, `vertex % matrix`
/// - row, divided: preMultd, qPreMultD, `vertex * matrix`
/// - column, no division: `matrix % vertex`
/// - column, divided: `matrix * vertex`
///
/// In A * B the matrix A stands on the left, so on row vectors A acts first. Every builder
/// (rotateX, scale, translate and their kin) acts after the steps that the matrix holds already.
/// Angles are radians; a positive angle of rotateZ carries +x towards +y, of rotateX +y towards +z,
/// of rotateY +z towards +x.
///
/// Nothing allocates and nothing throws. A zero weight is not caught: the dividing forms then give
/// infinities or NaNs.
class ZRBASE_EXPORT gdfTransMatrix {
 public:
  /// The identity.
  constexpr gdfTransMatrix()
      : m_{{1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}} {
  }
  /// A copy of a whole array.
  constexpr gdfTransMatrix(const double (&rows)[4][4]) : m_{} { copyRows(rows); }
  /// A copy of the four rows that a `double (*)[4]` points to; it must not be null.
  // A template, and so the weaker candidate: with two plain constructors an array that is not
  // const, which converts to a reference and to a pointer equally well, would be ambiguous.
  template <class RowPointer, std::enable_if_t<std::is_same_v<RowPointer, double (*)[4]>, int> = 0>
  constexpr gdfTransMatrix(RowPointer const rows) : m_{} {
    copyRows(rows);
  }
  /// The four tuples become rows 0 to 3.
  constexpr gdfTransMatrix(gdfTuple_4 row0, gdfTuple_4 row1, gdfTuple_4 row2, gdfTuple_4 row3)
      : m_{{row0.a(), row0.b(), row0.c(), row0.d()},
           {row1.a(), row1.b(), row1.c(), row1.d()},
           {row2.a(), row2.b(), row2.c(), row2.d()},
           {row3.a(), row3.b(), row3.c(), row3.d()}} {}

  /// The whole array.
  const double (&getMatrix() const)[4][4] { return m_; }
  /// The whole array, to write to.
  double (&getMatrix())[4][4] { return m_; }
  /// Element in a row and a column, 0 to 3 each; not checked.
  constexpr double operator()(int row, int col) const { return m_[row][col]; }
  /// The element, to write to; not checked.
  double& operator()(int row, int col) { return m_[row][col]; }

  /// Row form, no division. preMult, parallel and preMultRot are one operation under three names.
  gdfVertex preMult(const gdfVertex& v) const;
  /// As preMult(const gdfVertex&): the translation is added too, which the name does not suggest.
  gdfVertex parallel(const gdfVertex& v) const {
    // Kept on purpose (KeptTransMatrixParallelAndRotationTranslate): neither this nor preMultRot
    // leaves the translation row out. Callers that want a direction turned hand in a matrix without
    // a translation.
    return preMult(v);
  }
  /// As preMult(const gdfVertex&): the translation is added too, which the name does not suggest.
  gdfVertex preMultRot(const gdfVertex& v) const { return preMult(v); }
  /// Row form, divided by the weight x*m[0][3] + y*m[1][3] + z*m[2][3] + m[3][3], which is not
  /// tested for zero.
  gdfVertex preMultd(const gdfVertex& v) const;
  /// Row form in place, no division.
  void qPreMult(gdfVertex& v) const { v = preMult(v); }
  /// Row form in place on three loose coordinates, no division.
  void qPreMult(double& x, double& y, double& z) const;
  /// Row form in place, divided by the weight: preMultd.
  void qPreMultD(gdfVertex& v) const { v = preMultd(v); }
  /// Row form in place, no division, on every vertex in order. An empty line stays empty.
  void transform(VertexLine& vertices) const;
  /// Column form, divided by the weight x*m[3][0] + y*m[3][1] + z*m[3][2] + m[3][3], which is not
  /// tested for zero.
  gdfVertex operator*(const gdfVertex& v) const;
  /// Column form, no division.
  gdfVertex operator%(const gdfVertex& v) const;
  /// Column form M * t with all four components: output j is a*m[j][0] + b*m[j][1] + c*m[j][2] +
  /// d*m[j][3].
  gdfTuple_4 operator*(const gdfTuple_4& t) const;
  /// Row form t * M with all four components: output j is a*m[0][j] + b*m[1][j] + c*m[2][j] +
  /// d*m[3][j], except that output 0 takes c*m[2][2] where the rule has c*m[2][0]. The form on a
  /// vertex follows the rule throughout.
  gdfTuple_4 preMult(const gdfTuple_4& t) const;

  /// Matrix product, this on the left.
  gdfTransMatrix operator*(const gdfTransMatrix& o) const;
  /// this = this * o; o may be this matrix.
  gdfTransMatrix& operator*=(const gdfTransMatrix& o);
  /// All sixteen elements times the factor, the weight included: after it, forms without a division
  /// are scaled, forms with one are not.
  gdfTransMatrix operator*(double factor) const;
  /// As operator*(double), in place.
  gdfTransMatrix& operator*=(double factor);
  /// All sixteen elements times 1/divisor.
  ///
  /// A divisor within [-1e-5, 1e-5], both ends included, counts as zero: the result is the
  /// identity, and one line goes to the standard error stream. A NaN divisor is not caught and
  /// spreads.
  gdfTransMatrix operator/(double divisor) const;
  /// As operator/, in place; a divisor that counts as zero leaves the matrix as it is, with one
  /// line on the standard error stream.
  gdfTransMatrix& operator/=(double divisor);
  /// Sum, element by element, all sixteen.
  gdfTransMatrix operator+(const gdfTransMatrix& o) const;
  /// Difference, element by element, all sixteen.
  gdfTransMatrix operator-(const gdfTransMatrix& o) const;
  /// Adds in place.
  gdfTransMatrix& operator+=(const gdfTransMatrix& o);
  /// Subtracts in place.
  gdfTransMatrix& operator-=(const gdfTransMatrix& o);

  /// New matrix with the vertex added to the translation m[3][0..2].
  gdfTransMatrix operator+(const gdfVertex& v) const { return gdfTransMatrix(*this) += v; }
  /// As operator+(const gdfVertex&).
  gdfTransMatrix tXYZ(const gdfVertex& v) const { return *this + v; }
  /// New matrix with the vertex subtracted from the translation m[3][0..2].
  gdfTransMatrix operator-(const gdfVertex& v) const { return gdfTransMatrix(*this) -= v; }
  /// Adds the vertex to the translation, in place.
  gdfTransMatrix& operator+=(const gdfVertex& v);
  /// Subtracts the vertex from the translation, in place.
  gdfTransMatrix& operator-=(const gdfVertex& v);
  /// Adds the vertex to the translation, in place.
  void translate(const gdfVertex& v) { *this += v; }
  /// Adds (x, y, z) to the translation, in place.
  void translate(double x, double y, double z) { *this += gdfVertex(x, y, z); }

  /// New matrix: column 0 times the factor in all four rows, the translation included.
  gdfTransMatrix sX(double factor) const;
  /// As sX, column 1.
  gdfTransMatrix sY(double factor) const;
  /// As sX, column 2.
  gdfTransMatrix sZ(double factor) const;
  /// As sX, columns 0, 1 and 2; column 3 stays.
  gdfTransMatrix sXYZ(double factor) const;
  /// As sX, columns 0, 1 and 2 each by its own factor x, y, z.
  gdfTransMatrix sXYZ(const gdfVertex& factors) const;
  /// sX in place.
  void scaleX(double factor) { scaleColumn(0, factor); }
  /// sY in place.
  void scaleY(double factor) { scaleColumn(1, factor); }
  /// sZ in place.
  void scaleZ(double factor) { scaleColumn(2, factor); }
  /// sXYZ(double) in place.
  void scaleXYZ(double factor) { scale(gdfVertex(factor, factor, factor)); }
  /// sXYZ(const gdfVertex&) in place.
  void scale(const gdfVertex& factors);
  /// Not implemented: leaves the matrix alone and writes "gdfTransMatrix::scale is not implemented"
  /// and a line end to the standard error stream.
  void scale(const gdfVertex&, double, const gdfVertex&);

  /// New matrix, turned about x: in each of the four rows m[r][1], m[r][2] become m[r][1]*cos -
  /// m[r][2]*sin, m[r][1]*sin + m[r][2]*cos. The translation turns along, column 3 stays.
  gdfTransMatrix rX(double angle) const;
  /// As rX, about y: m[r][0], m[r][2] become m[r][0]*cos + m[r][2]*sin, m[r][2]*cos - m[r][0]*sin.
  gdfTransMatrix rY(double angle) const;
  /// As rX, about z: m[r][0], m[r][1] become m[r][0]*cos - m[r][1]*sin, m[r][0]*sin + m[r][1]*cos.
  gdfTransMatrix rZ(double angle) const;
  /// rX in place.
  void rotateX(double angle);
  /// rY in place.
  void rotateY(double angle);
  /// rZ in place.
  void rotateZ(double angle);
  /// Turns by an angle about a line through the origin, after the steps held already. The axis need
  /// not be of unit length; a zero axis counts as +z.
  void rotate(const gdfVertex& axis, double angle);
  /// Overwrites with the quarter turn about x that carries +y to +z, without rounding:
  /// rotateX(pi/2) of the identity.
  void setRotateX90();
  /// Overwrites with the inverse of setRotateX90().
  void setRotateX_90();
  /// Overwrites with the identity.
  void setToIdentity() { *this = gdfTransMatrix(); }
  /// Overwrites with zeros, the weight included.
  void setToZero();
  /// The four tuples become rows 0 to 3.
  void setTransMatrix(gdfTuple_4 row0, gdfTuple_4 row1, gdfTuple_4 row2, gdfTuple_4 row3);
  /// Transposes in place. gdfTriMatrix::transpose gives a new matrix instead.
  void transpose();

  /// The 3x3 of the three rows and the three columns that follow, cyclically: rows (row+1)%4,
  /// (row+2)%4, (row+3)%4 in that order, columns likewise. Its determinant is that of the minor in
  /// natural order. Arguments are not checked.
  gdfTriMatrix coMatrix(int row, int col) const;
  /// Determinant of coMatrix(row, col), without the sign (-1)^(row+col) of a cofactor.
  /// gdfTriMatrix::coffactor has the sign.
  double coffactor(int row, int col) const;
  /// Determinant, expanded along row 0.
  double determinant() const;
  /// The inverse by the full adjugate, one division per element; nothing is taken to be affine.
  ///
  /// The identity, without a word, when the determinant is exactly 0: test determinant() to tell
  /// the two apart. A NaN determinant is not 0 and spreads.
  gdfTransMatrix invert() const;
  /// Whether all sixteen elements equal the identity's exactly.
  bool isIdentity() const { return *this == gdfTransMatrix(); }
  /// Whether all sixteen elements are finite.
  bool valid() const;
  /// Does nothing. The free() of a gdfTuple_4 or a gdfSpherical sets its fields to 0.
  void free() {
    // Kept on purpose (KeptTransMatrixFreeDoesNothing): there is nothing to give back, and callers
    // go on using the elements afterwards.
  }

  /// Whether all sixteen elements compare equal. False with any NaN.
  bool operator==(const gdfTransMatrix& o) const;
  /// Whether an element differs, a NaN counting as different, but not quite the negation of ==:
  /// where a row ends and the next begins, the two elements count only together. A difference in
  /// m[0][3] or m[1][0] alone is not seen; nor in m[1][3] or m[2][0], nor in m[2][3] or m[3][0].
  ///
  /// Taken for a const left operand; one that is not const takes the overload below.
  bool operator!=(const gdfTransMatrix& o) const;
  /// True, whatever the matrices hold: the overload for a left operand that is not const.
  bool operator!=(const gdfTransMatrix&) {
    // Kept on purpose (KeptTransMatrixUnequalOnNonConstIsTrue): containers of matrices want the
    // operator to exist and take every element for a new one. The comparison proper is the const
    // overload.
    return true;
  }
  /// True, whatever the matrices hold: not an order. For a left operand that is not const.
  bool operator<(const gdfTransMatrix&) {
    // Kept on purpose (KeptTransMatrixLessIsAlwaysTrue): it exists for containers that ask for it,
    // and must look at nothing. Matrices are never sorted by it.
    return true;
  }

 private:
  constexpr void copyRows(const double (*rows)[4]) {
    for (int r = 0; r < 4; ++r) {
      for (int c = 0; c < 4; ++c) m_[r][c] = rows[r][c];
    }
  }
  void scaleColumn(int col, double factor);

  double m_[4][4];
};

static_assert(std::is_trivially_copyable_v<gdfTransMatrix>);
static_assert(sizeof(gdfTransMatrix) == 16 * sizeof(double));

/// The identity.
extern ZRBASE_EXPORT const gdfTransMatrix I_Trans;

/// Reads sixteen doubles row by row, separated by white space.
ZRBASE_EXPORT std::istream& operator>>(std::istream& stream, gdfTransMatrix& matrix);
/// Writes four lines of four values with a blank between them, in the stream's current format, each
/// line ended by std::endl.
ZRBASE_EXPORT std::ostream& operator<<(std::ostream& stream, const gdfTransMatrix& matrix);

inline gdfVertex gdfTransMatrix::preMult(const gdfVertex& v) const {
  const double x = v.x();
  const double y = v.y();
  const double z = v.z();
  return gdfVertex(x * m_[0][0] + y * m_[1][0] + z * m_[2][0] + m_[3][0],
                   x * m_[0][1] + y * m_[1][1] + z * m_[2][1] + m_[3][1],
                   x * m_[0][2] + y * m_[1][2] + z * m_[2][2] + m_[3][2]);
}

inline gdfVertex gdfTransMatrix::preMultd(const gdfVertex& v) const {
  const double w = v.x() * m_[0][3] + v.y() * m_[1][3] + v.z() * m_[2][3] + m_[3][3];
  // Kept on purpose (KeptTransMatrixZeroWeightIsNotCaught): a weight of 0 gives infinities and
  // NaNs, here and in operator*(const gdfVertex&). Callers ask gdfVertex::valid() after a
  // projection, not before.
  return preMult(v) * (1.0 / w);
}

inline void gdfTransMatrix::qPreMult(double& x, double& y, double& z) const {
  const gdfVertex moved = preMult(gdfVertex(x, y, z));
  x = moved.x();
  y = moved.y();
  z = moved.z();
}

inline void gdfTransMatrix::transform(VertexLine& vertices) const {
  for (gdfVertex& v : vertices) qPreMult(v);
}

inline gdfVertex gdfTransMatrix::operator*(const gdfVertex& v) const {
  const double w = v.x() * m_[3][0] + v.y() * m_[3][1] + v.z() * m_[3][2] + m_[3][3];
  return (*this % v) * (1.0 / w);
}

inline gdfVertex gdfTransMatrix::operator%(const gdfVertex& v) const {
  const double x = v.x();
  const double y = v.y();
  const double z = v.z();
  return gdfVertex(x * m_[0][0] + y * m_[0][1] + z * m_[0][2] + m_[0][3],
                   x * m_[1][0] + y * m_[1][1] + z * m_[1][2] + m_[1][3],
                   x * m_[2][0] + y * m_[2][1] + z * m_[2][2] + m_[2][3]);
}

inline gdfVertex gdfVertex::operator*(const gdfTransMatrix& matrix) const {
  return matrix.preMultd(*this);
}

inline gdfVertex& gdfVertex::operator*=(const gdfTransMatrix& matrix) {
  matrix.qPreMultD(*this);
  return *this;
}

inline gdfVertex gdfVertex::operator%(const gdfTransMatrix& matrix) const {
  return matrix.preMult(*this);
}

inline gdfVertex& gdfVertex::operator%=(const gdfTransMatrix& matrix) {
  matrix.qPreMult(*this);
  return *this;
}

#endif  // ZRBASE_GEOMETRY_GDFTRANSMATRIX_H
