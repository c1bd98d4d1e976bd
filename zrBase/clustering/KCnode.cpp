#include <zrBase/clustering/KCnode.h>

#include <zrBase/clustering/internal/kcContext.h>
#include <zrBase/clustering/internal/plainNumbers.h>
#include <zrBase/clustering/kmPoints.h>
#include <zrBase/clustering/kmRandom.h>
#include <zrBase/clustering/kmServices.h>

#include <cstddef>
#include <iomanip>
#include <ostream>
#include <string>
#include <vector>

namespace {

void post(int center, const double* sum, int n, double sumSq) {
  for (int d = 0; d < kcDim; ++d) kcSums[center][d] += sum[d];
  kcWeights[center] += n;
  kcSumSqs[center] += sumSq;
}

/// The candidates that can own a place in a cell, in the order of the list.
std::vector<int> remainingCandidates(const int* cands, int nCands, const double* lo,
                                     const double* hi) {
  const int closest = kcClosestToBoxMidpoint(cands, nCands, lo, hi);
  std::vector<int> remaining;
  remaining.reserve(static_cast<std::size_t>(nCands));
  for (int j = 0; j < nCands; ++j) {
    if (j == closest || !kcIsPruned(kcCtrs[cands[j]], kcCtrs[cands[closest]], lo, hi)) {
      remaining.push_back(cands[j]);
    }
  }
  return remaining;
}

void printMargin(int level) {
  *kmOut << "    " << std::string(static_cast<std::size_t>(level > 0 ? level : 0), '.');
}

void printSums(const double* sum, double sumSq) {
  *kmOut << " sm=";
  kmPrintPt(sum, kcDim, true);
  *kmOut << " ss=" << sumSq << "\n";
}

}  // namespace

KCnode::KCnode(int dim, const double* lo, const double* hi)
    : sum(kmAllocPt(dim, 0.0)), bndLo(kmAllocCopyPt(dim, lo)), bndHi(kmAllocCopyPt(dim, hi)) {}

KCnode::~KCnode() {
  kmDeallocPt(sum);
  kmDeallocPt(bndLo);
  kmDeallocPt(bndHi);
}

// Leaves.

KCleaf::KCleaf(int dim, const double* lo, const double* hi, int n, int* window)
    : KCnode(dim, lo, hi), bucket(window) {
  nData = n;
}

void KCleaf::collectStats(int& n, double*& sumBelow, double& sumSqBelow) {
  sumSq = 0.0;
  for (int i = 0; i < nData; ++i) {
    for (int d = 0; d < kcDim; ++d) {
      const double coordinate = kcPts[bucket[i]][d];
      // Kept on purpose (KeptSecondCollectStatsAddsSumsAgain): the coordinate sums are not cleared
      // first, and a split clears its sum of squares neither; counts start over.
      sum[d] += coordinate;
      sumSq += coordinate * coordinate;
    }
  }
  n = nData;
  sumBelow = sum;
  sumSqBelow = sumSq;
}

void KCleaf::filterCandidates(int* cands, int nCands) {
  if (nCands == 1) {
    post(cands[0], sum, nData, sumSq);
    return;
  }
  for (int i = 0; i < nData; ++i) {
    const double* p = kcPts[bucket[i]];
    double squaredDistance = 0.0;
    // Kept on purpose (KeptLeafAddsItsWholeSumOfSquaresForEachPoint): beside a point's coordinates
    // goes the sum of squares of the leaf, not the point's own. The two are one only because the
    // leaves of a tree hold one point; a leaf made by hand over 1 and 4 adds 17 for either.
    post(cands[kcClosestToPoint(cands, nCands, p, squaredDistance)], p, 1, sumSq);
  }
}

void KCleaf::assignPoints(int* cands, int nCands, int* closeCtr, double* sqDist) {
  for (int i = 0; i < nData; ++i) {
    double squaredDistance = 0.0;
    const int closest = kcClosestToPoint(cands, nCands, kcPts[bucket[i]], squaredDistance);
    if (closeCtr != nullptr) closeCtr[bucket[i]] = cands[closest];
    if (sqDist != nullptr) sqDist[bucket[i]] = squaredDistance;
  }
}

