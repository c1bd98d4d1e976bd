#include <zrBase/tools3d/internal/nearestEnds.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zr3DTools::internal {

namespace {

/// How far a coordinate lies outside a closed range.
double gap(double low, double coordinate, double high) {
  if (coordinate < low) return low - coordinate;
  return coordinate > high ? coordinate - high : 0.0;
}

}  // namespace

void NearestEnds::add(std::size_t end, const gdfVertex& v) {
  if (v.valid()) entries_.push_back({v, end, true});
}

void NearestEnds::build() {
  if (entries_.empty()) return;
  leafOfSlot_.resize(entries_.size());
  buildNode(0, entries_.size(), none);
  for (std::size_t slot = 0; slot < entries_.size(); ++slot) {
    const std::size_t end = entries_[slot].end;
    if (end >= slotOfEnd_.size()) slotOfEnd_.resize(end + 1, none);
    slotOfEnd_[end] = slot;
  }
}

std::size_t NearestEnds::buildNode(std::size_t begin, std::size_t finish, std::size_t parent) {
  gdfVertex low = entries_[begin].v;
  gdfVertex high = low;
  for (std::size_t slot = begin; slot < finish; ++slot) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
      low[axis] = std::min(low[axis], entries_[slot].v[axis]);
      high[axis] = std::max(high[axis], entries_[slot].v[axis]);
    }
  }
  const std::size_t node = nodes_.size();
  nodes_.push_back({low, high, begin, finish, parent});
  if (finish - begin > leafSize) {
    std::size_t widest = 0;
    for (std::size_t axis = 1; axis < 3; ++axis) {
      if (high[axis] - low[axis] > high[widest] - low[widest]) widest = axis;
    }
    const std::size_t middle = begin + (finish - begin) / 2;
    const auto at = [this](std::size_t slot) {
      return entries_.begin() + static_cast<std::ptrdiff_t>(slot);
    };
    std::nth_element(at(begin), at(middle), at(finish), [widest](const Entry& a, const Entry& b) {
      return a.v[widest] < b.v[widest];
    });
    buildNode(begin, middle, node);
    const std::size_t second = buildNode(middle, finish, node);
    nodes_[node].second = second;
  } else {
    for (std::size_t slot = begin; slot < finish; ++slot) leafOfSlot_[slot] = node;
  }
  updateLowest(node);
  return node;
}

void NearestEnds::updateLowest(std::size_t node) {
  Node& n = nodes_[node];
  if (n.second != none) {
    n.lowestEnd = std::min(nodes_[node + 1].lowestEnd, nodes_[n.second].lowestEnd);
    return;
  }
  n.lowestEnd = none;
  for (std::size_t slot = n.begin; slot < n.finish; ++slot) {
    if (entries_[slot].isIn) n.lowestEnd = std::min(n.lowestEnd, entries_[slot].end);
  }
}

bool NearestEnds::contains(std::size_t end) const {
  return end < slotOfEnd_.size() && slotOfEnd_[end] != none && entries_[slotOfEnd_[end]].isIn;
}

void NearestEnds::remove(std::size_t end) {
  if (!contains(end)) return;
  const std::size_t slot = slotOfEnd_[end];
  entries_[slot].isIn = false;
  for (std::size_t node = leafOfSlot_[slot]; node != none; node = nodes_[node].parent) {
    updateLowest(node);
  }
}

NearestEnds::Hit NearestEnds::nearest(const gdfVertex& v) const {
  Hit best;
  if (!nodes_.empty() && v.valid()) search(0, v, best);
  return best;
}

/// What the best entry of a node could be.
NearestEnds::Hit NearestEnds::bound(std::size_t node, const gdfVertex& v) const {
  const Node& n = nodes_[node];
  const gdfVertex outside(gap(n.low.x(), v.x(), n.high.x()), gap(n.low.y(), v.y(), n.high.y()),
                          gap(n.low.z(), v.z(), n.high.z()));
  return {n.lowestEnd == none ? HUGE_VAL : outside.length2(), n.lowestEnd};
}

void NearestEnds::search(std::size_t node, const gdfVertex& v, Hit& best) const {
  const Node& n = nodes_[node];
  if (n.second == none) {
    for (std::size_t slot = n.begin; slot < n.finish; ++slot) {
      const Entry& entry = entries_[slot];
      if (entry.isIn) best = std::min(best, Hit{entry.v.distance2(v), entry.end});
    }
    return;
  }
  std::size_t nearer = node + 1;
  std::size_t farther = n.second;
  Hit nearerBound = bound(nearer, v);
  Hit fartherBound = bound(farther, v);
  if (fartherBound < nearerBound) {
    std::swap(nearer, farther);
    std::swap(nearerBound, fartherBound);
  }
  if (nearerBound < best) search(nearer, v, best);
  if (fartherBound < best) search(farther, v, best);
}

}  // namespace zr3DTools::internal
