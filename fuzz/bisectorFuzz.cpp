/// Bisector sets and flow paths on arbitrary template lines: nothing may crash, read out of bounds,
/// overflow or go on for ever, however bent, doubled back or collapsed the template is.
///
/// Input: one byte of mode, then doubles. In mode bit 0 the coordinates are raw doubles (non-finite
/// ones and sizes beyond 1e12 are replaced), else small multiples of 1/64, which meet the exact
/// ties far more often.

#include <zrBase/bisectors/zr2DBisectorSet.h>
#include <zrBase/bisectors/zrFlowPath.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::size_t maximumVertices = 24;
constexpr double largestCoordinate = 1e12;

/// Takes numbers from the front of the input; zeros once it is used up.
class InputReader {
 public:
  InputReader(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  bool empty() const { return size_ == 0; }

  std::uint8_t byte() {
    std::uint8_t value = 0;
    read(&value, sizeof value);
    return value;
  }

  double coordinate(bool raw) {
    if (!raw) {
      std::int16_t value = 0;
      read(&value, sizeof value);
      return value / 64.0;
    }
    double value = 0.0;
    read(&value, sizeof value);
    return std::isfinite(value) && std::fabs(value) <= largestCoordinate ? value : 1.0;
  }

 private:
  void read(void* target, std::size_t count) {
    if (count > size_) count = size_;
    if (count == 0) return;
    std::memcpy(target, data_, count);
    data_ += count;
    size_ -= count;
  }

  const std::uint8_t* data_;
  std::size_t size_;
};

/// A law that holds for every input; a breach ends the program, which the fuzzer reports.
void require(bool holds) {
  if (!holds) std::abort();
}

void walk(zr2DBisectorSet& set, const gdfVertex& point, double height) {
  zrFlowPath path;
  const double heightFromPoint = 3.4028234663852886e+38;
  for (const bool flipSide : {false, true}) {
    for (const double given : {heightFromPoint, height}) {
      set.generateFlowPath(point, path, flipSide, given);
      for (const double slip : {-1.0, 0.0, 1.0}) path.getVertex(slip);
    }
  }
  for (const int mode : {0, 1}) {
    zrFlowPath alongTemplate;
    set.setFlowPathMode(mode);
    set.generateFlowPath(height, alongTemplate);
    alongTemplate.getVertex(height);
  }
  set.generateFlowPathAlongInputLine(point, path);
  set.generateAngularFlowPath(point, path, 1e5, false, 60.0);
  gdfVertex hit;
  set.getDomain(set.getSide(point), point, hit);
  set.calculateH(point);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputReader input(data, size);
  const std::uint8_t mode = input.byte();
  const bool raw = (mode & 1U) != 0;
  const double height = input.coordinate(raw);
  const gdfVertex point(input.coordinate(raw), input.coordinate(raw), 0.0);

  VertexLine templateLine;
  while (!input.empty() && templateLine.size() < maximumVertices) {
    const double x = input.coordinate(raw);
    const double y = input.coordinate(raw);
    const double z = (mode & 2U) != 0 ? input.coordinate(raw) : 0.0;
    templateLine.emplace_back(x, y, z);
  }
  const bool enough = templateLine.size() >= 2;

  zr2DBisectorSet both;
  const gdfVertex first(-1000.0, -1000.0, 0.0);
  const gdfVertex second(1000.0, 1000.0, 0.0);
  require(both.generateBisectors(templateLine, first, second) == enough);
  walk(both, point, height);

  for (const zre::side side : {zre::sideLeft, zre::sideRight}) {
    zr2DBisectorSet single;
    require(single.generateBisectors(templateLine, side, std::fabs(height) + 1.0) == enough);
    walk(single, point, height);
  }
  return 0;
}
