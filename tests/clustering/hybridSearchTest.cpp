#include <zrBase/clustering/RabriolHybrid.h>

#include <gtest/gtest.h>

#include "support/scriptedSearch.h"

#include <cmath>
#include <limits>
#include <string>

namespace {

constexpr int noStageYet = 2147483647;
constexpr double infinity = std::numeric_limits<double>::infinity();

/// Reaches what only derived classes can.
class HybridProbe : public RabriolHybrid {
 public:
  using RabriolHybrid::accumRDL;
  using RabriolHybrid::areSwapping;
  using RabriolHybrid::beginStage;
  using RabriolHybrid::best;
  using RabriolHybrid::consecRDL;
  using RabriolHybrid::curr;
  using RabriolHybrid::endRun;
  using RabriolHybrid::endStage;
  using RabriolHybrid::initTempRuns;
  using RabriolHybrid::initTempRunStage;
  using RabriolHybrid::isRunDone;
  using RabriolHybrid::isTempRunDone;
  using RabriolHybrid::nTrials;
  using RabriolHybrid::prevDist;
  using RabriolHybrid::RabriolHybrid;
  using RabriolHybrid::reset;
  using RabriolHybrid::save;
  using RabriolHybrid::selectMethod;
  using RabriolHybrid::simAnnealAccept;
  using RabriolHybrid::stageNo;
  using RabriolHybrid::sumTrials;
  using RabriolHybrid::temperature;
  using RabriolHybrid::trialCt;
  using RabriolHybrid::tryAcceptance;
};

// A random number lies from 0 to 1, both included: a probability of 0 refuses every time, and one
// of 2, which nobody checks, accepts every time.
constexpr double never = 0.0;
constexpr double always = 2.0;

KMterm hybridTerm(int limit, double minConsecRDL, double initProbAccept, int tempRunLength = 0,
                  double tempReducFact = 0.5) {
  KMterm term = stages(limit);
  term.setMinConsecRDL(minConsecRDL);
  term.setInitProbAccept(initProbAccept);
  term.setTempRunLength(tempRunLength);
  term.setTempReducFact(tempReducFact);
  return term;
}

TEST(HybridSearch, WritesStagesAndRuns) {
  ScriptedData data({4.0, 8.0, 32.0});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.72, never));
  const Listening listening;
  KMfilterCenters found = search.execute();
  // Totals: 34; swap to 130, not accepted, then 34 and 10: better than what is saved. Swap to 2050,
  // then 514, 130, 34 and 10: no better, not accepted.
  EXPECT_EQ(listening.text(),
            "    <stage: 0 curr: 17 best: 17 save: 17 consecRDL: -inf >\n"
            "    <stage: 1 curr: 65 best: 17 save: 17 consecRDL: -2.82353 >\n"
            "    <stage: 2 curr: 17 best: 17 save: 17 consecRDL: 0.738462 >\n"
            "    <stage: 3 curr: 5 best: 17 save: 17 consecRDL: 0.705882 >\n"
            "    <End of Run>\n"
            "    <stage: 4 curr: 1025 best: 5 save: 5 consecRDL: -204 >\n"
            "    <stage: 5 curr: 257 best: 5 save: 5 consecRDL: 0.749268 >\n"
            "    <stage: 6 curr: 65 best: 5 save: 5 consecRDL: 0.747082 >\n"
            "    <stage: 7 curr: 17 best: 5 save: 5 consecRDL: 0.738462 >\n"
            "    <stage: 8 curr: 5 best: 5 save: 5 consecRDL: 0.705882 >\n"
            "    <End of Run>\n");
  EXPECT_EQ(found[0][0], 2.0);
  EXPECT_EQ(search.getTotalStages(), 8);
}

TEST(HybridSearch, StartsWithNothingMeasured) {
  ScriptedData data({});
  const HybridProbe search(centerAt(3.0, data), hybridTerm(4, 0.72, 0.5, 30));
  EXPECT_EQ(search.temperature, 0.0);
  EXPECT_EQ(search.initTempRunStage, 0);
  EXPECT_TRUE(search.areSwapping);
  EXPECT_EQ(search.prevDist, 0.0);
  EXPECT_EQ(search.sumTrials, 0.0);
  EXPECT_EQ(search.trialCt, 0);
  EXPECT_EQ(search.save[0][0], 3.0);
}

// The temperature.

