#include <zrBase/tools3d/segmentCleaning.h>

#include <zrBase/tools2d/internal/repeatRemoval.h>
#include <zrBase/tools3d/internal/freeEnds.h>

#include <cstddef>
#include <vector>

namespace zr3DTools {

namespace {

/// Flags the segments without length, and each that repeats an earlier one that is not flagged.
std::vector<bool> flagRepeatedSegments(const VertexLine& firstEnds, const VertexLine& secondEnds,
                                       double tolerance) {
  const std::size_t count = firstEnds.size();
  std::vector<bool> isFlagged(count, false);
  internal::FreeEnds segments(firstEnds, secondEnds, tolerance);
  const auto flag = [&](std::size_t i) {
    isFlagged[i] = true;
    segments.use(i);
  };
  for (std::size_t i = 0; i < count; ++i) {
    if (firstEnds[i].equal(secondEnds[i], tolerance)) flag(i);
  }
  for (std::size_t i = 0; i < count; ++i) {
    if (isFlagged[i]) continue;
    // Those before it are flagged or have been compared with it.
    segments.use(i);
    const gdfVertex& a = firstEnds[i];
    const gdfVertex& b = secondEnds[i];
    // One that repeats it has an end at both of its ends: seek at that with less around it.
    const bool isSoughtAtSecond = segments.crowdNear(b) < segments.crowdNear(a);
    segments.visitNear(isSoughtAtSecond ? b : a, [&](std::size_t j, bool) {
      if ((a.equal(firstEnds[j], tolerance) && b.equal(secondEnds[j], tolerance)) ||
          (a.equal(secondEnds[j], tolerance) && b.equal(firstEnds[j], tolerance))) {
        flag(j);
      }
      return true;
    });
  }
  return isFlagged;
}

void eraseBeforeFlags(VertexLine& ends, const std::vector<bool>& isFlagged) {
  // Kept on purpose (KeptDuplicateSegmentErasesTheEntryBefore): the flag at k erases the entry at
  // k - 1, so that of S, T, S' it is T that goes. Callers get exactly this; nothing is to be
  // shifted to what looks more natural.
  // Kept on purpose (KeptFlagOfFirstSegmentIsNotRead): there is nothing before the first entry, and
  // the last has no flag behind it and never goes.
  std::size_t kept = 0;
  for (std::size_t i = 0; i < ends.size(); ++i) {
    if (i + 1 < isFlagged.size() && isFlagged[i + 1]) continue;
    ends[kept++] = ends[i];
  }
  ends.resize(kept);
}

}  // namespace

void addSortedSegments(VertexLine& firstEnds, VertexLine& secondEnds, const gdfVertex& a,
                       const gdfVertex& b) {
  // As both may be entries of a list that grows.
  const gdfVertex v = a;
  const gdfVertex w = b;
  if (v > w) {
    firstEnds.push_back(v);
    secondEnds.push_back(w);
  } else if (v < w) {
    firstEnds.push_back(w);
    secondEnds.push_back(v);
  }
}

bool removeDuplicateAdjacentVertices(VertexLine& line, double tolerance) {
  // Kept on purpose (KeptDriftingRunInSpaceLeavesItsFirst): neighbours are compared as they came
  // in, as in the map plane, so that a run of short steps goes whole.
  return zr2DTools::internal::eraseAdjacentRepeats(
      line, [tolerance](const gdfVertex& before, const gdfVertex& v) {
        return before.equal(v, tolerance);
      });
}

bool removeDuplicateVertices(VertexLine& line, double tolerance) {
  // Kept on purpose (Kept3DLoneDuplicateDropsFirstVertex): a single duplicate stays and the first
  // vertex goes, as in the map plane.
  return zr2DTools::internal::removeRepeats<3>(
      line, tolerance, [tolerance](const gdfVertex& earlier, const gdfVertex& v) {
        return earlier.equal(v, tolerance);
      });
}

bool removeDuplicateSegments(VertexLine& firstEnds, VertexLine& secondEnds, double tolerance) {
  if (firstEnds.empty() || firstEnds.size() != secondEnds.size()) return false;
  const std::size_t before = firstEnds.size();
  const std::vector<bool> isFlagged = flagRepeatedSegments(firstEnds, secondEnds, tolerance);
  eraseBeforeFlags(firstEnds, isFlagged);
  eraseBeforeFlags(secondEnds, isFlagged);
  return firstEnds.size() != before;
}

}  // namespace zr3DTools
