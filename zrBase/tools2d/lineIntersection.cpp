#include <zrBase/tools2d/lineIntersection.h>

#include <zrBase/tools2d/internal/lineLineScan.h>
#include <zrBase/tools2d/segmentIntersection.h>
#include <zrBase/tools2d/vectorIntersection.h>

#include <utility>

namespace zr2DTools {

namespace {

using Primitive = bool (*)(const gdfVertex&, const gdfVertex&, const gdfVertex&, const gdfVertex&,
                           gdfVertex&, double);

void appendCrossings(const VertexLine& line, const gdfVertex& s, const gdfVertex& e,
                     VertexLine& out, double tolerance) {
  gdfVertex hit;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    if (getSegmentSegmentIntersect(line[i], line[i + 1], s, e, hit, tolerance)) out.push_back(hit);
  }
}

/// First hit of a vector or bivector.
template <Primitive primitive>
bool firstCrossing(const gdfVertex& origin, const gdfVertex& direction, const VertexLine& line,
                   gdfVertex& out, double tolerance) {
  // Kept on purpose (KeptFirstHitShowsRejectedCandidate): the candidates go to the caller even when
  // all are rejected, and a hit that writes nothing shows the one before. Working on a copy of
  // `out` differs from working on `out` only when that is one of the inputs, which must not change
  // under the scan.
  gdfVertex candidate = out;
  bool found = false;
  for (std::size_t i = 0; i + 1 < line.size() && !found; ++i) {
    found = primitive(origin, direction, line[i], line[i + 1], candidate, tolerance);
  }
  out = candidate;
  return found;
}

/// All hits of a vector or bivector.
template <Primitive primitive>
void appendCrossings(const gdfVertex& origin, const gdfVertex& direction, const VertexLine& line,
                     VertexLine& out, double tolerance) {
  // Kept on purpose (KeptListedHitMayRepeatScratchVertex): one scratch vertex for the whole line,
  // never set back, so that a bivector from the start of a segment lists what the scratch held, a
  // rejected candidate or zeros included.
  gdfVertex scratch;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    if (primitive(origin, direction, line[i], line[i + 1], scratch, tolerance)) {
      out.push_back(scratch);
    }
  }
}

/// Clears the list and fills it by collect(list); a list that is also an input is replaced at the
/// end.
template <class Collector>
bool refill(VertexLine& out, bool outIsInput, Collector collect) {
  if (outIsInput) {
    VertexLine crossings;
    collect(crossings);
    out = std::move(crossings);
  } else {
    out.clear();
    collect(out);
  }
  return !out.empty();
}

template <Primitive primitive>
bool allCrossings(const gdfVertex& origin, const gdfVertex& direction, const VertexLine& line,
                  VertexLine& out, double tolerance) {
  // Origin and direction may be entries of the list that is cleared.
  const gdfVertex o = origin;
  const gdfVertex v = direction;
  return refill(out, &out == &line, [&](VertexLine& crossings) {
    appendCrossings<primitive>(o, v, line, crossings, tolerance);
  });
}

}  // namespace

bool getLineSegmentIntersect(const VertexLine& line, const gdfVertex& s, const gdfVertex& e,
                             gdfVertex& out, int& index, double tolerance) {
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    if (getSegmentSegmentIntersect(line[i], line[i + 1], s, e, out, tolerance)) {
      index = static_cast<int>(i);
      return true;
    }
  }
  return false;
}

bool getLineSegmentIntersect(const VertexLine& line, const gdfVertex& s, const gdfVertex& e,
                             gdfVertex& out, double tolerance) {
  int index = -1;
  return getLineSegmentIntersect(line, s, e, out, index, tolerance);
}

bool getLineSegmentIntersect(const VertexLine& line, const gdfVertex& s, const gdfVertex& e,
                             VertexLine& out, double tolerance) {
  if (line.size() < 2) return false;
  // The ends of the segment may be entries of the list that grows.
  const gdfVertex start = s;
  const gdfVertex end = e;
  if (&line == &out) {
    appendCrossings(VertexLine(line), start, end, out, tolerance);
  } else {
    appendCrossings(line, start, end, out, tolerance);
  }
  // Kept on purpose (KeptSegmentCrossingsAreAppended): not cleared, unlike the other lists of this
  // family, and judged by what the list holds, not by what was added. Callers gather the crossings
  // of several segments in one list.
  return !out.empty();
}

bool getLineLineIntersect(const VertexLine& a, const VertexLine& b, gdfVertex& out,
                          double tolerance) {
  return internal::visitLineLineCrossings(a, b, tolerance, [&](const gdfVertex& hit) {
    out = hit;
    return true;
  });
}

bool getLineLineIntersect(const VertexLine& a, const VertexLine& b, VertexLine& out,
                          double tolerance) {
  return refill(out, &out == &a || &out == &b, [&](VertexLine& crossings) {
    internal::visitLineLineCrossings(a, b, tolerance, [&](const gdfVertex& hit) {
      crossings.push_back(hit);
      return false;
    });
  });
}

bool getVectorLineIntersect(const gdfVertex& origin, const gdfVertex& direction,
                            const VertexLine& line, gdfVertex& out, double tolerance) {
  return firstCrossing<getVectorSegmentIntersect>(origin, direction, line, out, tolerance);
}

bool getVectorLineIntersect(const gdfVertex& origin, const gdfVertex& direction,
                            const VertexLine& line, VertexLine& out, double tolerance) {
  return allCrossings<getVectorSegmentIntersect>(origin, direction, line, out, tolerance);
}

bool getBiVectorLineIntersect(const gdfVertex& origin, const gdfVertex& direction,
                              const VertexLine& line, gdfVertex& out, double tolerance) {
  return firstCrossing<getBiVectorSegmentIntersect>(origin, direction, line, out, tolerance);
}

bool getBiVectorLineIntersect(const gdfVertex& origin, const gdfVertex& direction,
                              const VertexLine& line, VertexLine& out, double tolerance) {
  return allCrossings<getBiVectorSegmentIntersect>(origin, direction, line, out, tolerance);
}

}  // namespace zr2DTools
