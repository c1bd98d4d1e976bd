#ifndef ZRBASE_NUMERICS_MGCEIGEN_H
#define ZRBASE_NUMERICS_MGCEIGEN_H

#include <zrBase/export.h>
#include <zrBase/numerics/symmetricEigenSolver.h>

#include <iosfwd>

/// Eigenvalues and eigenvectors of a real symmetric matrix of a size of at least 2; the operations
/// are those of symmetricEigenSolver. mgcEigenD is the same with an `error` word of its own, which
/// its Report does not clear.
class ZRBASE_EXPORT mgcEigen : public symmetricEigenSolver<mgcEigen> {
 public:
  /// A solver for size x size matrices, which are yet to be filled in. Does not throw: a size below
  /// 2 raises invalid_size, storage that runs out raises allocation_failed, and with either up the
  /// instance must not be used.
  explicit mgcEigen(int size);
  /// Frees the storage, eigenvalues and eigenvectors with it.
  ~mgcEigen();

  /// Clears the `error` word. Writes nothing: the stream is not used.
  static void Report(std::ostream& stream);
};

extern template class symmetricEigenSolver<mgcEigen>;

#endif  // ZRBASE_NUMERICS_MGCEIGEN_H
