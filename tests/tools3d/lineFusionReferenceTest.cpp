#include <zrBase/tools3d/lineFusion.h>

#include <gtest/gtest.h>

#include <zrBase/tools3d/segmentCleaning.h>

#include "support/geometryText.h"

#include <algorithm>
#include <limits>
#include <random>
#include <string>
#include <vector>

// Fusion and cleaning against plain rewritings of their rules, which scan from the lowest index
// again after each joint and insert into the middle of lists. Results have to be equal to the last
// bit.
namespace {

constexpr int rounds = 4000;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// Few distinct places, so that branches, rings, repeats and equal distances come up often; in a
/// share of the rounds any double, NaNs and infinities, or coordinates at the ends of the range.
class HeapMaker {
 public:
  explicit HeapMaker(unsigned seed) : engine_(seed) {}

  int whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }

  void chooseStyle() {
    style_ = whole(0, 11);
    reach_ = whole(1, 4);
    isFlat_ = whole(0, 1) == 0;
  }
  double tolerance() {
    constexpr double tolerances[] = {0.5,  0.5,  1.5,  1.5,  0.5,   1.0,      2.0, 0.0,
                                     -1.0, 1e-9, 1e-9, 30.0, 1e300, infinity, nan, 5e-324};
    return tolerances[whole(0, 15)];
  }
  gdfVertex place() { return {coordinate(), coordinate(), isFlat_ ? 0.0 : coordinate()}; }
  VertexLine vertices(int count) {
    VertexLine drawn;
    for (int i = 0; i < count; ++i) drawn.push_back(place());
    return drawn;
  }
  VertexLineList lines(int most) {
    VertexLineList drawn(static_cast<std::size_t>(whole(0, most)));
    for (VertexLine& l : drawn) {
      constexpr int sizes[] = {0, 1, 1, 2, 2, 2, 3, 4, 5};
      l = vertices(sizes[whole(0, 8)]);
      if (whole(0, 9) == 0 && !l.empty()) l.push_back(l.front());
    }
    return drawn;
  }

 private:
  double coordinate() {
    if (style_ == 0 && whole(0, 7) == 0) {
      constexpr double wild[] = {nan, infinity, -infinity};
      return wild[whole(0, 2)];
    }
    if (style_ == 1 && whole(0, 3) == 0) {
      constexpr double large[] = {1.7e308, -1.7e308, 1e160, 2e19, 9007199254740993.0, -1e19};
      return large[whole(0, 5)];
    }
    if (style_ == 2) return std::uniform_real_distribution<double>(-reach_, reach_)(engine_);
    if (style_ == 3) return whole(-2 * reach_, 2 * reach_) * 0.25;
    if (style_ == 4) return 1e15 + whole(-reach_, reach_);
    if (style_ == 5) return whole(-reach_, reach_) * 5e-324;
    return whole(-reach_, reach_);
  }

  std::mt19937 engine_;
  int style_ = 0;
  int reach_ = 1;
  bool isFlat_ = false;
};

std::string text(const VertexLineList& lines) {
  std::string all;
  for (const VertexLine& l : lines) all += toText(l) + "\n";
  return all;
}

bool within(const gdfVertex& v, const gdfVertex& w, double tolerance) {
  const gdfVertex d = v - w;
  return -tolerance < d.x() && d.x() < tolerance && -tolerance < d.y() && d.y() < tolerance &&
         -tolerance < d.z() && d.z() < tolerance;
}

double squaredDistance(const gdfVertex& v, const gdfVertex& w) {
  const gdfVertex d = v - w;
  return d.x() * d.x() + d.y() * d.y() + d.z() * d.z();
}

void insertAt(VertexLine& l, bool atFront, const VertexLine& other) {
  l.insert(atFront ? l.begin() : l.end(), other.begin(), other.end());
}

VertexLine reversed(VertexLine l) {
  std::reverse(l.begin(), l.end());
  return l;
}

