#include <zrBase/bisectors/zr2DBisectorSet.h>
#include <zrBase/tools2d/zr2DTools.h>
#include <zrBase/tools3d/zr3DTools.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "bisectors/support/builtSet.h"
#include "bisectors/support/templateGenerators.h"

// What holds for every flow path. Most laws are told of gentle templates: flat, running towards
// greater x, with bends that let no bisectors meet below a height of 4.

namespace {

constexpr double near = 1e-9;

/// A gentle template with its set, and a point at a height over the middle part of a segment.
struct Gentle {
  zr2DBisectorSet set;
  VertexLine line;
  gdfVertex point;
  double height = 0.0;
};

/// Whether the probes along x and y find the point's own domain: a point under the last bend may
/// meet no bisector, and is then measured from segment 0.
bool isPlaced(Gentle& g, const gdfVertex& p) {
  return std::fabs(g.set.calculateH(p) - g.height) < near;
}

Gentle drawGentle() {
  Gentle g;
  const int size = *rc::gen::inRange(3, 10);
  double x = 0.0;
  for (int i = 0; i < size; ++i) {
    g.line.emplace_back(x, *rc::gen::inRange(-128, 129) / 64.0);
    x += *rc::gen::inRange(8 * 64, 16 * 64) / 64.0;
  }
  g.set.generateBisectors(g.line, gdfVertex(-200, -200), gdfVertex(400, 200));
  g.set.expandBisectors();
  g.line = g.set.getTemplateLine();

  const auto k = static_cast<std::size_t>(*rc::gen::inRange(0, size - 1));
  const gdfVertex along = g.line[k + 1] - g.line[k];
  const double size64ths = *rc::gen::inRange(8, 193);
  g.height = (*rc::gen::arbitrary<bool>() ? size64ths : -size64ths) / 64.0;
  const gdfVertex across = gdfVertex(-along.y(), along.x()) * (g.height / along.length());
  g.point = g.line[k] + along * (*rc::gen::inRange(20, 45) / 64.0) + across;
  RC_PRE(isPlaced(g, g.point));
  return g;
}

zrFlowPath pathThrough(Gentle& g, const gdfVertex& point) {
  zrFlowPath path;
  RC_ASSERT(g.set.generateFlowPath(point, path, false, unsetMark));
  RC_ASSERT(path.valid());
  return path;
}

/// The vertices but the seed: the extension, one on each root bisector, the extension.
VertexLine withoutSeed(const zrFlowPath& path) {
  VertexLine vertices;
  for (std::size_t i = 0; i < path.getFlowLine().size(); ++i) {
    if (path.getSlipValues()[i] != 0.0) vertices.push_back(path.getFlowLine()[i]);
  }
  return vertices;
}

double drawSlipOn(const zrFlowPath& path) {
  const double first = path.getSlipValues().front();
  const double last = path.getSlipValues().back();
  return first + (last - first) * (*rc::gen::inRange(0, 65) / 64.0);
}

bool isSame(const zrFlowPath& a, const zrFlowPath& b) {
  return a.getFlowLine() == b.getFlowLine() && a.getSlipValues() == b.getSlipValues() &&
         a.getH() == b.getH() && a.getL() == b.getL();
}

}  // namespace

RC_GTEST_PROP(FlowPathLaws, SlipZeroIsThePointItRunsThrough, ()) {
  Gentle g = drawGentle();
  RC_ASSERT(pathThrough(g, g.point).getVertex(0.0).distance(g.point) < near);
}

RC_GTEST_PROP(FlowPathLaws, SlipsAscendByTheLengthsOfTheSegments, ()) {
  Gentle g = drawGentle();
  const zrFlowPath path = pathThrough(g, g.point);
  const std::vector<double>& slips = path.getSlipValues();
  for (std::size_t i = 0; i + 1 < slips.size(); ++i) {
    RC_ASSERT(slips[i] < slips[i + 1]);
    const double length = path.getFlowLine()[i].distance(path.getFlowLine()[i + 1]);
    RC_ASSERT(std::fabs(slips[i + 1] - slips[i] - length) < near);
  }
}

RC_GTEST_PROP(FlowPathLaws, InsideADomainTheHeightIsKept, ()) {
  Gentle g = drawGentle();
  const zrFlowPath path = pathThrough(g, g.point);
  RC_ASSERT(std::fabs(path.getH() - g.height) < near);
  const VertexLine vertices = withoutSeed(path);
  RC_ASSERT(vertices.size() == g.line.size());
  for (std::size_t k = 0; k + 1 < vertices.size(); ++k) {
    for (const gdfVertex& v : {vertices[k], vertices[k + 1]}) {
      const double height = zr3DTools::getPerpendicularDistance(g.line[k], g.line[k + 1], v);
      RC_ASSERT(std::fabs(height - std::fabs(g.height)) < near);
    }
  }
}

