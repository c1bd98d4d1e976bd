#ifndef ZRBASE_TESTS_BISECTORS_SUPPORT_REFERENCEFLOWPATH_H
#define ZRBASE_TESTS_BISECTORS_SUPPORT_REFERENCEFLOWPATH_H

#include <zrBase/bisectors/zr2DBisectorSet.h>
#include <zrBase/tools2d/zr2DTools.h>

#include <cmath>
#include <cstddef>
#include <vector>

#include "bisectors/support/referencePath.h"

/// A second way to every flow path, as plain as can be: one function per walk, nothing shared with
/// the library but vertices, side tests, crossings and the domain of a point. It reads the chains
/// of a set through its accessors. Sums stand in the documented order, so that == may compare.
namespace referenceFlow {

/// The walks over the chains of one set.
struct Walks {
  zr2DBisectorSet set;
  VertexLine T;
  Chain left;
  Chain right;
  int n = 0;
  bool endless = false;
  int offBisectors = 0;

  explicit Walks(const zr2DBisectorSet& original) : set(original), T(set.getTemplateLine()) {
    left = set.getLeftBisectors();
    right = set.getRightBisectors();
    n = static_cast<int>(T.size());
    offBisectors = set.getOffBisectors();
  }

  const gdfVertex& vertexAt(int k) const { return T[static_cast<std::size_t>(k)]; }
  const Chain& chainOf(zre::side side) const { return side == zre::sideLeft ? left : right; }
  static bool isIn(const Chain& chain, int i) {
    return i >= 0 && i < static_cast<int>(chain.size());
  }
  static const zr2DBisector& get(const Chain& chain, int i) {
    return chain[static_cast<std::size_t>(i)];
  }

  double perp(int k, const gdfVertex& p) const {
    const gdfVertex a = vertexAt(k);
    const gdfVertex u = unit(vertexAt(k + 1) - a);
    const double t = dot(p - a, u);
    return distance(a + u * t, p);
  }

  zre::side sideOf(const gdfVertex& p) const {
    for (const gdfVertex& v : T) {
      if (v.x() == p.x() && v.y() == p.y() && v.z() == p.z()) return zre::sideOn;
    }
    return zr2DTools::getSideOfLine(T, p, set.getTolerance());
  }

  int domainOf(zre::side side, const gdfVertex& p, gdfVertex& hit) {
    return set.getDomain(side, p, hit);
  }

  gdfVertex normalOf(zre::side side, int k) const {
    const gdfVertex t = unit(vertexAt(k + 1) - vertexAt(k));
    if (side == zre::sideLeft) return gdfVertex(-t.y(), t.x(), t.z());
    return gdfVertex(t.y(), -t.x(), t.z());
  }

  int climb(zre::side side, const Chain& chain, double height, int index, gdfVertex& out) {
    const double H = std::fabs(height);
    for (int steps = 0; index != -1; ++steps) {
      if (steps > mostSteps) endless = true;
      if (endless || !isIn(chain, index)) return -1;
      const zr2DBisector& b = get(chain, index);
      if (b.getLeftDomain() == -1) return -1;
      const gdfVertex T0 = vertexAt(b.getLeftDomain());
      const gdfVertex q = normalOf(side, b.getLeftDomain());
      const double top = b.getTopConnect() == -1 ? unset : dot(b.getTop() - T0, q);
      if (top < H) {
        index = b.getTopConnect();
        continue;
      }
      const double base = b.getType() == 1 ? 0.0 : dot(b.getBase() - T0, q);
      double f = H - base;
      const double denominator = dot(b.getNormalVector(), q);
      if (denominator != 0.0) f = f / denominator;
      out = b.getBase() + b.getNormalVector() * f;
      return index;
    }
    return -1;
  }

  static void flip(zre::side& side, int& domain) {
    domain = 0;
    side = side == zre::sideRight ? zre::sideLeft : zre::sideRight;
  }

