// Crossing of two segments: the crossing itself is asked for, not only whether there is one.

#include "support/cases.h"
#include "support/peers.h"
#include "support/random.h"

#include <zrBase/tools2d/zr2DTools.h>

#include <boost/variant/get.hpp>

#include <utility>
#include <vector>

namespace {

struct ZrBase {
  using Segment = std::pair<gdfVertex, gdfVertex>;
  static Segment make(const gdfVertex& a, const gdfVertex& b) { return {a, b}; }
  static bool cross(const Segment& s, const Segment& t) {
    gdfVertex hit;
    if (!zr2DTools::getSegmentSegmentIntersect(s.first, s.second, t.first, t.second, hit, 0.0)) {
      return false;
    }
    benchmark::DoNotOptimize(hit);
    return true;
  }
};

struct Boost {
  using Segment = peers::BoostSegment;
  static Segment make(const gdfVertex& a, const gdfVertex& b) {
    return {peers::boostPoint(a), peers::boostPoint(b)};
  }
  static bool cross(const Segment& s, const Segment& t) {
    static std::vector<peers::BoostPoint> hits;  // keeps its memory from pair to pair
    hits.clear();
    peers::bg::intersection(s, t, hits);
    benchmark::DoNotOptimize(hits.data());
    return !hits.empty();
  }
};

struct Cgal {
  using Segment = peers::CgalSegment;
  static Segment make(const gdfVertex& a, const gdfVertex& b) {
    return {peers::cgalPoint(a), peers::cgalPoint(b)};
  }
  static bool cross(const Segment& s, const Segment& t) {
    const auto result = CGAL::intersection(s, t);
    if (!result) return false;
    const auto* hit = boost::get<peers::CgalPoint>(&*result);
    benchmark::DoNotOptimize(hit);
    benchmark::ClobberMemory();
    return hit != nullptr;
  }
};

struct CgalDecision : Cgal {
  static bool cross(const Segment& s, const Segment& t) { return CGAL::do_intersect(s, t); }
};

struct Geos {
  using Segment = ZrBase::Segment;
  static Segment make(const gdfVertex& a, const gdfVertex& b) { return {a, b}; }
  static bool cross(const Segment& s, const Segment& t) {
    double x = 0.0;
    double y = 0.0;
    const int result = GEOSSegmentIntersection_r(peers::geos(), s.first.x(), s.first.y(),
                                                 s.second.x(), s.second.y(), t.first.x(),
                                                 t.first.y(), t.second.x(), t.second.y(), &x, &y);
    benchmark::DoNotOptimize(x);
    benchmark::DoNotOptimize(y);
    return result == 1;
  }
};

struct Quad {
  gdfVertex a, b, c, d;
};

constexpr std::size_t pairCount = 4096;

bool cross(const Quad& q) {
  gdfVertex hit;
  return zr2DTools::getSegmentSegmentIntersect(q.a, q.b, q.c, q.d, hit, 0.0);
}

/// Real segments that cross: of the long traces and their copies, turned and moved at random.
std::vector<Quad> pairsOfTraces() {
  Random random;
  std::vector<Quad> quads;
  while (quads.size() < pairCount) {
    for (const traces::Trace& trace : traces::longTraces()) {
      const VertexLine& a = trace.line;
      VertexLine b = traces::turned(a, random.between(10.0, 170.0));
      const double reach = 0.1 * traces::extentOf(a).widthAndHeight();
      const double east = random.between(-reach, reach);
      const gdfVertex shift(east, random.between(-reach, reach));
      for (gdfVertex& v : b) v += shift;
      for (std::size_t i = 0; i + 1 < a.size(); ++i) {
        for (std::size_t j = 0; j + 1 < b.size(); ++j) {
          const Quad quad{a[i], a[i + 1], b[j], b[j + 1]};
          if (cross(quad)) quads.push_back(quad);
        }
      }
    }
  }
  quads.resize(pairCount);
  return quads;
}

std::vector<Quad> randomPairs() {
  Random random;
  const auto place = [&] {
    const double x = random.between(0.0, 1000.0);
    return gdfVertex(x, random.between(0.0, 1000.0));
  };
  std::vector<Quad> quads;
  while (quads.size() < pairCount) {
    const gdfVertex a = place();
    const gdfVertex b = place();
    const gdfVertex c = place();
    const Quad quad{a, b, c, place()};
    if (cross(quad)) quads.push_back(quad);
  }
  return quads;
}

template <class Contender>
void pairByPair(benchmark::State& state, const std::vector<Quad>& quads) {
  using Segment = typename Contender::Segment;
  std::vector<std::pair<Segment, Segment>> pairs;
  for (const Quad& q : quads) {
    pairs.emplace_back(Contender::make(q.a, q.b), Contender::make(q.c, q.d));
  }
  std::size_t found = 0;
  for (auto _ : state) {
    found = 0;
    for (const auto& pair : pairs) found += Contender::cross(pair.first, pair.second) ? 1 : 0;
    benchmark::DoNotOptimize(found);
  }
  cases::countOperations(state, pairs.size());
  cases::tellResult(state, found);
}

template <class Contender>
void crossingPairsOfTraces(benchmark::State& state) {
  static const std::vector<Quad> quads = pairsOfTraces();
  pairByPair<Contender>(state, quads);
}

template <class Contender>
void crossingPairsAtRandom(benchmark::State& state) {
  static const std::vector<Quad> quads = randomPairs();
  pairByPair<Contender>(state, quads);
}

template <class Contender>
std::vector<typename Contender::Segment> segmentsOf(const VertexLine& line) {
  std::vector<typename Contender::Segment> segments;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    segments.push_back(Contender::make(line[i], line[i + 1]));
  }
  return segments;
}

