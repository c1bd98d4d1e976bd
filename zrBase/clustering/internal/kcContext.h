#ifndef ZRBASE_CLUSTERING_INTERNAL_KCCONTEXT_H
#define ZRBASE_CLUSTERING_INTERNAL_KCCONTEXT_H

class KMfilterCenters;

/// @file
/// What a pass through a kc-tree works on. It is held here and not passed down: one pass runs at a
/// time. After a pass it goes on describing the last one.

extern int kcK;           ///< number of centers
extern int kcDim;         ///< dimension
extern int kcNPts;        ///< number of points in the tree
extern double** kcPts;    ///< the points
extern double** kcCtrs;   ///< the centers
extern double** kcSums;   ///< coordinate sums of each center's points
extern double* kcSumSqs;  ///< sums of their squared norms
extern double* kcDists;   ///< distortions; no pass touches them
extern int* kcWeights;    ///< numbers of each center's points

/// Describes the points of a tree that is being built.
void kcSetPoints(int dim, int n, double** pts);

/// Begins a pass: takes over the arrays of the centers, and clears weights, sums of squares and
/// sums.
void kcSetContext(KMfilterCenters& centers, int dim, int n, double** pts);

/// Position in the list of the candidate that is nearest to the middle of a cell.
///
/// The first wins a tie; 0 if there is none at a distance below the largest finite double.
int kcClosestToBoxMidpoint(const int* cands, int nCands, const double* lo, const double* hi);

/// Whether no place in a cell can be nearer to a center than to the center `closest`.
bool kcIsPruned(const double* center, const double* closest, const double* lo, const double* hi);

/// Position in the list of the candidate nearest to a point.
///
/// The first wins a tie; 0 if there is none at a distance below the largest finite double.
/// @param squaredDistance  the distance, or the largest finite double
int kcClosestToPoint(const int* cands, int nCands, const double* p, double& squaredDistance);

#endif  // ZRBASE_CLUSTERING_INTERNAL_KCCONTEXT_H
