#include <zrBase/utilities/nameFilter.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The indices that a pattern selects; the count that comes back has to be theirs.
std::vector<int> selected(const char* pattern, const std::vector<std::string>& names) {
  std::vector<int> indices = {7, 8, 9};
  const int count = zrStrUtils::filterSelect(pattern, names, indices);
  EXPECT_EQ(count, static_cast<int>(indices.size()));
  return indices;
}

const std::vector<std::string> wells = {"well_1", "Well_2", "old well", "well",
                                        "",       "we",     "swell_1"};

TEST(FilterSelect, TakesNamesThatEndWithTheText) {
  EXPECT_THAT(selected("*.txt", {"a.txt", "b.txt.bak"}), ElementsAre(0));
  EXPECT_THAT(selected("*well", wells), ElementsAre(2, 3));
}

TEST(FilterSelect, TakesNamesThatStartWithTheText) {
  EXPECT_THAT(selected("well*", wells), ElementsAre(0, 3));
}

TEST(FilterSelect, TakesNamesThatContainTheText) {
  EXPECT_THAT(selected("*well*", wells), ElementsAre(0, 2, 3, 6));
  EXPECT_THAT(selected("*ell_*", wells), ElementsAre(0, 1, 6));
}

TEST(FilterSelect, TakesTheNameThatIsTheText) {
  EXPECT_THAT(selected("well", wells), ElementsAre(3));
  EXPECT_THAT(selected("WELL", wells), IsEmpty());
}

TEST(FilterSelect, TakesEachOfEqualNames) {
  EXPECT_THAT(selected("a", {"a", "b", "a"}), ElementsAre(0, 2));
}

TEST(FilterSelect, TakesAllNamesForOneAsterisk) {
  EXPECT_THAT(selected("*", wells), ElementsAre(0, 1, 2, 3, 4, 5, 6));
  EXPECT_THAT(selected("**", wells), ElementsAre(0, 1, 2, 3, 4, 5, 6));
}

TEST(FilterSelect, TakesNoneForAnEmptyPattern) {
  EXPECT_THAT(selected("", wells), IsEmpty());
  EXPECT_THAT(selected(nullptr, wells), IsEmpty());
}

TEST(FilterSelect, TakesNoneOfNoNames) { EXPECT_THAT(selected("*", {}), IsEmpty()); }

TEST(FilterSelect, TakesAnAsteriskInsideAsACharacter) {
  const std::vector<std::string> names = {"a*b", "ab", "axb", "xa*b", "a*bx", "*", "x*y"};
  EXPECT_THAT(selected("a*b", names), ElementsAre(0));
  EXPECT_THAT(selected("*a*b", names), ElementsAre(0, 3));
  EXPECT_THAT(selected("a*b*", names), ElementsAre(0, 4));
  EXPECT_THAT(selected("*a*b*", names), ElementsAre(0, 3, 4));
  EXPECT_THAT(selected("***", names), ElementsAre(0, 3, 4, 5, 6));
}

TEST(FilterSelect, SkipsNamesShorterThanTheText) {
  const std::vector<std::string> names = {"", "b", "ab"};
  for (const char* pattern : {"abc", "*abc", "abc*", "*abc*"}) {
    EXPECT_THAT(selected(pattern, names), IsEmpty()) << pattern;
  }
}

TEST(FilterSelect, ComparesBytes) {
  EXPECT_THAT(selected("*\xFC*", {"S\xFC"
                                  "d",
                                  "S\xC3\xBC"
                                  "d"}),
              ElementsAre(0));
  EXPECT_THAT(selected("a*", {std::string("a\0b", 3), "b"}), ElementsAre(0));
}

/// Whether a pattern fits by trying each place at which its text may stand.
bool fitsByTrial(const std::string& pattern, const std::string& name) {
  if (pattern.empty()) return false;
  const bool before = pattern.front() == '*';
  const bool behind = pattern.back() == '*';
  std::string text;
  for (std::size_t i = before ? 1 : 0; i + (behind ? 1 : 0) < pattern.size(); ++i) {
    text += pattern[i];
  }
  for (std::size_t at = 0; at + text.size() <= name.size(); ++at) {
    if (!before && at != 0) continue;
    if (!behind && at + text.size() != name.size()) continue;
    bool equal = true;
    for (std::size_t i = 0; i < text.size(); ++i) equal = equal && name[at + i] == text[i];
    if (equal) return true;
  }
  return false;
}

TEST(FilterSelect, AgreesWithATrialOfEveryPlace) {
  std::mt19937 random(3);
  std::uniform_int_distribution<int> letter(0, 2);
  std::uniform_int_distribution<int> length(0, 5);
  const auto word = [&] {
    std::string text;
    for (int i = length(random); i > 0; --i) text += "ab*"[letter(random)];
    return text;
  };
  for (int i = 0; i < 5000; ++i) {
    const std::string pattern = word();
    const std::vector<std::string> names = {word(), word(), word()};
    std::vector<int> expected;
    for (int k = 0; k < 3; ++k) {
      if (fitsByTrial(pattern, names[static_cast<std::size_t>(k)])) expected.push_back(k);
    }
    ASSERT_EQ(selected(pattern.c_str(), names), expected) << pattern;
  }
}

}  // namespace
