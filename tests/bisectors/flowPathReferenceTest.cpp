#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "bisectors/support/referenceFlowPath.h"
#include "bisectors/support/templateGenerators.h"
#include "support/geometryText.h"

// The library's walks against a plain second implementation, over random templates, points,
// heights, probes and angles. Both answers must be equal to the last bit.

namespace {

using referenceFlow::unset;
using templates::Numbers;

bool same(double a, double b) { return a == b || (a != a && b != b); }

bool same(const gdfVertex& a, const gdfVertex& b) {
  return same(a.x(), b.x()) && same(a.y(), b.y()) && same(a.z(), b.z());
}

template <class T>
bool same(const std::vector<T>& a, const std::vector<T>& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!same(a[i], b[i])) return false;
  }
  return true;
}

bool same(const zrFlowPath& path, const referenceFlow::Path& expected) {
  return same(path.getFlowLine(), expected.line) && same(path.getSlipValues(), expected.slips) &&
         same(path.getStartVector(), expected.start) && same(path.getEndVector(), expected.end) &&
         same(path.getH(), expected.h) && same(path.getL(), expected.L);
}

/// A path that holds something before it is generated: what a walk must replace, or must leave.
zrFlowPath usedPath(Numbers& numbers, bool isEmpty) {
  zrFlowPath path;
  if (!isEmpty) path.setFlow(line("7 8 9, 10 8 9"), {5.0, 6.0});
  path.setH(numbers.between(-4, 4));
  path.setL(numbers.between(-4, 4));
  return path;
}

referenceFlow::Path mirrorOf(const zrFlowPath& path) {
  return {path.getFlowLine(),  path.getSlipValues(), path.getStartVector(),
          path.getEndVector(), path.getH(),          path.getL()};
}

/// What the comparisons draw from: a built set, and the size of its template.
struct Scene {
  zr2DBisectorSet set;
  VertexLine line;
  double size = 0.0;
};

VertexLine onSixtyFourths(Numbers& numbers) {
  VertexLine templateVertices;
  const int count = numbers.between(0, 14);
  const int reach = numbers.below(2) == 0 ? 8 : 256;
  const bool runsOn = numbers.below(2) == 0;
  for (int i = 0; i < count; ++i) {
    const double x = (numbers.between(-reach, reach) + (runsOn ? 2 * reach * i : 0)) / 64.0;
    templateVertices.emplace_back(x, numbers.between(-reach, reach) / 64.0);
  }
  if (numbers.below(6) == 0) templates::repeatSomeVertices(numbers, templateVertices);
  if (numbers.below(3) == 0) templates::giveHeights(numbers, templateVertices);
  return templateVertices;
}

Scene makeScene(std::uint32_t seed) {
  Numbers numbers(seed ^ 0x5bd1e995u);
  Scene scene;
  scene.line = numbers.below(3) == 0 ? templates::fromSeed(seed) : onSixtyFourths(numbers);
  double least = 0.0;
  double most = 0.0;
  for (const gdfVertex& v : scene.line) {
    least = std::min({least, v.x(), v.y()});
    most = std::max({most, v.x(), v.y()});
  }
  scene.size = most - least + 1.0;
  const double margin = scene.size * numbers.between(0, 4) / 4.0;
  scene.set = zr2DBisectorSet(numbers.below(4) == 0 ? 0.125 : 0.0);
  scene.set.generateBisectors(scene.line, gdfVertex(least - margin, least - margin),
                              gdfVertex(most + margin, most + margin));
  if (numbers.below(8) == 0) scene.set.generateBisectors(scene.line, zre::sideLeft, margin);
  if (numbers.below(16) == 0) scene.set.getRightBisectors().clear();
  if (numbers.below(4) != 0) scene.set.expandBisectors();
  return scene;
}

/// Near the template, on its vertices, on its segments, beyond its ends, on a bisector.
gdfVertex drawPoint(Scene& scene, Numbers& numbers) {
  const VertexLine& templateVertices = scene.line;
  const int n = static_cast<int>(templateVertices.size());
  const double away = scene.size * numbers.between(-32, 32) / 64.0;
  const double across = scene.size * numbers.between(-32, 32) / 64.0;
  if (n == 0) return {away, across};
  const auto k = static_cast<std::size_t>(numbers.below(n));
  const gdfVertex& vertex = templateVertices[k];
  const gdfVertex& next = templateVertices[std::min(k + 1, templateVertices.size() - 1)];
  const double t = numbers.between(-16, 80) / 64.0;
  switch (numbers.below(6)) {
    case 0:
      return vertex;
    case 1:
      return vertex + (next - vertex) * t;
    case 2:
      return vertex + (next - vertex) * t + gdfVertex(0.0, across / 16.0);
    case 3: {
      const auto& chain =
          numbers.below(2) ? scene.set.getLeftBisectors() : scene.set.getRightBisectors();
      if (chain.empty()) return vertex;
      const auto& b =
          chain[static_cast<std::size_t>(numbers.below(static_cast<int>(chain.size())))];
      return b.getBase() + b.getNormalVector() * away;
    }
    case 4:
      return vertex + gdfVertex(away, across, numbers.between(-8, 8) / 8.0);
    default:
      return vertex + gdfVertex(away / 4.0, across / 4.0);
  }
}

