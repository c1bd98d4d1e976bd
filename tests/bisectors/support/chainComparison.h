#ifndef ZRBASE_TESTS_BISECTORS_SUPPORT_CHAINCOMPARISON_H
#define ZRBASE_TESTS_BISECTORS_SUPPORT_CHAINCOMPARISON_H

#include <zrBase/bisectors/zr2DBisector.h>

#include "bisectors/support/chainText.h"
#include "bisectors/support/referenceSkeleton.h"
#include "support/geometryText.h"

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

/// The library's chains beside those of the plain second construction.

inline bool sameNumber(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

inline bool sameVertex(const gdfVertex& a, const gdfVertex& b) {
  return sameNumber(a.x(), b.x()) && sameNumber(a.y(), b.y()) && sameNumber(a.z(), b.z());
}

inline std::vector<int> connectionsOf(const zr2DBisector& b) {
  std::vector<int> connections;
  for (int i = 0; i < b.getNoBaseConnections(); ++i) connections.push_back(b.getBaseConnection(i));
  return connections;
}

inline bool sameBisector(const zr2DBisector& a, const reference::Bisector& b) {
  return sameVertex(a.getBase(), b.base) && sameVertex(a.getTop(), b.top) &&
         sameVertex(a.getNormalVector(), b.normal) && a.getType() == b.type &&
         a.getTopConnect() == b.topConnect && a.getLeftDomain() == b.leftDomain &&
         a.getRightDomain() == b.rightDomain && connectionsOf(a) == b.connections &&
         a.getRealNormal() == gdfVertex() && a.getRealTop() == gdfVertex();
}

inline std::string describe(const gdfVertex& base, const gdfVertex& top, const gdfVertex& normal,
                            int type, int above, int left, int right,
                            const std::vector<int>& connections) {
  std::ostringstream out;
  out << toText(base) << " to " << toText(top) << " along " << toText(normal) << ", type " << type
      << ", above " << above << ", domains " << left << ' ' << right << ", from";
  for (int connection : connections) out << ' ' << connection;
  return out.str();
}

/// Empty when both chains are the same, else the first difference.
inline std::string difference(const Chain& chain, const reference::Chain& expected) {
  if (chain.size() != expected.size()) {
    return "sizes " + std::to_string(chain.size()) + " and " + std::to_string(expected.size());
  }
  for (std::size_t i = 0; i < chain.size(); ++i) {
    const zr2DBisector& a = chain[i];
    const reference::Bisector& b = expected[i];
    if (sameBisector(a, b)) continue;
    return "bisector " + std::to_string(i) + ":\n  " +
           describe(a.getBase(), a.getTop(), a.getNormalVector(), a.getType(), a.getTopConnect(),
                    a.getLeftDomain(), a.getRightDomain(), connectionsOf(a)) +
           "\n  " +
           describe(b.base, b.top, b.normal, b.type, b.topConnect, b.leftDomain, b.rightDomain,
                    b.connections);
  }
  return "";
}

inline reference::Chain copyOf(const Chain& chain) {
  reference::Chain copy;
  for (const zr2DBisector& b : chain) {
    copy.push_back({b.getBase(), b.getTop(), b.getNormalVector(), b.getType(), connectionsOf(b),
                    b.getTopConnect(), b.getLeftDomain(), b.getRightDomain()});
  }
  return copy;
}

inline reference::Skeleton skeletonOf(const VertexLine& line, zre::side side) {
  reference::Skeleton skeleton;
  skeleton.line = line;
  skeleton.side = side;
  return skeleton;
}

#endif  // ZRBASE_TESTS_BISECTORS_SUPPORT_CHAINCOMPARISON_H
