#include <zrBase/bisectors/internal/domainGeometry.h>
#include <zrBase/bisectors/zr2DBisectorSet.h>
#include <zrBase/tools2d/internal/lineLineScan.h>
#include <zrBase/tools2d/zr2DTools.h>
#include <zrBase/tools3d/zr3DTools.h>

#include <algorithm>

using namespace bisectorInternal;

namespace {

/// A probe along one axis through a point, and where the template crosses it first from the probe's
/// start.
struct Probe {
  gdfVertex start;
  gdfVertex end;
  std::size_t axis;
  bool meetsTemplate;
  double templateAt;
};

Probe makeProbe(const VertexLine& line, const gdfVertex& start, const gdfVertex& end,
                std::size_t axis) {
  gdfVertex crossing;
  // Kept on purpose (KeptOnlyCrossingNearestToProbeStartHides): of several crossings with the
  // template only the one nearest to the probe's start hides bisectors, not the one nearest to the
  // point.
  const bool meets =
      zr2DTools::getNearestLineSegmentIntersect(line, start, end, start, crossing, 0.0);
  const gdfVertex& place = crossing;
  return {start, end, axis, meets, place[axis]};
}

/// Keeps the nearest bisector that the probes have met so far.
class NearestBisector {
 public:
  NearestBisector(const gdfVertex& p, gdfVertex& hit) : p_(p), hit_(hit) {}

  void meet(const zr2DBisector& b, int index, const Probe& probe) {
    gdfVertex crossing;
    if (!zr2DTools::getSegmentSegmentIntersect(b.getBase(), b.getTop(), probe.start, probe.end,
                                               crossing, 0.0)) {
      return;
    }
    const double distance = (p_ - crossing).length();
    if (!(distance < best_) || isBehindTemplate(crossing, probe)) return;
    pick = index;
    best_ = distance;
    hit_ = crossing;
  }

  int pick = -1;

 private:
  /// Whether the template's crossing lies strictly between the place and the point, to whichever
  /// side the place lies.
  bool isBehindTemplate(const gdfVertex& place, const Probe& probe) const {
    const double at = place[probe.axis];
    const double own = p_[probe.axis];
    const double between = probe.templateAt;
    const bool acceptedBelow = at <= own && !(probe.meetsTemplate && at < between && between < own);
    const bool acceptedAbove = at >= own && !(probe.meetsTemplate && own < between && between < at);
    return !acceptedBelow && !acceptedAbove;
  }

  const gdfVertex p_;
  gdfVertex& hit_;
  double best_ = gdfInternal::unset;
};

int domainBeside(const zr2DBisector& b, zre::side side, const gdfVertex& p) {
  const bool isRight =
      zr2DTools::getSideOfVector(b.getBase(), b.getNormalVector(), p, 0.0) == zre::sideRight;
  const bool takesLeftDomain = side == zre::sideRight ? isRight : !isRight;
  const int domain = takesLeftDomain ? b.getLeftDomain() : b.getRightDomain();
  return domain == -1 ? 0 : domain;
}

}  // namespace

zre::side zr2DBisectorSet::getSide(const gdfVertex& p) const {
  return getSide(templateLine_, p, tolerance_);
}

zre::side zr2DBisectorSet::getSide(const VertexLine& line, const gdfVertex& p, double tolerance) {
  if (std::find(line.begin(), line.end(), p) != line.end()) return zre::sideOn;
  return zr2DTools::getSideOfLine(line, p, tolerance);
}

int zr2DBisectorSet::getDomain(zre::side side, const gdfVertex& p, gdfVertex& hit) {
  const gdfVertex point = p;
  const Probe alongX = makeProbe(templateLine_, gdfVertex(boundsFirst_.x(), point.y(), 0.0),
                                 gdfVertex(boundsSecond_.x(), point.y(), 0.0), 0);
  const Probe alongY = makeProbe(templateLine_, gdfVertex(point.x(), boundsFirst_.y(), 0.0),
                                 gdfVertex(point.x(), boundsSecond_.y(), 0.0), 1);
  const Chain& chain =
      side == zre::sideOn || side == zre::sideLeft ? leftBisectors_ : rightBisectors_;
  const zr2DTools::internal::SegmentBox boxAlongX(alongX.start, alongX.end);
  const zr2DTools::internal::SegmentBox boxAlongY(alongY.start, alongY.end);
  NearestBisector nearest(point, hit);
  for (std::size_t i = 0; i < chain.size(); ++i) {
    constexpr double baseCloseness = 1e-05;
    const int index = static_cast<int>(i);
    // Kept on purpose (KeptRetiredBaseStillDecides): the base is looked at before the type, so a
    // retired bisector decides for a point on its base, though the probes pass it by.
    if (chain[i].getBase().equal(point, baseCloseness)) {
      nearest.pick = index;
      break;
    }
    if (chain[i].getType() == retiredType) continue;
    // Most bisectors lie beside both probes, which two outcodes tell without a branch.
    const gdfVertex& base = chain[i].getBase();
    const gdfVertex& top = chain[i].getTop();
    if ((boxAlongX.sidesBeyond(base) & boxAlongX.sidesBeyond(top)) == 0) {
      nearest.meet(chain[i], index, alongX);
    }
    if ((boxAlongY.sidesBeyond(base) & boxAlongY.sidesBeyond(top)) == 0) {
      nearest.meet(chain[i], index, alongY);
    }
  }
  // Kept on purpose (KeptDomainFallsBackOnLastBisector): where nothing is met the last one found
  // serves, whichever chain it was found in. Points dragged past the end of the skeleton keep their
  // domain that way.
  if (nearest.pick != -1) lastBisector_ = nearest.pick;
  const int pick = lastBisector_;
  return isIn(chain, pick) ? domainBeside(at(chain, pick), side, point) : 0;
}

