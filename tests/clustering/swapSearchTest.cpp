#include <zrBase/clustering/RabriolSwap.h>

#include <gtest/gtest.h>

#include "support/scriptedSearch.h"

namespace {

/// Reaches what only derived classes can.
class SwapProbe : public RabriolSwap {
 public:
  using RabriolSwap::beginRun;
  using RabriolSwap::best;
  using RabriolSwap::curr;
  using RabriolSwap::isRunDone;
  using RabriolSwap::maxSwaps;
  using RabriolSwap::RabriolSwap;
  using RabriolSwap::runInitStage;
  using RabriolSwap::selectMethod;
  using RabriolSwap::stageNo;
  using RabriolSwap::swapCt;
  using RabriolSwap::tryAcceptance;
};

TEST(SwapSearch, SingleSwapsAreKeptOrUndoneAtOnce) {
  ScriptedData data({4.0, 2.0, 3.0, 1.0});
  SwapProbe search(centerAt(0.0, data), stages(3), 1);
  const Listening listening;
  KMfilterCenters found = search.execute();
  // Each line comes before the run is judged: that of 2 shows 3, which is taken back.
  EXPECT_EQ(listening.text(),
            "\t<stage: 0 curr: 17 best: 17 >\n"
            "\t<stage: 1 curr: 5 best: 17 >\n"
            "\t<stage: 2 curr: 10 best: 5 >\n"
            "\t<stage: 3 curr: 2 best: 5 >\n");
  EXPECT_EQ(found[0][0], 1.0);
  EXPECT_EQ(search.curr[0][0], 1.0);
}

TEST(SwapSearch, LimitOfThreeStagesMakesThreeRuns) {
  ScriptedData data({4.0, 2.0, 3.0, 1.0});
  RabriolSwap search(centerAt(0.0, data), stages(3), 1);
  search.execute();
  EXPECT_EQ(search.getTotalStages(), 3);
  EXPECT_EQ(data.drawn(), 4u);
}

TEST(SwapSearch, KeptSwapRunCountsAsOneStage) {
  ScriptedData data({4.0, 9.0, 9.0, 9.0, 9.0, 9.0, 3.0});
  RabriolSwap search(centerAt(0.0, data), stages(2), 3);
  const Listening listening;
  EXPECT_EQ(search.execute()[0][0], 3.0);
  EXPECT_EQ(search.getTotalStages(), 2);
  EXPECT_EQ(data.drawn(), 7u);
  EXPECT_EQ(listening.text(),
            "\t<stage: 0 curr: 17 best: 17 >\n"
            "\t<stage: 1 curr: 82 best: 17 >\n"
            "\t<stage: 2 curr: 10 best: 17 >\n");
}

TEST(SwapSearch, RunIsJudgedAtItsEndOnly) {
  ScriptedData data({4.0, 0.0, 8.0});
  SwapProbe search(centerAt(0.0, data), stages(1), 2);
  // The 0 in between is better than all, and lost.
  EXPECT_EQ(search.execute()[0][0], 4.0);
  EXPECT_EQ(search.curr[0][0], 4.0);
}

TEST(SwapSearch, KeptEqualSwapIsTakenBack) {
  ScriptedData data({4.0, -4.0});
  SwapProbe search(centerAt(0.0, data), stages(1), 1);
  EXPECT_EQ(search.execute()[0][0], 4.0);
  EXPECT_EQ(search.curr[0][0], 4.0);
}

TEST(SwapSearch, FewerThanTwoSwapsAreOne) {
  ScriptedData data({4.0, 2.0, 1.0});
  RabriolSwap search(centerAt(0.0, data), stages(2), -5);
  search.execute();
  EXPECT_EQ(data.drawn(), 3u);
}

TEST(SwapSearch, AlwaysSwapsAndCountsTheSwapsOfARun) {
  ScriptedData data({});
  SwapProbe search(centerAt(0.0, data), stages(2), 2);
  EXPECT_EQ(search.swapCt, 0);
  EXPECT_EQ(search.selectMethod(), KM_ALG_SWAP);
  EXPECT_FALSE(search.isRunDone());
  EXPECT_EQ(search.swapCt, 1);
  EXPECT_TRUE(search.isRunDone());
  EXPECT_EQ(search.swapCt, 2);
  search.stageNo = 1;
  search.beginRun();
  EXPECT_EQ(search.swapCt, 0);
  EXPECT_EQ(search.runInitStage, 1);
  // At the limit the swap is not even counted.
  search.stageNo = 2;
  EXPECT_TRUE(search.isRunDone());
  EXPECT_EQ(search.swapCt, 0);
}

TEST(SwapSearch, CopyTakesItsCounts) {
  ScriptedData data({});
  SwapProbe search(centerAt(3.0, data), stages(2), 5);
  search.swapCt = 4;
  const SwapProbe copy(search);
  SwapProbe assigned(centerAt(0.0, data), stages(1), 1);
  assigned = search;
  for (const SwapProbe& other : {copy, assigned}) {
    EXPECT_EQ(other.maxSwaps, 5);
    EXPECT_EQ(other.swapCt, 4);
    EXPECT_EQ(other.best[0][0], 3.0);
  }
}

}  // namespace
