#include <zrBase/bisectors/internal/domainGeometry.h>
#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <cmath>

using namespace bisectorInternal;

namespace {

// Kept on purpose (KeptPathEndsAtFiveThousandVertices): a longer path is cut there without a word,
// and gets its end as if the template ended.
constexpr std::size_t mostVertices = 5000;

// Kept on purpose (KeptHeightIsMeasuredFromTheStepsVertex): the walks of this file pass the
// template vertex of their step as the origin of heights, not the start of the bisector's own left
// domain, of which only the normal is taken.

/// Walks one side of a template at a height, from its start to its end.
class HeightWalk {
 public:
  HeightWalk(const VertexLine& line, const VertexLine& directions, zre::side side,
             const Chain& chain, double height, zrFlowPath& path)
      : line_(line),
        directions_(directions),
        side_(side),
        chain_(chain),
        height_(std::fabs(height)),
        path_(path) {}

  /// Takes the vertices alone: at each step the one nearest to the last, among the bisectors of one
  /// domain.
  void nearestVertices();
  /// Takes vertices and slips: at each step the first bisector that reaches the height.
  void firstVerticesWithSlip();

 private:
  struct Step {
    int index = -1;
    gdfVertex place;
  };

  bool isInterior(int segment) const {
    return segment >= 0 && static_cast<std::size_t>(segment) + 2 < line_.size();
  }
  gdfVertex acrossLeftDomain(const zr2DBisector& b) const {
    return acrossDomain(directions_[static_cast<std::size_t>(b.getLeftDomain())], side_);
  }
  bool qualifies(const zr2DBisector& b, const gdfVertex& origin, gdfVertex& place) const;
  Step nearestStep(int segment, const gdfVertex& last) const;
  Step firstStep(int segment) const;

  const VertexLine& line_;
  const VertexLine& directions_;
  zre::side side_;
  const Chain& chain_;
  double height_;
  zrFlowPath& path_;
  bool domainsFall_ = true;  // left domains never grow on a climb, as built chains have it
};

bool HeightWalk::qualifies(const zr2DBisector& b, const gdfVertex& origin, gdfVertex& place) const {
  const gdfVertex q = acrossLeftDomain(b);
  if (!(topHeight(b, origin, q) >= height_)) return false;
  const double base = baseHeight(b, origin, q);
  if (!(0.0 <= base && base <= height_)) return false;
  // Kept on purpose (KeptUnguardedDivisionByRise): a bisector along its own domain's segment gives
  // an infinite place here, where the climb of getVertexAtHeightOnBisectorChain guards the
  // division.
  const double f = (height_ - base) / (b.getNormalVector() * q);
  place = b.getBase() + b.getNormalVector() * f;
  if (b.getTopConnect() == -1) return true;
  return b.getVector().length() > (place - b.getBase()).length();
}

HeightWalk::Step HeightWalk::nearestStep(int segment, const gdfVertex& last) const {
  const gdfVertex& origin = line_[static_cast<std::size_t>(segment)];
  Step nearest;
  int firstDomain = -1;
  double least = gdfInternal::unset;
  int index = segment;
  for (ClimbLimit limit(chain_); isIn(chain_, index) && !limit.reached();
       index = at(chain_, index).getTopConnect()) {
    const zr2DBisector& b = at(chain_, index);
    if (!isSegment(line_, b.getLeftDomain())) continue;
    if (firstDomain != -1 && b.getLeftDomain() != firstDomain) {
      if (domainsFall_) break;  // none further up has that domain again
      continue;
    }
    gdfVertex place;
    if (!qualifies(b, origin, place)) continue;
    firstDomain = b.getLeftDomain();
    if (segment == 0) return {index, place};
    const double distance = (place - last).length();
    if (distance < least) {
      least = distance;
      nearest = {index, place};
    }
  }
  return nearest;
}

void HeightWalk::nearestVertices() {
  for (const zr2DBisector& b : chain_) {
    if (isIn(chain_, b.getTopConnect()) &&
        at(chain_, b.getTopConnect()).getLeftDomain() > b.getLeftDomain()) {
      domainsFall_ = false;
      break;
    }
  }
  VertexLine& flowLine = path_.getFlowLine();
  gdfVertex last;
  bool stood = false;
  for (int segment = 0;;) {
    const Step step = nearestStep(segment, last);
    if (step.index == -1 || flowLine.size() > mostVertices) return;
    // Kept on purpose (KeptFirstPlaceAtTheOriginGoesOn): `last` starts at the origin, so a first
    // place there adds no vertex; the walk goes on all the same, where later a repeated place ends
    // it.
    if (step.place != last) {
      flowLine.push_back(step.place);
      last = step.place;
      stood = false;
    } else if (segment != 0 || stood) {
      return;
    } else {
      stood = true;
    }
    segment = at(chain_, step.index).getRightDomain();
    if (!isInterior(segment)) return;
  }
}

HeightWalk::Step HeightWalk::firstStep(int segment) const {
  const gdfVertex& origin = line_[static_cast<std::size_t>(segment)];
  int index = segment;
  for (ClimbLimit limit(chain_); isIn(chain_, index) && !limit.reached();
       index = at(chain_, index).getTopConnect()) {
    const zr2DBisector& b = at(chain_, index);
    if (!isSegment(line_, b.getLeftDomain())) break;
    const gdfVertex q = acrossLeftDomain(b);
    if (topHeight(b, origin, q) >= height_) return {index, placeAtHeight(b, origin, q, height_)};
  }
  return {};
}

void HeightWalk::firstVerticesWithSlip() {
  VertexLine& flowLine = path_.getFlowLine();
  double slip = 0.0;
  std::size_t stepsWithoutVertex = 0;
  for (int segment = 0;;) {
    const Step step = firstStep(segment);
    if (step.index == -1) return;
    const gdfVertex& p = step.place;
    if (!std::isnan(p.x()) && !std::isnan(p.y()) && !std::isnan(p.z())) {
      flowLine.push_back(p);
      stepsWithoutVertex = 0;
    } else if (++stepsWithoutVertex > line_.size()) {
      return;  // a circle of segments that gives no vertex
    }
    const std::size_t n = flowLine.size();
    // Kept on purpose (KeptSlipIsCountedWithoutAVertex): a place that is no number adds no vertex,
    // but its slip value all the same, and the last step's length once more.
    if (segment > 0 && n >= 2) slip += (flowLine[n - 1] - flowLine[n - 2]).length();
    path_.getSlipValues().push_back(slip);
    if (n > mostVertices) return;
    segment = at(chain_, step.index).getRightDomain();
    if (!isInterior(segment)) return;
  }
}

}  // namespace

