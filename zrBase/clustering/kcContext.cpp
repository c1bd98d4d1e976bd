#include <zrBase/clustering/internal/kcContext.h>

#include <zrBase/clustering/KMfilterCenters.h>
#include <zrBase/clustering/kmPoints.h>

#include <algorithm>
#include <limits>

int kcK = 0;
int kcDim = 0;
int kcNPts = 0;
double** kcPts = nullptr;
double** kcCtrs = nullptr;
double** kcSums = nullptr;
double* kcSumSqs = nullptr;
double* kcDists = nullptr;
int* kcWeights = nullptr;

void kcSetPoints(int dim, int n, double** pts) {
  kcDim = dim;
  kcNPts = n;
  kcPts = pts;
}

void kcSetContext(KMfilterCenters& centers, int dim, int n, double** pts) {
  kcSetPoints(dim, n, pts);
  kcK = centers.getK();
  kcCtrs = centers.getCtrPts();
  kcSums = centers.getSums(false);
  kcSumSqs = centers.getSumSqs(false);
  kcDists = centers.getDists(false);
  kcWeights = centers.getWeights(false);
  std::fill_n(kcWeights, kcK, 0);
  std::fill_n(kcSumSqs, kcK, 0.0);
  for (int j = 0; j < kcK; ++j) std::fill_n(kcSums[j], kcDim, 0.0);
}

int kcClosestToBoxMidpoint(const int* cands, int nCands, const double* lo, const double* hi) {
  int closest = 0;
  double least = std::numeric_limits<double>::max();
  for (int j = 0; j < nCands; ++j) {
    const double* center = kcCtrs[cands[j]];
    double squaredDistance = 0.0;
    for (int d = 0; d < kcDim; ++d) {
      const double difference = (lo[d] + hi[d]) * 0.5 - center[d];
      squaredDistance += difference * difference;
    }
    if (squaredDistance < least) {
      least = squaredDistance;
      closest = j;
    }
  }
  return closest;
}

bool kcIsPruned(const double* center, const double* closest, const double* lo, const double* hi) {
  // The corner of the cell that lies farthest towards the center decides: it is at least as near to
  // `closest` if its way along the line between the two reaches no more than half of it.
  double norm = 0.0;
  double dot = 0.0;
  for (int d = 0; d < kcDim; ++d) {
    const double difference = center[d] - closest[d];
    norm += difference * difference;
    const double corner = difference > 0.0 ? hi[d] : lo[d];
    dot += (corner - closest[d]) * difference;
  }
  return norm >= 2 * dot;
}

int kcClosestToPoint(const int* cands, int nCands, const double* p, double& squaredDistance) {
  int closest = 0;
  squaredDistance = std::numeric_limits<double>::max();
  for (int j = 0; j < nCands; ++j) {
    const double distance = kmDist2(kcDim, p, kcCtrs[cands[j]]);
    if (distance < squaredDistance) {
      squaredDistance = distance;
      closest = j;
    }
  }
  return closest;
}
