#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "apps/commandRunner.h"
#include "apps/segySurvey.h"

namespace {

// Most memory that a run of `zrbase survey fit` held at a time, in kilobytes; -1 if it failed.
long peakOf(const std::string& file, const std::string& output) {
  const pid_t child = fork();
  if (child == 0) {
    if (std::freopen("/dev/null", "w", stdout) == nullptr) {
      _exit(127);
    }
    execl(ZRBASE_COMMAND, ZRBASE_COMMAND, "survey", "fit", file.c_str(), "-o", output.c_str(),
          nullptr);
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    return -1;
  }
  return usage.ru_maxrss;
}

SegyGrid gridOf(int inlines) {
  SegyGrid grid;
  grid.inlines = inlines;
  grid.crosslines = 500;
  return grid;
}

// 120 000 headers of 240 bytes are 28 megabytes, their numbers and places 4 to 8.
TEST(SurveyMemory, StaysFlatHoweverManyTracesThereAre) {
  constexpr long kSpread = 2500;
  const TestFolder folder;
  SegyManner manner;
  manner.format = 8;
  manner.samples = 1;
  writeSegy(folder.path("few.sgy"), gridOf(4).traces(), manner);
  writeSegy(folder.path("many.sgy"), gridOf(240).traces(), manner);
  // One right after the other: what this process holds itself counts for its children too.
  const long few = peakOf(folder.path("few.sgy"), folder.path("few.csv"));
  const long many = peakOf(folder.path("many.sgy"), folder.path("many.csv"));
  ASSERT_GT(few, 0);
  ASSERT_GT(many, 0);
  EXPECT_LT(many, few + kSpread);
}

}  // namespace