double zr2DBisectorSet::heightAboveSegment(int segment, const gdfVertex& p) const {
  if (!isSegment(templateLine_, segment)) return 0.0;
  const auto k = static_cast<std::size_t>(segment);
  return zr3DTools::getPerpendicularDistance(templateLine_[k], templateLine_[k + 1], p);
}

double zr2DBisectorSet::getRootBisectorHeight(const gdfVertex& point, int index) const {
  // Kept on purpose (KeptRootHeightOnTemplateReadsRightChain): any side but left takes the right
  // chain, the template too.
  const Chain& chain = chainOf(zr2DTools::getSideOfLine(templateLine_, point, tolerance_));
  return isIn(chain, index) ? at(chain, index).getVector().length() : 0.0;
}

double zr2DBisectorSet::calculateH(const gdfVertex& point) {
  const gdfVertex p = point;
  const zre::side side = zr2DTools::getSideOfLine(templateLine_, p, tolerance_);
  if (side == zre::sideOn) return 0.0;
  gdfVertex hit;
  const double height = heightAboveSegment(getDomain(side, p, hit), p);
  return side == zre::sideRight ? -height : height;
}

bool zr2DBisectorSet::calculateHeightAndLengthOnBaseLine(const gdfVertex& point, double& height,
                                                         double& length, int& domain) {
  const gdfVertex p = point;
  const zre::side side = zr2DTools::getSideOfLine(templateLine_, p, tolerance_);
  // Kept on purpose (KeptPointOnTemplateWritesNoHeight): true comes with all three outputs
  // unwritten; callers preset them.
  if (side == zre::sideOn) return true;
  // Kept on purpose (KeptBaseLineWithoutHitMeasuresFromTheOrigin): where no probe meets a bisector
  // `hit` stays at the origin, and height and length are measured from there.
  gdfVertex hit;
  domain = getDomain(side, p, hit);
  const int n = static_cast<int>(templateLine_.size());
  if (domain < 1 || domain >= n - 1) return false;
  const auto k = static_cast<std::size_t>(domain);
  const gdfVertex& previous = templateLine_[k - 1];
  const gdfVertex& start = templateLine_[k];
  const gdfVertex& end = templateLine_[k + 1];
  // Kept on purpose (KeptBaseLineHeightIsDistanceToSegmentEnd): one vertex is given twice, so the
  // line has no direction and the height is the plain distance from the segment's end to the
  // bisector hit, without a sign.
  height = zr3DTools::getPerpendicularDistance(end, end, hit);

  constexpr double footTolerance = 0.001;
  gdfVertex across(previous.y() - start.y(), -(previous.x() - start.x()), previous.z() - start.z());
  gdfVertex foot;
  bool found = zr2DTools::getVectorSegmentIntersect(hit, across, start, end, foot, footTolerance);
  if (!found) {
    across = gdfVertex(-across.x(), -across.y(), across.z());
    found = zr2DTools::getVectorSegmentIntersect(hit, across, start, end, foot, footTolerance);
  }
  if (found) {
    length = zr2DTools::calcLength(templateLine_, 0, domain) + foot.mapDistance(start);
    return true;
  }
  // Kept on purpose (KeptNearerVertexTakesFartherLength): without a foot the vertex nearer to the
  // hit gets the length up to the other one.
  const bool nearerToEnd = (hit - start).length() > (hit - end).length();
  length = zr2DTools::calcLength(templateLine_, 0, nearerToEnd ? domain : domain + 1);
  return true;
}

bool zr2DBisectorSet::symetric(VertexLine& line) const {
  const std::size_t n = line.size();
  if (n < 3) return false;
  constexpr double angleCloseness = 1e-05;
  constexpr double nudge = 0.01;
  std::vector<double> angle(n, 0.0);
  for (std::size_t i = 1; i + 1 < n; ++i) {
    angle[i] = zr2DTools::angle(line[i + 1], line[i]) - zr2DTools::angle(line[i], line[i - 1]);
    if (angle[i] < 0.0) angle[i] += 360.0;
    if (angle[i] >= 180.0) angle[i] = 360.0 - angle[i];
  }
  const auto alike = [&](std::size_t i, std::size_t j) {
    return std::fabs(angle[i] - angle[j]) <= angleCloseness;
  };
  for (std::size_t i = 1; i + 1 < n; ++i) {
    if (alike(i - 1, i + 1) && angle[i] != 0.0) return true;
  }
  for (std::size_t u = 1; u + 2 < n; ++u) {
    if (angle[u] == 0.0 || !alike(u - 1, u + 2) || !alike(u, u + 1)) continue;
    const double y = line[u].y();
    const double before = line[u - 1].y();
    const double after = line[u + 2].y();
    // Kept on purpose (KeptSymmetricPairMovesOneVertex): only the first of the pair moves, and only
    // where it is a peak or a trough; the answer is true either way.
    if ((y < before && y < after) || (y > before && y > after)) {
      line[u].y() += nudge;
      line[u].x() += nudge;
    }
    return true;
  }
  return false;
}
