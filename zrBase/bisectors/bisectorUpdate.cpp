#include <zrBase/bisectors/internal/chainMerger.h>
#include <zrBase/bisectors/internal/domainGeometry.h>
#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <utility>

using namespace bisectorInternal;

namespace bisectorInternal {

gdfVertex mergedTop(const TemplateDirections& directions, zre::side side, zr2DBisector& bisector) {
  const int l = bisector.getLeftDomain();
  const int r = bisector.getRightDomain();
  if (!isSegment(directions.line(), l) || !isSegment(directions.line(), r)) return {};
  const gdfVertex u = directions.forward(r);
  const gdfVertex w = directions.backward(l);
  const gdfVertex d = u - w;
  gdfVertex v = u + w;
  // Kept on purpose (KeptMergedDirectionHasNoSignTest): only here does the side choose the sign.
  // Where u + w is taken it stays as it comes, unlike at a root.
  if (isWideBend(u, w)) {
    v = side == zre::sideLeft ? gdfVertex(-d.y(), d.x(), d.z()) : gdfVertex(d.y(), -d.x(), d.z());
  }
  v.normalise();
  const gdfVertex top = bisector.getBase() + v;
  if (zr2DTools::internal::hasNaN(top)) return {};
  bisector.setTop(top);
  bisector.setNormal(v);
  return top;
}

}  // namespace bisectorInternal

namespace {

bool isRetired(const zr2DBisector& b) { return b.getType() == retiredType; }

gdfVertex pushedOut(const gdfVertex& base, const gdfVertex& direction, double reach) {
  // Kept on purpose (KeptExpandedTopIsFlat): the top comes down to z = 0 whatever the height of the
  // base.
  return {direction.x() * reach + base.x(), direction.y() * reach + base.y(), 0.0};
}

void moveEnds(zr2DBisector& b, const gdfVertex& by) {
  b.setBase(b.getBase() + by);
  b.setTop(b.getTop() + by);
}

void offsetChain(Chain& chain, const gdfVertex& by) {
  // Kept on purpose (KeptOffsetLeavesRealTop): the far end along the real normal does not go along.
  for (zr2DBisector& b : chain) moveEnds(b, by);
}

/// A fixed bisector and one that moves towards the next base, but not past it.
void appendUnmirroredPair(const zr2DBisector& b, const gdfVertex& nextBase, double width,
                          Chain& updated) {
  updated.push_back(b);
  gdfVertex move = nextBase - b.getBase();
  const double reach = move.length();
  move.normalise();
  move *= reach > width ? width : reach;
  zr2DBisector moving = b;
  // Kept on purpose (KeptUnmirroredMoveLeavesRealTop): base and top move and the real top stays,
  // unlike in the mirrored pair.
  moveEnds(moving, move);
  updated.push_back(std::move(moving));
}

void appendMirroredPair(const zr2DBisector& b, const gdfVertex& previousBase,
                        const gdfVertex& nextBase, double width, Chain& updated) {
  const double fromPrevious = (b.getBase() - previousBase).length();
  const gdfVertex direction = normalised(nextBase - b.getBase());
  const auto appendMoved = [&](const gdfVertex& move) {
    zr2DBisector moved = b;
    moveEnds(moved, move);
    moved.setRealTop(moved.getRealTop() + move);
    updated.push_back(std::move(moved));
  };
  if (width > fromPrevious) appendMoved(direction * (width - fromPrevious));
  if (width <= fromPrevious) updated.push_back(b);
  // Kept on purpose (KeptMirroredMoveIsNotStopped): a mirrored bisector moves by the whole width,
  // past the next base if need be.
  appendMoved(direction * width);
}

}  // namespace

gdfVertex zr2DBisectorSet::calculateNewTop(zre::side side, zr2DBisector& bisector) const {
  return mergedTop(TemplateDirections(templateLine_), side, bisector);
}

void zr2DBisectorSet::expandBisectors(zre::side side) {
  const double reach = extentReach(boundsFirst_, boundsSecond_);
  for (zr2DBisector& b : chainOf(side)) {
    if (isRetired(b) || b.getTopConnect() != -1) continue;
    b.setTop(pushedOut(b.getBase(), b.getNormalVector(), reach));
    const gdfVertex& real = b.getRealNormalisedVector();
    if (real.length() > 0.0) b.setRealTop(pushedOut(b.getBase(), real, reach));
  }
}

void zr2DBisectorSet::expandBisectors() {
  expandBisectors(zre::sideLeft);
  expandBisectors(zre::sideRight);
}

void zr2DBisectorSet::Offset(const gdfVertex& shift) {
  const gdfVertex by = shift;
  for (gdfVertex& v : templateLine_) v += by;
  workOutDirections();
  boundsFirst_ += by;
  boundsSecond_ += by;
  offsetChain(leftBisectors_, by);
  offsetChain(rightBisectors_, by);
}

void zr2DBisectorSet::UpdateFBF_Bisectors(zre::side side, double width) {
  Chain& chain = chainOf(side);
  const std::size_t m = chain.size();
  if (m <= 2) return;
  // Kept on purpose (KeptRetiredInnerOnesLeaveTheUpdate): retired bisectors between the ends leave
  // the chain; the two at the ends stay, whatever their type.
  Chain updated;
  updated.reserve(2 * m - 2);
  updated.push_back(chain.front());
  for (std::size_t i = 1; i + 1 < m; ++i) {
    const zr2DBisector& b = chain[i];
    if (isRetired(b)) continue;
    // Kept on purpose (KeptUpdateRenumbersNothing): connections and domains are copied as they
    // stand, though the records change places. Chains of roots are what this is for.
    if (b.getNormalVector() == b.getRealNormalisedVector()) {
      appendUnmirroredPair(b, chain[i + 1].getBase(), width, updated);
    } else {
      appendMirroredPair(b, chain[i - 1].getBase(), chain[i + 1].getBase(), width, updated);
    }
  }
  updated.push_back(chain.back());
  chain = std::move(updated);
}

void zr2DBisectorSet::UpdateFBF_Bisectors(double width) {
  UpdateFBF_Bisectors(zre::sideLeft, width);
  UpdateFBF_Bisectors(zre::sideRight, width);
}