/// Whether the segment matches the chain; joins it if so.
bool plainlyJoinSegment(VertexLine& chain, const gdfVertex& a, const gdfVertex& b, double t) {
  const gdfVertex first = chain.front();
  const gdfVertex last = chain.back();
  if (within(a, first, t)) {
    const bool takesB = squaredDistance(b, first) > squaredDistance(a, first);
    if (!within(b, first, t)) chain.insert(chain.begin(), takesB ? b : a);
    return true;
  }
  if (within(a, last, t)) {
    const bool takesB = squaredDistance(b, last) > squaredDistance(a, last);
    if (!within(b, last, t)) chain.push_back(takesB ? b : a);
    return true;
  }
  if (within(b, first, t)) {
    chain.insert(chain.begin(), a);
    return true;
  }
  if (within(b, last, t)) {
    chain.push_back(a);
    return true;
  }
  return false;
}

bool plainlyJoinLine(VertexLine& chain, const VertexLine& other, double t) {
  const gdfVertex first = chain.front();
  const gdfVertex last = chain.back();
  const gdfVertex f = other.front();
  const gdfVertex l = other.back();
  if (within(f, first, t)) {
    if (within(l, first, t)) return true;
    const double d1 = squaredDistance(f, first);
    const double d2 = squaredDistance(l, first);
    insertAt(chain, true, d2 > d1 ? reversed(other) : other);
    return true;
  }
  if (within(f, last, t)) {
    if (within(l, last, t)) return true;
    const bool forwards = squaredDistance(l, last) > squaredDistance(f, last);
    insertAt(chain, false, forwards ? other : reversed(other));
    return true;
  }
  if (within(l, first, t)) {
    insertAt(chain, true, other);
    return true;
  }
  if (within(l, last, t)) {
    insertAt(chain, false, reversed(other));
    return true;
  }
  return false;
}

/// The chains of n items, by scans that start at 0 again after each match.
template <class Begin, class Join>
void plainlyFuse(std::vector<bool> used, VertexLineList& chains, Begin begin, Join join) {
  const std::size_t n = used.size();
  for (std::size_t made = 0; made < n; ++made) {
    std::size_t k = 0;
    while (k < n && used[k]) ++k;
    if (k == n) return;
    VertexLine chain = begin(k);
    used[k] = true;
    std::size_t matches = 0;
    for (std::size_t i = 0; i < n; ++i) {
      if (used[i] || !join(chain, i)) continue;
      used[i] = true;
      if (++matches == n) break;
      i = static_cast<std::size_t>(-1);
    }
    chains.push_back(chain);
  }
}

bool plainlyFuseSegments(const VertexLine& a, const VertexLine& b, VertexLineList& chains,
                         double t) {
  if (a.empty() || a.size() != b.size()) return false;
  plainlyFuse(
      std::vector<bool>(a.size(), false), chains,
      [&](std::size_t k) {
        return VertexLine{a[k], b[k]};
      },
      [&](VertexLine& chain, std::size_t i) { return plainlyJoinSegment(chain, a[i], b[i], t); });
  return !chains.empty();
}

bool plainlyFuseLines(const VertexLineList& lines, VertexLineList& chains, double t) {
  if (lines.size() < 2) return false;
  std::vector<bool> used;
  for (const VertexLine& l : lines) used.push_back(l.empty());
  plainlyFuse(
      used, chains, [&](std::size_t k) { return lines[k]; },
      [&](VertexLine& chain, std::size_t i) { return plainlyJoinLine(chain, lines[i], t); });
  return !chains.empty();
}

/// The closest of the free lines to the ends of a line, by the order of tests that the rules tell.
struct Closest {
  double best = 3.4028234663852886e38;
  std::size_t k = 0;
  bool atFront = false;
  bool byLast = false;

  void test(const VertexLine& l, const VertexLineList& lines, std::size_t candidate, bool last) {
    const gdfVertex& v = last ? lines[candidate].back() : lines[candidate].front();
    for (bool front : {true, false}) {
      const double d = squaredDistance(v, front ? l.front() : l.back());
      if (!(d < best)) continue;
      best = d;
      k = candidate;
      atFront = front;
      byLast = last;
    }
  }
};

