/// A client of the library. It prints the bits of what it computed, by inline code and by the
/// library's own; the tests build it by each route to the library, with different optimisation, and
/// the output must be the same to the last bit.

#include <zrBase/zrBase.h>

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

constexpr int rounds = 4000;

/// Knuth's 64-bit linear congruential generator: the same numbers with every standard library.
class Generator {
 public:
  double between(double low, double high) {
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return low + (high - low) * (static_cast<double>(state_ >> 11U) / 9007199254740992.0);
  }

  /// A vertex of a map grid: some 600 km east, 6000 km north.
  gdfVertex mapVertex() {
    const double x = between(5.9e5, 6.1e5);
    const double y = between(5.99e6, 6.01e6);
    return gdfVertex(x, y, between(-5000.0, 0.0));
  }

 private:
  std::uint64_t state_ = 20240229;
};

/// Collects doubles, bit by bit (FNV-1a).
class Digest {
 public:
  void add(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    for (int i = 0; i < 8; ++i) {
      hash_ = (hash_ ^ (bits & 0xffU)) * 1099511628211ULL;
      bits >>= 8U;
    }
    last_ = value;
    ++count_;
  }

  void add(const gdfVertex& v) {
    add(v.x());
    add(v.y());
    add(v.z());
  }

  void print(const char* what) const {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &last_, sizeof bits);
    std::printf("%s: %d values, digest %016" PRIx64 ", last %016" PRIx64 "\n", what, count_, hash_,
                bits);
  }

 private:
  std::uint64_t hash_ = 14695981039346656037ULL;
  double last_ = 0.0;
  int count_ = 0;
};

void vertices() {
  Generator random;
  Digest products;
  Digest lengths;
  Digest directions;
  for (int i = 0; i < rounds; ++i) {
    const gdfVertex a = random.mapVertex();
    const gdfVertex b = random.mapVertex();
    products.add(a * b);
    products.add(a ^ b);
    lengths.add(a.length());
    lengths.add(a.distance(b));
    lengths.add(a.mapDistance(b));
    gdfVertex direction = b - a;
    direction.normalise();
    directions.add(direction);
  }
  products.print("products");
  lengths.print("lengths");
  directions.print("directions");
}

void crossings() {
  Generator random;
  Digest segments;
  Digest lines;
  Digest distances;
  for (int i = 0; i < rounds; ++i) {
    const gdfVertex a = random.mapVertex();
    const gdfVertex b = random.mapVertex();
    const gdfVertex c = random.mapVertex();
    const gdfVertex d = random.mapVertex();
    gdfVertex out;
    segments.add(zr2DTools::getSegmentSegmentIntersect(a, b, c, d, out, 1e-5) ? 1.0 : 0.0);
    segments.add(out);
    lines.add(zr2DTools::getIntersect(a, b, c, d, out, 1e-9) ? 1.0 : 0.0);
    lines.add(out);
    distances.add(zr2DTools::getDistanceFromVertexToSegment(a, b, c));
    distances.add(zr2DTools::getSideOfSegment(a, b, c, 0.0));
  }
  segments.print("segment crossings");
  lines.print("line crossings");
  distances.print("distances and sides");
}

void flowPaths() {
  Generator random;
  Digest chains;
  Digest paths;
  for (int i = 0; i < rounds / 100; ++i) {
    VertexLine fault;
    for (int k = 0; k < 20; ++k) {
      fault.emplace_back(6.0e5 + 500.0 * k, 6.0e6 + random.between(-400.0, 400.0), 0.0);
    }
    zr2DBisectorSet set;
    set.generateBisectors(fault, gdfVertex(5.9e5, 5.99e6), gdfVertex(6.2e5, 6.01e6));
    for (const zr2DBisector& bisector : set.getLeftBisectors()) {
      chains.add(bisector.getBase());
      chains.add(bisector.getTop());
    }
    zrFlowPath path;
    const gdfVertex point(random.between(6.01e5, 6.08e5), 6.0e6 + random.between(500.0, 900.0));
    set.generateFlowPath(point, path, false, 3.4028234663852886e+38);
    for (const gdfVertex& v : path.getFlowLine()) paths.add(v);
    for (const double slip : path.getSlipValues()) paths.add(slip);
    paths.add(path.getVertex(random.between(-2000.0, 2000.0)));
  }
  chains.print("bisector chains");
  paths.print("flow paths");
}

}  // namespace

int main() {
  vertices();
  crossings();
  flowPaths();
  return 0;
}