  bool throughPoint(const gdfVertex& point, Path& path, bool flipSide, double height) {
    path.line.clear();
    path.slips.clear();
    zre::side side = sideOf(point);
    if (n < 3) return straight(side, point, path);
    gdfVertex scratch;
    int domain = domainOf(side, point, scratch);
    if (side == zre::sideOn) return alongTemplate(point, path);
    if (flipSide && domain > 1) flip(side, domain);
    const Chain& chain = chainOf(side);
    if (chain.empty()) return false;
    if (height == unset) {
      height = perp(domain, point);
      if (side == zre::sideRight) height = -height;
    }
    path.h = height;
    path.L = vertexAt(domain).z();
    gdfVertex cur = point;
    double acc = 0.0;
    for (int i = domain; i > 0;) {
      gdfVertex v;
      i = climb(side, chain, height, i - 1, v);
      if (i == -1) break;
      path.line.push_back(v);
      acc -= distance(v, cur);
      path.slips.push_back(acc);
      cur = v;
      i = get(chain, i).getLeftDomain();
      if (path.line.size() > mostSteps) endless = true;
      if (endless) return false;
    }
    gdfVertex e = T[0] - T[1];
    path.line.push_back(cur + e);
    path.slips.push_back(acc - e.length());
    path.turnRound();
    path.line.push_back(point);
    path.slips.push_back(0.0);
    cur = point;
    acc = 0.0;
    for (int i = domain; i < n - 2;) {
      gdfVertex v;
      i = climb(side, chain, height, i, v);
      if (i == -1) break;
      path.line.push_back(v);
      acc += distance(v, cur);
      path.slips.push_back(acc);
      cur = v;
      i = get(chain, i).getRightDomain();
      if (path.line.size() > mostSteps) endless = true;
      if (endless) return false;
    }
    e = vertexAt(n - 1) - vertexAt(n - 2);
    path.line.push_back(cur + e);
    path.slips.push_back(acc + e.length());
    path.removeRepeats();
    path.endVectors();
    return true;
  }

  bool atHeight(double height, Path& path, int mode) {
    if (n < 3) return false;
    if (height == 0.0) return alongTemplate(T[0], path);
    const zre::side side = height > 0.0 ? zre::sideLeft : zre::sideRight;
    const Chain& chain = chainOf(side);
    if (chain.empty()) return false;
    path.L = T[0].z();
    path.h = height;
    path.line.clear();
    path.line.push_back(gdfVertex(0, 0, 0));
    path.slips.push_back(0.0);
    const double H = std::fabs(height);
    int s = 0;
    gdfVertex last(0, 0, 0);
    double cum = 0.0;
    for (int steps = 0;; ++steps) {
      if (steps > mostSteps) endless = true;
      if (endless) return false;
      int i = -1;
      if (mode == 0) {
        nearestStep(side, chain, H, s, last, i, path);
      } else {
        slipStep(side, chain, H, s, cum, i, path);
      }
      if (i == -1) break;
      s = get(chain, i).getRightDomain();
      if (s < 0 || s >= n - 2) break;
    }
    if (path.line.size() < 2) {
      path.line.clear();
      path.slips.clear();
      return false;
    }
    gdfVertex e = T[0] - T[1];
    path.line[0] = path.line[1] + e;
    path.slips[0] = -e.length();
    e = vertexAt(n - 1) - vertexAt(n - 2);
    path.line.push_back(gdfVertex(path.line.back() + e));
    path.slips.push_back(path.slips.back() + e.length());
    path.removeRepeats();
    path.endVectors();
    return true;
  }

  void nearestStep(zre::side side, const Chain& chain, double H, int s, gdfVertex& last, int& index,
                   Path& path) {
    bool found = false;
    int first = -1;
    int kept = -1;
    gdfVertex keptPlace;
    double least = unset;
    int steps = 0;
    for (int i = s; isIn(chain, i); i = get(chain, i).getTopConnect()) {
      if (++steps > mostSteps) endless = true;
      if (endless) return;
      const zr2DBisector& b = get(chain, i);
      if (b.getLeftDomain() == -1) continue;
      const gdfVertex T0 = vertexAt(s);
      const gdfVertex q = normalOf(side, b.getLeftDomain());
      const double top = b.getTopConnect() == -1 ? unset : dot(b.getTop() - T0, q);
      const double base = b.getType() == 1 ? 0.0 : dot(b.getBase() - T0, q);
      if (!(top >= H)) continue;
      if (!(0.0 <= base)) continue;
      if (!(base <= H)) continue;
      const gdfVertex P =
          b.getBase() + b.getNormalVector() * ((H - base) / dot(b.getNormalVector(), q));
      if (b.getTopConnect() != -1 &&
          !(distance(b.getTop(), b.getBase()) > distance(P, b.getBase()))) {
        continue;
      }
      if (!found) first = b.getLeftDomain();
      found = true;
      if (s == 0) {
        kept = i;
        keptPlace = P;
        break;
      }
      if (b.getLeftDomain() != first) continue;
      const double d = distance(P, last);
      if (d < least) {
        least = d;
        kept = i;
        keptPlace = P;
      }
    }
    if (kept == -1 || path.line.size() > 5000) return;
    const bool differs =
        keptPlace.x() != last.x() || keptPlace.y() != last.y() || keptPlace.z() != last.z();
    if (differs) {
      path.line.push_back(keptPlace);
      last = keptPlace;
      index = kept;
    } else if (s == 0) {
      index = kept;
    }
  }