TEST(HybridSearch, KeptTrialsAreAtLeastTwenty) {
  ScriptedData data({4.0});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.72, 0.5, 5));
  search.reset();
  EXPECT_EQ(search.trialCt, 20);
  search.stageNo = 33;
  for (int i = 0; i < 19; ++i) search.simAnnealAccept(1.0);
  EXPECT_EQ(search.initTempRunStage, noStageYet);
  EXPECT_FALSE(search.isTempRunDone());
  EXPECT_EQ(search.temperature, 0.0);
  search.simAnnealAccept(1.0);
  EXPECT_EQ(search.initTempRunStage, 33);
  EXPECT_EQ(search.trialCt, 0);
  EXPECT_NEAR(search.temperature, 1.4426950408889634, 1e-15);  // 20 / (20 ln 2)
  search.simAnnealAccept(1.0);
  EXPECT_EQ(search.sumTrials, 20.0);
  EXPECT_EQ(search.trialCt, -1);
}

TEST(HybridSearch, LongTemperatureRunsHaveAsManyTrials) {
  ScriptedData data({4.0});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.72, 0.5, 21));
  EXPECT_EQ(search.nTrials(), 21);
  search.reset();
  for (int i = 0; i < 20; ++i) search.simAnnealAccept(1.0);
  EXPECT_EQ(search.temperature, 0.0);
  search.simAnnealAccept(22.0);
  EXPECT_NEAR(search.temperature, 2.0 / std::log(2.0), 1e-15);  // (20 + 22) / (21 ln 2)
}

TEST(HybridSearch, TrialsCountByTheirAbsoluteLoss) {
  ScriptedData data({4.0});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.72, std::exp(-1.0)));
  search.reset();
  for (int i = 0; i < 10; ++i) {
    search.simAnnealAccept(-0.5);
    search.simAnnealAccept(1.5);
  }
  EXPECT_EQ(search.sumTrials, 20.0);
  EXPECT_NEAR(search.temperature, 1.0, 1e-15);
}

TEST(HybridSearch, KeptTrialIgnoresTheSizeOfTheLoss) {
  ScriptedData data({4.0});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.72, 0.25));
  // 4000 trials of huge, small and no losses: 1000 are expected, with a deviation of 27.
  int accepted = 0;
  for (int i = 0; i < 4000; ++i) {
    search.initTempRuns();
    const double losses[] = {-1e12, -1e-3, 0.0, 0.9};
    if (search.simAnnealAccept(losses[i % 4])) ++accepted;
  }
  EXPECT_GT(accepted, 800);
  EXPECT_LT(accepted, 1200);
  // Nor does a temperature of before matter.
  search.temperature = 1e-6;
  accepted = 0;
  for (int i = 0; i < 4000; ++i) {
    search.initTempRuns();
    if (search.simAnnealAccept(-1.0)) ++accepted;
  }
  EXPECT_GT(accepted, 800);
}

TEST(HybridSearch, LastTrialStillTakesTheInitialProbability) {
  ScriptedData data({4.0});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.72, always));
  for (int i = 0; i < 50; ++i) {
    search.initTempRuns();
    search.trialCt = 1;
    EXPECT_TRUE(search.simAnnealAccept(-infinity));
  }
}

TEST(HybridSearch, KnownTemperatureDecidesBySize) {
  ScriptedData data({4.0});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.72, 0.5));
  search.temperature = 0.25;
  search.trialCt = 0;
  int better = 0;
  int worse = 0;
  for (int i = 0; i < 4000; ++i) {
    if (search.simAnnealAccept(0.5)) ++better;                   // exp(2), so 0.5
    if (search.simAnnealAccept(-0.25 * std::log(8.0))) ++worse;  // 1/8
    EXPECT_FALSE(search.simAnnealAccept(-infinity));
  }
  EXPECT_NEAR(better, 2000, 250);
  EXPECT_NEAR(worse, 500, 170);
}

TEST(HybridSearch, KeptCertainAcceptanceNeedsNoTemperature) {
  ScriptedData data({4.0});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.72, 1.0));
  for (const double trialLoss : {-0.5, 0.0}) {
    search.initTempRuns();
    for (int i = 0; i < 20; ++i) search.simAnnealAccept(trialLoss);
    EXPECT_FALSE(std::isfinite(search.temperature));
    // Refused is only a draw of exactly 1.0, one in 32768.
    int refused = 0;
    for (int i = 0; i < 1000; ++i) {
      if (!search.simAnnealAccept(-0.5)) ++refused;
    }
    EXPECT_LE(refused, 3);
  }
}

TEST(HybridSearch, DrawOfExactlyOneIsRefused) {
  ScriptedData data({4.0});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.72, 1.0));
  search.trialCt = 0;
  search.temperature = -infinity;
  // exp(-0.5 / -inf) is 1.0, and one draw in 32768 is no less than that.
  int calls = 1;
  while (calls < 2000000 && search.simAnnealAccept(-0.5)) ++calls;
  EXPECT_LT(calls, 2000000);
}

