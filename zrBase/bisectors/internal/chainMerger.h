#ifndef ZRBASE_BISECTORS_INTERNAL_CHAINMERGER_H
#define ZRBASE_BISECTORS_INTERNAL_CHAINMERGER_H

#include <zrBase/bisectors/internal/domainGeometry.h>
#include <zrBase/bisectors/internal/nearestBisector.h>
#include <zrBase/bisectors/internal/templateDirections.h>
#include <zrBase/bisectors/zr2DBisector.h>
#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/tools2d/lineSolvers.h>
#include <zrBase/tools2d/side.h>
#include <zrBase/tools3d/zr3DTools.h>

namespace bisectorInternal {

/// Determinant below which two bisectors count as parallel.
constexpr double parallelTolerance = 1e-09;
/// 1e-4 as a single-precision constant: how near a base must lie to a new bisector to be tied to
/// it.
constexpr double tieDistance = 9.999999747378752e-05;

/// zr2DBisectorSet::calculateNewTop on any template line.
gdfVertex mergedTop(const TemplateDirections& directions, zre::side side, zr2DBisector& bisector);

/// Whether a place lies ahead of a bisector's base.
inline bool liesAhead(const zr2DBisector& b, const gdfVertex& place) {
  const double t = b.getVector() * (place - b.getBase());
  if (t > 0.0) return true;
  if (t < 0.0) return false;
  // Kept on purpose (KeptSidewaysCrossingIsDecidedByX): exactly sideways (or a NaN) the x of the
  // base alone decides.
  return b.getBase().x() > place.x();
}

/// Whether a bisector may still be merged.
inline bool isOpen(const zr2DBisector& b) {
  return b.getTopConnect() == -1 && b.getType() != retiredType;
}

/// The other side; for anything but left and right a value that no side test gives.
inline zre::side oppositeOf(zre::side side) {
  if (side == zre::sideLeft) return zre::sideRight;
  return side == zre::sideRight ? zre::sideLeft : zre::sideNone;
}

/// The side itself; for anything but left and right a value that no side test gives.
inline zre::side sameAs(zre::side side) {
  return side == zre::sideLeft || side == zre::sideRight ? side : zre::sideNone;
}

/// A recorder that records nothing: for single operations on a chain.
struct NoRecorder {
  void read(int /*index*/) {}
  void written(int /*index*/) {}
};

/// The merge logic on one chain. Each record that a decision looks at is told to the recorder
/// before it is used, and each record that is changed after it: that is what lets MergePasses skip
/// tries that cannot come out differently.
template <class Recorder>
class ChainMerger {
 public:
  ChainMerger(const TemplateDirections& directions, zre::side side, Chain& chain,
              Recorder& recorder)
      : directions_(directions), side_(side), chain_(chain), recorder_(recorder) {}

  bool tryMerge(int i, double maxDistance);
  void add(zr2DBisector& bisector) {
    if (!isRefused(bisector)) insert(bisector);
  }
  void tie(int& index, zr2DBisector& bisector);
  void retireFrom(int index);

 private:
  int lastSegment() const { return directions_.lastSegment(); }
  int openEnd(int k);
  bool reaches(const zr2DBisector& left, const zr2DBisector& right, const gdfVertex& crossing,
               double maxDistance) const;
  bool isRefused(const zr2DBisector& bisector);
  void insert(zr2DBisector& bisector);
  void overtake(int root, zre::side beyond, zr2DBisector& bisector);
  void append(const zr2DBisector& bisector);
  zre::side sideOf(int root, const gdfVertex& p) {
    return sideOfNearest(chain_, root, p, recorder_);
  }
  zr2DBisector& record(int index) { return at(chain_, index); }

