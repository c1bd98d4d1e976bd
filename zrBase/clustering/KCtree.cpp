#include <zrBase/clustering/KCtree.h>

#include <zrBase/clustering/KMfilterCenters.h>
#include <zrBase/clustering/internal/kcAccess.h>
#include <zrBase/clustering/internal/kcBuild.h>
#include <zrBase/clustering/internal/kcContext.h>
#include <zrBase/clustering/internal/kcPasses.h>
#include <zrBase/clustering/internal/largePages.h>
#include <zrBase/clustering/kmPoints.h>
#include <zrBase/clustering/kmServices.h>

#include <algorithm>
#include <cstddef>
#include <new>
#include <numeric>

KCtree::KCtree(double** points, int n, int dimension, int capacity, double* boxLo, double* boxHi)
    : dim(dimension), nPts(n), maxPts(std::max(capacity, n)), pts(points) {
  if (pts == nullptr) kmError("Points must be supplied to construct tree.", KMabort);

  const std::size_t capacityOfIndices = static_cast<std::size_t>(std::max(maxPts, 0));
  pidx = new int[capacityOfIndices];
  adviseLargePages(pidx, capacityOfIndices * sizeof(int));
  std::iota(pidx, pidx + nPts, 0);

  bndLo = kmAllocPt(dim, 0.0);
  bndHi = kmAllocPt(dim, 0.0);
  if (boxLo == nullptr || boxHi == nullptr) kmEnclosingBox(pts, nPts, dim, bndLo, bndHi);
  if (boxLo != nullptr) kmCopyPt(dim, boxLo, bndLo);
  if (boxHi != nullptr) kmCopyPt(dim, boxHi, bndHi);

  kcSetPoints(dim, nPts, pts);
  const std::size_t bytes = kcBlockSize(nPts, dim);
  block_ = ::operator new(bytes);
  adviseLargePages(block_, bytes);
  const std::size_t nCuts = static_cast<std::size_t>(std::max(nPts, 1) - 1);
  cuts_ = new KCcut[nCuts];
  adviseLargePages(cuts_, nCuts * sizeof(KCcut));
  root = kcBuildNodes(pts, pidx, nPts, dim, bndLo, bndHi, block_, cuts_);
}

KCtree::~KCtree() {
  // The nodes own nothing beside what stands in their block.
  ::operator delete(block_);
  delete[] cuts_;
  kmDeallocPt(bndLo);
  kmDeallocPt(bndHi);
  delete[] pidx;
}

void KCtree::getNeighbors(KMfilterCenters& centers) {
  kcSetContext(centers, dim, nPts, pts);
  kcFilterAll({nPts, pidx, bndLo, bndHi, static_cast<const char*>(block_), cuts_});
}

void KCtree::getAssignments(KMfilterCenters& centers, int* closeCtr, double* sqDist) {
  kcSetContext(centers, dim, nPts, pts);
  kcAssignAll({nPts, pidx, bndLo, bndHi, static_cast<const char*>(block_), cuts_}, closeCtr,
              sqDist);
}
