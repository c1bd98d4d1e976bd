#include <zrBase/clustering/KMfilterCenters.h>

#include <zrBase/clustering/KCtree.h>
#include <zrBase/clustering/internal/plainNumbers.h>
#include <zrBase/clustering/kmPoints.h>
#include <zrBase/clustering/kmRandom.h>
#include <zrBase/clustering/kmServices.h>

#include <algorithm>
#include <cstddef>
#include <iomanip>
#include <limits>
#include <ostream>

KMfilterCenters::KMfilterCenters(int k, KMdata& data, double damping)
    : KMcenters(k, data),
      currDist(std::numeric_limits<double>::max()),
      valid(false),
      dampFactor(damping) {
  for (int j = 0; j < kCtrs; ++j) std::fill_n(ctrs[j], getDim(), 0.0);
  allocateStatistics();
  standingTree();
  if (kmStatLev >= KM_STAT_CENTERS) KMfilterCenters::print(true);
}

KMfilterCenters::KMfilterCenters(const KMfilterCenters& other) : KMcenters(other) {
  allocateStatistics();
  copyStatistics(other);
}

KMfilterCenters& KMfilterCenters::operator=(const KMfilterCenters& other) {
  if (this == &other) return *this;
  const bool fits = kCtrs == other.kCtrs && getDim() == other.getDim();
  KMcenters::operator=(other);
  if (!fits) {
    freeStatistics();
    allocateStatistics();
  }
  copyStatistics(other);
  return *this;
}

KMfilterCenters::~KMfilterCenters() { freeStatistics(); }

void KMfilterCenters::resize(int k) {
  if (k != kCtrs) {
    KMcenters::resize(k);
    freeStatistics();
    allocateStatistics();
    currDist = std::numeric_limits<double>::max();
  }
  valid = false;
}

void KMfilterCenters::allocateStatistics() {
  const std::size_t k = static_cast<std::size_t>(kCtrs);
  sums = kmAllocPts(kCtrs, getDim());
  for (int j = 0; j < kCtrs; ++j) std::fill_n(sums[j], getDim(), 0.0);
  sumSqs = new double[k]();
  weights = new int[k]();
  dists = new double[k]();
}

void KMfilterCenters::freeStatistics() {
  kmDeallocPts(sums);
  delete[] sumSqs;
  delete[] weights;
  delete[] dists;
}

void KMfilterCenters::copyStatistics(const KMfilterCenters& other) {
  kmCopyPts(kCtrs, getDim(), other.sums, sums);
  std::copy_n(other.sumSqs, kCtrs, sumSqs);
  std::copy_n(other.weights, kCtrs, weights);
  std::copy_n(other.dists, kCtrs, dists);
  currDist = other.currDist;
  valid = other.valid;
  dampFactor = other.dampFactor;
}

KCtree& KMfilterCenters::standingTree() {
  if (pts->getKcTree() == nullptr) {
    kmError("Building kc-tree", KMwarn);
    pts->buildKcTree();
  }
  return *pts->getKcTree();
}

double** KMfilterCenters::getSums(bool force) {
  if (force && !valid) computeDistortion();
  return sums;
}

double* KMfilterCenters::getSumSqs(bool force) {
  if (force && !valid) computeDistortion();
  return sumSqs;
}

int* KMfilterCenters::getWeights(bool force) {
  if (force && !valid) computeDistortion();
  return weights;
}

double* KMfilterCenters::getDists(bool force) {
  if (force && !valid) computeDistortion();
  return dists;
}

double KMfilterCenters::getDist(bool force) {
  if (force && !valid) computeDistortion();
  return currDist;
}

double KMfilterCenters::getAvgDist(bool force) { return getDist(force) / getNPts(); }

void KMfilterCenters::getAssignments(int* closeCtr, double* sqDist) {
  // Kept on purpose (KeptAssignmentsClearTheStatistics): the pass begins as every pass does, with
  // sums, sums of squares and weights set to 0, and `valid` stays as it was. Who needs both asks
  // for the assignments first.
  standingTree().getAssignments(*this, closeCtr, sqDist);
}

void KMfilterCenters::genRandom() {
  pts->sampleCtrs(ctrs, kCtrs, false);
  invalidate();
}

void KMfilterCenters::lloyd1Stage() { moveToCentroid(); }

void KMfilterCenters::swap1Stage() { swapOneCenter(true); }

void KMfilterCenters::invalidate() {
  if (kmStatLev >= KM_STAT_CENTERS) print(true);
  valid = false;
}

void KMfilterCenters::computeDistortion() {
  standingTree().getNeighbors(*this);
  const int dim = getDim();
  currDist = 0.0;
  for (int j = 0; j < kCtrs; ++j) {
    double centerByCenter = 0.0;
    double centerBySum = 0.0;
    for (int d = 0; d < dim; ++d) {
      centerByCenter += ctrs[j][d] * ctrs[j][d];
      centerBySum += ctrs[j][d] * sums[j][d];
    }
    // The sum of |p - c|^2 over the points p of center c, multiplied out.
    // Kept on purpose (KeptDistortionMayComeOutBelowZero): where the points lie far from the origin
    // and close together, rounding is all that is left, and it may be negative: -8 for 1e8 + .1,
    // 1e8 + .2 and 1e8 + .4 around their mean. It is neither raised to 0 nor formed from the
    // points.
    dists[j] = sumSqs[j] - 2 * centerBySum + weights[j] * centerByCenter;
    currDist += dists[j];
  }
  valid = true;
}

void KMfilterCenters::moveToCentroid() {
  if (!valid) computeDistortion();
  const int dim = getDim();
  for (int j = 0; j < kCtrs; ++j) {
    if (weights[j] <= 0) continue;
    for (int d = 0; d < dim; ++d) {
      ctrs[j][d] = dampFactor * sums[j][d] / weights[j] + (1 - dampFactor) * ctrs[j][d];
    }
  }
  invalidate();
}

void KMfilterCenters::swapOneCenter(bool allowDuplicate) {
  const int dim = getDim();
  // The center is drawn before the point: the order of draws decides what a search finds.
  const int replaced = kmRanInt(kCtrs);
  double* point = kmAllocPt(dim, 0.0);
  pts->sampleCtr(point);
  const auto isCenter = [&] {
    return std::any_of(ctrs, ctrs + kCtrs,
                       [&](const double* center) { return kmEqualPts(dim, point, center); });
  };
  while (!allowDuplicate && isCenter()) pts->sampleCtr(point);
  kmCopyPt(dim, point, ctrs[replaced]);
  if (kmStatLev >= KM_STAT_SWAPS) {
    const PlainNumbers plainNumbers(*kmOut);
    *kmOut << "\tswapping: ";
    kmPrintPt(point, dim, true);
    *kmOut << "<-->Center[" << replaced << "]\n";
  }
  kmDeallocPt(point);
  invalidate();
}

void KMfilterCenters::print(bool) const {
  const PlainNumbers plainNumbers(*kmOut);
  for (int j = 0; j < kCtrs; ++j) {
    *kmOut << "    " << std::setw(4) << j << "\t";
    // Kept on purpose (KeptFilterCentersPrintTakesNoArgument): brackets and all coordinates,
    // whatever is asked for; KMcenters::print takes the same argument as a number of coordinates.
    kmPrintPt(ctrs[j], getDim(), true);
    *kmOut << " dist = " << std::setw(8) << dists[j] << std::endl;
  }
}
