#include <zrBase/tools2d/nearestIntersection.h>

#include <zrBase/tools2d/internal/lineLineScan.h>
#include <zrBase/tools2d/segmentIntersection.h>
#include <zrBase/tools2d/vectorIntersection.h>

namespace zr2DTools {

namespace {

struct Nearest {
  static constexpr double worst = gdfInternal::unset;
  static bool isBetter(double distance, double best) { return best > distance; }
};

struct Farthest {
  static constexpr double worst = -gdfInternal::unset;
  static bool isBetter(double distance, double best) { return distance > best; }
};

/// The best hit so far. It holds copies, so that the caller's outputs may be inputs.
template <class Rule>
class BestHit {
 public:
  explicit BestHit(const gdfVertex& reference) : reference_(reference) {}

  void offer(const gdfVertex& hit, std::size_t segment) {
    // Kept on purpose (KeptNearestHitIsMeasuredInSpace): crossings are found in the plane but
    // chosen by their distance in space, so that a hit right at the reference in the map may lose
    // to one farther off at its height.
    const double distance = hit.distance(reference_);
    if (!Rule::isBetter(distance, best_)) return;
    best_ = distance;
    hit_ = hit;
    segment_ = segment;
  }

  bool writeTo(gdfVertex& out) const {
    if (!Rule::isBetter(best_, Rule::worst)) return false;
    out = hit_;
    return true;
  }

  int segment() const { return static_cast<int>(segment_); }

 private:
  gdfVertex reference_;
  gdfVertex hit_;
  double best_ = Rule::worst;
  std::size_t segment_ = 0;
};

template <class Rule>
BestHit<Rule> bestLineSegmentHit(const VertexLine& line, const gdfVertex& s, const gdfVertex& e,
                                 const gdfVertex& reference, double tolerance) {
  BestHit<Rule> best(reference);
  gdfVertex scratch;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    if (getSegmentSegmentIntersect(line[i], line[i + 1], s, e, scratch, tolerance)) {
      best.offer(scratch, i);
    }
  }
  return best;
}

template <class Rule>
bool bestLineLineHit(const VertexLine& a, const VertexLine& b, const gdfVertex& reference,
                     gdfVertex& out, double tolerance) {
  BestHit<Rule> best(reference);
  internal::visitLineLineCrossings(a, b, tolerance, [&](const gdfVertex& hit) {
    best.offer(hit, 0);
    return false;
  });
  return best.writeTo(out);
}

/// Leaves the last hit of a bivector whose distance is better than the rule's start value, which
/// never moves.
template <class Rule>
bool lastBiVectorHit(const gdfVertex& origin, const gdfVertex& direction, const VertexLine& line,
                     gdfVertex& out, double tolerance) {
  gdfVertex last = out;
  gdfVertex scratch;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    if (getBiVectorSegmentIntersect(origin, direction, line[i], line[i + 1], scratch, tolerance) &&
        Rule::isBetter(scratch.distance(origin), Rule::worst)) {
      last = scratch;
    }
  }
  out = last;
  return false;
}

}  // namespace

bool getNearestLineSegmentIntersect(const VertexLine& line, const gdfVertex& s, const gdfVertex& e,
                                    const gdfVertex& reference, gdfVertex& out, int& index,
                                    double tolerance) {
  const BestHit<Nearest> best = bestLineSegmentHit<Nearest>(line, s, e, reference, tolerance);
  if (!best.writeTo(out)) return false;
  index = best.segment();
  return true;
}

bool getNearestLineSegmentIntersect(const VertexLine& line, const gdfVertex& s, const gdfVertex& e,
                                    const gdfVertex& reference, gdfVertex& out, double tolerance) {
  return bestLineSegmentHit<Nearest>(line, s, e, reference, tolerance).writeTo(out);
}

bool getFarthestLineSegmentIntersect(const VertexLine& line, const gdfVertex& s, const gdfVertex& e,
                                     const gdfVertex& reference, gdfVertex& out, double tolerance) {
  return bestLineSegmentHit<Farthest>(line, s, e, reference, tolerance).writeTo(out);
}

bool getNearestLineLineIntersect(const VertexLine& a, const VertexLine& b,
                                 const gdfVertex& reference, gdfVertex& out, double tolerance) {
  return bestLineLineHit<Nearest>(a, b, reference, out, tolerance);
}

bool getFarthestLineLineIntersect(const VertexLine& a, const VertexLine& b,
                                  const gdfVertex& reference, gdfVertex& out, double tolerance) {
  return bestLineLineHit<Farthest>(a, b, reference, out, tolerance);
}

bool getNearestVectorLineIntersect(const gdfVertex& origin, const gdfVertex& direction,
                                   const VertexLine& line, gdfVertex& out, double tolerance) {
  BestHit<Nearest> best(origin);
  gdfVertex scratch;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    if (getVectorSegmentIntersect(origin, direction, line[i], line[i + 1], scratch, tolerance)) {
      best.offer(scratch, i);
    }
  }
  return best.writeTo(out);
}

bool getFarthestVectorLineIntersect(const gdfVertex& origin, const gdfVertex& direction,
                                    const VertexLine& line, gdfVertex& out, double tolerance) {
  BestHit<Farthest> best(origin);
  gdfVertex scratch;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    // Kept on purpose (KeptFarthestVectorHitMayLieBehind): the bivector's test, where
    // getNearestVectorLineIntersect has the vector's, so that crossings behind the origin compete.
    // The two stay different.
    if (getBiVectorSegmentIntersect(origin, direction, line[i], line[i + 1], scratch, tolerance)) {
      // Kept on purpose (KeptFarthestVectorHitMayBeScratch): from the start of a segment the
      // bivector's test reports a hit and writes none; what the scratch vertex held before competes
      // as if it were a crossing.
      best.offer(scratch, i);
    }
  }
  return best.writeTo(out);
}

bool getNearestBiVectorLineIntersect(const gdfVertex& origin, const gdfVertex& direction,
                                     const VertexLine& line, gdfVertex& out, double tolerance) {
  // Kept on purpose (KeptNearestBiVectorHitIsTheLast): no best distance is kept, so that each hit
  // replaces the one before and the result is false. Callers preset `out` and look whether it
  // changed.
  return lastBiVectorHit<Nearest>(origin, direction, line, out, tolerance);
}

bool getFarthestBiVectorLineIntersect(const gdfVertex& origin, const gdfVertex& direction,
                                      const VertexLine& line, gdfVertex& out, double tolerance) {
  // Kept on purpose (KeptFarthestBiVectorHitIsTheLast): as in getNearestBiVectorLineIntersect, and
  // false as well.
  return lastBiVectorHit<Farthest>(origin, direction, line, out, tolerance);
}

}  // namespace zr2DTools
