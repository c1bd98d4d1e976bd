#include <zrBase/clustering/RabriolEZ_Hybrid.h>

#include <gtest/gtest.h>

#include "support/scriptedSearch.h"

#include <string>

namespace {

/// Reaches what only derived classes can.
class EzHybridProbe : public RabriolEZ_Hybrid {
 public:
  using RabriolEZ_Hybrid::beginStage;
  using RabriolEZ_Hybrid::best;
  using RabriolEZ_Hybrid::consecRDL;
  using RabriolEZ_Hybrid::curr;
  using RabriolEZ_Hybrid::endStage;
  using RabriolEZ_Hybrid::isNewRun;
  using RabriolEZ_Hybrid::isRunDone;
  using RabriolEZ_Hybrid::prevDist;
  using RabriolEZ_Hybrid::RabriolEZ_Hybrid;
  using RabriolEZ_Hybrid::reset;
  using RabriolEZ_Hybrid::selectMethod;
  using RabriolEZ_Hybrid::stageNo;
};

KMterm ezHybridTerm(int limit, double minConsecRDL) {
  KMterm term = stages(limit);
  term.setMinConsecRDL(minConsecRDL);
  return term;
}

// A center c that is drawn has the total distortion 2 + 2 c^2, and each Lloyd step halves it.

TEST(EzHybridSearch, WritesStagesAndRuns) {
  ScriptedData data({4.0, 8.0, 16.0});
  RabriolEZ_Hybrid search(centerAt(0.0, data), ezHybridTerm(4, 0.72));
  const Listening listening;
  KMfilterCenters found = search.execute();
  // Totals: 34; swap to 130, then 34 and 10, a loss of 24 / 34. Swap to 514, then 130, 34, 10.
  EXPECT_EQ(listening.text(),
            "    <stage: 0 curr: 17 best: 17 consecRDL: -inf >\n"
            "    <stage: 1 curr: 65 best: 17 consecRDL: -2.82353 >\n"
            "    <stage: 2 curr: 17 best: 17 consecRDL: 0.738462 >\n"
            "    <stage: 3 curr: 5 best: 17 consecRDL: 0.705882 >\n"
            "    <Swapping Centers>\n"
            "    <stage: 4 curr: 257 best: 5 consecRDL: -50.4 >\n"
            "    <stage: 5 curr: 65 best: 5 consecRDL: 0.747082 >\n"
            "    <stage: 6 curr: 17 best: 5 consecRDL: 0.738462 >\n"
            "    <stage: 7 curr: 5 best: 5 consecRDL: 0.705882 >\n"
            "    <Swapping Centers>\n");
  EXPECT_EQ(found[0][0], 2.0);
  EXPECT_EQ(search.getTotalStages(), 7);
}

TEST(EzHybridSearch, KeptRunGoesOnPastTheLimit) {
  ScriptedData data({4.0, 8.0});
  RabriolEZ_Hybrid search(centerAt(0.0, data), ezHybridTerm(1, 0.72));
  search.execute();
  EXPECT_EQ(search.getTotalStages(), 3);
}

TEST(EzHybridSearch, KeptBadRunIsNotTakenBack) {
  ScriptedData data({1.0, 16.0, 1.0});
  EzHybridProbe search(centerAt(0.0, data), ezHybridTerm(3, 0.9));
  const Listening listening;
  EXPECT_EQ(search.execute()[0][0], 0.5);
  // The second swap starts from 130, where the bad run ended, and not from the best, which has 4.
  EXPECT_EQ(listening.text(),
            "    <stage: 0 curr: 2 best: 2 consecRDL: -inf >\n"
            "    <stage: 1 curr: 257 best: 2 consecRDL: -127.5 >\n"
            "    <stage: 2 curr: 65 best: 2 consecRDL: 0.747082 >\n"
            "    <Swapping Centers>\n"
            "    <stage: 3 curr: 2 best: 2 consecRDL: 0.969231 >\n"
            "    <stage: 4 curr: 1.25 best: 2 consecRDL: 0.375 >\n"
            "    <Swapping Centers>\n");
}

TEST(EzHybridSearch, KeptLossOfStageZeroIsInfinite) {
  ScriptedData data({4.0, 8.0, 1.0, 8.0});
  EzHybridProbe search(centerAt(0.0, data), ezHybridTerm(1, 0.9));
  EXPECT_EQ(search.prevDist, 0.0);
  std::string first;
  {
    const Listening listening;
    search.execute();
    first = listening.text();
  }
  EXPECT_EQ(first.substr(0, first.find('\n')), "    <stage: 0 curr: 17 best: 17 consecRDL: -inf >");
  // The next search begins with the loss since the last stage of this one began: (130 - 4) / 130.
  const Listening listening;
  search.execute();
  EXPECT_EQ(listening.text().substr(0, listening.text().find('\n')),
            "    <stage: 0 curr: 2 best: 2 consecRDL: 0.969231 >");
}

TEST(EzHybridSearch, RunEndsAtALossThatIsNoMoreThanTheLeast) {
  ScriptedData data({});
  EzHybridProbe search(centerAt(3.0, data), ezHybridTerm(9, 0.5));
  search.prevDist = 40.0;
  EXPECT_TRUE(search.isNewRun);
  EXPECT_EQ(search.selectMethod(), KM_ALG_SWAP);
  EXPECT_FALSE(search.isRunDone());
  EXPECT_FALSE(search.isNewRun);
  EXPECT_EQ(search.selectMethod(), KM_ALG_LLOYD);
  // (40 - 20) / 40 is 0.5.
  EXPECT_TRUE(search.isRunDone());
  search.prevDist = 41.0;
  EXPECT_FALSE(search.isRunDone());
}

TEST(EzHybridSearch, ResetAsksForASwap) {
  ScriptedData data({4.0});
  EzHybridProbe search(centerAt(3.0, data), ezHybridTerm(9, 0.5));
  search.isNewRun = false;
  search.reset();
  EXPECT_TRUE(search.isNewRun);
  EXPECT_EQ(search.selectMethod(), KM_ALG_SWAP);
}

TEST(EzHybridSearch, NoDistortionEndsTheRun) {
  ScriptedData data({5.0, 5.0}, {5.0, 5.0});
  EzHybridProbe search(centerAt(5.0, data), ezHybridTerm(1, 0.5));
  EXPECT_EQ(search.execute()[0][0], 5.0);
  EXPECT_EQ(search.getTotalStages(), 2);
  EXPECT_NE(search.consecRDL(), search.consecRDL());
}

TEST(EzHybridSearch, StageBeginsWithItsDistortionNotedAndEndsComputed) {
  ScriptedData data({});
  EzHybridProbe search(centerAt(3.0, data), ezHybridTerm(9, 0.5));
  search.beginStage();
  EXPECT_EQ(search.prevDist, 20.0);
  search.curr = centerAt(1.0, data);
  search.endStage();
  EXPECT_EQ(search.stageNo, 1);
  EXPECT_EQ(search.curr.getDist(false), 4.0);
  EXPECT_EQ(search.consecRDL(), 0.8);
}

TEST(EzHybridSearch, CopyTakesItsState) {
  ScriptedData data({});
  EzHybridProbe search(centerAt(3.0, data), ezHybridTerm(9, 0.5));
  search.isNewRun = false;
  search.prevDist = 7.0;
  const EzHybridProbe copy(search);
  EzHybridProbe assigned(centerAt(0.0, data), stages(1));
  assigned = search;
  for (const EzHybridProbe& other : {copy, assigned}) {
    EXPECT_FALSE(other.isNewRun);
    EXPECT_EQ(other.prevDist, 7.0);
    EXPECT_EQ(other.best[0][0], 3.0);
  }
}

}  // namespace
