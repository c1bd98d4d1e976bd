#ifndef ZRBASE_TESTS_BISECTORS_SUPPORT_REFERENCESKELETON_H
#define ZRBASE_TESTS_BISECTORS_SUPPORT_REFERENCESKELETON_H

#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/tools2d/segmentIntersection.h>
#include <zrBase/tools2d/side.h>

#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

/// A second construction of the bisector chains, as plain as can be: every pass tries every
/// bisector, every measure is worked out in full, no filter, no list of what changed. It shares
/// nothing with the library but gdfVertex and the crossing of two segments, and is slow on purpose.
/// Comparisons are by ==, so each sum stands in the order that the library documents.
namespace reference {

constexpr double unset = 3.4028234663852886e+38;

/// A climb of damaged links would go on for ever: it ends here, and the skeleton says so.
constexpr int stepsOfEndlessClimb = 20000;

struct Bisector {
  gdfVertex base;
  gdfVertex top;
  gdfVertex normal;
  int type = 0;
  std::vector<int> connections;
  int topConnect = -1;
  int leftDomain = -1;
  int rightDomain = -1;
};

using Chain = std::vector<Bisector>;

inline gdfVertex unit(gdfVertex v) {
  v.normalise();
  return v;
}

inline double dot(const gdfVertex& a, const gdfVertex& b) {
  return a.x() * b.x() + a.y() * b.y() + a.z() * b.z();
}

inline double lengthOf(const gdfVertex& v) { return std::sqrt(dot(v, v)); }

inline zre::side sideOfVector(const gdfVertex& origin, const gdfVertex& v, const gdfVertex& p) {
  const gdfVertex w = unit(p - origin);
  const double s = w.y() * v.x() - v.y() * w.x() + w.z() * v.z();
  if (s > 0.0) return zre::sideLeft;
  if (s < -0.0) return zre::sideRight;
  return zre::sideOn;
}

inline bool intersectLines(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                           const gdfVertex& d, gdfVertex& out) {
  const double tolerance = 1e-09;
  const double den = (b.x() - a.x()) * (d.y() - c.y()) - (b.y() - a.y()) * (d.x() - c.x());
  if ((-tolerance < den && den < tolerance) || den == 0.0) return false;
  const double t = ((a.y() - c.y()) * (d.x() - c.x()) - (a.x() - c.x()) * (d.y() - c.y())) / den;
  out = gdfVertex((b.x() - a.x()) * t + a.x(), (b.y() - a.y()) * t + a.y(), a.z());
  return !std::isnan(out.x()) && !std::isnan(out.y()) && !std::isnan(out.z());
}

inline double perpendicularDistance(const gdfVertex& a, const gdfVertex& b, const gdfVertex& p) {
  const gdfVertex u = unit(b - a);
  const double t = dot(p - a, u);
  return lengthOf(a + u * t - p);
}

/// One side's chain over a template.
struct Skeleton {
  VertexLine line;
  zre::side side = zre::sideLeft;
  Chain chain;
  /// A climb ran in a circle: the chain is then not to be compared.
  bool endless = false;

  int lastSegment() const { return static_cast<int>(line.size()) - 2; }
  Bisector& at(int i) { return chain[static_cast<std::size_t>(i)]; }
  const Bisector& at(int i) const { return chain[static_cast<std::size_t>(i)]; }
  const gdfVertex& vertexAt(int i) const { return line[static_cast<std::size_t>(i)]; }

  bool ends(int& steps) {
    if (++steps > stepsOfEndlessClimb) endless = true;
    return endless;
  }

  void makeRoots() {
    chain.assign(line.size() - 2, Bisector());
    for (int i = 1; i <= lastSegment(); ++i) {
      const gdfVertex place = vertexAt(i);
      Bisector& b = at(i - 1);
      const gdfVertex u = unit(vertexAt(i + 1) - place);
      const gdfVertex w = unit(vertexAt(i - 1) - place);
      const gdfVertex d = u - w;
      const gdfVertex s = u + w;
      gdfVertex v = lengthOf(s) < lengthOf(d) ? gdfVertex(-d.y(), d.x(), d.z()) : s;
      v = unit(v);
      b.type = 1;
      b.base = place;
      b.connections.push_back(i);
      const double c = -u.y() * v.x() + v.y() * u.x() + v.z() * u.z();
      const bool right = side == zre::sideLeft ? c > 0.0 : c < 0.0;
      if (!right && c != 0.0) v = gdfVertex(-v.x(), -v.y(), v.z());
      b.top = place + v;
      b.normal = v;
      b.rightDomain = i;
      b.leftDomain = i - 1;
      b.topConnect = -1;
    }
  }