double drawHeight(const Scene& scene, Numbers& numbers) {
  switch (numbers.below(8)) {
    case 0:
      return 0.0;
    case 1:
      return unset;
    case 2:
      return -unset;
    case 3:
      return scene.size * numbers.between(-64, 64);
    case 4:
      return 1e300;
    default:
      return scene.size * numbers.between(-64, 64) / 128.0;
  }
}

double drawAngle(Numbers& numbers) {
  static const double angles[] = {0.0, 45.0, -45.0, 90.0, -90.0, 180.0, 5.0, -30.0};
  return numbers.below(4) == 0 ? numbers.between(-720, 720) / 2.0 : angles[numbers.below(8)];
}

/// Compares every operation once; names the first that differs.
class Comparison {
 public:
  Comparison(Scene& scene, Numbers& numbers)
      : scene_(scene),
        set_(scene.set),
        numbers_(numbers),
        point_(drawPoint(scene, numbers)),
        height_(drawHeight(scene, numbers)),
        angle_(drawAngle(numbers)),
        probe_(scene.size * numbers.between(-2, 16) / 8.0),
        flips_(numbers.below(3) == 0),
        side_(static_cast<zre::side>(numbers.below(4))),
        index_(numbers.below(4 + static_cast<int>(set_.getLeftBisectors().size())) - 1) {}

  std::string firstDifference() {
    if (!throughPointAgrees()) return "path through a point";
    if (!atHeightAgrees(0)) return "path at a height, mode 0";
    if (!atHeightAgrees(numbers_.below(2) ? 1 : -3)) return "path at a height, other mode";
    if (!angularAgrees()) return "angular path";
    if (!alongTemplateAgrees()) return "path along the template";
    if (!straightAgrees()) return "straight path";
    if (!climbAgrees()) return "vertex at a height on a chain";
    if (!projectionsAgree()) return "projections";
    if (!heightsAgree()) return "heights";
    return "";
  }

  std::string inputs() const {
    return "point " + toText(point_) + ", height " + std::to_string(height_) + ", angle " +
           std::to_string(angle_) + ", probe " + std::to_string(probe_) + ", flips " +
           std::to_string(flips_) + ", side " + std::to_string(side_) + ", index " +
           std::to_string(index_) + ", template " + toText(scene_.line);
  }
  int compared() const { return compared_; }

 private:
  /// A template that runs in a circle has no defined path.
  bool agree(const referenceFlow::Walks& walks, bool isSame) {
    if (!walks.endless) ++compared_;
    return walks.endless || isSame;
  }

  bool throughPointAgrees() {
    zrFlowPath path = usedPath(numbers_, false);
    referenceFlow::Path expected = mirrorOf(path);
    referenceFlow::Walks walks(set_);
    const bool expectedResult = walks.throughPoint(point_, expected, flips_, height_);
    const bool result = set_.generateFlowPath(point_, path, flips_, height_);
    return agree(walks, result == expectedResult && same(path, expected) && readingAgrees(path));
  }

  bool atHeightAgrees(int mode) {
    zrFlowPath path = usedPath(numbers_, numbers_.below(4) != 0);
    referenceFlow::Path expected = mirrorOf(path);
    referenceFlow::Walks walks(set_);
    set_.setFlowPathMode(mode);
    const bool expectedResult = walks.atHeight(height_, expected, mode);
    const bool result = set_.generateFlowPath(height_, path);
    return agree(walks, result == expectedResult && same(path, expected) && readingAgrees(path));
  }

  bool angularAgrees() {
    zrFlowPath path = usedPath(numbers_, numbers_.below(4) != 0);
    referenceFlow::Path expected = mirrorOf(path);
    referenceFlow::Walks walks(set_);
    const bool expectedResult = walks.angular(point_, expected, probe_, flips_, angle_);
    const bool result = set_.generateAngularFlowPath(point_, path, probe_, flips_, angle_);
    return agree(walks, result == expectedResult && same(path, expected) &&
                            set_.getOffBisectors() == walks.offBisectors && readingAgrees(path));
  }

  bool alongTemplateAgrees() {
    zrFlowPath path = usedPath(numbers_, false);
    referenceFlow::Path expected = mirrorOf(path);
    referenceFlow::Walks walks(set_);
    const bool expectedResult = walks.alongTemplate(point_, expected);
    const bool result = set_.generateFlowPathAlongInputLine(point_, path);
    return agree(walks, result == expectedResult && same(path, expected));
  }

  bool straightAgrees() {
    zrFlowPath path = usedPath(numbers_, false);
    referenceFlow::Path expected = mirrorOf(path);
    const referenceFlow::Walks walks(set_);
    const bool expectedResult = walks.straight(side_, point_, expected);
    const bool result = set_.generateFlowPathLessThan3Vertices(side_, point_, path);
    return agree(walks, result == expectedResult && same(path, expected));
  }