bool zr2DBisectorSet::generateFlowPath(double height, zrFlowPath& path) {
  const std::size_t n = templateLine_.size();
  if (n < 3) return false;
  if (height == 0.0) return generateFlowPathAlongInputLine(templateLine_[0], path);
  const zre::side side = height > 0.0 ? zre::sideLeft : zre::sideRight;
  const Chain& chain = chainOf(side);
  if (chain.empty()) return false;

  path.setL(templateLine_[0].z());
  path.setH(height);
  VertexLine& flowLine = path.getFlowLine();
  std::vector<double>& slips = path.getSlipValues();
  flowLine.clear();
  flowLine.reserve(n);
  if (flowPathMode_ != 0) slips.reserve(n);
  flowLine.emplace_back();
  // Kept on purpose (KeptSlipsOfAnEarlierPathStay): the vertices are emptied and the slip values
  // are not; the form through a point empties both. Callers hand in an empty list.
  slips.push_back(0.0);
  HeightWalk walk(templateLine_, segmentDirections_, side, chain, height, path);
  // Kept on purpose (KeptModeZeroLeavesTwoSlips): the walk of mode 0 appends vertices alone, and
  // the path ends with the two slips of its ends. It is the mode of a set that nobody has changed;
  // for slips choose another.
  if (flowPathMode_ == 0) {
    walk.nearestVertices();
  } else {
    walk.firstVerticesWithSlip();
  }
  if (flowLine.size() < 2) {
    path.clear();
    return false;
  }
  const gdfVertex beforeStart = templateLine_[0] - templateLine_[1];
  flowLine[0] = flowLine[1] + beforeStart;
  slips[0] = -beforeStart.length();
  const gdfVertex afterEnd = templateLine_[n - 1] - templateLine_[n - 2];
  const gdfVertex beyond = flowLine.back() + afterEnd;
  flowLine.push_back(beyond);
  slips.push_back(slips.back() + afterEnd.length());
  removeZeroLengthSegments(path);
  path.calcNormalisedEndVectors();
  return true;
}
