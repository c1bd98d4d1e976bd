#include <zrBase/bisectors/internal/domainGeometry.h>
#include <zrBase/bisectors/zr2DBisectorSet.h>
#include <zrBase/tools2d/zr2DTools.h>

#include <algorithm>
#include <cmath>

using namespace bisectorInternal;

namespace {

/// Appends a place and its slip to a path.
void append(zrFlowPath& path, const gdfVertex& place, double slip) {
  path.getFlowLine().push_back(place);
  path.getSlipValues().push_back(slip);
}

}  // namespace

int zr2DBisectorSet::getVertexAtHeightOnBisectorChain(zre::side side, const Chain& chain,
                                                      double height, int index,
                                                      gdfVertex& out) const {
  const double H = std::fabs(height);
  for (ClimbLimit limit(chain); isIn(chain, index) && !limit.reached();) {
    const zr2DBisector& b = at(chain, index);
    if (!isSegment(templateLine_, b.getLeftDomain())) return -1;
    const auto domain = static_cast<std::size_t>(b.getLeftDomain());
    const gdfVertex& start = templateLine_[domain];
    const gdfVertex q = acrossDomain(segmentDirections_[domain], side);
    if (topHeight(b, start, q) < H) {
      index = b.getTopConnect();
      continue;
    }
    out = placeAtHeight(b, start, q, H);
    return index;
  }
  return -1;
}

/// From the seed through the bisectors on its left to the template's start, in walking order: slips
/// descend.
void zr2DBisectorSet::walkTowardsStart(zre::side side, const gdfVertex& seed, double height,
                                       int domain, zrFlowPath& path) const {
  const Chain& chain = chainOf(side);
  gdfVertex current = seed;
  double slip = 0.0;
  std::size_t stepsLeft = templateLine_.size();
  for (int i = domain; i > 0 && stepsLeft-- > 0;) {
    gdfVertex place;
    i = getVertexAtHeightOnBisectorChain(side, chain, height, i - 1, place);
    if (i == -1) break;
    slip -= (place - current).length();
    append(path, place, slip);
    current = place;
    i = at(chain, i).getLeftDomain();
  }
  const gdfVertex extension = templateLine_[0] - templateLine_[1];
  append(path, current + extension, slip - extension.length());
}

/// From the seed through the bisectors on its right to the template's end.
void zr2DBisectorSet::walkTowardsEnd(zre::side side, const gdfVertex& seed, double height,
                                     int domain, zrFlowPath& path) const {
  const Chain& chain = chainOf(side);
  const int n = static_cast<int>(templateLine_.size());
  gdfVertex current = seed;
  double slip = 0.0;
  int stepsLeft = n;
  for (int i = domain; i < n - 2 && stepsLeft-- > 0;) {
    gdfVertex place;
    i = getVertexAtHeightOnBisectorChain(side, chain, height, i, place);
    if (i == -1) break;
    slip += (place - current).length();
    append(path, place, slip);
    current = place;
    i = at(chain, i).getRightDomain();
  }
  const gdfVertex extension = templateLine_.back() - templateLine_[templateLine_.size() - 2];
  append(path, current + extension, slip + extension.length());
}

bool zr2DBisectorSet::generateFlowPath(const gdfVertex& point, zrFlowPath& path, bool flipSide,
                                       double height) {
  const gdfVertex seed = point;
  path.clear();
  zre::side side = getSide(templateLine_, seed, tolerance_);
  const int n = static_cast<int>(templateLine_.size());
  if (n < 3) return generateFlowPathLessThan3Vertices(side, seed, path);
  gdfVertex hit;
  int domain = getDomain(side, seed, hit);
  // Kept on purpose (KeptPointOnTemplateIgnoresItsHeight): the path is the template itself,
  // whatever height is given.
  if (side == zre::sideOn) return generateFlowPathAlongInputLine(seed, path);
  // Kept on purpose (KeptFlipStartsAtDomainZero): domains 0 and 1 are never flipped, and any side
  // but right becomes right.
  if (flipSide && domain > 1) {
    domain = 0;
    side = side == zre::sideRight ? zre::sideLeft : zre::sideRight;
  }
  if (chainOf(side).empty()) return false;
  // A chain left over from a longer template may name domains that this one has not.
  const bool isOwnHeight = height == gdfInternal::unset;
  domain = std::clamp(domain, 0, isOwnHeight ? n - 2 : n - 1);
  if (isOwnHeight) {
    height = heightAboveSegment(domain, seed);
    if (side == zre::sideRight) height = -height;
  }
  // Kept on purpose (KeptHeightSignDoesNotChooseTheSide): the side is that of the point; a given
  // height of the other sign is stored as it is, and walked by its size on the side of the point.
  path.setH(height);
  path.setL(templateLine_[static_cast<std::size_t>(domain)].z());

  walkTowardsStart(side, seed, height, domain, path);
  path.reverse();
  append(path, seed, 0.0);
  walkTowardsEnd(side, seed, height, domain, path);
  removeZeroLengthSegments(path);
  path.calcNormalisedEndVectors();
  return true;
}