  void newTop(Bisector& b) const {
    const int l = b.leftDomain;
    const int r = b.rightDomain;
    if (l < 0 || r < 0) return;
    const gdfVertex u = unit(vertexAt(r + 1) - vertexAt(r));
    const gdfVertex w = unit(vertexAt(l) - vertexAt(l + 1));
    const gdfVertex d = u - w;
    const gdfVertex s = u + w;
    gdfVertex v = s;
    if (lengthOf(d) > lengthOf(s)) {
      v = side == zre::sideLeft ? gdfVertex(-d.y(), d.x(), d.z()) : gdfVertex(d.y(), -d.x(), d.z());
    }
    v = unit(v);
    const gdfVertex t = b.base + v;
    if (std::isnan(t.x()) || std::isnan(t.y()) || std::isnan(t.z())) return;
    b.top = t;
    b.normal = v;
  }

  static bool isAhead(const Bisector& b, const gdfVertex& x) {
    const double t = dot(b.top - b.base, x - b.base);
    if (t > 0.0) return true;
    if (t < 0.0) return false;
    return b.base.x() > x.x();
  }

  zre::side sideOfChain(int index, const gdfVertex& p) {
    if (index < 0) return zre::sideNone;
    double best = unset;
    int found = -1;
    int steps = 0;
    for (int i = index; i >= 0 && i < static_cast<int>(chain.size()); i = at(i).topConnect) {
      if (ends(steps)) break;
      const Bisector& b = at(i);
      if (b.type == 5) return zre::sideNone;
      const gdfVertex v = unit(b.top - b.base);
      const gdfVertex q(-v.y(), v.x(), v.z());
      double distance = 0.0;
      if (sideOfVector(b.base, q, p) == zre::sideLeft) {
        distance = lengthOf(p - b.base);
      } else if (sideOfVector(b.top, q, p) == zre::sideRight) {
        distance = lengthOf(p - b.top);
      } else {
        distance = std::fabs(dot(p - b.base, q));
      }
      if (distance < best) {
        best = distance;
        found = i;
      }
    }
    if (found < 0) return zre::sideNone;
    return sideOfVector(at(found).base, at(found).normal, p);
  }

  void removeAbove(int index) {
    int steps = 0;
    while (index != -1 && !ends(steps)) {
      Bisector& b = at(index);
      if (b.type != 1) {
        for (int q : b.connections) {
          Bisector& d = at(q);
          const gdfVertex v = unit(d.top - d.base);
          d.topConnect = -1;
          d.normal = v;
          d.top = d.base + v;
        }
        b.type = 5;
        b.connections.clear();
      }
      index = b.topConnect;
    }
  }

  /// One neighbour of a new bisector: ties or retires the first one that it overtakes.
  void overtake(int from, zre::side wrongSide, Bisector& nb) {
    int steps = 0;
    for (int j = at(from).topConnect; j != -1 && !ends(steps); j = at(j).topConnect) {
      Bisector& c = at(j);
      if (sideOfVector(nb.base, nb.top - nb.base, c.base) != wrongSide) continue;
      int next = j;
      if (perpendicularDistance(nb.base, nb.top - nb.base, c.base) < 9.999999747378752e-05) {
        nb.topConnect = j;
        nb.top = c.base;
        next = c.topConnect;
        c.rightDomain = nb.rightDomain;
        c.topConnect = -1;
        newTop(c);
      }
      removeAbove(next);
      return;
    }
  }

  void magicAdd(Bisector& nb) {
    const int m = lastSegment();
    const int l = nb.leftDomain - 1;
    if (l != -1 && sideOfChain(l, nb.base) == side) return;
    if (nb.rightDomain < m) {
      const zre::side found = sideOfChain(nb.rightDomain, nb.base);
      if (found != side && found != zre::sideOn) return;
    }
    const zre::side other = side == zre::sideLeft ? zre::sideRight : zre::sideLeft;
    if (l != -1) overtake(l, other, nb);
    if (nb.rightDomain < m) overtake(nb.rightDomain, side, nb);
    chain.push_back(nb);
    const int e = static_cast<int>(chain.size()) - 1;
    for (int q : nb.connections) {
      Bisector& below = at(q);
      below.topConnect = e;
      below.top = nb.base;
      below.normal = unit(below.top - below.base);
    }
    if (nb.topConnect != -1) at(nb.topConnect).connections.push_back(e);
  }

  void tryToMerge(int i, double maxDistance) {
    if (at(i).topConnect != -1) return;
    if (at(i).rightDomain == lastSegment() || at(i).type == 5) return;
    const Bisector b = at(i);
    int k = b.rightDomain;
    int steps = 0;
    while (at(k).topConnect != -1 && !ends(steps)) k = at(k).topConnect;
    const Bisector c = at(k);
    gdfVertex x;
    if (!intersectLines(b.base, b.top, c.base, c.top, x)) return;
    if (!isAhead(b, x) || !isAhead(c, x)) return;
    const double d1 = perpendicularDistance(vertexAt(b.leftDomain), vertexAt(b.leftDomain + 1), x);
    const double d2 =
        perpendicularDistance(vertexAt(c.rightDomain), vertexAt(c.rightDomain + 1), x);
    if (!(d1 < maxDistance) || !(d2 < maxDistance)) return;
    Bisector nb;
    nb.base = x;
    nb.connections = {i, k};
    if (b.leftDomain == c.rightDomain) {
      nb.leftDomain = c.leftDomain;
      nb.rightDomain = b.rightDomain;
    } else if (b.rightDomain == c.leftDomain) {
      nb.leftDomain = b.leftDomain;
      nb.rightDomain = c.rightDomain;
    }
    newTop(nb);
    magicAdd(nb);
  }

