#ifndef ZRBASE_TESTS_BISECTORS_SUPPORT_REFERENCEPATH_H
#define ZRBASE_TESTS_BISECTORS_SUPPORT_REFERENCEPATH_H

#include <zrBase/bisectors/zr2DBisector.h>
#include <zrBase/geometry/gdfVertex.h>

#include <cmath>
#include <cstddef>
#include <vector>

/// A flow path of plain lists, with its own search, interpolation and clean-up: what the walks of
/// referenceFlowPath.h fill.
namespace referenceFlow {

constexpr double unset = 3.4028234663852886e+38;

/// A walk of damaged links would go on for ever: it ends here, and says so.
constexpr int mostSteps = 20000;

using Chain = std::vector<zr2DBisector>;

inline gdfVertex unit(gdfVertex v) {
  v.normalise();
  return v;
}

inline double dot(const gdfVertex& a, const gdfVertex& b) {
  return a.x() * b.x() + a.y() * b.y() + a.z() * b.z();
}

inline double distance(const gdfVertex& a, const gdfVertex& b) {
  const gdfVertex d = a - b;
  return std::sqrt(d.x() * d.x() + d.y() * d.y() + d.z() * d.z());
}

struct Path {
  VertexLine line;
  std::vector<double> slips;
  gdfVertex start;
  gdfVertex end;
  double h = 0.0;
  double L = 0.0;

  void endVectors() {
    if (line.size() < 2) return;
    start = unit(line[0] - line[1]);
    end = unit(line[line.size() - 1] - line[line.size() - 2]);
  }

  /// -3, -2, -1 or a segment; -1 as well where the search leaves the lists.
  int segmentAt(double slip) const {
    if (slips.empty()) return -3;
    if (slip < slips[0]) return -1;
    if (slip > slips[slips.size() - 1]) return -2;
    if (line.size() < 2) return -1;
    long lo = 0;
    long hi = static_cast<long>(line.size()) - 2;
    while (lo <= hi) {
      const long mid = (lo + hi) / 2;
      const auto m = static_cast<std::size_t>(mid);
      if (m >= slips.size()) return -1;
      if (slips[m] > slip) {
        hi = mid - 1;
        continue;
      }
      if (m + 1 >= slips.size()) return -1;
      if (slip > slips[m + 1]) {
        lo = mid + 1;
        continue;
      }
      return static_cast<int>(mid);
    }
    return -1;
  }

  gdfVertex vertexAt(double slip) const {
    if (slips.empty()) return gdfVertex(0, 0, 0);
    const int found = segmentAt(slip);
    if (found == -1) return line[0] + start * (slips[0] - slip);
    if (found == -2) return line[line.size() - 1] + end * (slip - slips[slips.size() - 1]);
    const auto k = static_cast<std::size_t>(found);
    if (slips[k + 1] - slips[k] == 0.0) return line[k];
    const double t = (slip - slips[k]) / (slips[k + 1] - slips[k]);
    return line[k] + (line[k + 1] - line[k]) * t;
  }

  void turnRound() {
    line = VertexLine(line.rbegin(), line.rend());
    slips = std::vector<double>(slips.rbegin(), slips.rend());
  }

  void removeRepeats() {
    std::size_t i = 0;
    while (i + 1 < line.size()) {
      const gdfVertex d = line[i] - line[i + 1];
      if (dot(d, d) == 0.0) {
        line.erase(line.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        if (i < slips.size()) slips.erase(slips.begin() + static_cast<std::ptrdiff_t>(i));
      }
      i += 1;
    }
  }
};

}  // namespace referenceFlow

#endif  // ZRBASE_TESTS_BISECTORS_SUPPORT_REFERENCEPATH_H
