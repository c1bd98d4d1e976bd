#include <zrBase/tools3d/internal/freeEnds.h>

namespace zr3DTools::internal {

FreeEnds::FreeEnds(const VertexLine& firstEnds, const VertexLine& secondEnds, double tolerance)
    : firstEnds_(firstEnds),
      secondEnds_(secondEnds),
      tolerance_(tolerance),
      isUsed_(firstEnds.size(), 0) {
  // Nothing lies strictly within a tolerance that is not above 0.
  if (!(tolerance > 0.0)) return;
  // 0, one cell for all, where four tolerances overflow.
  cellsPerUnit_ = finite(1.0 / (4.0 * tolerance));
  std::size_t bucketCount = 16;
  while (bucketCount < 2 * firstEnds.size()) bucketCount *= 2;
  buckets_.resize(bucketCount);
  next_.resize(2 * firstEnds.size(), none);
  // Each goes to the front of its list: from the highest on, so that the lists ascend.
  for (std::size_t item = firstEnds.size(); item-- > 0;) {
    insert(2 * item + 1, secondEnds[item]);
    insert(2 * item, firstEnds[item]);
  }
}

void FreeEnds::insert(std::size_t end, const gdfVertex& v) {
  if (!v.valid()) return;
  Bucket& bucket = bucketOf(cellOf(v.x()), cellOf(v.y()), cellOf(v.z()));
  next_[end] = bucket.head;
  bucket.head = end;
  ++bucket.size;
}

std::size_t FreeEnds::lowest() {
  while (lowest_ < isUsed_.size() && isUsed_[lowest_]) ++lowest_;
  return lowest_ < isUsed_.size() ? lowest_ : none;
}

std::size_t FreeEnds::lowestAt(const gdfVertex& v) {
  std::size_t found = none;
  visitNear(v, [&](std::size_t item, bool isFirst) {
    if (item >= found) return false;
    if (!(isFirst ? firstEnds_ : secondEnds_)[item].equal(v, tolerance_)) return true;
    found = item;
    return false;
  });
  return found;
}

}  // namespace zr3DTools::internal
