#include <zrBase/clustering/Rabriol.h>

#include <zrBase/clustering/kmServices.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/scriptedSearch.h"

#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;

/// A search whose moves are told one by one; whatever else happens is noted.
class ToldSearch : public Rabriol {
 public:
  ToldSearch(const KMfilterCenters& sol, const KMterm& figures, std::vector<int> told)
      : Rabriol(sol, figures), moves(std::move(told)) {}

  using Rabriol::best;
  using Rabriol::curr;
  using Rabriol::dim;
  using Rabriol::isDone;
  using Rabriol::k;
  using Rabriol::maxTotStage;
  using Rabriol::n;
  using Rabriol::printStageStats;
  using Rabriol::runInitStage;
  using Rabriol::stageNo;
  using Rabriol::term;

  void tryAcceptance() override {
    notes.push_back("tryAcceptance");
    Rabriol::tryAcceptance();
  }

  std::vector<int> moves;
  int runLength = 1;
  std::vector<std::string> notes;

 protected:
  void reset() override {
    notes.push_back("reset");
    Rabriol::reset();
  }
  void beginRun() override {
    notes.push_back("beginRun");
    Rabriol::beginRun();
  }
  void beginStage() override { notes.push_back("beginStage"); }
  KMalg selectMethod() override {
    notes.push_back("selectMethod");
    return static_cast<KMalg>(moves.at(static_cast<std::size_t>(stageNo)));
  }
  void endStage() override {
    notes.push_back("endStage at " + std::to_string(static_cast<int>(curr[0][0])));
    Rabriol::endStage();
  }
  bool isRunDone() override {
    notes.push_back("isRunDone");
    return Rabriol::isRunDone() || stageNo - runInitStage >= runLength;
  }
  void endRun() override {
    notes.push_back("endRun");
    Rabriol::endRun();
  }
};

/// A search that leaves all to the frame, but for its move.
class PlainSearch : public Rabriol {
 public:
  using Rabriol::Rabriol;
  using Rabriol::runInitStage;

 protected:
  KMalg selectMethod() override { return KM_ALG_SWAP; }
};

/// Data that notes how its samples are asked for.
class AskedData : public ScriptedData {
 public:
  using ScriptedData::ScriptedData;
  void sampleCtrs(double** sample, int count, bool allowDuplicate) override {
    samples.push_back(sample);
    counts.push_back(count);
    duplicates.push_back(allowDuplicate);
    ScriptedData::sampleCtrs(sample, count, allowDuplicate);
  }

  std::vector<double**> samples;
  std::vector<int> counts;
  std::vector<bool> duplicates;
};

static_assert(std::is_abstract_v<Rabriol>, "the frame names no move");
static_assert(KM_ALG_LLOYD == 0 && KM_ALG_SWAP == 1 && KM_ALG_RANDOM == 4, "values of the moves");

TEST(SearchFrame, StartsFromCopiesOfWhatItIsGiven) {
  ScriptedData data({});
  KMterm term = stages(12);
  term.setMaxRunStage(7);
  const ToldSearch search(centerAt(3.0, data), term, {});
  EXPECT_EQ(search.n, 2);
  EXPECT_EQ(search.k, 1);
  EXPECT_EQ(search.dim, 1);
  EXPECT_EQ(search.term.getMaxRunStage(), 7);
  EXPECT_EQ(search.maxTotStage, 12);
  EXPECT_EQ(search.stageNo, 0);
  EXPECT_EQ(search.getTotalStages(), 0);
  EXPECT_EQ(search.runInitStage, 0);
  EXPECT_EQ(search.curr[0][0], 3.0);
  EXPECT_EQ(search.best[0][0], 3.0);
  EXPECT_NE(search.curr.getCtrPts(), search.best.getCtrPts());
  EXPECT_EQ(&search.curr.getData(), &data);
}

TEST(SearchFrame, LimitTakesCentersAndPointsAtConstruction) {
  ScriptedData data({});
  // 10 + (100 * 1 + 1000 * 2)
  const KMterm term(10.0, 100.0, 1000.0, 1.0, 0.0, 0.0, 0, 0.0, 0, 0.0);
  EXPECT_EQ(ToldSearch(centerAt(3.0, data), term, {}).maxTotStage, 2110);
}

