#ifndef ZRBASE_TOOLS2D_INTERNAL_REPEATREMOVAL_H
#define ZRBASE_TOOLS2D_INTERNAL_REPEATREMOVAL_H

#include <zrBase/geometry/gdfVertex.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

/// Removal of what repeats something else, for any test of what repeats: the forms in the map plane
/// and those in space differ in nothing but this test.
namespace zr2DTools::internal {

/// Erases each entry for which repeats(entry before it, entry) holds.
template <class Entry, class Repeats>
bool eraseAdjacentRepeats(std::vector<Entry>& entries, Repeats repeats) {
  if (entries.size() < 2) return false;
  // Kept on purpose (KeptDriftingRunLeavesItsFirst): compared is the neighbour as it came in, not
  // the last entry that stays, so that a run of short steps goes whole, however long it is. The
  // neighbour is still in its place: what has moved so far lies at it or before it.
  std::size_t kept = 1;
  for (std::size_t i = 1; i < entries.size(); ++i) {
    if (!repeats(entries[i - 1], entries[i])) entries[kept++] = entries[i];
  }
  const bool changed = kept != entries.size();
  entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(kept), entries.end());
  return changed;
}

/// A vertex by its coordinate on the axis that the line extends furthest along.
struct Place {
  double coordinate;
  std::size_t index;
};

/// The vertices that can repeat another at all, ascending along the widest of the first so many
/// axes. A NaN or an infinity has a difference to nothing that lies below a tolerance.
template <std::size_t axes>
std::vector<Place> placesInOrder(const VertexLine& line) {
  std::vector<Place> places;
  places.reserve(line.size());
  std::array<double, axes> low;
  std::array<double, axes> high;
  low.fill(HUGE_VAL);
  high.fill(-HUGE_VAL);
  for (std::size_t i = 0; i < line.size(); ++i) {
    const gdfVertex& v = line[i];
    if (!std::isfinite(v.x()) || !std::isfinite(v.y())) continue;
    if (axes == 3 && !std::isfinite(v.z())) continue;
    places.push_back({v.x(), i});
    for (std::size_t axis = 0; axis < axes; ++axis) {
      low[axis] = std::min(low[axis], v[axis]);
      high[axis] = std::max(high[axis], v[axis]);
    }
  }
  std::size_t widest = 0;
  for (std::size_t axis = 1; axis < axes; ++axis) {
    if (high[axis] - low[axis] > high[widest] - low[widest]) widest = axis;
  }
  for (Place& place : places) place.coordinate = line[place.index][widest];
  std::sort(places.begin(), places.end(),
            [](const Place& a, const Place& b) { return a.coordinate < b.coordinate; });
  return places;
}

/// Flags each vertex that repeats an earlier one that is not flagged.
///
/// Rounding keeps the order of differences: those to one coordinate grow along the sorted ones. So
/// all that repeats a vertex stands next to it, and the walk to either side ends at the first that
/// is too far. What is flagged there comes later in the line, for an earlier vertex that stays
/// would have flagged this one.
/// @return the number of flags
template <std::size_t axes, class Repeats>
std::size_t flagRepeats(const VertexLine& line, double tolerance, Repeats repeats,
                        std::vector<bool>& isRepeat) {
  const std::vector<Place> places = placesInOrder<axes>(line);
  constexpr std::size_t nowhere = std::numeric_limits<std::size_t>::max();
  std::vector<std::size_t> ranks(line.size(), nowhere);
  for (std::size_t rank = 0; rank < places.size(); ++rank) ranks[places[rank].index] = rank;

  std::size_t count = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const std::size_t own = ranks[i];
    if (isRepeat[i] || own == nowhere) continue;
    const auto flag = [&](std::size_t j) {
      if (isRepeat[j] || !repeats(line[i], line[j])) return;
      isRepeat[j] = true;
      ++count;
    };
    const double coordinate = places[own].coordinate;
    for (std::size_t rank = own; rank-- > 0;) {
      if (!(coordinate - places[rank].coordinate < tolerance)) break;
      flag(places[rank].index);
    }
    for (std::size_t rank = own + 1; rank < places.size(); ++rank) {
      if (!(places[rank].coordinate - coordinate < tolerance)) break;
      flag(places[rank].index);
    }
  }
  return count;
}

/// Removes the vertices that repeat an earlier one, or the first vertex when there is one repeat.
///
/// @param repeats  holds only where each of the first so many coordinates differs by strictly less
/// than the tolerance
template <std::size_t axes, class Repeats>
bool removeRepeats(VertexLine& line, double tolerance, Repeats repeats) {
  // Nothing lies strictly within a tolerance that is not above 0.
  if (line.size() < 2 || !(tolerance > 0.0)) return false;
  std::vector<bool> isRepeat(line.size(), false);
  const std::size_t count = flagRepeats<axes>(line, tolerance, repeats, isRepeat);
  if (count == 0) return false;
  if (count == 1) {
    // Kept on purpose (KeptLoneDuplicateDropsFirstVertex): a single duplicate stays and the first
    // vertex goes, [A, B, C, B'] -> [B, C, B']. Callers count on exactly this.
    line.erase(line.begin());
    return true;
  }
  std::size_t kept = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (!isRepeat[i]) line[kept++] = line[i];
  }
  line.erase(line.begin() + static_cast<std::ptrdiff_t>(kept), line.end());
  return true;
}

}  // namespace zr2DTools::internal

#endif  // ZRBASE_TOOLS2D_INTERNAL_REPEATREMOVAL_H
