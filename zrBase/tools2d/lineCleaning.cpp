#include <zrBase/tools2d/lineCleaning.h>

#include <zrBase/tools2d/sideTests.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace zr2DTools {

namespace {

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

/// The vertices that can repeat another at all, ascending along the wider axis. A NaN or an
/// infinity has a difference to nothing that lies below a tolerance.
std::vector<Place> placesInOrder(const VertexLine& line) {
  std::vector<Place> places;
  places.reserve(line.size());
  double lowX = HUGE_VAL, highX = -HUGE_VAL, lowY = HUGE_VAL, highY = -HUGE_VAL;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const gdfVertex& v = line[i];
    if (!std::isfinite(v.x()) || !std::isfinite(v.y())) continue;
    places.push_back({v.x(), i});
    lowX = std::min(lowX, v.x());
    highX = std::max(highX, v.x());
    lowY = std::min(lowY, v.y());
    highY = std::max(highY, v.y());
  }
  if (highY - lowY > highX - lowX) {
    for (Place& place : places) place.coordinate = line[place.index].y();
  }
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
std::size_t flagRepeats(const VertexLine& line, double tolerance, std::vector<bool>& isRepeat) {
  const std::vector<Place> places = placesInOrder(line);
  constexpr std::size_t nowhere = std::numeric_limits<std::size_t>::max();
  std::vector<std::size_t> ranks(line.size(), nowhere);
  for (std::size_t rank = 0; rank < places.size(); ++rank) ranks[places[rank].index] = rank;

  std::size_t count = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const std::size_t own = ranks[i];
    if (isRepeat[i] || own == nowhere) continue;
    const auto flag = [&](std::size_t j) {
      if (isRepeat[j] || !line[i].equalXY(line[j], tolerance)) return;
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

}  // namespace

bool removeDuplicateAdjacentVertices(VertexLine& line, double tolerance) {
  return eraseAdjacentRepeats(line, [tolerance](const gdfVertex& before, const gdfVertex& v) {
    return before.equalXY(v, tolerance);
  });
}

bool removeDuplicateAdjacentVertices(const VertexLine& vertices, std::vector<int>& indices,
                                     double tolerance) {
  return eraseAdjacentRepeats(indices, [&vertices, tolerance](int before, int index) {
    return vertices[static_cast<std::size_t>(before)].equalXY(
        vertices[static_cast<std::size_t>(index)], tolerance);
  });
}

bool removeDuplicateVertices(VertexLine& line, double tolerance) {
  // Nothing lies strictly within a tolerance that is not above 0.
  if (line.size() < 2 || !(tolerance > 0.0)) return false;
  std::vector<bool> isRepeat(line.size(), false);
  const std::size_t count = flagRepeats(line, tolerance, isRepeat);
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

bool downSampleLineUsingChangeInAngle(const VertexLine& line, VertexLine& result, double percent) {
  if (&line == &result) {
    return downSampleLineUsingChangeInAngle(VertexLine(line), result, percent);
  }
  if (line.empty()) return false;
  result.push_back(line.front());
  // Kept on purpose (KeptLoneVertexCountsAsThinned): true, though one of one vertex was listed.
  if (line.size() == 1) return true;

  double reference = angle(line[0], line[1]);
  for (std::size_t i = 2; i < line.size(); ++i) {
    const double a = angle(line[i - 1], line[i]);
    // Kept on purpose (KeptMarginGrowsWithAzimuth): a share of the azimuth, not of the turn; due
    // south, which is 0, there is none. Stored percentages were chosen by what this gives.
    const double margin = std::abs(reference * percent / 100.0);
    // Kept on purpose (KeptTurnAcrossNorthIsLarge): no wrap at 360, so that a vertex at which the
    // line swings over north is listed unless the margin is as wide as the circle.
    if (a < reference - margin || a > reference + margin) {
      result.push_back(line[i - 1]);
      reference = a;
    }
  }
  result.push_back(line.back());
  // Kept on purpose (KeptThinningCountsEarlierContent): the whole list is held against the line,
  // with what it held before, so that a thinning may go unreported and none be reported as one.
  return result.size() != line.size();
}

}  // namespace zr2DTools
