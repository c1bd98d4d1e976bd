#include <zrBase/clustering/RabriolLloyds.h>

#include <gtest/gtest.h>

#include "support/scriptedSearch.h"

namespace {

/// Reaches what only derived classes can.
class LloydsProbe : public RabriolLloyds {
 public:
  using RabriolLloyds::accumRDL;
  using RabriolLloyds::best;
  using RabriolLloyds::curr;
  using RabriolLloyds::endRun;
  using RabriolLloyds::endStage;
  using RabriolLloyds::initRunDist;
  using RabriolLloyds::isNewPhase;
  using RabriolLloyds::isRunDone;
  using RabriolLloyds::RabriolLloyds;
  using RabriolLloyds::runInitStage;
  using RabriolLloyds::selectMethod;
  using RabriolLloyds::stageNo;
  using RabriolLloyds::tryAcceptance;
};

KMterm lloydsTerm(int limit, double minAccumRDL, int maxRunStage) {
  KMterm term = stages(limit);
  term.setMinAccumRDL(minAccumRDL);
  term.setMaxRunStage(maxRunStage);
  return term;
}

// A center c that is drawn has the average distortion 1 + c^2, and each step halves it.

TEST(LloydsSearch, WritesStagesAndRuns) {
  ScriptedData data({8.0, 16.0});
  RabriolLloyds search(centerAt(0.0, data), lloydsTerm(6, 0.9, 2));
  const Listening listening;
  KMfilterCenters found = search.execute();
  // 1: (130 - 34) / 130; 2: (130 - 10) / 130, a good run, so that 3 and 4 go on from there. They do
  // not come to 90 %: 5 draws anew, against 10 from before it, and 6 is measured against the draw.
  EXPECT_EQ(listening.text(),
            "\t<stage: 0 curr: 65 best: 65 accumRDL: 0% >\n"
            "\t<stage: 1 curr: 17 best: 17 accumRDL: 73.8462% >\n"
            "\t<stage: 2 curr: 5 best: 5 accumRDL: 92.3077% >\n"
            "    <Generating new random centers>\n"
            "\t<stage: 3 curr: 2 best: 2 accumRDL: 60% >\n"
            "\t<stage: 4 curr: 1.25 best: 1.25 accumRDL: 75% >\n"
            "    <Generating new random centers>\n"
            "\t<stage: 5 curr: 257 best: 1.25 accumRDL: -5040% >\n"
            "\t<stage: 6 curr: 65 best: 1.25 accumRDL: 74.7082% >\n"
            "    <Generating new random centers>\n");
  EXPECT_EQ(found[0][0], 0.5);
  EXPECT_EQ(found.getDist(false), 2.5);
  EXPECT_EQ(search.getTotalStages(), 6);
}

TEST(LloydsSearch, ComputesTheDistortionAtConstruction) {
  ScriptedData data({});
  const LloydsProbe search(centerAt(3.0, data), lloydsTerm(6, 0.9, 2));
  EXPECT_EQ(search.initRunDist, 20.0);
  EXPECT_FALSE(search.isNewPhase);
}

TEST(LloydsSearch, RunsOfOneStageAreJudgedOnIt) {
  ScriptedData data({8.0, 1.0, 6.0});
  LloydsProbe search(centerAt(0.0, data), lloydsTerm(5, 0.7, 1));
  const Listening listening;
  search.execute();
  // 1: 96 / 130; 2: 24 / 34; 3: 6 / 10, too little; 4 draws: (10 - 4) / 10, again too little; 5
  // draws: (10 - 74) / 10.
  EXPECT_EQ(listening.text(),
            "\t<stage: 0 curr: 65 best: 65 accumRDL: 0% >\n"
            "\t<stage: 1 curr: 17 best: 17 accumRDL: 73.8462% >\n"
            "    <Generating new random centers>\n"
            "\t<stage: 2 curr: 5 best: 5 accumRDL: 70.5882% >\n"
            "    <Generating new random centers>\n"
            "\t<stage: 3 curr: 2 best: 2 accumRDL: 60% >\n"
            "    <Generating new random centers>\n"
            "\t<stage: 4 curr: 2 best: 2 accumRDL: 60% >\n"
            "    <Generating new random centers>\n"
            "\t<stage: 5 curr: 37 best: 2 accumRDL: -640% >\n"
            "    <Generating new random centers>\n");
  EXPECT_EQ(search.initRunDist, 10.0);
}

TEST(LloydsSearch, KeptCutOffDrawLeavesThePhaseNew) {
  ScriptedData data({1.0, 0.0, 3.0});
  LloydsProbe search(centerAt(0.0, data), lloydsTerm(3, 0.5, 1));
  const Listening listening;
  search.execute();
  // 1 loses (4 - 2.5) / 4, too little. 2 draws 0, (4 - 2) / 4: a success, and yet 3 draws again.
  EXPECT_EQ(listening.text(),
            "\t<stage: 0 curr: 2 best: 2 accumRDL: 0% >\n"
            "\t<stage: 1 curr: 1.25 best: 1.25 accumRDL: 37.5% >\n"
            "    <Generating new random centers>\n"
            "\t<stage: 2 curr: 1 best: 1 accumRDL: 50% >\n"
            "    <Generating new random centers>\n"
            "\t<stage: 3 curr: 10 best: 1 accumRDL: -900% >\n"
            "    <Generating new random centers>\n");
  EXPECT_EQ(search.initRunDist, 2.0);
  EXPECT_TRUE(search.isNewPhase);
}

TEST(LloydsSearch, KeptNewCentersAreToldAfterEveryRun) {
  ScriptedData data({8.0});
  LloydsProbe search(centerAt(0.0, data), lloydsTerm(1, 0.5, 9));
  const Listening listening;
  search.execute();
  EXPECT_EQ(listening.text(),
            "\t<stage: 0 curr: 65 best: 65 accumRDL: 0% >\n"
            "\t<stage: 1 curr: 17 best: 17 accumRDL: 73.8462% >\n"
            "    <Generating new random centers>\n");
  // The next run would have gone on from here.
  EXPECT_FALSE(search.isNewPhase);
  EXPECT_EQ(search.initRunDist, 34.0);
}

TEST(LloydsSearch, ChoosesADrawForANewPhaseOnly) {
  ScriptedData data({});
  LloydsProbe search(centerAt(3.0, data), lloydsTerm(6, 0.9, 2));
  EXPECT_EQ(search.selectMethod(), KM_ALG_LLOYD);
  search.isNewPhase = true;
  EXPECT_EQ(search.selectMethod(), KM_ALG_RANDOM);
}

TEST(LloydsSearch, KeepsTheBestAtEveryStage) {
  ScriptedData data({});
  LloydsProbe search(centerAt(3.0, data), lloydsTerm(6, 0.9, 2));
  search.curr = centerAt(2.0, data);
  search.endStage();
  EXPECT_EQ(search.stageNo, 1);
  EXPECT_EQ(search.best[0][0], 2.0);
  search.curr = centerAt(-2.0, data);
  search.endStage();
  EXPECT_EQ(search.best[0][0], 2.0);
}

TEST(LloydsSearch, KeptStagesAreJudgedByTheirAverage) {
  ScriptedData data({}, {-1.0, 0.0, 1.0});
  LloydsProbe search(centerAt(3.0, data), lloydsTerm(6, 0.9, 2));
  // Around these points a center c has the total 2 + 3 c^2.
  search.best = centerAt(0x1.3333333333337p-1, data);
  search.curr = centerAt(0x1.3333333333336p-1, data);
  ASSERT_LT(search.curr.getDist(true), search.best.getDist(true));
  ASSERT_EQ(search.curr.getAvgDist(true), search.best.getAvgDist(true));
  search.endStage();
  EXPECT_EQ(search.best[0][0], 0x1.3333333333337p-1);
  // The end of a run compares totals.
  search.tryAcceptance();
  EXPECT_EQ(search.best[0][0], 0x1.3333333333336p-1);
}

TEST(LloydsSearch, RunEndsAtItsLossAtItsLengthOrAtTheLimit) {
  ScriptedData data({});
  LloydsProbe search(centerAt(3.0, data), lloydsTerm(10, 0.5, 4));
  search.initRunDist = 40.0;
  search.stageNo = 3;
  // (40 - 20) / 40 is at least 0.5.
  EXPECT_TRUE(search.isRunDone());
  search.initRunDist = 39.0;
  EXPECT_FALSE(search.isRunDone());
  search.stageNo = 4;
  EXPECT_TRUE(search.isRunDone());
  search.runInitStage = 1;
  EXPECT_FALSE(search.isRunDone());
  search.stageNo = 10;
  search.runInitStage = 9;
  EXPECT_TRUE(search.isRunDone());
}

TEST(LloydsSearch, DrawIsWhatTheRunIsMeasuredAgainst) {
  ScriptedData data({});
  LloydsProbe search(centerAt(3.0, data), lloydsTerm(10, 0.5, 4));
  search.initRunDist = 400.0;
  search.isNewPhase = true;
  search.stageNo = 1;
  EXPECT_FALSE(search.isRunDone());
  EXPECT_FALSE(search.isNewPhase);
  EXPECT_EQ(search.initRunDist, 20.0);
}

TEST(LloydsSearch, NoDistortionIsNoSuccess) {
  ScriptedData data({5.0, 5.0}, {5.0, 5.0});
  LloydsProbe search(centerAt(5.0, data), lloydsTerm(4, 0.5, 3));
  search.execute();
  EXPECT_EQ(search.getTotalStages(), 4);
  EXPECT_EQ(data.drawn(), 2u);
  EXPECT_EQ(search.best.getDist(true), 0.0);
}

TEST(LloydsSearch, ResetForgetsThePhase) {
  ScriptedData data({8.0, 6.0});
  LloydsProbe search(centerAt(0.0, data), lloydsTerm(1, 0.9, 1));
  search.execute();
  EXPECT_TRUE(search.isNewPhase);
  const Listening listening;
  EXPECT_EQ(search.execute()[0][0], 3.0);
  EXPECT_EQ(listening.text(),
            "\t<stage: 0 curr: 37 best: 37 accumRDL: 0% >\n"
            "\t<stage: 1 curr: 10 best: 10 accumRDL: 72.973% >\n"
            "    <Generating new random centers>\n");
}

TEST(LloydsSearch, CopyTakesPhaseAndDistortion) {
  ScriptedData data({});
  LloydsProbe search(centerAt(3.0, data), lloydsTerm(6, 0.9, 2));
  search.isNewPhase = true;
  search.initRunDist = 123.0;
  const LloydsProbe copy(search);
  LloydsProbe assigned(centerAt(0.0, data), stages(1));
  assigned = search;
  for (const LloydsProbe& other : {copy, assigned}) {
    EXPECT_TRUE(other.isNewPhase);
    EXPECT_EQ(other.initRunDist, 123.0);
    EXPECT_EQ(other.curr[0][0], 3.0);
  }
}

}  // namespace
