#include <zrBase/clustering/kmPoints.h>

#include <zrBase/clustering/internal/largePages.h>

#include <algorithm>
#include <cstddef>

double* kmAllocPt(int dim, double value) {
  double* p = new double[static_cast<std::size_t>(dim)];
  std::fill_n(p, dim, value);
  return p;
}

double* kmAllocCopyPt(int dim, const double* source) {
  double* p = new double[static_cast<std::size_t>(dim)];
  kmCopyPt(dim, source, p);
  return p;
}

void kmCopyPt(int dim, const double* source, double* target) {
  for (int d = 0; d < dim; ++d) target[d] = source[d];
}

double** kmAllocPts(int n, int dim) {
  // Row 0 exists even without points: the block is freed through it.
  const std::size_t width = static_cast<std::size_t>(dim);
  const std::size_t rows = static_cast<std::size_t>(std::max(n, 1));
  double** pts = new double*[rows];
  double* block = new double[rows * width];
  adviseLargePages(pts, rows * sizeof(double*));
  adviseLargePages(block, rows * width * sizeof(double));
  for (std::size_t i = 0; i < rows; ++i) pts[i] = block + i * width;
  return pts;
}

double** kmAllocCopyPts(int n, int dim, const double* const* source) {
  double** pts = kmAllocPts(n, dim);
  kmCopyPts(n, dim, source, pts);
  return pts;
}

void kmCopyPts(int n, int dim, const double* const* source, double** target) {
  for (int i = 0; i < n; ++i) kmCopyPt(dim, source[i], target[i]);
}

void kmDeallocPt(double*& p) {
  delete[] p;
  p = nullptr;
}

void kmDeallocPts(double**& pts) {
  if (pts == nullptr) return;
  delete[] pts[0];
  delete[] pts;
  pts = nullptr;
}
