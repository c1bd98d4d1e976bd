#ifndef ZRBASE_NUMERICS_MGCEIGEND_H
#define ZRBASE_NUMERICS_MGCEIGEND_H

#include <zrBase/export.h>
#include <zrBase/numerics/symmetricEigenSolver.h>

#include <iosfwd>

/// Eigenvalues and eigenvectors of a real symmetric matrix of a size of at least 2; the operations
/// are those of symmetricEigenSolver. Differs from mgcEigen, which is in double precision too, in
/// its static data, which are its own, and in Report.
class ZRBASE_EXPORT mgcEigenD : public symmetricEigenSolver<mgcEigenD> {
 public:
  /// A solver for size x size matrices, which are yet to be filled in. Does not throw: a size below
  /// 2 raises invalid_size, storage that runs out raises allocation_failed, and with either up the
  /// instance must not be used.
  explicit mgcEigenD(int size);
  /// Frees the storage, eigenvalues and eigenvectors with it.
  ~mgcEigenD();

  /// Does nothing: the `error` word goes on gathering flags until a caller writes to it, and the
  /// stream is not used. mgcEigen::Report clears its word.
  static void Report(std::ostream& stream);
};

extern template class symmetricEigenSolver<mgcEigenD>;

#endif  // ZRBASE_NUMERICS_MGCEIGEND_H