/// Every segment of a trace with every segment of its turned copy: most pairs lie far apart.
template <class Contender>
void doubleLoop(benchmark::State& state) {
  const VertexLine line = cases::lineOf(state);
  const auto first = segmentsOf<Contender>(line);
  const auto second = segmentsOf<Contender>(traces::turned(line, 30.0));
  std::size_t found = 0;
  for (auto _ : state) {
    found = 0;
    for (const auto& s : first) {
      for (const auto& t : second) found += Contender::cross(s, t) ? 1 : 0;
    }
    benchmark::DoNotOptimize(found);
  }
  cases::countOperations(state, first.size() * second.size());
  cases::tellResult(state, found);
}

void sizes(benchmark::internal::Benchmark* registered) { cases::tracesBySize(registered, {300}); }

BENCHMARK_TEMPLATE(crossingPairsOfTraces, ZrBase)->Name("segmentsOfTraces/zrBase");
BENCHMARK_TEMPLATE(crossingPairsOfTraces, Boost)->Name("segmentsOfTraces/Boost");
BENCHMARK_TEMPLATE(crossingPairsOfTraces, Cgal)->Name("segmentsOfTraces/CGAL");
BENCHMARK_TEMPLATE(crossingPairsOfTraces, CgalDecision)->Name("segmentsOfTraces/CGAL_doIntersect*");
BENCHMARK_TEMPLATE(crossingPairsOfTraces, Geos)->Name("segmentsOfTraces/GEOS");

BENCHMARK_TEMPLATE(crossingPairsAtRandom, ZrBase)->Name("segmentsAtRandom/zrBase");
BENCHMARK_TEMPLATE(crossingPairsAtRandom, Boost)->Name("segmentsAtRandom/Boost");
BENCHMARK_TEMPLATE(crossingPairsAtRandom, Cgal)->Name("segmentsAtRandom/CGAL");
BENCHMARK_TEMPLATE(crossingPairsAtRandom, CgalDecision)->Name("segmentsAtRandom/CGAL_doIntersect*");
BENCHMARK_TEMPLATE(crossingPairsAtRandom, Geos)->Name("segmentsAtRandom/GEOS");

BENCHMARK_TEMPLATE(doubleLoop, ZrBase)->Name("segmentsInDoubleLoop/zrBase")->Apply(sizes);
BENCHMARK_TEMPLATE(doubleLoop, Boost)->Name("segmentsInDoubleLoop/Boost")->Apply(sizes);
BENCHMARK_TEMPLATE(doubleLoop, Cgal)->Name("segmentsInDoubleLoop/CGAL")->Apply(sizes);
BENCHMARK_TEMPLATE(doubleLoop, CgalDecision)
    ->Name("segmentsInDoubleLoop/CGAL_doIntersect*")
    ->Apply(sizes);
BENCHMARK_TEMPLATE(doubleLoop, Geos)->Name("segmentsInDoubleLoop/GEOS")->Apply(sizes);

}  // namespace
