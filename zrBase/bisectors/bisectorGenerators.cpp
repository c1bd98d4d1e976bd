#include <zrBase/bisectors/internal/domainGeometry.h>
#include <zrBase/bisectors/internal/mergePasses.h>
#include <zrBase/bisectors/internal/templateDirections.h>
#include <zrBase/bisectors/zr2DBisectorSet.h>

using namespace bisectorInternal;

namespace {

// Kept on purpose (KeptPassLimitsBoundTheMerging): the two generators stop at different numbers of
// passes, without a word and with the chain as it stands.
constexpr int passLimitOfBothSides = 5001;
constexpr int passLimitOfOneSide = 1001;

/// What a root and an FBF root at one interior vertex have in common.
struct Bend {
  gdfVertex towardsEnd;
  gdfVertex towardsStart;
  gdfVertex bisector;
};

Bend bendAt(const TemplateDirections& directions, int vertex, zre::side side) {
  const gdfVertex u = directions.forward(vertex);
  const gdfVertex w = directions.backward(vertex - 1);
  const gdfVertex d = u - w;
  gdfVertex v = isWideBend(u, w) ? gdfVertex(-d.y(), d.x(), d.z()) : u + w;
  v.normalise();
  const double c = -u.y() * v.x() + v.y() * u.x() + v.z() * u.z();
  const bool pointsToSide = side == zre::sideLeft ? c > 0.0 : c < 0.0;
  // Kept on purpose (KeptRootFlipSparesHeight): only x and y turn round, z keeps its sign; and a c
  // of exactly 0, as on a hairpin, leaves v on whichever side it is.
  if (!pointsToSide && c != 0.0) v = gdfVertex(-v.x(), -v.y(), v.z());
  return {u, w, v};
}

void setUpRoot(zr2DBisector& root, const gdfVertex& base, int vertex, const gdfVertex& direction) {
  root.setType(rootType);
  root.setBase(base);
  root.addBaseConnection(vertex);
  root.setTop(base + direction);
  root.setNormal(direction);
  root.setRightDomain(vertex);
  root.setLeftDomain(vertex - 1);
  root.setTopConnect(-1);
}

std::size_t rootCount(const VertexLine& line) { return line.size() < 2 ? 0 : line.size() - 2; }

void putRoots(const TemplateDirections& directions, zre::side side, Chain& chain) {
  const VertexLine& line = directions.line();
  chain.clear();
  chain.reserve(9 * rootCount(line) / 4);  // what chains of real traces come to
  chain.resize(rootCount(line));
  for (std::size_t j = 0; j < chain.size(); ++j) {
    const int vertex = static_cast<int>(j) + 1;
    setUpRoot(chain[j], line[j + 1], vertex, bendAt(directions, vertex, side).bisector);
  }
}

void buildChain(const TemplateDirections& directions, zre::side side, Chain& chain,
                double maxDistance, int passLimit) {
  putRoots(directions, side, chain);
  MergePasses(chain).run(directions, side, maxDistance, passLimit);
}

}  // namespace

zr2DBisectorSet::~zr2DBisectorSet() = default;

void zr2DBisectorSet::setTemplate(const VertexLine& line) {
  templateLine_ = line;
  workOutDirections();
}

void zr2DBisectorSet::workOutDirections() {
  segmentDirections_.clear();
  segmentDirections_.reserve(templateLine_.size());
  for (int k = 0; isSegment(templateLine_, k); ++k) {
    segmentDirections_.push_back(unitVector(templateLine_, k, k + 1));
  }
}

bool zr2DBisectorSet::generateBisectors(const VertexLine& line, zre::side side,
                                        double maxDistance) {
  if (line.size() < 2) return false;
  // Kept on purpose (KeptOneSideFormLeavesLastBisector): this form touches neither the last
  // bisector nor the bounds, the other one does.
  setTemplate(line);
  if (templateLine_.size() == 2) return true;
  TemplateDirections directions(templateLine_);
  directions.workOutAll();
  buildChain(directions, side, chainOf(side), maxDistance, passLimitOfOneSide);
  return true;
}

bool zr2DBisectorSet::generateBisectors(const VertexLine& line, const gdfVertex& boundsFirst,
                                        const gdfVertex& boundsSecond) {
  if (line.size() < 2) return false;
  lastBisector_ = -1;
  setTemplate(line);
  const gdfVertex second = boundsSecond;
  boundsFirst_ = boundsFirst;
  boundsSecond_ = second;
  // Kept on purpose (KeptTwoVertexTemplateKeepsOldChains): no bisector is built, and none of an
  // earlier template goes.
  if (templateLine_.size() == 2) return true;

  double leastX = gdfInternal::unset;
  double leastY = gdfInternal::unset;
  for (const gdfVertex& v : templateLine_) {
    if (v.x() < leastX) leastX = v.x();
    if (v.y() < leastY) leastY = v.y();
  }
  // Kept on purpose (KeptShiftAddsTheMinimum): the minimum is added, not taken off, so coordinates
  // far from the origin are worked on at twice their size. The rounding of that, and of the way
  // back, is part of the result.
  const gdfVertex shift(leastX, leastY, 0.0);
  for (gdfVertex& v : templateLine_) v += shift;
  boundsFirst_ += shift;
  boundsSecond_ += shift;

  TemplateDirections directions(templateLine_);
  directions.workOutAll();
  const double maxDistance = extentReach(boundsFirst_, boundsSecond_);
  buildChain(directions, zre::sideLeft, leftBisectors_, maxDistance, passLimitOfBothSides);
  buildChain(directions, zre::sideRight, rightBisectors_, maxDistance, passLimitOfBothSides);
  Offset(gdfVertex(-leastX, -leastY, 0.0));
  return true;
}

void zr2DBisectorSet::generateRootBisectors(zre::side side, Chain& chain) const {
  putRoots(TemplateDirections(templateLine_), side, chain);
}

void zr2DBisectorSet::generateRootFBF_Bisectors(zre::side side, Chain& chain) const {
  chain.clear();
  chain.resize(rootCount(templateLine_));
  const TemplateDirections directions(templateLine_);
  for (std::size_t j = 0; j < chain.size(); ++j) {
    const int vertex = static_cast<int>(j) + 1;
    const Bend bend = bendAt(directions, vertex, side);
    gdfVertex drawn = bend.bisector;
    // Kept on purpose (KeptFbfRootIsMirroredInX): x alone turns round, and only strictly above the
    // limit, so that the drawn direction and the real one differ where the arms of the bend lead
    // upward on balance.
    if (bend.towardsEnd.y() + bend.towardsStart.y() > gdfInternal::exactnessLimit) {
      drawn.x() = -drawn.x();
    }
    setUpRoot(chain[j], templateLine_[j + 1], vertex, drawn);
    chain[j].setRealNormal(bend.bisector);
  }
}
