#ifndef ZRBASE_NUMERICS_INTERNAL_SYMMETRICEIGENSOLVERMEMBERS_H
#define ZRBASE_NUMERICS_INTERNAL_SYMMETRICEIGENSOLVERMEMBERS_H

#include <zrBase/numerics/internal/symmetricEigenSteps.h>
#include <zrBase/numerics/symmetricEigenSolver.h>

#include <cstddef>
#include <new>

// What the two solvers are made of; mgcEigen.cpp and mgcEigenD.cpp instantiate it, one each.

template <class Solver>
const char* symmetricEigenSolver<Solver>::message[3] = {
    "invalid matrix size", "allocation failed", "QL algorithm - exceeded maximum iterations"};

template <class Solver>
int symmetricEigenSolver<Solver>::verbose = 0;

template <class Solver>
unsigned int symmetricEigenSolver<Solver>::error = 0;

template <class Solver>
void symmetricEigenSolver<Solver>::Report(unsigned int flags) {
  error |= flags;
}

template <class Solver>
int symmetricEigenSolver<Solver>::Number(unsigned int flag) {
  int number = -1;
  for (; flag != 0; flag >>= 1) ++number;
  return number;
}

template <class Solver>
symmetricEigenSolver<Solver>::symmetricEigenSolver(int size)
    : size_(size), matrix_(nullptr), diag_(nullptr), subd_(nullptr) {
  if (size < 2) {
    Report(invalid_size);
  } else if (!allocate()) {
    Report(allocation_failed);
  }
}

template <class Solver>
bool symmetricEigenSolver<Solver>::allocate() {
  // Without exceptions: callers look at the flag. The elements stay unset, so that a huge size
  // costs nothing before it fails.
  const auto count = static_cast<std::size_t>(size_);
  matrix_ = new (std::nothrow) double*[count];
  if (matrix_ == nullptr) return false;
  for (std::size_t row = 0; row < count; ++row) {
    matrix_[row] = new (std::nothrow) double[count];
    if (matrix_[row] == nullptr) return false;
  }
  diag_ = new (std::nothrow) double[count];
  if (diag_ == nullptr) return false;
  subd_ = new (std::nothrow) double[count];
  return subd_ != nullptr;
}

template <class Solver>
symmetricEigenSolver<Solver>::~symmetricEigenSolver() {
  delete[] subd_;
  delete[] diag_;
  if (matrix_ == nullptr) return;
  // The first null row is the one whose allocation failed: those after it were never set.
  for (int row = 0; row < size_ && matrix_[row] != nullptr; ++row) delete[] matrix_[row];
  delete[] matrix_;
}

template <class Solver>
Solver& symmetricEigenSolver<Solver>::Matrix(double** source) {
  for (int row = 0; row < size_; ++row) {
    for (int col = 0; col < size_; ++col) matrix_[row][col] = source[row][col];
  }
  return static_cast<Solver&>(*this);
}

template <class Solver>
void symmetricEigenSolver<Solver>::Reduce() {
  mgcInternal::tridiagonalN(size_, matrix_, diag_, subd_);
}

template <class Solver>
void symmetricEigenSolver<Solver>::QLAlgorithm() {
  if (!mgcInternal::qlAlgorithm(size_, diag_, subd_, matrix_)) Report(ql_exceeded);
}

template <class Solver>
void symmetricEigenSolver<Solver>::tridiagonalBySize() {
  switch (size_) {
    case 2:
      return mgcInternal::tridiagonal2(matrix_, diag_, subd_);
    case 3:
      return mgcInternal::tridiagonal3(matrix_, diag_, subd_);
    case 4:
      return mgcInternal::tridiagonal4(matrix_, diag_, subd_);
    default:
      return mgcInternal::tridiagonalN(size_, matrix_, diag_, subd_);
  }
}

template <class Solver>
void symmetricEigenSolver<Solver>::EigenStuff() {
  tridiagonalBySize();
  QLAlgorithm();
}

template <class Solver>
void symmetricEigenSolver<Solver>::EigenStuff2() {
  mgcInternal::tridiagonal2(matrix_, diag_, subd_);
  QLAlgorithm();
}

template <class Solver>
void symmetricEigenSolver<Solver>::EigenStuff3() {
  mgcInternal::tridiagonal3(matrix_, diag_, subd_);
  QLAlgorithm();
}

template <class Solver>
void symmetricEigenSolver<Solver>::EigenStuff4() {
  mgcInternal::tridiagonal4(matrix_, diag_, subd_);
  QLAlgorithm();
}

template <class Solver>
void symmetricEigenSolver<Solver>::EigenStuffN() {
  Reduce();
  QLAlgorithm();
}

// Kept on purpose (KeptSortRunsAfterTheIterationGaveUp): the sorts do not ask whether the iteration
// converged. Callers who take the extreme pairs of a matrix that nearly converged count on it.
template <class Solver>
void symmetricEigenSolver<Solver>::DecrSortEigenStuff() {
  EigenStuff();
  mgcInternal::decreasingSort(size_, diag_, matrix_);
}

template <class Solver>
void symmetricEigenSolver<Solver>::DecrSortEigenStuff2() {
  EigenStuff2();
  mgcInternal::decreasingSort(size_, diag_, matrix_);
}

template <class Solver>
void symmetricEigenSolver<Solver>::DecrSortEigenStuff3() {
  EigenStuff3();
  mgcInternal::decreasingSort(size_, diag_, matrix_);
}

template <class Solver>
void symmetricEigenSolver<Solver>::DecrSortEigenStuff4() {
  EigenStuff4();
  mgcInternal::decreasingSort(size_, diag_, matrix_);
}

template <class Solver>
void symmetricEigenSolver<Solver>::DecrSortEigenStuffN() {
  EigenStuffN();
  mgcInternal::decreasingSort(size_, diag_, matrix_);
}

template <class Solver>
void symmetricEigenSolver<Solver>::IncrSortEigenStuff() {
  EigenStuff();
  mgcInternal::increasingSort(size_, diag_, matrix_);
}

template <class Solver>
void symmetricEigenSolver<Solver>::IncrSortEigenStuff2() {
  EigenStuff2();
  mgcInternal::increasingSort(size_, diag_, matrix_);
}

template <class Solver>
void symmetricEigenSolver<Solver>::IncrSortEigenStuff3() {
  EigenStuff3();
  mgcInternal::increasingSort(size_, diag_, matrix_);
}

template <class Solver>
void symmetricEigenSolver<Solver>::IncrSortEigenStuff4() {
  EigenStuff4();
  mgcInternal::increasingSort(size_, diag_, matrix_);
}

template <class Solver>
void symmetricEigenSolver<Solver>::IncrSortEigenStuffN() {
  EigenStuffN();
  mgcInternal::increasingSort(size_, diag_, matrix_);
}

#endif  // ZRBASE_NUMERICS_INTERNAL_SYMMETRICEIGENSOLVERMEMBERS_H
