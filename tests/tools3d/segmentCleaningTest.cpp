#include <zrBase/tools3d/segmentCleaning.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>

namespace {

constexpr double tolerance = 1e-05;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// A heap of segments as text: each is "x y z > x y z", joined by semicolons.
struct Heap {
  VertexLine first;
  VertexLine second;
};

Heap heap(const std::string& text) {
  Heap made;
  std::size_t from = 0;
  while (from < text.size()) {
    const std::size_t end = std::min(text.find(';', from), text.size());
    const std::string segment = text.substr(from, end - from);
    const std::size_t arrow = segment.find('>');
    made.first.push_back(vertex(segment.substr(0, arrow)));
    made.second.push_back(vertex(segment.substr(arrow + 1)));
    from = end + 1;
  }
  return made;
}

MATCHER_P(HeapIs, text, "is exactly " + std::string(text)) {
  *result_listener << "which is " << toText(arg.first) << " and " << toText(arg.second);
  const Heap expected = heap(text);
  return arg.first == expected.first && arg.second == expected.second;
}

Heap sorted(const char* a, const char* b) {
  Heap made;
  zr3DTools::addSortedSegments(made.first, made.second, vertex(a), vertex(b));
  return made;
}

/// What an operation made of its input, and what it said.
template <class Input>
struct Cleaned {
  bool changed;
  Input left;
};

Cleaned<Heap> withoutRepeated(const char* text, double within = tolerance) {
  Cleaned<Heap> cleaned{false, heap(text)};
  cleaned.changed =
      zr3DTools::removeDuplicateSegments(cleaned.left.first, cleaned.left.second, within);
  return cleaned;
}

Cleaned<VertexLine> withoutAdjacentVertices(const char* text, double within = tolerance) {
  Cleaned<VertexLine> cleaned{false, line(text)};
  cleaned.changed = zr3DTools::removeDuplicateAdjacentVertices(cleaned.left, within);
  return cleaned;
}

Cleaned<VertexLine> withoutRepeatedVertices(const char* text, double within = tolerance) {
  Cleaned<VertexLine> cleaned{false, line(text)};
  cleaned.changed = zr3DTools::removeDuplicateVertices(cleaned.left, within);
  return cleaned;
}

#define EXPECT_CLEANED(operation, expectedChange, expected) \
  do {                                                      \
    const auto cleaned = operation;                         \
    EXPECT_EQ(cleaned.changed, expectedChange);             \
    EXPECT_THAT(cleaned.left, expected);                    \
  } while (false)

// Segments in order.

TEST(AddSortedSegments, RunsFromTheGreaterVertexToTheSmaller) {
  EXPECT_THAT(sorted("1 9 9", "2 0 0"), HeapIs("2 0 0 > 1 9 9"));
  EXPECT_THAT(sorted("1 2 9", "1 3 0"), HeapIs("1 3 0 > 1 2 9"));
  EXPECT_THAT(sorted("1 2 3", "1 2 4"), HeapIs("1 2 4 > 1 2 3"));
}

TEST(AddSortedSegments, GivesTheSameForTheReverse) {
  EXPECT_THAT(sorted("2 0 0", "1 9 9"), HeapIs("2 0 0 > 1 9 9"));
  EXPECT_THAT(sorted("1 2 4", "1 2 3"), HeapIs("1 2 4 > 1 2 3"));
}

TEST(AddSortedSegments, AddsNothingForEqualVertices) {
  EXPECT_THAT(sorted("1 2 3", "1 2 3"), HeapIs(""));
  EXPECT_THAT(sorted("-0 0 0", "0 0 0"), HeapIs(""));
}

TEST(AddSortedSegments, ComparesExactly) {
  EXPECT_THAT(sorted("1 2 3", "1 2 3.0000000000000004"), HeapIs("1 2 3.0000000000000004 > 1 2 3"));
}

TEST(AddSortedSegments, PassesANaNOnToTheNextCoordinate) {
  EXPECT_TRUE(sorted("nan 0 0", "nan 0 0").first.empty());
  const Heap decidedByY = sorted("nan 1 0", "5 2 0");
  ASSERT_EQ(decidedByY.first.size(), 1u);
  EXPECT_THAT(decidedByY.first[0], VertexIs("5 2 0"));
}

TEST(AddSortedSegments, AddsToWhatIsThere) {
  Heap made = heap("0 0 > 0 0");
  zr3DTools::addSortedSegments(made.first, made.second, vertex("1 1"), vertex("2 2"));
  EXPECT_THAT(made, HeapIs("0 0 > 0 0; 2 2 > 1 1"));
}

TEST(AddSortedSegments, VerticesMayBeEntriesOfTheLists) {
  Heap made = heap("5 5 > 4 4; 3 3 > 2 2");
  made.first.shrink_to_fit();
  made.second.shrink_to_fit();
  zr3DTools::addSortedSegments(made.first, made.second, made.first[1], made.first[0]);
  EXPECT_THAT(made, HeapIs("5 5 > 4 4; 3 3 > 2 2; 5 5 > 3 3"));
}

// Adjacent vertices.

TEST(RemoveDuplicateAdjacentVertices3D, DropsWhatMatchesTheVertexBefore) {
  EXPECT_CLEANED(withoutAdjacentVertices("0 0 1, 0 0 1, 5 0 1, 9 0 2, 9 0 2, 9 0 2"), true,
                 LineIs("0 0 1, 5 0 1, 9 0 2"));
  EXPECT_CLEANED(withoutAdjacentVertices("0 0 1, 5 0 1, 0 0 1"), false,
                 LineIs("0 0 1, 5 0 1, 0 0 1"));
}

TEST(RemoveDuplicateAdjacentVertices3D, CountsHeights) {
  EXPECT_CLEANED(withoutAdjacentVertices("1 2 3, 1 2 300"), false, LineIs("1 2 3, 1 2 300"));
  EXPECT_CLEANED(withoutAdjacentVertices("1 2 3, 1 2 3.5", 1.0), true, LineIs("1 2 3"));
}

TEST(RemoveDuplicateAdjacentVertices3D, KeptDriftingRunInSpaceLeavesItsFirst) {
  EXPECT_CLEANED(withoutAdjacentVertices("0 0 0, 0 0 0.6, 0 0 1.2, 0 0 1.8", 1.0), true,
                 LineIs("0 0 0"));
  EXPECT_CLEANED(withoutAdjacentVertices("0 0 0, 0 0 0.6, 0 0 1.2, 0 0 9, 0 0 9.6", 1.0), true,
                 LineIs("0 0 0, 0 0 9"));
}

TEST(RemoveDuplicateAdjacentVertices3D, ComparesStrictlyWithinABox) {
  EXPECT_CLEANED(withoutAdjacentVertices("0 0 0, 0 0 1", 1.0), false, LineIs("0 0 0, 0 0 1"));
  EXPECT_CLEANED(withoutAdjacentVertices("0 0 0, 0.9 -0.9 0.9", 1.0), true, LineIs("0 0 0"));
  EXPECT_CLEANED(withoutAdjacentVertices("0 0 0, 0 0 0", 0.0), false, LineIs("0 0 0, 0 0 0"));
}

TEST(RemoveDuplicateAdjacentVertices3D, LeavesFewerThanTwoVertices) {
  EXPECT_CLEANED(withoutAdjacentVertices(""), false, LineIs(""));
  EXPECT_CLEANED(withoutAdjacentVertices("4 4 4"), false, LineIs("4 4 4"));
}

// Vertices anywhere in the line.

TEST(RemoveDuplicateVertices3D, DropsWhatMatchesAnEarlierVertex) {
  EXPECT_CLEANED(withoutRepeatedVertices("3 7 1, 1 1 1, 3 7 1, 2 2 1, 1 1 1, 3 7 1"), true,
                 LineIs("3 7 1, 1 1 1, 2 2 1"));
}

TEST(RemoveDuplicateVertices3D, CountsHeights) {
  EXPECT_CLEANED(withoutRepeatedVertices("0 0 1, 5 0 1, 0 0 2, 5 0 2, 0 0 3"), false,
                 LineIs("0 0 1, 5 0 1, 0 0 2, 5 0 2, 0 0 3"));
  EXPECT_CLEANED(withoutRepeatedVertices("0 0 10, 0 0 20, 0 0 20, 0 0 30, 0 0 10"), true,
                 LineIs("0 0 10, 0 0 20, 0 0 30"));
}

TEST(RemoveDuplicateVertices3D, Kept3DLoneDuplicateDropsFirstVertex) {
  EXPECT_CLEANED(withoutRepeatedVertices("0 0 1, 5 0 2, 9 0 3, 5 0 2"), true,
                 LineIs("5 0 2, 9 0 3, 5 0 2"));
  EXPECT_CLEANED(withoutRepeatedVertices("0 0 1, 0 0 1.5", 1.0), true, LineIs("0 0 1.5"));
}

TEST(RemoveDuplicateVertices3D, ComparesWithThoseThatStayOnly) {
  EXPECT_CLEANED(withoutRepeatedVertices("0 0 0, 0 0 0.6, 0 0 1.2, 0 0 1.8", 1.0), true,
                 LineIs("0 0 0, 0 0 1.2"));
}

TEST(RemoveDuplicateVertices3D, LeavesFewerThanTwoVertices) {
  EXPECT_CLEANED(withoutRepeatedVertices(""), false, LineIs(""));
  EXPECT_CLEANED(withoutRepeatedVertices("4 4 4"), false, LineIs("4 4 4"));
}

// Segments. S is "0 0 0 > 1 0 0", S' its reverse, T is "5 5 5 > 6 6 6", U is "8 0 0 > 9 0 0".

TEST(RemoveDuplicateSegments, KeptDuplicateSegmentErasesTheEntryBefore) {
  EXPECT_CLEANED(withoutRepeated("0 0 0 > 1 0 0; 5 5 5 > 6 6 6; 1 0 0 > 0 0 0"), true,
                 HeapIs("0 0 0 > 1 0 0; 1 0 0 > 0 0 0"));
  EXPECT_CLEANED(withoutRepeated("0 0 0 > 1 0 0; 1 0 0 > 0 0 0; 5 5 5 > 6 6 6"), true,
                 HeapIs("1 0 0 > 0 0 0; 5 5 5 > 6 6 6"));
  // Flags at 1 and 3: what goes is at 0 and 2.
  EXPECT_CLEANED(withoutRepeated("0 0 0 > 1 0 0; 0 0 0 > 1 0 0; 5 5 5 > 6 6 6; 6 6 6 > 5 5 5"),
                 true, HeapIs("0 0 0 > 1 0 0; 6 6 6 > 5 5 5"));
}

TEST(RemoveDuplicateSegments, KeptFlagOfFirstSegmentIsNotRead) {
  EXPECT_CLEANED(withoutRepeated("3 3 3 > 3 3 3; 5 5 5 > 6 6 6"), false,
                 HeapIs("3 3 3 > 3 3 3; 5 5 5 > 6 6 6"));
  EXPECT_CLEANED(withoutRepeated("3 3 3 > 3 3 3"), false, HeapIs("3 3 3 > 3 3 3"));
}

TEST(RemoveDuplicateSegments, ErasesTheEntryBeforeASegmentWithoutLength) {
  EXPECT_CLEANED(withoutRepeated("0 0 0 > 1 0 0; 3 3 3 > 3 3 3; 5 5 5 > 6 6 6"), true,
                 HeapIs("3 3 3 > 3 3 3; 5 5 5 > 6 6 6"));
}

TEST(RemoveDuplicateSegments, TakesNoSecondFlagForOneWithoutLength) {
  // Both are flagged as such: the second, not as a repeat of the first, erases the first.
  EXPECT_CLEANED(withoutRepeated("3 3 3 > 3 3 3; 3 3 3 > 3 3 3; 5 5 5 > 6 6 6"), true,
                 HeapIs("3 3 3 > 3 3 3; 5 5 5 > 6 6 6"));
}

TEST(RemoveDuplicateSegments, ComparesWithThoseNotFoundOnly) {
  // With a tolerance of 1: the second repeats the first and is found; the third, which only repeats
  // the second, is not. So one entry goes, the first.
  EXPECT_CLEANED(withoutRepeated("0 0 0 > 9 0 0; 0 0 0.6 > 9 0 0.6; 0 0 1.2 > 9 0 1.2", 1.0), true,
                 HeapIs("0 0 0.6 > 9 0 0.6; 0 0 1.2 > 9 0 1.2"));
}

TEST(RemoveDuplicateSegments, NeedsBothEnds) {
  EXPECT_CLEANED(withoutRepeated("0 0 0 > 1 0 0; 0 0 0 > 2 0 0; 1 0 0 > 2 0 0"), false,
                 HeapIs("0 0 0 > 1 0 0; 0 0 0 > 2 0 0; 1 0 0 > 2 0 0"));
}

TEST(RemoveDuplicateSegments, ComparesStrictlyWithHeights) {
  EXPECT_CLEANED(withoutRepeated("0 0 0 > 9 0 0; 0 0 1 > 9 0 0", 1.0), false,
                 HeapIs("0 0 0 > 9 0 0; 0 0 1 > 9 0 0"));
  EXPECT_CLEANED(withoutRepeated("0 0 0 > 9 0 0; 0 0 0 > 9 0 0", 0.0), false,
                 HeapIs("0 0 0 > 9 0 0; 0 0 0 > 9 0 0"));
  EXPECT_CLEANED(withoutRepeated("0 0 0 > 9 0 0; 0 0 0 > 9 0 0", nan), false,
                 HeapIs("0 0 0 > 9 0 0; 0 0 0 > 9 0 0"));
}

TEST(RemoveDuplicateSegments, LeavesNoSegmentsAndUnequalLists) {
  EXPECT_CLEANED(withoutRepeated(""), false, HeapIs(""));
  Heap unequal = heap("0 0 > 1 0; 0 0 > 1 0");
  unequal.second.pop_back();
  EXPECT_FALSE(zr3DTools::removeDuplicateSegments(unequal.first, unequal.second, tolerance));
  EXPECT_THAT(unequal.first, LineIs("0 0, 0 0"));
  EXPECT_THAT(unequal.second, LineIs("1 0"));
}

RC_GTEST_PROP(AddSortedSegments, DoesNotDependOnTheDirection, ()) {
  const auto place = [] {
    return gdfVertex(*rc::gen::inRange(-3, 4) / 64.0, *rc::gen::inRange(-3, 4) / 64.0,
                     *rc::gen::inRange(-3, 4) / 64.0);
  };
  const gdfVertex a = place();
  const gdfVertex b = place();
  Heap there;
  Heap back;
  zr3DTools::addSortedSegments(there.first, there.second, a, b);
  zr3DTools::addSortedSegments(back.first, back.second, b, a);
  RC_ASSERT(there.first == back.first);
  RC_ASSERT(there.second == back.second);
  RC_ASSERT(there.first.empty() == (a == b));
  if (!there.first.empty()) RC_ASSERT(there.second[0] < there.first[0]);
}

}  // namespace
