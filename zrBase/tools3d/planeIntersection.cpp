#include <zrBase/tools3d/planeIntersection.h>

#include <cstddef>

namespace zr3DTools {

namespace {

/// Calls `visit` with the number of each segment that is hit, in order, until it gives true; the
/// hit is then in `scratch`. True when a visit ended it.
template <class Visit>
bool visitPlaneHits(double d, const gdfVertex& normal, const VertexLine& line, gdfVertex& scratch,
                    double tolerance, Visit visit) {
  if (line.size() < 2) return false;
  double startOffset = normal * line[0];
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    const double endOffset = normal * line[i + 1];
    // Most segments lie on one side and end here, with one scalar product each. It is the very
    // product that planeSegmentIntersect rejects them by.
    const bool onOneSide = (d - endOffset) * (d - startOffset) > 0.0;
    startOffset = endOffset;
    if (!onOneSide && planeSegmentIntersect(d, normal, line[i], line[i + 1], scratch, tolerance) &&
        visit(i)) {
      return true;
    }
  }
  return false;
}

/// The hit nearest to a reference so far. It holds copies, so that the caller's output may be an
/// input.
class NearestHit {
 public:
  explicit NearestHit(const gdfVertex& reference) : reference_(reference) {}

  void offer(const gdfVertex& hit, std::size_t segment) {
    const double distance = hit.distance(reference_);
    if (!(distance < best_)) return;
    best_ = distance;
    hit_ = hit;
    segment_ = segment;
  }

  bool writeTo(gdfVertex& out, int& segment) const {
    if (!(best_ < gdfInternal::unset)) return false;
    out = hit_;
    segment = static_cast<int>(segment_);
    return true;
  }

 private:
  gdfVertex reference_;
  gdfVertex hit_;
  double best_ = gdfInternal::unset;
  std::size_t segment_ = 0;
};

NearestHit nearestOnLine(double d, const gdfVertex& normal, const gdfVertex& reference,
                         const VertexLine& line, double tolerance) {
  NearestHit nearest(reference);
  gdfVertex scratch;
  visitPlaneHits(d, normal, line, scratch, tolerance, [&](std::size_t i) {
    nearest.offer(scratch, i);
    return false;
  });
  return nearest;
}

}  // namespace

bool planeLineIntersect(double d, const gdfVertex& normal, const VertexLine& line, gdfVertex& out,
                        int& segment, double tolerance) {
  // Kept on purpose (KeptFirstHitPassesRejectedPlaceOn): `out` is the scratch vertex of the search,
  // so that a place rejected as not finite is left in it when nothing better follows. It works on a
  // copy because `out` may be a vertex of the line.
  gdfVertex scratch = out;
  const bool found = visitPlaneHits(d, normal, line, scratch, tolerance, [&](std::size_t i) {
    segment = static_cast<int>(i);
    return true;
  });
  out = scratch;
  return found;
}

bool planeLineIntersect(double d, const gdfVertex& normal, const VertexLine& line, gdfVertex& out,
                        double tolerance) {
  int segment = 0;
  return planeLineIntersect(d, normal, line, out, segment, tolerance);
}

bool planeLineIntersect(double d, const gdfVertex& normal, const VertexLine& line, VertexLine& out,
                        double tolerance) {
  const gdfVertex ownNormal = normal;
  if (&out == &line) {
    const VertexLine ownLine = line;
    return planeLineIntersect(d, ownNormal, ownLine, out, tolerance);
  }
  out.clear();
  gdfVertex scratch;
  visitPlaneHits(d, ownNormal, line, scratch, tolerance, [&](std::size_t) {
    // Kept on purpose (KeptHitAtVertexIsListedTwice): once for each segment that meets there.
    // Callers that pair hits up, or drop equal ones, do so themselves.
    out.push_back(scratch);
    return false;
  });
  return !out.empty();
}

bool planeLineIntersect(const gdfVertex& point, const gdfVertex& normal, const VertexLine& line,
                        gdfVertex& out, int& segment, double tolerance) {
  return planeLineIntersect(point * normal, normal, line, out, segment, tolerance);
}

bool planeLineIntersect(const gdfVertex& point, const gdfVertex& normal, const VertexLine& line,
                        gdfVertex& out, double tolerance) {
  return planeLineIntersect(point * normal, normal, line, out, tolerance);
}

bool planeLineIntersect(const gdfVertex& point, const gdfVertex& normal, const VertexLine& line,
                        VertexLine& out, double tolerance) {
  return planeLineIntersect(point * normal, normal, line, out, tolerance);
}

bool nearestPlaneLineIntersect(double d, const gdfVertex& normal, const gdfVertex& reference,
                               const VertexLine& line, gdfVertex& out, int& segment,
                               double tolerance) {
  return nearestOnLine(d, normal, reference, line, tolerance).writeTo(out, segment);
}

bool nearestPlanePolygonIntersect(double d, const gdfVertex& normal, const gdfVertex& reference,
                                  const VertexLine& polygon, gdfVertex& out, int& segment,
                                  double tolerance) {
  NearestHit nearest = nearestOnLine(d, normal, reference, polygon, tolerance);
  gdfVertex scratch;
  if (polygon.size() >= 2 &&
      planeSegmentIntersect(d, normal, polygon.back(), polygon.front(), scratch, tolerance)) {
    nearest.offer(scratch, polygon.size() - 1);
  }
  return nearest.writeTo(out, segment);
}

}  // namespace zr3DTools