  bool climbAgrees() {
    gdfVertex place(1, 2, 3);
    gdfVertex expected = place;
    referenceFlow::Walks walks(set_);
    const referenceFlow::Chain& chain = walks.chainOf(side_);
    const int expectedIndex = walks.climb(side_, chain, height_, index_, expected);
    const int found = set_.getVertexAtHeightOnBisectorChain(side_, chain, height_, index_, place);
    return agree(walks, found == expectedIndex && same(place, expected));
  }

  bool projectionsAgree() {
    const gdfVertex direction(numbers_.between(-4, 4) / 2.0, numbers_.between(-4, 4) / 2.0);
    referenceFlow::Walks walks(set_);
    gdfVertex place(1, 2, 3);
    gdfVertex expected = place;
    double length = 4.0;
    double expectedLength = 4.0;
    int index = 5;
    int expectedIndex = 5;
    bool isSame = walks.toChain(side_, point_, direction, index_, expected, expectedLength,
                                expectedIndex, probe_, angle_) ==
                  set_.projectToBisectorChain(side_, point_, direction, index_, place, length,
                                              index, probe_, angle_);
    isSame = isSame && same(place, expected) && length == expectedLength && index == expectedIndex;
    isSame = isSame && walks.toTemplate(point_, direction, index_, expected, expectedLength,
                                        expectedIndex, angle_) ==
                           set_.projectToTemplateLine(walks.T, point_, direction, index_, place,
                                                      length, index, angle_);
    return agree(walks, isSame && same(place, expected) && length == expectedLength &&
                            index == expectedIndex);
  }

  bool heightsAgree() {
    referenceFlow::Walks walks(set_);
    double height = 1.0, expectedHeight = 1.0;
    double length = 2.0, expectedLength = 2.0;
    int domain = 3, expectedDomain = 3;
    const bool expectedResult =
        walks.heightAndLength(point_, expectedHeight, expectedLength, expectedDomain);
    const bool result = set_.calculateHeightAndLengthOnBaseLine(point_, height, length, domain);
    const bool isSame = result == expectedResult && same(height, expectedHeight) &&
                        same(length, expectedLength) && domain == expectedDomain;
    return agree(walks, isSame && same(set_.calculateH(point_), walks.heightOf(point_)) &&
                            same(set_.getRootBisectorHeight(point_, index_),
                                 walks.rootHeight(point_, index_)));
  }

  /// getSegment and getVertex, on the slips of the path, between them and past them.
  bool readingAgrees(const zrFlowPath& path) {
    const referenceFlow::Path expected = mirrorOf(path);
    if (path.getFlowLine().empty()) return path.getSegment(1.0) == expected.segmentAt(1.0);
    std::vector<double> slips = path.getSlipValues();
    for (int i = 0; i < 4; ++i) slips.push_back(scene_.size * numbers_.between(-128, 128) / 64.0);
    slips.push_back(std::numeric_limits<double>::quiet_NaN());
    for (double slip : slips) {
      if (path.getSegment(slip) != expected.segmentAt(slip)) return false;
      if (!same(path.getVertex(slip), expected.vertexAt(slip))) return false;
      if (!same(path.getVertex(slip, angle_),
                expected.vertexAt(slip + std::tan(angle_) * path.getH()))) {
        return false;
      }
    }
    return true;
  }

  Scene& scene_;
  zr2DBisectorSet& set_;
  Numbers& numbers_;
  gdfVertex point_;
  double height_;
  double angle_;
  double probe_;
  bool flips_;
  zre::side side_;
  int index_;
  int compared_ = 0;
};

/// Empty when all agree, else what differs and on which inputs.
std::string compareAll(std::uint32_t seed, int points, int& compared) {
  Scene scene = makeScene(seed);
  Numbers numbers(seed);
  for (int i = 0; i < points; ++i) {
    Comparison comparison(scene, numbers);
    const std::string difference = comparison.firstDifference();
    compared += comparison.compared();
    if (!difference.empty()) {
      return difference + " differs, seed " + std::to_string(seed) + ": " + comparison.inputs();
    }
  }
  return "";
}

}  // namespace

TEST(FlowPathReference, AgreesOnThousandsOfTemplates) {
  constexpr std::uint32_t templateCount = 3000;
  constexpr int pointsPerTemplate = 4;
  int compared = 0;
  testing::internal::CaptureStderr();
  std::string difference;
  for (std::uint32_t seed = 1; seed <= templateCount && difference.empty(); ++seed) {
    difference = compareAll(seed, pointsPerTemplate, compared);
  }
  testing::internal::GetCapturedStderr();
  EXPECT_EQ(difference, "");
  EXPECT_GT(compared, 100000);
}

RC_GTEST_PROP(FlowPathReference, AgreesOnFreshlyDrawnTemplates, ()) {
  testing::internal::CaptureStderr();
  int compared = 0;
  std::string difference;
  for (std::uint32_t seed : *templates::seeds(4)) difference += compareAll(seed, 4, compared);
  testing::internal::GetCapturedStderr();
  RC_ASSERT(difference == "");
}