bool plainlyFuseLines(const VertexLineList& lines, VertexLine& l) {
  if (lines.empty()) return false;
  std::vector<bool> used(lines.size(), false);
  std::size_t start = 0;
  while (l.empty() && start + 1 < lines.size() && lines[start].empty()) ++start;
  insertAt(l, false, lines[start]);
  used[start] = true;
  if (l.empty()) return false;
  for (std::size_t pass = 1; pass < lines.size(); ++pass) {
    Closest closest;
    for (std::size_t k = 1; k < lines.size(); ++k) {
      if (lines[k].empty()) used[k] = true;
      if (used[k]) continue;
      closest.test(l, lines, k, false);
      if (lines[k].size() > 1) closest.test(l, lines, k, true);
    }
    if (closest.k == 0) continue;
    used[closest.k] = true;
    VertexLine copy = lines[closest.k];
    if (copy.size() == 1) {
      insertAt(l, closest.atFront, copy);
      continue;
    }
    if (closest.atFront) l = reversed(l);
    if (closest.byLast) copy = reversed(copy);
    insertAt(l, false, copy);
  }
  return true;
}

bool plainlyFuseSegments(const VertexLine& a, const VertexLine& b, VertexLine& l, double t) {
  VertexLineList chains;
  if (!plainlyFuseSegments(a, b, chains, t)) return false;
  if (chains.size() == 1) return true;
  return plainlyFuseLines(chains, l);
}

bool plainlyRemoveSegments(VertexLine& a, VertexLine& b, double t) {
  if (a.empty() || a.size() != b.size()) return false;
  const std::size_t n = a.size();
  std::vector<bool> flags(n + 1, false);
  for (std::size_t i = 0; i < n; ++i) flags[i] = within(a[i], b[i], t);
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = i + 1; j < n; ++j) {
      if (flags[i] || flags[j]) continue;
      flags[j] = (within(a[i], a[j], t) && within(b[i], b[j], t)) ||
                 (within(a[i], b[j], t) && within(b[i], a[j], t));
    }
  }
  for (std::size_t k = n; k > 0; --k) {
    if (!flags[k]) continue;
    a.erase(a.begin() + static_cast<std::ptrdiff_t>(k - 1));
    b.erase(b.begin() + static_cast<std::ptrdiff_t>(k - 1));
  }
  return a.size() != n;
}

bool plainlyRemoveAdjacent(VertexLine& l, double t) {
  const std::size_t n = l.size();
  std::vector<bool> flags(n, false);
  for (std::size_t i = 0; i + 1 < n; ++i) flags[i + 1] = within(l[i], l[i + 1], t);
  for (std::size_t i = n; i-- > 0;) {
    if (flags[i]) l.erase(l.begin() + static_cast<std::ptrdiff_t>(i));
  }
  return l.size() != n;
}

bool plainlyRemoveAnywhere(VertexLine& l, double t) {
  const std::size_t n = l.size();
  std::vector<bool> flags(n, false);
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = i + 1; j < n; ++j) {
      if (!flags[i] && !flags[j]) flags[j] = within(l[i], l[j], t);
    }
  }
  const auto count = std::count(flags.begin(), flags.end(), true);
  if (count == 1) l.erase(l.begin());
  if (count > 1) {
    VertexLine rest;
    for (std::size_t i = 0; i < n; ++i) {
      if (!flags[i]) rest.push_back(l[i]);
    }
    l = rest;
  }
  return l.size() != n;
}

/// A heap of segments, now and then with lists of different lengths.
struct Heap {
  VertexLine a;
  VertexLine b;

  explicit Heap(HeapMaker& make) {
    const int count = make.whole(0, make.whole(0, 3) == 0 ? 60 : 12);
    a = make.vertices(count);
    b = make.vertices(make.whole(0, 30) == 0 ? count + 1 : count);
    if (a.size() != b.size()) return;
    for (std::size_t i = 1; i < a.size(); ++i) {
      if (make.whole(0, 7) != 0) continue;
      const auto other = static_cast<std::size_t>(make.whole(0, static_cast<int>(i) - 1));
      a[i] = b[other];
      b[i] = a[other];
    }
  }
};

TEST(FuseSegments, ChainsAreThoseOfPlainScans) {
  HeapMaker make(31);
  for (int round = 0; round < rounds; ++round) {
    make.chooseStyle();
    const Heap heap(make);
    const double tolerance = make.tolerance();
    VertexLineList got(make.whole(0, 1), line("7 7"));
    VertexLineList expected = got;
    const bool expectedResult = plainlyFuseSegments(heap.a, heap.b, expected, tolerance);
    ASSERT_EQ(zr3DTools::fuseSegments(heap.a, heap.b, got, tolerance), expectedResult);
    ASSERT_EQ(text(got), text(expected)) << toText(heap.a) << toText(heap.b) << tolerance;
  }
}

