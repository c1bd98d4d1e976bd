#include <zrBase/bisectors/zrFlowPath.h>

#include <zrBase/geometry/gdfTransMatrix.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iostream>
#include <locale>
#include <sstream>

namespace {

constexpr int beforeFirst = -1;
constexpr int afterLast = -2;
constexpr int noSlipValues = -3;

void reportSegmentNotFound(double slip) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << "Problem detected during zrFlowPath::getSegment(" << slip << "), flowpath follows:";
  std::cerr << text.str() << std::endl;
}

}  // namespace

void zrFlowPath::clear() {
  flowLine_.clear();
  slipValues_.clear();
}

bool zrFlowPath::valid() const {
  return flowLine_.size() >= 2 && slipValues_.size() == flowLine_.size();
}

void zrFlowPath::setFlow(const VertexLine& flowLine, const std::vector<double>& slipValues) {
  flowLine_ = flowLine;
  slipValues_ = slipValues;
  calcNormalisedEndVectors();
}

void zrFlowPath::calcNormalisedEndVectors() {
  const std::size_t n = flowLine_.size();
  if (n < 2) return;
  startVector_ = flowLine_[0] - flowLine_[1];
  startVector_.normalise();
  endVector_ = flowLine_[n - 1] - flowLine_[n - 2];
  endVector_.normalise();
}

int zrFlowPath::getSegment(double slip) const {
  if (slipValues_.empty()) return noSlipValues;
  if (slip < slipValues_.front()) return beforeFirst;
  if (slip > slipValues_.back()) return afterLast;
  if (flowLine_.size() >= 2) {
    // Kept on purpose (KeptSegmentSearchIsBoundedByVertices): the upper limit comes from the number
    // of vertices, not of slip values, which decides the segment among equal slips. Where the lists
    // differ in size the search stops at the end of either and reports.
    std::size_t low = 0;
    std::size_t high = flowLine_.size() - 2;
    while (low <= high) {
      const std::size_t middle = low + (high - low) / 2;
      if (middle >= slipValues_.size()) break;
      if (slipValues_[middle] > slip) {
        if (middle == 0) break;
        high = middle - 1;
      } else if (middle + 1 >= slipValues_.size()) {
        break;
      } else if (slip > slipValues_[middle + 1]) {
        low = middle + 1;
      } else {
        return static_cast<int>(middle);
      }
    }
  }
  // Kept on purpose (KeptSegmentMessageIsFollowedByNothing): the line announces the path, and no
  // path is written.
  reportSegmentNotFound(slip);
  return beforeFirst;
}

gdfVertex zrFlowPath::getVertex(double slip) const {
  if (slipValues_.empty()) return {};
  const int segment = getSegment(slip);
  if (flowLine_.empty()) return {};
  // Kept on purpose (KeptLostSegmentRunsOnFromTheStart): a search that found no segment gives the
  // code of a slip before the path, and the point is laid out from the first vertex.
  if (segment == beforeFirst) return flowLine_[0] + startVector_ * (slipValues_[0] - slip);
  if (segment == afterLast) return flowLine_.back() + endVector_ * (slip - slipValues_.back());
  const auto i = static_cast<std::size_t>(segment);
  const double slip0 = slipValues_[i];
  const double slip1 = slipValues_[i + 1];
  if (slip1 - slip0 == 0.0) return flowLine_[i];
  return flowLine_[i] + (flowLine_[i + 1] - flowLine_[i]) * ((slip - slip0) / (slip1 - slip0));
}

gdfVertex zrFlowPath::getVertex(double slip, double angle) const {
  return getVertex(slip + std::tan(angle) * h_);
}

void zrFlowPath::reverse() {
  // Kept on purpose (KeptReverseNegatesNothing): only the order turns. The walks build the part
  // before the seed backwards with negative slips and turn it round with this.
  std::reverse(slipValues_.begin(), slipValues_.end());
  std::reverse(flowLine_.begin(), flowLine_.end());
}

/// Puts a vertex at the x of the point into the first rising segment that passes it. Gives its
/// position, or -1.
int zrFlowPath::insertAnchor(const gdfVertex& point, double& shift) {
  for (std::size_t i = 0; i + 1 < flowLine_.size(); ++i) {
    const gdfVertex& from = flowLine_[i];
    const gdfVertex& to = flowLine_[i + 1];
    // Kept on purpose (KeptVerticalShearNeedsRisingX): a segment that runs towards lower x is never
    // matched.
    if (!(from.x() < point.x() && point.x() < to.x())) continue;
    const double y =
        from.y() + (to.y() - from.y()) * ((point.x() - from.x()) / (to.x() - from.x()));
    shift = point.y() - y;
    // Kept on purpose (KeptAnchorTakesHeightOfVertexBefore): z is not interpolated.
    const gdfVertex anchor(point.x(), y, from.z());
    flowLine_.insert(flowLine_.begin() + static_cast<std::ptrdiff_t>(i) + 1, anchor);
    return static_cast<int>(i) + 1;
  }
  return -1;
}

bool zrFlowPath::calculateVerticalShearFlowPath(const VertexLine& line, const gdfVertex& point) {
  const gdfVertex seed = point;
  flowLine_ = line;
  int anchor = -1;
  double shift = 0.0;
  for (std::size_t i = 0; i < flowLine_.size(); ++i) {
    // Kept on purpose (KeptVerticalShearTakesLastMatch): of several vertices at the x of the point
    // the last one counts.
    if (flowLine_[i].x() == seed.x()) {
      anchor = static_cast<int>(i);
      shift = seed.y() - flowLine_[i].y();
    }
  }
  if (anchor < 0) anchor = insertAnchor(seed, shift);
  // Kept on purpose (KeptFailedVerticalShearReplacesVertices): a false comes with the new vertices
  // and the old slips.
  if (anchor < 0) return false;

  const double anchorX = flowLine_[static_cast<std::size_t>(anchor)].x();
  slipValues_.resize(flowLine_.size());
  for (std::size_t i = 0; i < flowLine_.size(); ++i) {
    slipValues_[i] = flowLine_[i].x() - anchorX;
    flowLine_[i].y() += shift;
  }
  return true;
}

void zrFlowPath::transform(const gdfTransMatrix& matrix) {
  for (gdfVertex& vertex : flowLine_) vertex *= matrix;
  calcNormalisedEndVectors();
}
