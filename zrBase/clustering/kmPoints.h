#ifndef ZRBASE_CLUSTERING_KMPOINTS_H
#define ZRBASE_CLUSTERING_KMPOINTS_H

#include <zrBase/export.h>

/// @file
/// Points of any dimension as plain arrays.
///
/// A point is a `double*` to `dim` doubles. A point array is a `double**`: an array of row pointers
/// that all lead into one block of n times dim doubles. Sizes are trusted. What these functions
/// allocate is freed by kmDeallocPt and kmDeallocPts only.

/// A new point with every coordinate equal to `value`.
ZRBASE_EXPORT double* kmAllocPt(int dim, double value);
/// A new point with the coordinates of `source`.
ZRBASE_EXPORT double* kmAllocCopyPt(int dim, const double* source);
/// Copies the coordinates of a point; both may be the same point.
ZRBASE_EXPORT void kmCopyPt(int dim, const double* source, double* target);

/// A new point array of n rows; the coordinates are not initialised. It is not null even for n = 0.
ZRBASE_EXPORT double** kmAllocPts(int n, int dim);
/// A new point array with the coordinates of the first n rows of `source`.
ZRBASE_EXPORT double** kmAllocCopyPts(int n, int dim, const double* const* source);
/// Copies the coordinates of n points, row by row.
ZRBASE_EXPORT void kmCopyPts(int n, int dim, const double* const* source, double** target);

/// Frees a point and makes the pointer null; a null pointer is left alone.
ZRBASE_EXPORT void kmDeallocPt(double*& p);
/// Frees a point array, the block through its row 0, and makes the pointer null; a null pointer is
/// left alone.
ZRBASE_EXPORT void kmDeallocPts(double**& pts);

/// Squared Euclidean distance. The squares are added in the order of the dimensions.
inline double kmDist2(int dim, const double* p, const double* q) {
  double squaredDistance = 0.0;
  for (int d = 0; d < dim; ++d) {
    const double difference = p[d] - q[d];
    squaredDistance += difference * difference;
  }
  return squaredDistance;
}

/// Whether all coordinates are equal: exactly, without a tolerance. A point with a NaN equals none.
inline bool kmEqualPts(int dim, const double* p, const double* q) {
  for (int d = 0; d < dim; ++d) {
    if (p[d] != q[d]) return false;
  }
  return true;
}

#endif  // ZRBASE_CLUSTERING_KMPOINTS_H