void KCleaf::sampleInNode(double* sample, double**) {
  const int drawn = kmRanInt(nData);
  if (nData > 0) kmCopyPt(kcDim, kcPts[bucket[drawn]], sample);
}

void KCleaf::printNode(int level) const {
  const PlainNumbers plainNumbers(*kmOut);
  printMargin(level);
  *kmOut << "Leaf n=" << nData << " <";
  for (int i = 0; i < nData; ++i) {
    if (i > 0) *kmOut << ",";
    *kmOut << bucket[i];
  }
  *kmOut << ">";
  printSums(sum, sumSq);
}

// Splits.

KCsplit::KCsplit(int dim, const double* lo, const double* hi, int cutDimension, double cutValue,
                 double cutLow, double cutHigh, KCnode* low, KCnode* high)
    : KCnode(dim, lo, hi),
      cutDim(cutDimension),
      cutVal(cutValue),
      cutLo(cutLow),
      cutHi(cutHigh),
      loChild(low),
      hiChild(high) {}

KCsplit::~KCsplit() {
  delete loChild;
  delete hiChild;
}

void KCsplit::collectStats(int& n, double*& sumBelow, double& sumSqBelow) {
  nData = 0;
  for (KCnode* child : {loChild, hiChild}) {
    int childCount = 0;
    double* childSum = nullptr;
    double childSumSq = 0.0;
    child->collectStats(childCount, childSum, childSumSq);
    nData += childCount;
    for (int d = 0; d < kcDim; ++d) sum[d] += childSum[d];
    sumSq += childSumSq;
  }
  n = nData;
  sumBelow = sum;
  sumSqBelow = sumSq;
}

void KCsplit::filterCandidates(int* cands, int nCands) {
  if (nCands == 1) {
    post(cands[0], sum, nData, sumSq);
    return;
  }
  std::vector<int> remaining = remainingCandidates(cands, nCands, bndLo, bndHi);
  const int nRemaining = static_cast<int>(remaining.size());
  loChild->filterCandidates(remaining.data(), nRemaining);
  hiChild->filterCandidates(remaining.data(), nRemaining);
}

void KCsplit::assignPoints(int* cands, int nCands, int* closeCtr, double* sqDist) {
  std::vector<int> remaining(cands, cands + nCands);
  if (nCands != 1) remaining = remainingCandidates(cands, nCands, bndLo, bndHi);
  const int nRemaining = static_cast<int>(remaining.size());
  loChild->assignPoints(remaining.data(), nRemaining, closeCtr, sqDist);
  hiChild->assignPoints(remaining.data(), nRemaining, closeCtr, sqDist);
}

void KCsplit::sampleInNode(double* sample, double** box) {
  // A subtree of n points has 2 n - 1 nodes. Each is drawn alike: 0 is this one.
  const int drawn = kmRanInt(2 * nData - 1);
  if (drawn == 0) {
    for (int d = 0; d < kcDim; ++d) {
      // Twice half the cell's length is added on either side: three times the cell.
      const double half = (box[1][d] - box[0][d]) / 2;
      sample[d] = kmRanUnif(box[0][d] - half * 2, box[1][d] + half * 2);
    }
    return;
  }
  const bool goesLow = drawn <= 2 * loChild->nData - 1;
  double& bound = goesLow ? box[1][cutDim] : box[0][cutDim];
  const double before = bound;
  bound = cutVal;
  (goesLow ? loChild : hiChild)->sampleInNode(sample, box);
  bound = before;
}

void KCsplit::printNode(int level) const {
  const PlainNumbers plainNumbers(*kmOut);
  hiChild->printNode(level + 1);
  printMargin(level);
  // Kept on purpose (KeptPrintNodeLeavesPrecisionOfFour): what is written to kmOut afterwards has
  // four digits too.
  kmOut->precision(4);
  *kmOut << "Split cd=" << cutDim << " cv=" << std::setw(6) << cutVal << " nd=" << nData;
  printSums(sum, sumSq);
  loChild->printNode(level + 1);
}
