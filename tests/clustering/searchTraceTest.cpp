#include <zrBase/clustering/Rabriol.h>

#include <zrBase/clustering/KMdata.h>
#include <zrBase/clustering/kmServices.h>

#include <gtest/gtest.h>

#include "support/referenceSearch.h"
#include "support/scriptedSearch.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

// Whole searches, line by line and bit by bit, against the same searches written out as plain
// loops. The random numbers belong to the process, so each test runs in a fresh one. Coordinates
// are whole numbers: their sums are exact, in whatever order they are formed.

namespace {

enum Strategy { lloyds, swaps, ezHybrid, hybrid };

/// Numbers for the tasks themselves, the same in every run.
class TaskNumbers {
 public:
  explicit TaskNumbers(std::uint64_t seed) : state_(seed) {}
  int from(int low, int high) {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return low + static_cast<int>((state_ >> 33) % static_cast<std::uint64_t>(high - low + 1));
  }
  double oneOf(const std::vector<double>& values) {
    return values[static_cast<std::size_t>(from(0, static_cast<int>(values.size()) - 1))];
  }

 private:
  std::uint64_t state_;
};

ReferenceTask randomTask(TaskNumbers& numbers) {
  ReferenceTask task;
  const int n = numbers.from(1, 30);
  const int dim = numbers.from(1, 4);
  // Among few different points many coincide, up to no distortion at all.
  const int kinds = numbers.from(0, 5) == 0 ? numbers.from(1, 4) : n;
  for (int i = 0; i < n; ++i) {
    if (i >= kinds) {
      task.points.push_back(task.points[static_cast<std::size_t>(numbers.from(0, kinds - 1))]);
      continue;
    }
    task.points.emplace_back();
    for (int d = 0; d < dim; ++d) task.points.back().push_back(numbers.from(-999999, 999999));
  }
  task.k = numbers.from(1, n < 6 ? n : 6);
  task.dampFactor = numbers.oneOf({1.0, 1.0, 0.75, 0.3});
  task.limit = numbers.from(1, 60);
  task.minConsecRDL = numbers.oneOf({0.0, 0.01, 0.1, 0.3});
  task.minAccumRDL = numbers.oneOf({0.0, 0.05, 0.1, 0.3});
  task.maxRunStage = numbers.from(1, 6);
  task.initProbAccept = numbers.oneOf({0.1, 0.5, 0.5, 0.9});
  task.tempRunLength = numbers.from(1, 30);
  task.tempReducFact = numbers.oneOf({0.5, 0.9, 0.99});
  task.maxSwaps = numbers.from(0, 4);
  task.level = numbers.from(4, 7);
  return task;
}

std::string expectedTrace(Strategy strategy, const ReferenceTask& task,
                          ReferenceGenerator& generator) {
  ReferenceSearch search(task, generator);
  switch (strategy) {
    case lloyds:
      search.searchByLloyds();
      break;
    case swaps:
      search.searchBySwaps();
      break;
    case ezHybrid:
      search.searchByEzHybrid();
      break;
    case hybrid:
      search.searchByHybrid();
      break;
  }
  return search.text.str();
}

std::string traceOf(Rabriol&& search, const ReferenceTask& task) {
  const Listening listening(static_cast<StatLev>(task.level));
  KMfilterCenters found = search.execute();
  std::ostringstream outcome;
  outcome << search.getTotalStages() << " stages, " << std::hexfloat << found.getDist(true) << ":";
  for (int j = 0; j < found.getK(); ++j) {
    for (int d = 0; d < found.getDim(); ++d) outcome << " " << found[j][d];
  }
  return listening.text() + outcome.str() + "\n";
}

std::string actualTrace(Strategy strategy, const ReferenceTask& task) {
  const int dim = static_cast<int>(task.points[0].size());
  KMdata data(dim, static_cast<int>(task.points.size()));
  for (int i = 0; i < data.getNPts(); ++i) {
    for (int d = 0; d < dim; ++d) {
      data[i][d] = task.points[static_cast<std::size_t>(i)][static_cast<std::size_t>(d)];
    }
  }
  data.buildKcTree();
  const KMfilterCenters centers(task.k, data, task.dampFactor);
  KMterm term(0.0, 0.0, 0.0, 0.0, task.minConsecRDL, task.minAccumRDL, task.maxRunStage,
              task.initProbAccept, task.tempRunLength, task.tempReducFact);
  term.setAbsMaxTotStage(task.limit);
  switch (strategy) {
    case lloyds:
      return traceOf(RabriolLloyds(centers, term), task);
    case swaps:
      return traceOf(RabriolSwap(centers, term, task.maxSwaps), task);
    case ezHybrid:
      return traceOf(RabriolEZ_Hybrid(centers, term), task);
    case hybrid:
      return traceOf(RabriolHybrid(centers, term), task);
  }
  return "";
}

/// Runs tasks one after the other in a process that has drawn nothing yet, and ends it: with status
/// 0 if all traces are as expected.
[[noreturn]] void compareTraces(Strategy strategy, int tasks) {
  ReferenceGenerator generator(500000);
  TaskNumbers numbers(17u + static_cast<std::uint64_t>(strategy));
  for (int i = 0; i < tasks; ++i) {
    const ReferenceTask task = randomTask(numbers);
    const std::string expected = expectedTrace(strategy, task, generator);
    const std::string actual = actualTrace(strategy, task);
    if (actual == expected) continue;
    std::cerr << "task " << i << ", expected:\n" << expected << "but found:\n" << actual;
    std::exit(1);
  }
  std::exit(0);
}

class SearchTrace : public testing::Test {
 protected:
  void SetUp() override {
    // A process of its own from its start on, and not a copy of this one.
    before_ = GTEST_FLAG_GET(death_test_style);
    GTEST_FLAG_SET(death_test_style, "threadsafe");
  }
  void TearDown() override { GTEST_FLAG_SET(death_test_style, before_); }

 private:
  std::string before_;
};

TEST_F(SearchTrace, OfLloydsIsThatOfPlainLoops) {
  EXPECT_EXIT(compareTraces(lloyds, 500), testing::ExitedWithCode(0), "");
}

TEST_F(SearchTrace, OfSwapsIsThatOfPlainLoops) {
  EXPECT_EXIT(compareTraces(swaps, 500), testing::ExitedWithCode(0), "");
}

TEST_F(SearchTrace, OfEzHybridIsThatOfPlainLoops) {
  EXPECT_EXIT(compareTraces(ezHybrid, 500), testing::ExitedWithCode(0), "");
}

TEST_F(SearchTrace, OfHybridIsThatOfPlainLoops) {
  EXPECT_EXIT(compareTraces(hybrid, 500), testing::ExitedWithCode(0), "");
}

}  // namespace
