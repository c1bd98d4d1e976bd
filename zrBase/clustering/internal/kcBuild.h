#ifndef ZRBASE_CLUSTERING_INTERNAL_KCBUILD_H
#define ZRBASE_CLUSTERING_INTERNAL_KCBUILD_H

#include <cstddef>

class KCnode;
struct KCcut;

/// Smallest box around n points; the low and high corners stay as they are without points.
void kmEnclosingBox(double** pts, int n, int dim, double* lo, double* hi);

/// Bytes that the nodes of a tree over n points take.
std::size_t kcBlockSize(int n, int dim);

/// Builds all nodes of a tree into a block of kcBlockSize bytes, their sums included.
/// @param pidx  0 to n - 1 in this order; comes back in the order of the leaves
/// @param lo,hi  the outermost cell; the root refers to these arrays
/// @param cuts  n - 1 entries, to be filled in the order of the nodes
/// @return the root
KCnode* kcBuildNodes(double** pts, int* pidx, int n, int dim, double* lo, double* hi, void* block,
                     KCcut* cuts);

#endif  // ZRBASE_CLUSTERING_INTERNAL_KCBUILD_H
