#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "bisectors/support/chainComparison.h"
#include "bisectors/support/referenceSkeleton.h"
#include "bisectors/support/templateGenerators.h"
#include "support/geometryText.h"

#include <string>

// The chains of the library against those of a plain second construction, coordinate by coordinate.
// The library skips tries that cannot change a chain, and rules bisectors out before it measures
// them exactly: here is the proof that neither shows.

namespace {

double anyReach(templates::Numbers& numbers) {
  static const double reaches[] = {40.0, 0.25, 5.0, 1e06, 1e04, 1e12, 1e300, 1e-03, 1e04, 1e06};
  return reaches[numbers.below(10)];
}

zre::side anySide(templates::Numbers& numbers) {
  return numbers.below(2) == 0 ? zre::sideLeft : zre::sideRight;
}

Chain& chainOf(zr2DBisectorSet& set, zre::side side) {
  return side == zre::sideLeft ? set.getLeftBisectors() : set.getRightBisectors();
}

/// Where nearest bisectors tie: on them, on their ends, a hair beside, and half way between two.
gdfVertex placeNear(templates::Numbers& numbers, const Chain& chain) {
  static const double hairs[] = {0.0, 1e-12, 1e-09, 9e-06, 1e-05, 1.1e-05, 1e-03, -1e-09, -1e-05};
  const auto any = [&]() -> const zr2DBisector& {
    return chain[static_cast<std::size_t>(numbers.below(static_cast<int>(chain.size())))];
  };
  const zr2DBisector& a = any();
  const zr2DBisector& b = any();
  const double hair = hairs[numbers.below(9)];
  switch (numbers.below(7)) {
    case 0:
      return a.getBase() + gdfVertex(hair, -hair);
    case 1:
      return a.getTop() + gdfVertex(-hair, hair);
    case 2:
      return (a.getBase() + a.getTop()) * 0.5 + gdfVertex(hair, hair);
    case 3:
      return (a.getBase() + b.getBase()) * 0.5;
    case 4:
      return (a.getBase() + b.getTop()) * 0.5 + gdfVertex(hair, 0.0);
    case 5:
      return a.getBase() + a.getNormalVector() * (numbers.unit() * 3.0);
    default:
      return a.getBase() + gdfVertex(numbers.between(-16, 16) / 4.0, numbers.between(-16, 16) / 4.0,
                                     numbers.between(-2, 2) * 0.5);
  }
}

RC_GTEST_PROP(SkeletonReference, OneSideFormBuildsTheSameChain, ()) {
  for (std::uint32_t seed : *templates::seeds(40)) {
    templates::Numbers numbers(seed ^ 0x5bd1e995u);
    const VertexLine line = templates::fromSeed(seed);
    reference::Skeleton expected = skeletonOf(line, anySide(numbers));
    const double reach = anyReach(numbers);
    expected.generate(reach);
    if (expected.endless) continue;
    zr2DBisectorSet set;
    RC_ASSERT(set.generateBisectors(line, expected.side, reach));
    RC_LOG() << toText(line) << " side " << expected.side << " reach " << reach << '\n';
    RC_ASSERT(difference(chainOf(set, expected.side), expected.chain) == "");
  }
}

RC_GTEST_PROP(SkeletonReference, TwoBoundsFormBuildsTheSameChains, ()) {
  for (std::uint32_t seed : *templates::seeds(25)) {
    templates::Numbers numbers(seed ^ 0x7feb352du);
    const VertexLine line = templates::fromSeed(seed);
    const double reach = anyReach(numbers);
    const gdfVertex first = line[0] + gdfVertex(-reach, numbers.unit());
    const gdfVertex second = line[1] + gdfVertex(reach * 0.5, -reach);
    zr2DBisectorSet set;
    RC_ASSERT(set.generateBisectors(line, first, second));
    for (zre::side side : {zre::sideLeft, zre::sideRight}) {
      reference::Skeleton expected = skeletonOf(line, side);
      expected.generateWithinBounds(first, second);
      if (expected.endless) continue;
      RC_LOG() << toText(line) << " bounds " << toText(first) << ", " << toText(second) << '\n';
      RC_ASSERT(difference(chainOf(set, side), expected.chain) == "");
      RC_ASSERT(toText(set.getTemplateLine()) == toText(expected.line));
    }
  }
}

RC_GTEST_PROP(SkeletonReference, PassesOneByOneGiveTheChainOfTheGenerator, ()) {
  for (std::uint32_t seed : *templates::seeds(25)) {
    templates::Numbers numbers(seed ^ 0x2c1b3c6du);
    const VertexLine line = templates::fromSeed(seed);
    const double reach = anyReach(numbers);
    reference::Skeleton expected = skeletonOf(line, anySide(numbers));
    expected.makeRoots();
    zr2DBisectorSet set;
    RC_ASSERT(set.generateBisectors(line, expected.side, reach));
    const Chain generated = chainOf(set, expected.side);
    Chain chain;
    set.generateRootBisectors(expected.side, chain);
    for (int pass = 0; pass < 1001; ++pass) {
      const std::size_t before = chain.size();
      set.generateAdditionalBisectors(expected.side, chain, reach);
      expected.pass(reach);
      if (expected.endless) break;
      RC_LOG() << toText(line) << " side " << expected.side << " reach " << reach << " pass "
               << pass << '\n';
      RC_ASSERT(difference(chain, expected.chain) == "");
      if (chain.size() == before) break;
    }
    if (!expected.endless) RC_ASSERT(difference(generated, copyOf(chain)) == "");
  }
}

RC_GTEST_PROP(SkeletonReference, MergingIntoChainsThatCallersChangedIsTheSame, ()) {
  for (std::uint32_t seed : *templates::seeds(25)) {
    templates::Numbers numbers(seed ^ 0x297a2d39u);
    const VertexLine line = templates::fromSeed(seed);
    reference::Skeleton expected = skeletonOf(line, anySide(numbers));
    zr2DBisectorSet set;
    RC_ASSERT(set.generateBisectors(line, expected.side, anyReach(numbers)));
    Chain chain = chainOf(set, expected.side);
    expected.chain = copyOf(chain);
    const int index = numbers.below(static_cast<int>(chain.size()));
    set.removeAllConnectionsAbove(chain, index);
    expected.removeAbove(index);
    RC_LOG() << toText(line) << " side " << expected.side << " index " << index << '\n';
    RC_ASSERT(difference(chain, expected.chain) == "");
    const double reach = anyReach(numbers);
    for (int pass = 0; pass < 4 && !expected.endless; ++pass) {
      set.generateAdditionalBisectors(expected.side, chain, reach);
      expected.pass(reach);
    }
    if (!expected.endless) RC_ASSERT(difference(chain, expected.chain) == "");
  }
}

RC_GTEST_PROP(SkeletonReference, QueriesAnswerTheSame, ()) {
  for (std::uint32_t seed : *templates::seeds(8)) {
    templates::Numbers numbers(seed ^ 0x85ebca6bu);
    const VertexLine line = templates::fromSeed(seed);
    const zre::side side = anySide(numbers);
    zr2DBisectorSet set;
    RC_ASSERT(set.generateBisectors(line, side, anyReach(numbers)));
    Chain& chain = chainOf(set, side);
    reference::Skeleton expected = skeletonOf(line, side);
    expected.chain = copyOf(chain);
    for (int i = 0; i < 300; ++i) {
      const gdfVertex p = placeNear(numbers, chain);
      const int index = numbers.between(-1, static_cast<int>(chain.size()));
      const std::size_t b = static_cast<std::size_t>(i) % chain.size();
      if (set.getBisectorSide(side, chain, index, p) != expected.sideOfChain(index, p) ||
          set.isSideOK(chain[b], p) != reference::Skeleton::isAhead(expected.chain[b], p)) {
        RC_FAIL(toText(line) + " side " + std::to_string(side) + " index " + std::to_string(index) +
                " bisector " + std::to_string(b) + " at " + toText(p));
      }
    }
  }
}

RC_GTEST_PROP(SkeletonReference, DomainsAndHitsAreTheSame, ()) {
  for (std::uint32_t seed : *templates::seeds(8)) {
    templates::Numbers numbers(seed ^ 0xc2b2ae35u);
    const VertexLine line = templates::fromSeed(seed);
    const double reach = numbers.between(1, 64) * 1.0;
    zr2DBisectorSet set;
    const gdfVertex first(-reach, -reach), second(reach, reach * 2.0);
    RC_ASSERT(set.generateBisectors(line, first, second));
    if (numbers.below(3) != 0) set.expandBisectors();
    const reference::Chain left = copyOf(set.getLeftBisectors());
    const reference::Chain right = copyOf(set.getRightBisectors());
    reference::DomainAnswer answer;
    for (int i = 0; i < 100; ++i) {
      const auto side = static_cast<zre::side>(numbers.below(4));
      const bool onLeft = side == zre::sideOn || side == zre::sideLeft;
      const Chain& chain = onLeft ? set.getLeftBisectors() : set.getRightBisectors();
      const gdfVertex p = placeNear(numbers, chain);
      gdfVertex hit(7.0, 7.0, 7.0);
      answer.hit = hit;
      answer = reference::domainOf(onLeft ? left : right, set.getTemplateLine(),
                                   set.getBoundsFirst(), set.getBoundsSecond(), side, p, answer);
      if (set.getDomain(side, p, hit) != answer.domain || !sameVertex(hit, answer.hit) ||
          set.getLastBisector() != answer.lastBisector) {
        RC_FAIL(toText(line) + " side " + std::to_string(side) + " at " + toText(p));
      }
    }
  }
}

}  // namespace