  void pass(double maxDistance) {
    const int count = static_cast<int>(chain.size());
    for (int i = 0; i < count && !endless; ++i) tryToMerge(i, maxDistance);
  }

  /// @return how many passes were made
  int passes(double maxDistance, int limit) {
    int made = 0;
    while (made < limit && !endless) {
      const std::size_t before = chain.size();
      pass(maxDistance);
      ++made;
      if (chain.size() == before) break;
    }
    return made;
  }

  void generate(double maxDistance) {
    makeRoots();
    passes(maxDistance, 1001);
  }

  void generateWithinBounds(const gdfVertex& first, const gdfVertex& second) {
    double leastX = unset;
    double leastY = unset;
    for (const gdfVertex& v : line) {
      if (v.x() < leastX) leastX = v.x();
      if (v.y() < leastY) leastY = v.y();
    }
    const gdfVertex shift(leastX, leastY, 0.0);
    for (gdfVertex& v : line) v += shift;
    const gdfVertex a = first + shift;
    const gdfVertex b = second + shift;
    makeRoots();
    passes(std::fabs(b.y() - a.y()) + std::fabs(a.x() - b.x()), 5001);
    const gdfVertex back(-leastX, -leastY, 0.0);
    for (gdfVertex& v : line) v += back;
    for (Bisector& c : chain) {
      c.base += back;
      c.top += back;
    }
  }
};

/// Nearest crossing of the template with a probe, measured from the probe's start.
inline bool nearestTemplateCrossing(const VertexLine& line, const gdfVertex& from,
                                    const gdfVertex& to, gdfVertex& out) {
  double best = unset;
  gdfVertex x;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    if (!zr2DTools::getSegmentSegmentIntersect(line[i], line[i + 1], from, to, x, 0.0)) continue;
    if (best > lengthOf(x - from)) {
      best = lengthOf(x - from);
      out = x;
    }
  }
  return best < unset;
}

struct DomainAnswer {
  int domain = 0;
  int lastBisector = -1;
  gdfVertex hit;
};

/// getDomain over a chain as it is read from a set, given what the query before found.
inline DomainAnswer domainOf(const Chain& chain, const VertexLine& line, const gdfVertex& first,
                             const gdfVertex& second, zre::side side, const gdfVertex& p,
                             DomainAnswer answer) {
  const gdfVertex fromH(first.x(), p.y(), 0.0), toH(second.x(), p.y(), 0.0);
  const gdfVertex fromV(p.x(), first.y(), 0.0), toV(p.x(), second.y(), 0.0);
  gdfVertex onH, onV;
  const bool hasH = nearestTemplateCrossing(line, fromH, toH, onH);
  const bool hasV = nearestTemplateCrossing(line, fromV, toV, onV);
  double best = unset;
  int pick = -1;
  for (int i = 0; i < static_cast<int>(chain.size()); ++i) {
    const Bisector& b = chain[static_cast<std::size_t>(i)];
    const gdfVertex gap = p - b.base;
    if (std::fabs(gap.x()) < 1e-05 && std::fabs(gap.y()) < 1e-05 && std::fabs(gap.z()) < 1e-05) {
      pick = i;
      break;
    }
    if (b.type == 5) continue;
    gdfVertex x;
    const auto consider = [&](double at, double own, bool has, double between) {
      const double distance = lengthOf(p - x);
      if (!(distance < best)) return;
      const bool below = at <= own && !(has && at < between && between < own);
      const bool above = at >= own && !(has && own < between && between < at);
      if (!below && !above) return;
      pick = i;
      best = distance;
      answer.hit = x;
    };
    if (zr2DTools::getSegmentSegmentIntersect(b.base, b.top, fromH, toH, x, 0.0)) {
      consider(x.x(), p.x(), hasH, onH.x());
    }
    if (zr2DTools::getSegmentSegmentIntersect(b.base, b.top, fromV, toV, x, 0.0)) {
      consider(x.y(), p.y(), hasV, onV.y());
    }
  }
  if (pick == -1) {
    pick = answer.lastBisector;
  } else {
    answer.lastBisector = pick;
  }
  answer.domain = 0;
  if (pick < 0 || pick >= static_cast<int>(chain.size())) return answer;
  const Bisector& b = chain[static_cast<std::size_t>(pick)];
  const zre::side s = sideOfVector(b.base, b.normal, p);
  const bool onRight = s == zre::sideRight;
  answer.domain = (side == zre::sideRight) == onRight ? b.leftDomain : b.rightDomain;
  if (answer.domain == -1) answer.domain = 0;
  return answer;
}

}  // namespace reference

#endif  // ZRBASE_TESTS_BISECTORS_SUPPORT_REFERENCESKELETON_H