RC_GTEST_PROP(FlowPathLaws, ForthAndBackComesHome, ()) {
  Gentle g = drawGentle();
  const zrFlowPath path = pathThrough(g, g.point);
  const double slip = drawSlipOn(path);
  const gdfVertex moved = path.getVertex(slip);
  RC_PRE(isPlaced(g, moved));
  const zrFlowPath back = pathThrough(g, moved);
  RC_ASSERT(back.getVertex(-slip).distance(g.point) < 1e-7);
}

RC_GTEST_PROP(FlowPathLaws, ThePathAtAHeightIsThePathThroughAPointAtThatHeight, ()) {
  Gentle g = drawGentle();
  const zrFlowPath path = pathThrough(g, g.point);
  for (int mode : {0, 1}) {
    zrFlowPath atHeight;
    g.set.setFlowPathMode(mode);
    RC_ASSERT(g.set.generateFlowPath(path.getH(), atHeight));
    const VertexLine inner(atHeight.getFlowLine().begin() + 1, atHeight.getFlowLine().end() - 1);
    const VertexLine expected = withoutSeed(path);
    RC_ASSERT(inner == VertexLine(expected.begin() + 1, expected.end() - 1));
  }
}

RC_GTEST_PROP(FlowPathLaws, ReversedTemplatesTurnTheSignOfTheHeight, ()) {
  Gentle g = drawGentle();
  Gentle turned = g;
  turned.line = VertexLine(g.line.rbegin(), g.line.rend());
  turned.set.generateBisectors(turned.line, gdfVertex(-200, -200), gdfVertex(400, 200));
  turned.set.expandBisectors();
  const zrFlowPath path = pathThrough(g, g.point);
  turned.height = -g.height;
  RC_PRE(isPlaced(turned, g.point));
  const zrFlowPath turnedPath = pathThrough(turned, g.point);
  RC_ASSERT(std::fabs(turnedPath.getH() + path.getH()) < near);
  const double slip = drawSlipOn(path);
  RC_ASSERT(turnedPath.getVertex(-slip).distance(path.getVertex(slip)) < 1e-7);
}

// On templates of every kind: the mark for the point's own height and that height are one.
RC_GTEST_PROP(FlowPathLaws, TheMarkMeansTheHeightThatCalculateHGives, ()) {
  for (std::uint32_t seed : *templates::seeds(8)) {
    templates::Numbers numbers(seed);
    zr2DBisectorSet set;
    set.generateBisectors(templates::fromSeed(seed), gdfVertex(-64, -64), gdfVertex(64, 64));
    set.expandBisectors();
    const VertexLine& line = set.getTemplateLine();
    const gdfVertex p =
        line[0] + gdfVertex(numbers.between(-999, 999) / 64.0, numbers.between(-999, 999) / 64.0);
    const bool sidesAgree = set.getSide(p) == zr2DTools::getSideOfLine(line, p, 0.0);
    const double height = set.calculateH(p);
    if (!sidesAgree || height != height || set.getSide(p) == zre::sideOn) continue;
    zrFlowPath marked;
    zrFlowPath given;
    const bool isMade = set.generateFlowPath(p, marked, false, unsetMark);
    RC_ASSERT(set.generateFlowPath(p, given, false, height) == isMade);
    RC_ASSERT(marked.getFlowLine().size() == given.getFlowLine().size());
    if (marked.getFlowLine() == marked.getFlowLine()) RC_ASSERT(isSame(marked, given));
  }
}

// The seed stands in its path, and the ends go on by the lengths of the outer segments: on every
// template with a chain.
RC_GTEST_PROP(FlowPathLaws, TheEndsGoOnByTheOuterSegments, ()) {
  Gentle g = drawGentle();
  const double height = *rc::gen::inRange(-640, 641) / 64.0;
  zrFlowPath path;
  RC_ASSERT(g.set.generateFlowPath(g.point, path, false, height));
  const VertexLine& vertices = path.getFlowLine();
  const std::size_t n = g.line.size();
  const gdfVertex first = vertices[0] - vertices[1];
  const gdfVertex last = vertices.back() - vertices[vertices.size() - 2];
  RC_ASSERT(first.distance(g.line[0] - g.line[1]) < near);
  RC_ASSERT(last.distance(g.line[n - 1] - g.line[n - 2]) < near);
  RC_ASSERT(path.getVertex(0.0).distance(g.point) < near);
}