TEST(SearchFrame, CallsItsOperationsInOrder) {
  ScriptedData data({8.0, 6.0});
  ToldSearch search(centerAt(3.0, data), stages(3), {KM_ALG_LLOYD, KM_ALG_SWAP, KM_ALG_LLOYD});
  search.runLength = 2;
  search.execute();
  EXPECT_THAT(search.notes,
              ElementsAre("reset",                                                     //
                          "beginRun",                                                  //
                          "beginStage", "selectMethod", "endStage at 4", "isRunDone",  //
                          "beginStage", "selectMethod", "endStage at 6", "isRunDone",  //
                          "endRun", "tryAcceptance",                                   //
                          "beginRun",                                                  //
                          "beginStage", "selectMethod", "endStage at 3", "isRunDone",  //
                          "endRun", "tryAcceptance"));
  EXPECT_EQ(search.runInitStage, 2);
}

TEST(SearchFrame, TotalStagesAreThoseThatEndedTheSearch) {
  ScriptedData data({8.0, 7.0, 6.0, 5.0, 4.0});
  PlainSearch search(centerAt(3.0, data), stages(4));
  search.execute();
  EXPECT_EQ(search.getTotalStages(), 4);
  EXPECT_EQ(data.drawn(), 5u);
}

TEST(SearchFrame, RunOfTheFrameLastsUntilTheSearchIsDone) {
  ScriptedData data({8.0, 7.0, 6.0, 5.0});
  PlainSearch search(centerAt(3.0, data), stages(3));
  search.execute();
  EXPECT_EQ(search.runInitStage, 0);
}

TEST(SearchFrame, EachExecuteStartsAtStageZero) {
  ScriptedData data({8.0, 7.0, 6.0, 5.0, 9.0, 2.0, 3.0, 4.0});
  PlainSearch search(centerAt(3.0, data), stages(3));
  EXPECT_EQ(search.execute()[0][0], 5.0);
  EXPECT_EQ(search.getTotalStages(), 3);
  // The best solution of the first search, 5, is forgotten, and that of the second is judged at the
  // end of its only run.
  EXPECT_EQ(search.execute()[0][0], 4.0);
  EXPECT_EQ(search.getTotalStages(), 3);
}

TEST(SearchFrame, KeptGivenCentersAreReplaced) {
  ScriptedData data({8.0, 5.0});
  ToldSearch search(centerAt(0.0, data), stages(1), {KM_ALG_SWAP});
  // No center is better than 0, and it is not found again.
  EXPECT_EQ(search.execute()[0][0], 5.0);
}

TEST(SearchFrame, LimitBelowOneStageLeavesTheDraw) {
  ScriptedData data({8.0});
  const KMterm term(0.5, 0.0, 0.0, 0.0, 0.0, 0.0, 0, 0.0, 0, 0.0);
  ToldSearch search(centerAt(0.0, data), term, {});
  KMfilterCenters found = search.execute();
  EXPECT_EQ(found[0][0], 8.0);
  EXPECT_EQ(found.getDist(false), 130.0);
  EXPECT_THAT(search.notes, ElementsAre("reset"));
}

TEST(SearchFrame, ResultIsACopyOfTheBest) {
  ScriptedData data({8.0, 5.0});
  ToldSearch search(centerAt(0.0, data), stages(1), {KM_ALG_SWAP});
  KMfilterCenters found = search.execute();
  found[0][0] = 77.0;
  EXPECT_EQ(search.best[0][0], 5.0);
}

TEST(SearchFrame, LloydStepMovesByTheDampingOfTheSolution) {
  ScriptedData data({8.0});
  ToldSearch search(centerAt(0.0, data, 0.25), stages(1), {KM_ALG_LLOYD});
  EXPECT_EQ(search.execute()[0][0], 6.0);
}

