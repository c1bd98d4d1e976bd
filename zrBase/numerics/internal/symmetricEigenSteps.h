#ifndef ZRBASE_NUMERICS_INTERNAL_SYMMETRICEIGENSTEPS_H
#define ZRBASE_NUMERICS_INTERNAL_SYMMETRICEIGENSTEPS_H

/// The steps of a symmetric eigen solution on plain rows of doubles: reduction to tridiagonal form,
/// QL iteration, sort. None of them allocates.
///
/// Everywhere `mat` is an array of n rows of n doubles, `diag` and `subd` are arrays of n. A
/// reduction overwrites `mat` with the orthogonal Q of mat = Q T Q^t, and leaves the diagonal of T
/// in `diag` and its subdiagonal in subd[0 .. n-2], with subd[n-1] = 0.
namespace mgcInternal {

/// Reduction for n = 2, which is tridiagonal already. Reads the upper triangle.
void tridiagonal2(double** mat, double* diag, double* subd);
/// Reduction for n = 3 by one reflection in closed form. Reads the upper triangle.
void tridiagonal3(double** mat, double* diag, double* subd);
/// Reduction for n = 4 in closed form. Reads the upper triangle.
void tridiagonal4(double** mat, double* diag, double* subd);
/// Householder reduction for any n of at least 1. Reads the lower triangle.
void tridiagonalN(int n, double** mat, double* diag, double* subd);

/// Implicit QL iteration. On return diag holds the eigenvalues, and the columns of mat what they
/// held times the rotations: with Q at the start, the eigenvectors. subd is used up.
/// @return false when an eigenvalue took 30 passes; it and those after it are then not converged
bool qlAlgorithm(int n, double* diag, double* subd, double** mat);

/// Selection sort of the eigenvalues, largest first, with the columns of eigvec.
void decreasingSort(int n, double* eigval, double** eigvec);
/// Selection sort of the eigenvalues, smallest first, with the columns of eigvec.
void increasingSort(int n, double* eigval, double** eigvec);

/// What mgcEigen::DecrSortEigenStuff3 does, on storage of the caller's, for whoever solves often:
/// the upper triangle in; eigenvectors as columns and eigenvalues out, largest first.
/// @return false for what raises ql_exceeded there
bool decreasingSolutionOfThree(double (&mat)[3][3], double (&eigval)[3]);

}  // namespace mgcInternal

#endif  // ZRBASE_NUMERICS_INTERNAL_SYMMETRICEIGENSTEPS_H