bool zr2DBisectorSet::generateFlowPathAlongInputLine(const gdfVertex& point, zrFlowPath& path) {
  const gdfVertex seed = point;
  path.setH(0.0);
  VertexLine& flowLine = path.getFlowLine();
  flowLine = templateLine_;
  path.getSlipValues().clear();
  if (flowLine.empty()) return false;

  auto anchor = std::find(flowLine.begin(), flowLine.end(), seed);
  if (anchor == flowLine.end()) {
    gdfVertex hit;
    const auto position = static_cast<std::size_t>(getDomain(zre::sideOn, seed, hit)) + 1;
    anchor = flowLine.insert(
        flowLine.begin() + static_cast<std::ptrdiff_t>(std::min(position, flowLine.size())), seed);
  }
  const auto zero = static_cast<std::size_t>(anchor - flowLine.begin());
  std::vector<double>& slips = path.getSlipValues();
  slips.resize(flowLine.size());
  slips[zero] = 0.0;
  for (std::size_t i = zero; i > 0; --i) {
    slips[i - 1] = slips[i] - (flowLine[i] - flowLine[i - 1]).length();
  }
  for (std::size_t i = zero + 1; i < flowLine.size(); ++i) {
    slips[i] = slips[i - 1] + (flowLine[i] - flowLine[i - 1]).length();
  }
  path.calcNormalisedEndVectors();
  return true;
}

/// Height, L and direction of the straight paths that stand in for a template without bends.
gdfVertex zr2DBisectorSet::setStraightAttributes(zre::side side, const gdfVertex& point,
                                                 zrFlowPath& path) const {
  if (templateLine_.size() < 2) {
    path.setH(0.0);
    if (templateLine_.size() == 1) path.setL(templateLine_[0].z());
    return {1.0, 0.0, 0.0};
  }
  const double height = heightAboveSegment(0, point);
  path.setH(side == zre::sideRight ? -height : height);
  path.setL(templateLine_[0].z());
  return segmentDirections_[0];
}

bool zr2DBisectorSet::generateFlowPathLessThan3Vertices(zre::side side, const gdfVertex& point,
                                                        zrFlowPath& path) const {
  const gdfVertex seed = point;
  const gdfVertex direction = setStraightAttributes(side, seed, path);
  path.getFlowLine() = {seed, seed + direction};
  path.getSlipValues() = {0.0, 1.0};
  path.calcNormalisedEndVectors();
  return true;
}

void zr2DBisectorSet::removeZeroLengthSegments(zrFlowPath& path) const {
  VertexLine& vertices = path.getFlowLine();
  std::vector<double>& slips = path.getSlipValues();
  const auto coincide = [](const gdfVertex& v, const gdfVertex& w) {
    return (v - w).length2() == 0.0;
  };
  if (std::adjacent_find(vertices.begin(), vertices.end(), coincide) == vertices.end()) return;
  std::size_t vertexCount = 0;
  std::size_t slipCount = 0;
  std::size_t i = 0;
  while (i < vertices.size()) {
    const bool repeats =
        i + 1 < vertices.size() && (vertices[i] - vertices[i + 1]).length2() == 0.0;
    vertices[vertexCount++] = vertices[i];
    // Kept on purpose (KeptRepeatKeepsItsOwnSlip): of a repeated vertex the first stays with the
    // slip of the second; and the step goes on past the pair, so that A, A, A, B becomes A, A, B.
    if (!repeats && i < slips.size()) slips[slipCount++] = slips[i];
    if (repeats && i + 1 < slips.size()) slips[slipCount++] = slips[i + 1];
    i += repeats ? 2 : 1;
  }
  for (; i < slips.size(); ++i) slips[slipCount++] = slips[i];
  vertices.resize(vertexCount);
  slips.resize(slipCount);
}
