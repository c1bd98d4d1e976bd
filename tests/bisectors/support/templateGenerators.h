#ifndef ZRBASE_TESTS_BISECTORS_SUPPORT_TEMPLATEGENERATORS_H
#define ZRBASE_TESTS_BISECTORS_SUPPORT_TEMPLATEGENERATORS_H

#include <zrBase/geometry/gdfVertex.h>

#include <rapidcheck.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Random template lines, drawn near the bad cases on purpose: on a coarse grid three vertices in
/// line, equal vertices, equal bends and crossings on a vertex come up all the time.
namespace templates {

/// A small sequence of its own, the same on every platform.
class Numbers {
 public:
  explicit Numbers(std::uint32_t seed) : state_(seed * 2u + 1u) {}
  int below(int bound) {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<int>((state_ >> 33) % static_cast<std::uint64_t>(bound));
  }
  int between(int least, int most) { return least + below(most - least + 1); }
  double unit() { return below(1 << 20) / 1048576.0; }

 private:
  std::uint64_t state_;
};

inline double atan1() { return std::atan(1.0); }

inline VertexLine onGrid(Numbers& numbers, int count, int reach, double step) {
  VertexLine line;
  for (int i = 0; i < count; ++i) {
    line.emplace_back(numbers.between(-reach, reach) * step, numbers.between(-reach, reach) * step);
  }
  return line;
}

/// Runs along x with teeth of equal or uneven height.
inline VertexLine zigzag(Numbers& numbers, int count) {
  VertexLine line;
  const bool even = numbers.below(2) == 0;
  const int height = numbers.between(0, 12);
  for (int i = 0; i < count; ++i) {
    const int tooth = even ? height : numbers.between(0, 12);
    line.emplace_back(i * 2.0, (i % 2 == 0 ? 0 : tooth) * 0.25);
  }
  return line;
}

/// Straight but for offsets around the closeness limits.
inline VertexLine nearlyStraight(Numbers& numbers, int count) {
  static const double offsets[] = {0.0, 0.0, 1e-12, 1e-09, -1e-09, 5e-06, 1e-05, -2e-05, 1e-03};
  VertexLine line;
  for (int i = 0; i < count; ++i) line.emplace_back(i * 1.0, offsets[numbers.below(9)]);
  return line;
}

/// Turns back on itself, exactly or by a hair.
inline VertexLine hairpins(Numbers& numbers, int count) {
  VertexLine line;
  for (int i = 0; i < count; ++i) {
    const double lift = numbers.below(3) == 0 ? 0.0 : i * 0.015625;
    line.emplace_back(i % 2 == 0 ? 0.0 : numbers.between(1, 4) * 1.0, lift);
  }
  return line;
}

inline VertexLine spiral(Numbers& numbers, int count) {
  VertexLine line;
  const double turn = numbers.between(2, 12) * atan1() / 6.0;
  const double growth = numbers.between(-2, 8) / 16.0;
  for (int i = 0; i < count; ++i) {
    const double radius = 10.0 + growth * i;
    line.emplace_back(radius * std::cos(i * turn), radius * std::sin(i * turn));
  }
  return line;
}

/// Bows of a circle and right angles: many bisectors meet in one place.
inline VertexLine bow(Numbers& numbers, int count) {
  VertexLine line;
  const double turn = 4.0 * atan1() / numbers.between(3, count + 3);
  gdfVertex place;
  for (int i = 0; i < count; ++i) {
    line.push_back(place);
    place += gdfVertex(std::cos(i * turn), std::sin(i * turn));
  }
  return line;
}

inline VertexLine stairs(Numbers& numbers, int count) {
  VertexLine line;
  gdfVertex place;
  for (int i = 0; i < count; ++i) {
    line.push_back(place);
    const double step = numbers.between(-2, 3) * 1.0;
    place += i % 2 == 0 ? gdfVertex(step, 0.0) : gdfVertex(0.0, step);
  }
  return line;
}

/// A walk that wanders on, as fault traces do.
inline VertexLine wander(Numbers& numbers, int count) {
  VertexLine line;
  gdfVertex place;
  double direction = 0.0;
  for (int i = 0; i < count; ++i) {
    line.push_back(place);
    direction += (numbers.unit() - 0.5) * 2.0;
    const double step = 0.05 + 4.0 * numbers.unit();
    place += gdfVertex(step * std::cos(direction), step * std::sin(direction));
  }
  return line;
}

inline void repeatSomeVertices(Numbers& numbers, VertexLine& line) {
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (numbers.below(8) == 0) line[i] = line[i - 1];
  }
}

inline void giveHeights(Numbers& numbers, VertexLine& line) {
  for (gdfVertex& v : line) v.z() = numbers.between(-8, 8) / 4.0;
}

inline VertexLine anyShape(Numbers& numbers, int count) {
  switch (numbers.below(11)) {
    case 0:
      return onGrid(numbers, count, 4, 0.25);
    case 1:
      return onGrid(numbers, count, 16, 0.25);
    case 2:
      return onGrid(numbers, count, 256, 0.015625);
    case 3:
      return zigzag(numbers, count);
    case 4:
      return nearlyStraight(numbers, count);
    case 5:
      return hairpins(numbers, count);
    case 6:
      return spiral(numbers, count);
    case 7:
      return bow(numbers, count);
    case 8:
      return stairs(numbers, count);
    default:
      return wander(numbers, count);
  }
}

inline VertexLine fromSeed(std::uint32_t seed) {
  static const double scales[] = {1.0,    1.0,   1.0,    1.0,  1.0,  0.25,
                                  0.0625, 1e-04, 4096.0, 1e09, 1e20, 3e38};
  Numbers numbers(seed);
  VertexLine line = anyShape(numbers, numbers.between(3, numbers.below(3) == 0 ? 40 : 12));
  if (numbers.below(6) == 0) repeatSomeVertices(numbers, line);
  if (numbers.below(5) == 0) giveHeights(numbers, line);
  const double scale = scales[numbers.below(12)];
  const bool onMap = numbers.below(6) == 0;
  for (gdfVertex& v : line) {
    v *= scale;
    if (onMap) v += gdfVertex(512345.25, 5812345.5);
  }
  return line;
}

/// A list of templates: one draw tests many, and shrinks to the seeds that matter.
inline rc::Gen<std::vector<std::uint32_t>> seeds(std::size_t count) {
  return rc::gen::container<std::vector<std::uint32_t>>(
      count,
      rc::gen::noShrink(rc::gen::resize(rc::kNominalSize, rc::gen::arbitrary<std::uint32_t>())));
}

}  // namespace templates

#endif  // ZRBASE_TESTS_BISECTORS_SUPPORT_TEMPLATEGENERATORS_H