  void slipStep(zre::side side, const Chain& chain, double H, int s, double& cum, int& index,
                Path& path) {
    int steps = 0;
    int i = s;
    for (; isIn(chain, i); i = get(chain, i).getTopConnect()) {
      if (++steps > mostSteps) endless = true;
      if (endless) return;
      const zr2DBisector& b = get(chain, i);
      if (b.getLeftDomain() == -1) return;
      const gdfVertex q = normalOf(side, b.getLeftDomain());
      const double top = b.getTopConnect() == -1 ? unset : dot(b.getTop() - vertexAt(s), q);
      if (top >= H) break;
    }
    if (!isIn(chain, i)) return;
    const zr2DBisector& b = get(chain, i);
    const gdfVertex q = normalOf(side, b.getLeftDomain());
    const double base = b.getType() == 1 ? 0.0 : dot(b.getBase() - vertexAt(s), q);
    double f = H - base;
    const double denominator = dot(b.getNormalVector(), q);
    if (denominator != 0.0) f = f / denominator;
    const gdfVertex P = b.getBase() + b.getNormalVector() * f;
    if (P.x() == P.x() && P.y() == P.y() && P.z() == P.z()) path.line.push_back(P);
    const std::size_t size = path.line.size();
    if (s > 0 && size >= 2) cum += distance(path.line[size - 1], path.line[size - 2]);
    path.slips.push_back(cum);
    if (size <= 5000) index = i;
  }

  bool alongTemplate(const gdfVertex& point, Path& path) {
    path.h = 0.0;
    path.line = T;
    path.slips.clear();
    if (T.empty()) return false;
    std::size_t anchor = 0;
    while (anchor < T.size() && !(T[anchor] == point)) ++anchor;
    if (anchor == T.size()) {
      gdfVertex scratch;
      anchor = static_cast<std::size_t>(domainOf(zre::sideOn, point, scratch)) + 1;
      path.line.insert(path.line.begin() + static_cast<std::ptrdiff_t>(anchor), point);
    }
    path.slips.assign(path.line.size(), 0.0);
    double sum = 0.0;
    for (std::size_t i = anchor; i-- > 0;) {
      sum += distance(path.line[i], path.line[i + 1]);
      path.slips[i] = -sum;
    }
    sum = 0.0;
    for (std::size_t i = anchor + 1; i < path.line.size(); ++i) {
      sum += distance(path.line[i], path.line[i - 1]);
      path.slips[i] = sum;
    }
    path.endVectors();
    return true;
  }

  gdfVertex straightDirection(zre::side side, const gdfVertex& point, Path& path) const {
    if (n < 2) {
      path.h = 0.0;
      if (n == 1) path.L = T[0].z();
      return gdfVertex(1, 0, 0);
    }
    path.h = perp(0, point);
    if (side == zre::sideRight) path.h = -path.h;
    path.L = T[0].z();
    return unit(T[1] - T[0]);
  }

  bool straight(zre::side side, const gdfVertex& point, Path& path) const {
    const gdfVertex dir = straightDirection(side, point, path);
    path.line = {point, point + dir};
    path.slips = {0.0, 1.0};
    path.endVectors();
    return true;
  }

  bool angular(const gdfVertex& point, Path& path, double probeLength, bool flipSide,
               double angle) {
    zre::side side = sideOf(point);
    if (n < 3) {
      const gdfVertex dir = straightDirection(side, point, path);
      path.line = {point - dir, point, point + dir};
      path.slips = {-unset, 0.0, unset};
      return true;
    }
    gdfVertex scratch;
    int domain = domainOf(side, point, scratch);
    if (flipSide && domain > 1) flip(side, domain);
    path.h = perp(domain, point);
    if (side == zre::sideRight) path.h = -path.h;
    path.L = vertexAt(domain).z();
    gdfVertex cur = point;
    double acc = 0.0;
    path.line.push_back(point);
    path.slips.push_back(0.0);
    if (domain == 0) domain = 1;
    for (int steps = 0; domain < n - 2; ++steps) {
      if (steps > 5000) endless = true;
      if (endless || domain < 0) return false;
      const gdfVertex dir = unit(vertexAt(domain + 1) - vertexAt(domain));
      gdfVertex hit;
      double dist = 0.0;
      int index = -1;
      if (toChain(side, cur, dir, domain, hit, dist, index, probeLength, angle)) cur = hit;
      if (index == -1) {
        offBisectors = 1;
        if (toTemplate(cur, dir, domain, hit, dist, index, angle)) path.line.push_back(hit);
        return true;
      }
      path.line.push_back(cur);
      acc += dist;
      path.slips.push_back(acc);
      domain = get(chainByAngle(side, angle), index).getRightDomain();
    }
    offBisectors = 0;
    path.line.push_back(cur + unit(vertexAt(n - 1) - vertexAt(n - 2)));
    path.slips.push_back(unset);
    return true;
  }

