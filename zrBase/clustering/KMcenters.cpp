#include <zrBase/clustering/KMcenters.h>

#include <zrBase/clustering/kmPoints.h>
#include <zrBase/clustering/kmServices.h>

KMcenters::KMcenters(int k, KMdata& p) : kCtrs(k), pts(&p), ctrs(kmAllocPts(k, p.getDim())) {}

KMcenters::KMcenters(const KMcenters& other)
    : kCtrs(other.kCtrs),
      pts(other.pts),
      ctrs(kmAllocCopyPts(other.kCtrs, other.getDim(), other.ctrs)) {}

KMcenters& KMcenters::operator=(const KMcenters& other) {
  if (this == &other) return *this;
  if (kCtrs != other.kCtrs || getDim() != other.getDim()) {
    kmDeallocPts(ctrs);
    ctrs = kmAllocPts(other.kCtrs, other.getDim());
  }
  kCtrs = other.kCtrs;
  pts = other.pts;
  kmCopyPts(kCtrs, getDim(), other.ctrs, ctrs);
  return *this;
}

KMcenters::~KMcenters() { kmDeallocPts(ctrs); }

void KMcenters::resize(int k) {
  if (k == kCtrs) return;
  kCtrs = k;
  kmDeallocPts(ctrs);
  ctrs = kmAllocPts(kCtrs, getDim());
}

void KMcenters::print(bool fancy) const {
  // Kept on purpose (KeptCentersPrintFancyAsWidth): fancy goes in as the number of coordinates, and
  // brackets are always written. Logs of searches at the highest level consist of these lines.
  kmPrintPts("Center_Points", ctrs, kCtrs, fancy, true);
}