TEST(FuseSegments, LineIsThatOfPlainScans) {
  HeapMaker make(32);
  for (int round = 0; round < rounds; ++round) {
    make.chooseStyle();
    const Heap heap(make);
    const double tolerance = make.tolerance();
    VertexLine got = make.vertices(make.whole(0, 2));
    VertexLine expected = got;
    const bool expectedResult = plainlyFuseSegments(heap.a, heap.b, expected, tolerance);
    ASSERT_EQ(zr3DTools::fuseSegments(heap.a, heap.b, got, tolerance), expectedResult);
    ASSERT_EQ(toText(got), toText(expected)) << toText(heap.a) << toText(heap.b) << tolerance;
  }
}

TEST(FuseLines, ChainsAreThoseOfPlainScans) {
  HeapMaker make(33);
  for (int round = 0; round < rounds; ++round) {
    make.chooseStyle();
    const VertexLineList lines = make.lines(make.whole(0, 3) == 0 ? 40 : 9);
    const double tolerance = make.tolerance();
    VertexLineList got(make.whole(0, 1), line("7 7"));
    VertexLineList expected = got;
    const bool expectedResult = plainlyFuseLines(lines, expected, tolerance);
    ASSERT_EQ(zr3DTools::fuseLines(lines, got, tolerance), expectedResult);
    ASSERT_EQ(text(got), text(expected)) << text(lines) << tolerance;
  }
}

TEST(FuseLinesByClosestEnds, LineIsThatOfPlainPasses) {
  HeapMaker make(34);
  for (int round = 0; round < rounds; ++round) {
    make.chooseStyle();
    const VertexLineList lines = make.lines(make.whole(0, 3) == 0 ? 50 : 9);
    VertexLine got = make.vertices(std::max(0, make.whole(-2, 2)));
    VertexLine expected = got;
    const bool expectedResult = plainlyFuseLines(lines, expected);
    ASSERT_EQ(zr3DTools::fuseLines(lines, got), expectedResult) << text(lines);
    ASSERT_EQ(toText(got), toText(expected)) << text(lines);
  }
}

TEST(RemoveDuplicateSegments, HeapIsThatOfPlainComparisons) {
  HeapMaker make(35);
  for (int round = 0; round < rounds; ++round) {
    make.chooseStyle();
    const Heap heap(make);
    const double tolerance = make.tolerance();
    Heap got = heap;
    Heap expected = heap;
    const bool expectedResult = plainlyRemoveSegments(expected.a, expected.b, tolerance);
    ASSERT_EQ(zr3DTools::removeDuplicateSegments(got.a, got.b, tolerance), expectedResult);
    ASSERT_EQ(toText(got.a), toText(expected.a)) << toText(heap.a) << toText(heap.b) << tolerance;
    ASSERT_EQ(toText(got.b), toText(expected.b)) << toText(heap.a) << toText(heap.b) << tolerance;
  }
}

TEST(RemoveDuplicateVertices3D, LinesAreThoseOfPlainComparisons) {
  HeapMaker make(36);
  for (int round = 0; round < rounds; ++round) {
    make.chooseStyle();
    const VertexLine before = make.vertices(make.whole(0, make.whole(0, 3) == 0 ? 60 : 9));
    const double tolerance = make.tolerance();
    VertexLine got = before;
    VertexLine expected = before;
    const bool expectedResult = plainlyRemoveAnywhere(expected, tolerance);
    ASSERT_EQ(zr3DTools::removeDuplicateVertices(got, tolerance), expectedResult);
    ASSERT_EQ(toText(got), toText(expected)) << toText(before) << tolerance;
    got = before;
    expected = before;
    const bool expectedAdjacent = plainlyRemoveAdjacent(expected, tolerance);
    ASSERT_EQ(zr3DTools::removeDuplicateAdjacentVertices(got, tolerance), expectedAdjacent);
    ASSERT_EQ(toText(got), toText(expected)) << toText(before) << tolerance;
  }
}

}  // namespace