  const Chain& chainByAngle(zre::side side, double angle) const {
    if (side == zre::sideLeft) return left;
    if (side == zre::sideRight) return right;
    return angle < 0 ? left : right;
  }

  static gdfVertex turn(const gdfVertex& direction, double angle) {
    if (angle == 0.0) return direction;
    const double a = angle * GDF_DEGREEStoRADIANS;
    const double c = std::cos(a);
    const double s = std::sin(a);
    return unit(gdfVertex(direction.x() * c + direction.y() * s,
                          direction.y() * c - direction.x() * s, direction.z()));
  }

  bool toChain(zre::side side, const gdfVertex& point, const gdfVertex& direction, int index,
               gdfVertex& out, double& dist, int& outIndex, double probeLength, double angle) {
    dist = unset;
    const gdfVertex v = turn(direction, angle);
    gdfVertex far = point;
    if (probeLength > 0.0) {
      far.x() += v.x() * probeLength;
      far.y() += v.y() * probeLength;
    }
    const Chain& chain = chainByAngle(side, angle);
    bool any = false;
    int steps = 0;
    for (int i = index; isIn(chain, i); i = get(chain, i).getTopConnect()) {
      if (++steps > mostSteps) endless = true;
      if (endless) break;
      gdfVertex hit;
      if (!zr2DTools::getSegmentSegmentIntersect(get(chain, i).getBase(), get(chain, i).getTop(),
                                                 point, far, hit, 0.0)) {
        continue;
      }
      if (!(distance(point, hit) < dist)) continue;
      dist = distance(point, hit);
      outIndex = i;
      out = hit;
      any = true;
    }
    if (!any) outIndex = -1;
    return any;
  }

  bool toTemplate(const gdfVertex& point, const gdfVertex& direction, int index, gdfVertex& out,
                  double& dist, int& outIndex, double angle) const {
    dist = unset;
    const gdfVertex v = turn(direction, angle);
    const gdfVertex far(point.x() + v.x() * 10000, point.y() + v.y() * 10000, point.z());
    for (int k = 0; k + 1 < n; ++k) {
      gdfVertex hit;
      if (!zr2DTools::getSegmentSegmentIntersect(vertexAt(k), vertexAt(k + 1), point, far, hit,
                                                 0.0)) {
        continue;
      }
      dist = distance(point, hit);
      outIndex = index;
      out = hit;
      return true;
    }
    outIndex = -1;
    return false;
  }

  double rootHeight(const gdfVertex& point, int index) const {
    const Chain& chain = chainOf(zr2DTools::getSideOfLine(T, point, set.getTolerance()));
    if (!isIn(chain, index)) return 0.0;
    return distance(get(chain, index).getTop(), get(chain, index).getBase());
  }

  double heightOf(const gdfVertex& point) {
    const zre::side side = zr2DTools::getSideOfLine(T, point, set.getTolerance());
    if (side == zre::sideOn || n < 2) return 0.0;
    gdfVertex scratch;
    const double height = perp(domainOf(side, point, scratch), point);
    return side == zre::sideRight ? -height : height;
  }

  bool heightAndLength(const gdfVertex& point, double& height, double& length, int& domain) {
    const zre::side side = zr2DTools::getSideOfLine(T, point, set.getTolerance());
    if (side == zre::sideOn) return true;
    gdfVertex hit(0, 0, 0);
    domain = domainOf(side, point, hit);
    if (domain < 1 || domain >= n - 1) return false;
    const gdfVertex A = vertexAt(domain - 1);
    const gdfVertex B = vertexAt(domain);
    const gdfVertex C = vertexAt(domain + 1);
    height = distance(C, hit);
    gdfVertex w(A.y() - B.y(), -(A.x() - B.x()), A.z() - B.z());
    gdfVertex foot;
    bool found = zr2DTools::getVectorSegmentIntersect(hit, w, B, C, foot, 0.001);
    if (!found) {
      w.x() = -w.x();
      w.y() = -w.y();
      found = zr2DTools::getVectorSegmentIntersect(hit, w, B, C, foot, 0.001);
    }
    if (found) {
      length = zr2DTools::calcLength(T, 0, domain) + foot.mapDistance(B);
    } else {
      const bool farFromStart = distance(hit, B) > distance(hit, C);
      length = zr2DTools::calcLength(T, 0, farFromStart ? domain : domain + 1);
    }
    return true;
  }
};

}  // namespace referenceFlow

#endif  // ZRBASE_TESTS_BISECTORS_SUPPORT_REFERENCEFLOWPATH_H
