#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zrBase/tools3d/zr3DTools.h>

#include "bisectors/support/chainComparison.h"
#include "bisectors/support/faultTraces.h"
#include "support/geometryText.h"

#include <algorithm>
#include <string>

// Skeletons of mapped fault traces: what every chain that others climb through has to keep.

namespace {

const gdfVertex boundsFirst(-1e6, -1e6);
const gdfVertex boundsSecond(1e6, 1e6);

zr2DBisectorSet setOver(const VertexLine& trace) {
  zr2DBisectorSet set;
  EXPECT_TRUE(set.generateBisectors(trace, boundsFirst, boundsSecond));
  return set;
}

VertexLine withoutRepeats(VertexLine trace) {
  trace.erase(std::unique(trace.begin(), trace.end()), trace.end());
  return trace;
}

/// The traces of one file, one chain after the other.
class RealTraces : public testing::TestWithParam<const char*> {
 protected:
  RealTraces()
      : traces(
            faultTraces::read(std::string(ZRBASE_EXAMPLE_DATA) + "/" + GetParam() + ".geojson")) {}

  template <class Check>
  void forEachChain(Check check) const {
    ASSERT_FALSE(traces.empty());
    for (const VertexLine& trace : traces) {
      zr2DBisectorSet set = setOver(withRepeats ? trace : withoutRepeats(trace));
      SCOPED_TRACE("trace from " + toText(trace.front()) + " to " + toText(trace.back()));
      check(set.getTemplateLine(), set.getLeftBisectors());
      check(set.getTemplateLine(), set.getRightBisectors());
    }
  }

  /// Every bisector that is not retired.
  template <class Check>
  void forEachLive(Check check) const {
    forEachChain([&](const VertexLine& line, const Chain& chain) {
      for (std::size_t i = 0; i < chain.size(); ++i) {
        if (chain[i].getType() != 5) check(line, chain, static_cast<int>(i));
      }
    });
  }

  const VertexLineList traces;
  bool withRepeats = true;
};

const zr2DBisector& at(const Chain& chain, int i) { return chain.at(static_cast<std::size_t>(i)); }

double heightAbove(const VertexLine& line, int segment, const gdfVertex& p) {
  const auto k = static_cast<std::size_t>(segment);
  return zr3DTools::getPerpendicularDistance(line.at(k), line.at(k + 1), p);
}

/// Cosine of the angle between a root and the arm from its vertex to another.
double cosineToArm(const zr2DBisector& root, const gdfVertex& other) {
  const gdfVertex arm = other - root.getBase();
  return root.getNormalVector() * arm / arm.length();
}

TEST_P(RealTraces, ConnectionsAreMutual) {
  forEachLive([](const VertexLine&, const Chain& chain, int i) {
    const zr2DBisector& b = at(chain, i);
    if (b.getType() == 0) {
      for (int below : connectionsOf(b)) EXPECT_EQ(at(chain, below).getTopConnect(), i);
    }
    if (b.getTopConnect() == -1) return;
    EXPECT_THAT(connectionsOf(at(chain, b.getTopConnect())), testing::Contains(i));
    EXPECT_NE(at(chain, b.getTopConnect()).getType(), 5);
  });
}

TEST_P(RealTraces, TopsAreTheBaseOfTheBisectorAbove) {
  forEachLive([](const VertexLine&, const Chain& chain, int i) {
    const int above = at(chain, i).getTopConnect();
    if (above == -1) return;
    EXPECT_EQ(at(chain, i).getTop(), at(chain, above).getBase());
  });
}

TEST_P(RealTraces, DomainsRunFromLeftToRight) {
  forEachLive([](const VertexLine& line, const Chain& chain, int i) {
    EXPECT_GE(at(chain, i).getLeftDomain(), 0);
    EXPECT_LT(at(chain, i).getLeftDomain(), at(chain, i).getRightDomain());
    EXPECT_LE(at(chain, i).getRightDomain(), static_cast<int>(line.size()) - 2);
  });
}

TEST_P(RealTraces, EveryNumberIsFinite) {
  forEachChain([](const VertexLine&, const Chain& chain) {
    for (const zr2DBisector& b : chain) {
      EXPECT_TRUE(b.getBase().valid() && b.getTop().valid() && b.getNormalVector().valid());
    }
  });
}

TEST_P(RealTraces, RootsStandAtTheirVertexAndHalveTheBend) {
  forEachChain([](const VertexLine& line, const Chain& chain) {
    ASSERT_GE(chain.size() + 2, line.size());
    for (std::size_t v = 1; v + 1 < line.size(); ++v) {
      const zr2DBisector& root = chain[v - 1];
      EXPECT_EQ(root.getType(), 1);
      EXPECT_EQ(root.getBase(), line[v]);
      EXPECT_THAT(connectionsOf(root), testing::ElementsAre(static_cast<int>(v)));
      if (line[v - 1] == line[v] || line[v] == line[v + 1]) continue;
      EXPECT_NEAR(cosineToArm(root, line[v - 1]), cosineToArm(root, line[v + 1]), 1e-9);
    }
  });
}

// A vertex that is mapped twice makes a segment without a direction, whose heights mean nothing.
TEST_P(RealTraces, HeightsAboveBothDomainsAreEqual) {
  withRepeats = false;
  forEachLive([](const VertexLine& line, const Chain& chain, int i) {
    const zr2DBisector& b = at(chain, i);
    for (const gdfVertex& p : {b.getBase(), b.getTop()}) {
      const double left = heightAbove(line, b.getLeftDomain(), p);
      EXPECT_NEAR(left, heightAbove(line, b.getRightDomain(), p), 1e-6 * (1.0 + left));
    }
  });
}

TEST_P(RealTraces, ChainsAreThoseOfThePlainConstruction) {
  for (const VertexLine& trace : traces) {
    zr2DBisectorSet set = setOver(trace);
    for (zre::side side : {zre::sideLeft, zre::sideRight}) {
      const Chain& chain = side == zre::sideLeft ? set.getLeftBisectors() : set.getRightBisectors();
      reference::Skeleton expected = skeletonOf(trace, side);
      expected.generateWithinBounds(boundsFirst, boundsSecond);
      ASSERT_FALSE(expected.endless);
      EXPECT_EQ(difference(chain, expected.chain), "") << toText(trace.front());
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Faults, RealTraces,
                         testing::Values("anatolia", "california", "long_traces", "new_zealand"),
                         [](const auto& file) { return std::string(file.param); });

}  // namespace