TEST(SearchFrame, RandomMoveDrawsAllCenters) {
  ScriptedData data({8.0, 5.0});
  ToldSearch search(centerAt(0.0, data), stages(1), {KM_ALG_RANDOM});
  KMfilterCenters found = search.execute();
  EXPECT_EQ(found[0][0], 5.0);
  EXPECT_EQ(found.getDist(false), 52.0);
}

TEST(SearchFrame, DrawsNoPointTwiceIntoTheCurrentCenters) {
  AskedData data({1.0, 2.0, 3.0, 4.0}, {1.0, 2.0, 3.0, 4.0});
  ToldSearch search(KMfilterCenters(2, data, 1.0), stages(1), {KM_ALG_RANDOM});
  // Once at the beginning, and once by the move.
  search.execute();
  EXPECT_THAT(data.samples, ElementsAre(search.curr.getCtrPts(), search.curr.getCtrPts()));
  EXPECT_THAT(data.counts, ElementsAre(2, 2));
  EXPECT_THAT(data.duplicates, ElementsAre(false, false));
}

TEST(SearchFrame, AsManyCentersAsPointsBeginOnThemAll) {
  KMdata data(1, 5);
  for (int i = 0; i < 5; ++i) data[i][0] = i;
  data.buildKcTree();
  const KMterm term(0.5, 0.0, 0.0, 0.0, 0.0, 0.0, 0, 0.0, 0, 0.0);
  ToldSearch search(KMfilterCenters(5, data, 1.0), term, {});
  for (int i = 0; i < 20; ++i) EXPECT_EQ(search.execute().getDist(false), 0.0);
}

TEST(SearchFrame, OtherValuesMakeNoMove) {
  ScriptedData data({8.0});
  ToldSearch search(centerAt(0.0, data), stages(3), {2, 3, 99});
  EXPECT_EQ(search.execute()[0][0], 8.0);
  EXPECT_EQ(data.drawn(), 1u);
  EXPECT_EQ(search.getTotalStages(), 3);
}

TEST(SearchFrame, IsDoneFromTheLimitOn) {
  ScriptedData data({});
  ToldSearch search(centerAt(0.0, data), stages(3), {});
  search.stageNo = 2;
  EXPECT_FALSE(search.isDone());
  search.stageNo = 3;
  EXPECT_TRUE(search.isDone());
  search.stageNo = 4;
  EXPECT_TRUE(search.isDone());
}

TEST(SearchFrame, AcceptsOnlyStrictlyLowerDistortion) {
  ScriptedData data({});
  ToldSearch search(centerAt(0.0, data), stages(3), {});
  search.best = centerAt(3.0, data);
  search.curr = centerAt(-3.0, data);
  search.tryAcceptance();
  EXPECT_EQ(search.best[0][0], 3.0);
  search.curr = centerAt(4.0, data);
  search.tryAcceptance();
  EXPECT_EQ(search.best[0][0], 3.0);
  EXPECT_EQ(search.curr[0][0], 4.0);
  search.curr = centerAt(2.0, data);
  search.tryAcceptance();
  EXPECT_EQ(search.best[0][0], 2.0);
  EXPECT_EQ(search.curr[0][0], 2.0);
}

// What it writes.

TEST(SearchFrame, StageLineIsWrittenFromLevelFiveOn) {
  ScriptedData data({});
  ToldSearch search(centerAt(3.0, data), stages(3), {});
  search.best = centerAt(0.5, data);
  search.stageNo = 7;
  const Listening listening(KM_STAT_STAGES);
  search.printStageStats();
  EXPECT_EQ(listening.text(), "\t<stage: 7 curr: 10 best: 1.25 >\n");
}

TEST(SearchFrame, BelowLevelFiveNothingIsWrittenOrComputed) {
  ScriptedData data({});
  ToldSearch search(centerAt(3.0, data), stages(3), {});
  const Listening listening(static_cast<StatLev>(4));
  search.printStageStats();
  EXPECT_EQ(listening.text(), "");
  EXPECT_EQ(search.curr.getDist(false), std::numeric_limits<double>::max());
  EXPECT_EQ(search.best.getDist(false), std::numeric_limits<double>::max());
}

