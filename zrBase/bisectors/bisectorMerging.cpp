#include <zrBase/bisectors/internal/chainMerger.h>
#include <zrBase/bisectors/internal/domainGeometry.h>
#include <zrBase/bisectors/zr2DBisectorSet.h>
#include <zrBase/tools2d/lineSolvers.h>

using namespace bisectorInternal;

void zr2DBisectorSet::generateAdditionalBisectors(zre::side side, Chain& chain,
                                                  double maxDistance) const {
  NoRecorder recorder;
  TemplateDirections directions(templateLine_);
  directions.workOutAll();
  ChainMerger<NoRecorder> merger(directions, side, chain, recorder);
  const int count = static_cast<int>(chain.size());
  for (int i = 0; i < count; ++i) merger.tryMerge(i, maxDistance);
}

void zr2DBisectorSet::magicAdd(zre::side side, Chain& chain, zr2DBisector& bisector) const {
  NoRecorder recorder;
  ChainMerger<NoRecorder>(TemplateDirections(templateLine_), side, chain, recorder).add(bisector);
}

void zr2DBisectorSet::mergeWithLeftBisector(zre::side side, Chain& chain, int& index,
                                            zr2DBisector& bisector) const {
  if (!isIn(chain, index)) return;
  NoRecorder recorder;
  ChainMerger<NoRecorder>(TemplateDirections(templateLine_), side, chain, recorder)
      .tie(index, bisector);
}

void zr2DBisectorSet::mergeWithRightBisector(zre::side side, Chain& chain, int& index,
                                             zr2DBisector& bisector) const {
  mergeWithLeftBisector(side, chain, index, bisector);
}

void zr2DBisectorSet::removeAllConnectionsAbove(Chain& chain, int index) const {
  NoRecorder recorder;
  ChainMerger<NoRecorder>(TemplateDirections(templateLine_), zre::sideLeft, chain, recorder)
      .retireFrom(index);
}

bool zr2DBisectorSet::getIntersectionVertex(const zr2DBisector& a, const zr2DBisector& b,
                                            gdfVertex& out) const {
  return zr2DTools::getIntersect2(a.getBase(), a.getTop(), b.getBase(), b.getTop(), out,
                                  parallelTolerance);
}

bool zr2DBisectorSet::isSideOK(const zr2DBisector& bisector, const gdfVertex& place) const {
  return liesAhead(bisector, place);
}

zre::side zr2DBisectorSet::getBisectorSide(zre::side /*side*/, const Chain& chain, int index,
                                           const gdfVertex& p) const {
  // Kept on purpose (KeptBisectorSideIgnoresItsSide): the chain alone decides; the argument is
  // there for callers that hand their side on.
  NoRecorder recorder;
  return sideOfNearest(chain, index, p, recorder);
}
