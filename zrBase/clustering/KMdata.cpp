#include <zrBase/clustering/KMdata.h>

#include <zrBase/clustering/KCtree.h>
#include <zrBase/clustering/kmPoints.h>
#include <zrBase/clustering/kmRandom.h>
#include <zrBase/clustering/kmServices.h>

#include <algorithm>
#include <cstddef>
#include <vector>

KMdata::KMdata(int dimension, int capacity)
    : dim(dimension),
      maxPts(capacity),
      nPts(capacity),
      pts(kmAllocPts(capacity, dimension)),
      kcTree(nullptr) {}

KMdata::~KMdata() {
  kmDeallocPts(pts);
  delete kcTree;
}

void KMdata::resize(int dimension, int n) {
  if (dimension != dim || n != nPts) {
    // Kept on purpose (KeptResizeLeavesTheCapacityFigure): maxPts goes on telling the size at
    // construction.
    dim = dimension;
    nPts = n;
    kmDeallocPts(pts);
    pts = kmAllocPts(nPts, dim);
  }
  // Kept on purpose (KeptResizeToTheSameSizeDropsTheTree): the tree goes in every case. Callers
  // call resize before they fill a set anew, whatever its size was.
  delete kcTree;
  kcTree = nullptr;
}

void KMdata::buildKcTree() {
  delete kcTree;
  kcTree = nullptr;
  kcTree = new KCtree(pts, nPts, dim, 0, nullptr, nullptr);
}

void KMdata::sampleCtr(double* sample) { kmCopyPt(dim, pts[kmRanInt(nPts)], sample); }

void KMdata::sampleCtrs(double** sample, int k, bool allowDuplicate) {
  std::vector<int> drawn;
  drawn.reserve(static_cast<std::size_t>(std::max(k, 0)));
  for (int i = 0; i < k; ++i) {
    int r = kmRanInt(nPts);
    // Kept on purpose (KeptSampledPointsMayCoincide): no index comes twice, but points that
    // coincide count as different.
    while (!allowDuplicate && std::find(drawn.begin(), drawn.end(), r) != drawn.end()) {
      r = kmRanInt(nPts);
    }
    kmCopyPt(dim, pts[r], sample[i]);
    drawn.push_back(r);
  }
}

void KMdata::print(bool fancy) const { kmPrintPts("Data_Points", pts, nPts, dim, fancy); }