TEST(SearchFrame, StageLineLeavesBothSolutionsComputed) {
  ScriptedData data({});
  ToldSearch search(centerAt(3.0, data), stages(3), {});
  const Listening listening(KM_STAT_STAGES);
  search.printStageStats();
  EXPECT_EQ(search.curr.getDist(false), 20.0);
  EXPECT_EQ(search.best.getDist(false), 20.0);
}

TEST(SearchFrame, StageLineComesAfterTheWarningOfALostTree) {
  ScriptedData data({}, {-1.0, 1.0});
  ToldSearch search(centerAt(3.0, data), stages(3), {});
  data.resize(1, 2);
  data[0][0] = -1.0;
  data[1][0] = 1.0;
  std::ostringstream errors;
  std::ostream* const before = kmErr;
  kmErr = &errors;
  const Listening listening(KM_STAT_STAGES);
  search.printStageStats();
  kmErr = before;
  EXPECT_EQ(listening.text(),
            "rabriol: WARNING----->Building kc-tree<-------------WARNING\n"
            "\t<stage: 0 curr: 10 best: 10 >\n");
}

TEST(SearchFrame, StageLineIsThatOfTheCLocale) {
  struct DecimalComma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  ScriptedData data({});
  ToldSearch search(centerAt(0.5, data), stages(3), {});
  search.stageNo = 1234567;
  Listening listening(KM_STAT_STAGES);
  listening.stream().imbue(std::locale(std::locale::classic(), new DecimalComma));
  search.printStageStats();
  EXPECT_EQ(listening.text(), "\t<stage: 1234567 curr: 1.25 best: 1.25 >\n");
}

TEST(SearchFrame, DrawnCentersAreWrittenFromLevelSevenOn) {
  ScriptedData data({8.0, 5.0});
  ToldSearch search(centerAt(0.0, data), stages(1), {KM_ALG_RANDOM});
  const Listening listening(KM_STAT_CENTERS);
  search.execute();
  // Each with the distortion as it stands: not yet computed, then that of the draw before.
  EXPECT_EQ(listening.text(),
            "       0\t[        8 ] dist =        0\n"
            "       0\t[        5 ] dist =      130\n");
}

TEST(SearchFrame, BelowLevelSevenADrawIsSilent) {
  ScriptedData data({8.0, 5.0});
  ToldSearch search(centerAt(0.0, data), stages(1), {KM_ALG_RANDOM});
  const Listening listening(KM_STAT_SWAPS);
  search.execute();
  EXPECT_EQ(listening.text(), "");
}

// Copies.

TEST(SearchFrame, CopyAndAssignmentAreIndependent) {
  ScriptedData data({8.0, 5.0, 6.0});
  ToldSearch search(centerAt(0.0, data), stages(2), {KM_ALG_SWAP, KM_ALG_SWAP});
  search.execute();
  const ToldSearch copy(search);
  ToldSearch assigned(centerAt(0.0, data), stages(9), {});
  assigned = search;
  search.curr[0][0] = 70.0;
  search.best[0][0] = 70.0;
  for (const ToldSearch& other : {copy, assigned}) {
    EXPECT_EQ(other.curr[0][0], 6.0);
    EXPECT_EQ(other.best[0][0], 5.0);
    EXPECT_EQ(other.getTotalStages(), 2);
    EXPECT_EQ(other.maxTotStage, 2);
    EXPECT_EQ(other.runInitStage, 1);
  }
}

TEST(SearchFrame, AssignmentBringsTheSizesAlong) {
  ScriptedData data({});
  ScriptedData larger({}, {1.0, 2.0, 3.0});
  ToldSearch search(centerAt(0.0, data), stages(2), {});
  search = ToldSearch(KMfilterCenters(2, larger, 1.0), stages(5), {});
  EXPECT_EQ(search.n, 3);
  EXPECT_EQ(search.k, 2);
  EXPECT_EQ(search.maxTotStage, 5);
  EXPECT_EQ(search.curr.getK(), 2);
  EXPECT_EQ(&search.best.getData(), &larger);
}

}  // namespace
