#ifndef ZRBASE_NUMERICS_SYMMETRICEIGENSOLVER_H
#define ZRBASE_NUMERICS_SYMMETRICEIGENSOLVER_H

#include <zrBase/export.h>

/// All eigenvalues and eigenvectors of a real symmetric matrix, in double precision: what mgcEigen
/// and mgcEigenD share. `Solver` is the class that derives from it; each has static data of its
/// own.
///
/// The matrix is reduced to tridiagonal form by orthogonal transformations, then diagonalised by
/// the implicit QL iteration (Dubrulle, Martin and Wilkinson, 1968), then sorted if asked for. The
/// reductions for the sizes 2, 3 and 4 are closed forms, the one for any size is Householder's
/// (Martin, Reinsch and Wilkinson, 1968).
///
///     mgcEigen solver(3);
///     solver.Matrix(0, 0) = 2.0;  // ... and the other eight
///     solver.DecrSortEigenStuff3();
///     solver.Eigenvalue(0);       // the largest
///     solver.Eigenvector(1, 0);   // component 1 of the vector that belongs to it
///
/// A solution overwrites the matrix with the eigenvectors: to solve again, fill it again. The
/// eigenvectors have unit length and stand square to each other. Their sense and their handedness
/// are those that the steps happen to give: a caller who needs a right-handed frame has to turn one
/// round. Of equal eigenvalues a sort takes the first it comes to; as it exchanges whole pairs,
/// they need not keep the order in which the iteration left them.
///
/// The reductions for 2, 3 and 4 read the upper triangle with the diagonal, the one for any size
/// reads the lower; whoever fills both need not care. Nothing is checked: indices, sizes and
/// contents are the caller's.
///
/// Zeros are tested exactly and nothing is scaled in the closed forms: elements so small that their
/// squares underflow (below about 1e-162) are better set to 0 first. Beside zeros they can end in
/// eigenvalues that are NaN, with ql_exceeded raised.
///
/// Failures are told by flags in the static word `error` alone, which gathers them over all
/// instances of a class and which nothing but mgcEigen::Report clears; so clear it before work
/// whose success matters. It is written without protection: one thread at a time may construct and
/// solve. All storage is taken by the constructor; a solution allocates nothing. O(n^3).
template <class Solver>
class ZRBASE_EXPORT symmetricEigenSolver {
 public:
  /// Flag: a size below 2 was asked for.
  static constexpr unsigned int invalid_size = 1;
  /// Flag: storage ran out in a constructor.
  static constexpr unsigned int allocation_failed = 2;
  /// Flag: an eigenvalue had not converged after 30 passes.
  static constexpr unsigned int ql_exceeded = 4;
  /// A text for each flag, in the order of the flags. Nothing in the library prints them.
  static const char* message[3];
  /// For callers; 0 at the start. No operation reads it.
  static int verbose;
  /// The flags raised since the word was last cleared; 0 at the start. Callers may write to it.
  static unsigned int error;

  symmetricEigenSolver(const symmetricEigenSolver&) = delete;
  symmetricEigenSolver& operator=(const symmetricEigenSolver&) = delete;

  /// Element of the matrix, to read and to write; the indices are not checked. After a solution
  /// component `row` of eigenvector `col`. Unset until it is filled.
  double& Matrix(int row, int col) { return matrix_[row][col]; }
  /// Copies size x size values from rows of the caller's; gives the solver itself.
  Solver& Matrix(double** source);

  /// Eigenvalue i, which belongs to the vector in column i; the index is not checked. Until a
  /// solution it is the diagonal as Tdiag or Reduce left it.
  double Eigenvalue(int i) const { return diag_[i]; }
  /// All eigenvalues, an array of size values that the solver owns.
  const double* Eigenvalue() const { return diag_; }
  /// Component `row` of eigenvector `col`; the indices are not checked.
  double Eigenvector(int row, int col) const { return matrix_[row][col]; }
  /// The eigenvectors as columns: an array of size rows that the solver owns. To be read only.
  const double** Eigenvector() const { return const_cast<const double**>(matrix_); }

  /// Element i of the tridiagonal matrix's diagonal, for filling in one that is tridiagonal already
  /// before QLAlgorithm; not checked.
  double& Tdiag(int i) { return diag_[i]; }
  /// Element i of its subdiagonal, which joins the rows i and i + 1; the last, size - 1, has to be
  /// 0. Not checked.
  double& Tsubdiag(int i) { return subd_[i]; }

  /// Householder reduction alone, for any size: afterwards Tdiag and Tsubdiag hold the tridiagonal
  /// matrix T, and the matrix holds the orthogonal Q of Q T Q^t. Reads the lower triangle.
  void Reduce();
  /// QL iteration alone, on Tdiag and Tsubdiag. The columns of the matrix are turned along: with
  /// the Q of a reduction in it, or the identity for a matrix that was tridiagonal from the start,
  /// they end as eigenvectors. Uses up Tsubdiag. Raises ql_exceeded as the solutions do.
  void QLAlgorithm();

  /// @name Solutions
  /// Reduction, QL iteration, and the sort that the name tells: none, decreasing or increasing
  /// eigenvalues. Without a suffix the reduction goes by the size: the closed forms for 2, 3 and 4,
  /// Householder's otherwise. With 2, 3 or 4 it is the closed form for that size, which is not
  /// compared with the solver's: on another size the behaviour is undefined. With N it is
  /// Householder's, whatever the size, which may give other signs than the closed forms.
  ///
  /// An eigenvalue that takes 30 passes raises ql_exceeded and ends the iteration: it and the later
  /// ones have not converged, and are sorted with the rest. Input that is NaN throughout ends so.
  /// @{

  /// By size, not sorted.
  void EigenStuff();
  /// For size 2, not sorted.
  void EigenStuff2();
  /// For size 3, not sorted.
  void EigenStuff3();
  /// For size 4, not sorted.
  void EigenStuff4();
  /// For any size, not sorted.
  void EigenStuffN();
  /// By size, largest eigenvalue first.
  void DecrSortEigenStuff();
  /// For size 2, largest eigenvalue first.
  void DecrSortEigenStuff2();
  /// For size 3, largest eigenvalue first.
  void DecrSortEigenStuff3();
  /// For size 4, largest eigenvalue first.
  void DecrSortEigenStuff4();
  /// For any size, largest eigenvalue first.
  void DecrSortEigenStuffN();
  /// By size, smallest eigenvalue first.
  void IncrSortEigenStuff();
  /// For size 2, smallest eigenvalue first.
  void IncrSortEigenStuff2();
  /// For size 3, smallest eigenvalue first.
  void IncrSortEigenStuff3();
  /// For size 4, smallest eigenvalue first.
  void IncrSortEigenStuff4();
  /// For any size, smallest eigenvalue first.
  void IncrSortEigenStuffN();

  /// @}

 protected:
  /// Takes the storage, unset. A size below 2 raises invalid_size and takes none; storage that runs
  /// out raises allocation_failed and ends it there. Of neither may more be done than destroy it.
  explicit symmetricEigenSolver(int size);
  /// Frees whatever the constructor took.
  ~symmetricEigenSolver();

  /// Raises flags in `error`, beside those that are up.
  static void Report(unsigned int flags);
  /// Position of the highest flag in a word, counted from 0, which is the place of its text in
  /// `message`; -1 for 0.
  static int Number(unsigned int flag);

 private:
  bool allocate();
  void tridiagonalBySize();

  int size_;
  double** matrix_;
  double* diag_;
  double* subd_;
};

#endif  // ZRBASE_NUMERICS_SYMMETRICEIGENSOLVER_H