  const TemplateDirections& directions_;
  zre::side side_;
  Chain& chain_;
  Recorder& recorder_;
};

/// Follows the top connections to the bisector without one; -1 where there is none.
template <class Recorder>
int ChainMerger<Recorder>::openEnd(int k) {
  for (ClimbLimit limit(chain_); isIn(chain_, k) && !limit.reached();) {
    recorder_.read(k);
    const int above = record(k).getTopConnect();
    if (above == -1) return k;
    k = above;
  }
  return -1;
}

template <class Recorder>
bool ChainMerger<Recorder>::reaches(const zr2DBisector& left, const zr2DBisector& right,
                                    const gdfVertex& crossing, double maxDistance) const {
  const int before = left.getLeftDomain();
  const int after = right.getRightDomain();
  if (!isSegment(directions_.line(), before) || !isSegment(directions_.line(), after)) return false;
  return directions_.distanceFrom(before, crossing) < maxDistance &&
         directions_.distanceFrom(after, crossing) < maxDistance;
}

/// Domains of the bisector that goes on where two have met.
inline void setMergedDomains(const zr2DBisector& left, const zr2DBisector& right,
                             zr2DBisector& merged) {
  if (left.getLeftDomain() == right.getRightDomain()) {
    merged.setLeftDomain(right.getLeftDomain());
    merged.setRightDomain(left.getRightDomain());
  } else if (left.getRightDomain() == right.getLeftDomain()) {
    merged.setLeftDomain(left.getLeftDomain());
    merged.setRightDomain(right.getRightDomain());
  }
}

/// Tries bisector i against the open end of the chain on its right. Gives whether a bisector was
/// added; where none was, nothing has changed.
template <class Recorder>
bool ChainMerger<Recorder>::tryMerge(int i, double maxDistance) {
  const zr2DBisector& left = record(i);
  if (!isOpen(left) || left.getRightDomain() == lastSegment()) return false;
  const int k = openEnd(left.getRightDomain());
  if (k == -1) return false;
  const zr2DBisector& right = record(k);

  gdfVertex crossing;
  if (!zr2DTools::getIntersect2(left.getBase(), left.getTop(), right.getBase(), right.getTop(),
                                crossing, parallelTolerance)) {
    return false;
  }
  if (!liesAhead(left, crossing) || !liesAhead(right, crossing)) return false;
  if (!reaches(left, right, crossing, maxDistance)) return false;

  zr2DBisector merged;
  merged.setBase(crossing);
  merged.addBaseConnection(i);
  merged.addBaseConnection(k);
  setMergedDomains(left, right, merged);
  // The direction plays no part in the refusal, so it is worked out after that.
  if (isRefused(merged)) return false;
  mergedTop(directions_, side_, merged);
  insert(merged);
  return true;
}

template <class Recorder>
bool ChainMerger<Recorder>::isRefused(const zr2DBisector& bisector) {
  const int before = bisector.getLeftDomain() - 1;
  // Kept on purpose (KeptRefusalTreatsNoSideUnequally): without a side the left test lets the
  // bisector pass and the right one refuses it.
  if (before != -1 && sideOf(before, bisector.getBase()) == side_) return true;
  if (bisector.getRightDomain() < lastSegment()) {
    const zre::side found = sideOf(bisector.getRightDomain(), bisector.getBase());
    if (found != side_ && found != zre::sideOn) return true;
  }
  return false;
}

/// On the climb above a root, looks for the first bisector whose base lies beyond the new one: a
/// near one is tied, and what stands above it (or it itself, when not near) is retired.
template <class Recorder>
void ChainMerger<Recorder>::overtake(int root, zre::side beyond, zr2DBisector& bisector) {
  if (!isIn(chain_, root)) return;
  recorder_.read(root);
  const gdfVertex base = bisector.getBase();
  const gdfVertex vector = bisector.getVector();
  int j = record(root).getTopConnect();
  for (ClimbLimit limit(chain_); isIn(chain_, j) && !limit.reached();
       j = record(j).getTopConnect()) {
    recorder_.read(j);
    const gdfVertex place = record(j).getBase();
    if (sideOfVector(base, vector, place) != beyond) continue;
    // Kept on purpose (KeptOvertakenBisectorIsRetired): without a tie the bisector itself goes,
    // with all above it.
    int next = j;
    // Kept on purpose (KeptTieMeasuresAgainstDifferenceVector): the second point of the line is the
    // vector itself, not base + vector. It decides which near misses are tied, and with them the
    // skeleton of tight bends.
    if (zr3DTools::getPerpendicularDistance(base, vector, place) < tieDistance) tie(next, bisector);
    retireFrom(next);
    return;
  }
}

template <class Recorder>
void ChainMerger<Recorder>::insert(zr2DBisector& bisector) {
  const int before = bisector.getLeftDomain() - 1;
  if (before != -1) overtake(before, oppositeOf(side_), bisector);
  if (bisector.getRightDomain() < lastSegment()) {
    overtake(bisector.getRightDomain(), sameAs(side_), bisector);
  }
  append(bisector);
}

/// Puts the new record behind the chain and connects the bisectors that end at its base, and the
/// one it is tied to.
template <class Recorder>
void ChainMerger<Recorder>::append(const zr2DBisector& bisector) {
  const int added = static_cast<int>(chain_.size());
  chain_.push_back(bisector);
  recorder_.written(added);
  const gdfVertex meeting = record(added).getBase();
  for (int c = 0; c < record(added).getNoBaseConnections(); ++c) {
    const int below = record(added).getBaseConnection(c);
    if (!isIn(chain_, below)) continue;
    zr2DBisector& ending = record(below);
    ending.setTopConnect(added);
    ending.setTop(meeting);
    ending.calculateNormal();
    recorder_.written(below);
  }
  const int tied = record(added).getTopConnect();
  if (isIn(chain_, tied)) {
    record(tied).addBaseConnection(added);
    recorder_.written(tied);
  }
}

template <class Recorder>
void ChainMerger<Recorder>::tie(int& index, zr2DBisector& bisector) {
  const int tied = index;
  zr2DBisector& existing = record(tied);
  bisector.setTopConnect(tied);
  bisector.setTop(existing.getBase());
  index = existing.getTopConnect();
  existing.setTopConnect(-1);
  // Kept on purpose (KeptTieWritesRightDomainOnBothSides): the left and the right tie are one
  // operation, and both give the existing bisector the right domain of the new one.
  existing.setRightDomain(bisector.getRightDomain());
  mergedTop(directions_, side_, existing);
  recorder_.written(tied);
}

template <class Recorder>
void ChainMerger<Recorder>::retireFrom(int index) {
  for (ClimbLimit limit(chain_); isIn(chain_, index) && !limit.reached();) {
    zr2DBisector& b = record(index);
    if (b.getType() != rootType) {
      for (int c = 0; c < b.getNoBaseConnections(); ++c) {
        const int below = b.getBaseConnection(c);
        if (!isIn(chain_, below)) continue;
        zr2DBisector& reopened = record(below);
        const gdfVertex direction = reopened.getNormalisedVector();
        reopened.setTopConnect(-1);
        reopened.setNormal(direction);
        reopened.setTop(reopened.getBase() + direction);
        recorder_.written(below);
      }
      b.setType(retiredType);
      b.free();
    }
    recorder_.written(index);
    index = b.getTopConnect();
  }
}

}  // namespace bisectorInternal

#endif  // ZRBASE_BISECTORS_INTERNAL_CHAINMERGER_H