TEST(HybridSearch, KeptTemperatureOutlivesReset) {
  ScriptedData data({4.0, 4.0});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.72, 0.5));
  search.reset();
  for (int i = 0; i < 21; ++i) search.simAnnealAccept(2.0);
  const double measured = search.temperature;
  EXPECT_NEAR(measured, 2.0 / std::log(2.0), 1e-15);
  search.areSwapping = false;
  search.reset();
  EXPECT_EQ(search.temperature, measured);
  EXPECT_EQ(search.trialCt, 20);
  EXPECT_EQ(search.sumTrials, 0.0);
  EXPECT_EQ(search.initTempRunStage, noStageYet);
  EXPECT_TRUE(search.areSwapping);
  for (int i = 0; i < 20; ++i) search.simAnnealAccept(1.0);
  EXPECT_NEAR(search.temperature, 1.0 / std::log(2.0), 1e-15);
}

TEST(HybridSearch, CoolsAtTheEndOfARunThatIsLateEnough) {
  ScriptedData data({4.0});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.72, 0.5, 3, 0.25));
  search.temperature = 8.0;
  search.initTempRunStage = 2;
  search.areSwapping = false;
  search.stageNo = 4;
  search.endRun();
  EXPECT_EQ(search.temperature, 8.0);
  EXPECT_TRUE(search.areSwapping);
  search.stageNo = 5;
  search.endRun();
  EXPECT_EQ(search.temperature, 2.0);
  EXPECT_EQ(search.initTempRunStage, 5);
  search.initTempRuns();
  search.stageNo = 100000;
  search.endRun();
  EXPECT_EQ(search.temperature, 2.0);
}

// The course of a run.

TEST(HybridSearch, SwappingEndsWithTheFirstSwapRefused) {
  ScriptedData data({});
  HybridProbe accepting(centerAt(3.0, data), hybridTerm(4, 0.5, always));
  accepting.trialCt = 20;
  accepting.prevDist = 1.0;
  EXPECT_EQ(accepting.selectMethod(), KM_ALG_SWAP);
  EXPECT_FALSE(accepting.isRunDone());
  EXPECT_TRUE(accepting.areSwapping);
  EXPECT_EQ(accepting.sumTrials, 19.0);  // |(1 - 20) / 1|

  HybridProbe refusing(centerAt(3.0, data), hybridTerm(4, 0.5, never));
  refusing.trialCt = 20;
  refusing.prevDist = 40.0;
  EXPECT_FALSE(refusing.isRunDone());
  EXPECT_FALSE(refusing.areSwapping);
  EXPECT_EQ(refusing.selectMethod(), KM_ALG_LLOYD);
  // (40 - 20) / 40 is no more than 0.5; no test is made, nor is one above it the end.
  EXPECT_TRUE(refusing.isRunDone());
  refusing.prevDist = 41.0;
  EXPECT_FALSE(refusing.isRunDone());
  EXPECT_EQ(refusing.trialCt, 19);
}

TEST(HybridSearch, KeptAnnealedRunGoesOnPastTheLimit) {
  // The only stage allowed is the swap; the run has its Lloyd steps all the same: 130, 34, 10.
  ScriptedData data({4.0, 8.0});
  HybridProbe search(centerAt(0.0, data), hybridTerm(1, 0.72, never));
  EXPECT_EQ(search.execute()[0][0], 2.0);
  EXPECT_EQ(search.getTotalStages(), 3);
  // Nor does the limit end a series of swaps.
  search.areSwapping = true;
  search.trialCt = 20;
  EXPECT_FALSE(search.isRunDone());
}

TEST(HybridSearch, KeptAnnealedSearchBeginsWithAnOldLoss) {
  ScriptedData data({4.0, 8.0, 1.0, 8.0});
  HybridProbe search(centerAt(0.0, data), hybridTerm(1, 0.9, never));
  EXPECT_EQ(search.prevDist, 0.0);
  std::string first;
  {
    const Listening listening;
    search.execute();
    first = listening.text();
  }
  EXPECT_EQ(first.substr(0, first.find('\n')),
            "    <stage: 0 curr: 17 best: 17 save: 17 consecRDL: -inf >");
  EXPECT_EQ(search.prevDist, 130.0);
  // The next search begins with the loss since the last stage of this one began: (130 - 4) / 130.
  const Listening listening;
  search.execute();
  EXPECT_EQ(listening.text().substr(0, listening.text().find('\n')),
            "    <stage: 0 curr: 2 best: 2 save: 2 consecRDL: 0.969231 >");
}

