#include <zrBase/bisectors/internal/domainGeometry.h>
#include <zrBase/bisectors/zr2DBisectorSet.h>
#include <zrBase/tools2d/segmentIntersection.h>

#include <algorithm>

using namespace bisectorInternal;

namespace {

// Kept on purpose (KeptTemplateProbeReachesTenThousandUnits): a fixed number of model units,
// whatever the model's size.

/// Reach of the last probe, at the template line.
constexpr double templateProbeLength = 10000.0;

/// A walk crosses each domain once, as a rule. One that takes this many steps more than there are
/// bisectors and segments runs in a circle, which ties and damaged links can make.
constexpr std::size_t spareSteps = 5000;

/// A direction turned clockwise by an angle in degrees; only a turned one is normalised.
gdfVertex turned(const gdfVertex& direction, double angle) {
  gdfVertex v = direction;
  // Kept on purpose (KeptOnlyATurnedDirectionIsNormalised): without an angle the direction keeps
  // its length, and the probe reaches that many times as far.
  if (angle != 0.0) {
    v.rotateAroundZAxis(angle * GDF_DEGREEStoRADIANS);
    v.normalise();
  }
  return v;
}

}  // namespace

const std::vector<zr2DBisector>& zr2DBisectorSet::chainOfAngle(zre::side side, double angle) const {
  if (side == zre::sideLeft) return leftBisectors_;
  if (side == zre::sideRight) return rightBisectors_;
  // Kept on purpose (KeptAngleChoosesTheChainOfNoSide): on the template and without a side the
  // sense of turning decides; the walk through a point takes the right chain there.
  return angle < 0.0 ? leftBisectors_ : rightBisectors_;
}

void zr2DBisectorSet::straightAngularFlowPath(zre::side side, const gdfVertex& point,
                                              zrFlowPath& path) const {
  const gdfVertex direction = setStraightAttributes(side, point, path);
  path.getFlowLine() = {point - direction, point, point + direction};
  path.getSlipValues() = {-gdfInternal::unset, 0.0, gdfInternal::unset};
}

bool zr2DBisectorSet::generateAngularFlowPath(gdfVertex point, zrFlowPath& path, double probeLength,
                                              bool flipSide, double angle) {
  zre::side side = getSide(templateLine_, point, tolerance_);
  const int n = static_cast<int>(templateLine_.size());
  if (n < 3) {
    straightAngularFlowPath(side, point, path);
    return true;
  }
  gdfVertex hit;
  int domain = getDomain(side, point, hit);
  if (flipSide && domain > 1) {
    domain = 0;
    side = side == zre::sideRight ? zre::sideLeft : zre::sideRight;
  }
  // A chain left over from a longer template may name domains that this one has not.
  domain = std::clamp(domain, 0, n - 2);
  const Chain& chain = chainOfAngle(side, angle);
  const double height = heightAboveSegment(domain, point);
  path.setH(side == zre::sideRight ? -height : height);
  path.setL(templateLine_[static_cast<std::size_t>(domain)].z());

  VertexLine& flowLine = path.getFlowLine();
  std::vector<double>& slips = path.getSlipValues();
  gdfVertex current = point;
  double slip = 0.0;
  // Kept on purpose (KeptAngularPathIsAppendedTo): neither list is emptied, repeats stay and the
  // end vectors are not calculated, unlike in the other generators.
  flowLine.push_back(point);
  slips.push_back(0.0);
  // Kept on purpose (KeptAngularWalkStartsAtDomainOne): a point in domain 0 is treated as one in
  // domain 1, so its first probe runs along the second segment.
  if (domain == 0) domain = 1;
  std::size_t stepsLeft = chain.size() + templateLine_.size() + spareSteps;
  while (isSegment(templateLine_, domain) && domain < n - 2 && stepsLeft-- > 0) {
    const gdfVertex direction = segmentDirections_[static_cast<std::size_t>(domain)];
    double distance = 0.0;
    int index = -1;
    if (projectToBisectorChain(side, current, direction, domain, hit, distance, index, probeLength,
                               angle)) {
      current = hit;
    }
    if (index == -1) {
      // Kept on purpose (KeptPathOffBisectorsHasOneSlipLess): the end on the template comes without
      // a slip value and without an extension.
      offBisectors_ = 1;
      if (projectToTemplateLine(templateLine_, current, direction, domain, hit, distance, index,
                                angle)) {
        flowLine.push_back(hit);
      }
      return true;
    }
    flowLine.push_back(current);
    slip += distance;
    slips.push_back(slip);
    domain = at(chain, index).getRightDomain();
  }
  offBisectors_ = 0;
  flowLine.push_back(current + segmentDirections_.back());
  slips.push_back(gdfInternal::unset);
  return true;
}

bool zr2DBisectorSet::projectToBisectorChain(zre::side side, const gdfVertex& point,
                                             const gdfVertex& direction, int index, gdfVertex& out,
                                             double& distance, int& outIndex, double probeLength,
                                             double angle) const {
  const gdfVertex origin = point;
  const gdfVertex v = turned(direction, angle);
  distance = gdfInternal::unset;
  gdfVertex far = origin;
  if (probeLength > 0.0) {
    far.x() += v.x() * probeLength;
    far.y() += v.y() * probeLength;
  }
  const Chain& chain = chainOfAngle(side, angle);
  outIndex = -1;
  for (ClimbLimit limit(chain); isIn(chain, index) && !limit.reached();
       index = at(chain, index).getTopConnect()) {
    const zr2DBisector& b = at(chain, index);
    gdfVertex hit;
    if (!zr2DTools::getSegmentSegmentIntersect(b.getBase(), b.getTop(), origin, far, hit, 0.0)) {
      continue;
    }
    const double reach = (origin - hit).length();
    if (reach < distance) {
      distance = reach;
      outIndex = index;
      out = hit;
    }
  }
  return outIndex != -1;
}

bool zr2DBisectorSet::projectToTemplateLine(const VertexLine& line, const gdfVertex& point,
                                            const gdfVertex& direction, int index, gdfVertex& out,
                                            double& distance, int& outIndex, double angle) const {
  const gdfVertex origin = point;
  const gdfVertex v = turned(direction, angle);
  distance = gdfInternal::unset;
  const gdfVertex far(origin.x() + v.x() * templateProbeLength,
                      origin.y() + v.y() * templateProbeLength, origin.z());
  for (std::size_t k = 0; k + 1 < line.size(); ++k) {
    gdfVertex hit;
    // Kept on purpose (KeptTemplateProbeTakesFirstInLineOrder): the first segment met in line order
    // wins, not the nearest; and the index that comes back is the one given, not the segment's.
    if (zr2DTools::getSegmentSegmentIntersect(line[k], line[k + 1], origin, far, hit, 0.0)) {
      distance = (origin - hit).length();
      outIndex = index;
      out = hit;
      return true;
    }
  }
  outIndex = -1;
  return false;
}