TEST(HybridSearch, KeptSwapWithoutDistortionIsLeftToTheTest) {
  ScriptedData data({}, {5.0, 5.0});
  HybridProbe refusing(centerAt(5.0, data), hybridTerm(9, 0.5, never));
  refusing.trialCt = 20;
  ASSERT_TRUE(std::isnan(refusing.consecRDL()));  // (0 - 0) / 0
  EXPECT_FALSE(refusing.isRunDone());
  EXPECT_FALSE(refusing.areSwapping);
  EXPECT_EQ(refusing.trialCt, 19);
  EXPECT_TRUE(std::isnan(refusing.sumTrials));
  // Among the Lloyd steps it is the end.
  EXPECT_TRUE(refusing.isRunDone());
  EXPECT_EQ(refusing.trialCt, 19);

  HybridProbe accepting(centerAt(5.0, data), hybridTerm(9, 0.5, always));
  accepting.trialCt = 20;
  // During the trials, with the last of them, and after them.
  for (int i = 0; i < 25; ++i) {
    EXPECT_FALSE(accepting.isRunDone());
    EXPECT_TRUE(accepting.areSwapping);
  }
  EXPECT_EQ(accepting.trialCt, -5);
}

TEST(HybridSearch, NoDistortionEndsTheRun) {
  ScriptedData data({5.0, 5.0}, {5.0, 5.0});
  HybridProbe search(centerAt(5.0, data), hybridTerm(1, 0.5, never));
  EXPECT_EQ(search.execute()[0][0], 5.0);
  EXPECT_EQ(search.getTotalStages(), 2);
  EXPECT_NE(search.consecRDL(), search.consecRDL());
}

TEST(HybridSearch, BetterRunIsSaved) {
  ScriptedData data({});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.5, never));
  search.best = centerAt(1.0, data);
  search.save = centerAt(4.0, data);
  search.curr = centerAt(2.0, data);
  EXPECT_EQ(search.accumRDL(), (34.0 - 10.0) / 34.0);
  search.tryAcceptance();
  EXPECT_EQ(search.save[0][0], 2.0);
  EXPECT_EQ(search.best[0][0], 1.0);
  search.curr = centerAt(0.0, data);
  search.tryAcceptance();
  EXPECT_EQ(search.save[0][0], 0.0);
  EXPECT_EQ(search.best[0][0], 0.0);
  EXPECT_EQ(search.trialCt, 0);  // no test was needed
}

TEST(HybridSearch, KeptAcceptedLossSavesTheBest) {
  ScriptedData data({});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.5, always));
  search.trialCt = 20;
  search.best = centerAt(1.0, data);
  search.save = centerAt(2.0, data);
  search.curr = centerAt(4.0, data);
  search.tryAcceptance();
  EXPECT_EQ(search.best[0][0], 1.0);
  EXPECT_EQ(search.save[0][0], 1.0);
  EXPECT_EQ(search.curr[0][0], 4.0);
  EXPECT_EQ(search.trialCt, 19);
}

TEST(HybridSearch, RefusedRunIsUndone) {
  ScriptedData data({});
  HybridProbe search(centerAt(0.0, data), hybridTerm(4, 0.5, never));
  search.trialCt = 20;
  search.best = centerAt(1.0, data);
  search.save = centerAt(2.0, data);
  search.curr = centerAt(-2.0, data);
  search.tryAcceptance();
  EXPECT_EQ(search.best[0][0], 1.0);
  EXPECT_EQ(search.save[0][0], 2.0);
  EXPECT_EQ(search.curr[0][0], 2.0);
}

TEST(HybridSearch, CopyTakesItsState) {
  ScriptedData data({});
  HybridProbe search(centerAt(3.0, data), hybridTerm(4, 0.5, 0.5));
  search.temperature = 1.0;
  search.initTempRunStage = 2;
  search.areSwapping = false;
  search.prevDist = 3.0;
  search.sumTrials = 4.0;
  search.trialCt = 5;
  search.save = centerAt(6.0, data);
  const HybridProbe copy(search);
  HybridProbe assigned(centerAt(0.0, data), stages(1));
  assigned = search;
  search.save[0][0] = 70.0;
  for (const HybridProbe& other : {copy, assigned}) {
    EXPECT_EQ(other.temperature, 1.0);
    EXPECT_EQ(other.initTempRunStage, 2);
    EXPECT_FALSE(other.areSwapping);
    EXPECT_EQ(other.prevDist, 3.0);
    EXPECT_EQ(other.sumTrials, 4.0);
    EXPECT_EQ(other.trialCt, 5);
    EXPECT_EQ(other.save[0][0], 6.0);
  }
}

}  // namespace
