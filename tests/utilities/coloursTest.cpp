#include <zrBase/utilities/colours.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <type_traits>

namespace {

/// A constant against its red, green and blue.
#define EXPECT_COLOUR(constant, red, green, blue)                              \
  do {                                                                         \
    EXPECT_EQ(constant, (blue)*65536 + (green)*256 + (red)) << #constant;      \
    EXPECT_TRUE((std::is_same_v<decltype(constant), const int>)) << #constant; \
    EXPECT_EQ(zrUtils::getRed(constant), red) << #constant;                    \
    EXPECT_EQ(zrUtils::getGreen(constant), green) << #constant;                \
    EXPECT_EQ(zrUtils::getBlue(constant), blue) << #constant;                  \
  } while (false)

TEST(ColourConstants, HaveTheirComponents) {
  EXPECT_COLOUR(RGB_BLACK, 0, 0, 0);
  EXPECT_COLOUR(RGB_WHITE, 255, 255, 255);
  EXPECT_COLOUR(RGB_RED, 255, 0, 0);
  EXPECT_COLOUR(RGB_GREEN, 0, 255, 0);
  EXPECT_COLOUR(RGB_BLUE, 0, 0, 255);
  EXPECT_COLOUR(RGB_MAGENTA, 255, 0, 255);
  EXPECT_COLOUR(RGB_CYAN, 0, 255, 255);
  EXPECT_COLOUR(RGB_YELLOW, 255, 255, 0);
  EXPECT_COLOUR(RGB_LIGHT_BLUE, 132, 165, 255);
  EXPECT_COLOUR(RGB_DARK_BLUE, 0, 0, 102);
  EXPECT_COLOUR(RGB_LIGHT_GREEN, 128, 255, 0);
  EXPECT_COLOUR(RGB_DARK_GREEN, 0, 136, 0);
  EXPECT_COLOUR(RGB_ORANGE, 255, 128, 0);
  EXPECT_COLOUR(RGB_PINK, 255, 0, 128);
  EXPECT_COLOUR(RGB_GRAY, 128, 128, 128);
  EXPECT_COLOUR(RGB_LIGHT_GRAY, 176, 176, 176);
  EXPECT_COLOUR(RGB_DARK_GRAY, 64, 64, 64);
}

TEST(PackedColour, HasRedInTheLowByte) {
  EXPECT_EQ(zrUtils::rgb(0x12, 0x34, 0x56), 0x563412);
  EXPECT_EQ(zrUtils::rgb(255, 0, 0), RGB_RED);
  EXPECT_EQ(zrUtils::rgb(132, 165, 255), RGB_LIGHT_BLUE);
}

TEST(PackedColour, KeptPackedComponentsAreNotMasked) {
  EXPECT_EQ(zrUtils::rgb(256, 0, 0), 0x000100);
  EXPECT_EQ(zrUtils::rgb(0, 0x1FF, 0), 0x01FF00);
  EXPECT_EQ(zrUtils::rgb(0x10001, 0x0100, 0x02), 0x030001);
  EXPECT_EQ(zrUtils::rgb(-1, 0, 0), -1);
  EXPECT_EQ(zrUtils::rgb(0, -1, 0), -256);
  EXPECT_EQ(zrUtils::rgb(5, 0, -1), -65536 + 5);
}

TEST(PackedColour, LosesBitsBeyondTheThirtySecond) {
  EXPECT_EQ(zrUtils::rgb(0, 0, 0x10000), 0);
  EXPECT_EQ(zrUtils::rgb(0, 0, 0x8000), std::numeric_limits<int>::min());
  EXPECT_EQ(zrUtils::rgb(1, 0x01000002, 0), 0x0201);
  EXPECT_EQ(zrUtils::rgb(0, 0, std::numeric_limits<int>::max()), -65536);
}

TEST(PackedColour, IsMadeAtCompileTime) {
  static_assert(zrUtils::rgb(1, 2, 3) == 0x030201);
  static_assert(zrUtils::getBlue(zrUtils::bgrTorgb(0x030201)) == 1);
  EXPECT_TRUE((std::is_same_v<decltype(zrUtils::getRed(0)), unsigned char>));
  EXPECT_TRUE((std::is_same_v<decltype(zrUtils::getGreen(0)), unsigned char>));
  EXPECT_TRUE((std::is_same_v<decltype(zrUtils::getBlue(0)), unsigned char>));
}

TEST(PackedColour, GivesItsBytesBack) {
  EXPECT_EQ(zrUtils::getRed(0x12345678), 0x78);
  EXPECT_EQ(zrUtils::getGreen(0x12345678), 0x56);
  EXPECT_EQ(zrUtils::getBlue(0x12345678), 0x34);
}

TEST(PackedColour, GivesTheBytesOfANegativeNumber) {
  EXPECT_EQ(zrUtils::getRed(-2), 0xFE);
  EXPECT_EQ(zrUtils::getGreen(-2), 0xFF);
  EXPECT_EQ(zrUtils::getBlue(std::numeric_limits<int>::min()), 0);
}

TEST(PackedColour, KeptByteSwapDropsTheTopByte) {
  EXPECT_EQ(zrUtils::rgbTobgr(0x12345678), 0x00785634);
  EXPECT_EQ(zrUtils::bgrTorgb(0x12345678), 0x00785634);
  EXPECT_EQ(zrUtils::rgbTobgr(-256), 0x00FFFF);
}

RC_GTEST_PROP(PackedColour, SwapsThereAndBack, (int colour)) {
  RC_ASSERT(zrUtils::rgbTobgr(zrUtils::rgbTobgr(colour)) == (colour & 0xFFFFFF));
  RC_ASSERT(zrUtils::rgbTobgr(colour) == zrUtils::bgrTorgb(colour));
  RC_ASSERT(zrUtils::rgbTobgr(colour) == zrUtils::rgb(zrUtils::getBlue(colour),
                                                      zrUtils::getGreen(colour),
                                                      zrUtils::getRed(colour)));
}

TEST(ColourFromInt, GivesTwelveColoursInTurn) {
  EXPECT_EQ(zrUtils::getColourFromInt(0), 0xFFFFFF);
  EXPECT_EQ(zrUtils::getColourFromInt(1), 0x0000FF);
  EXPECT_EQ(zrUtils::getColourFromInt(2), 0x00FF00);
  EXPECT_EQ(zrUtils::getColourFromInt(3), 0x8000FF);
  EXPECT_EQ(zrUtils::getColourFromInt(4), 0x00FFFF);
  EXPECT_EQ(zrUtils::getColourFromInt(5), 0xFF0000);
  EXPECT_EQ(zrUtils::getColourFromInt(6), 0x808080);
  EXPECT_EQ(zrUtils::getColourFromInt(7), 0xFF00FF);
  EXPECT_EQ(zrUtils::getColourFromInt(8), 0xFFFF00);
  EXPECT_EQ(zrUtils::getColourFromInt(9), 0x00FFFF);
  EXPECT_EQ(zrUtils::getColourFromInt(10), 0x660000);
  EXPECT_EQ(zrUtils::getColourFromInt(11), 0x008800);
}

TEST(ColourFromInt, StartsAgainAtTwelve) {
  EXPECT_EQ(zrUtils::getColourFromInt(12), 0xFFFFFF);
  EXPECT_EQ(zrUtils::getColourFromInt(13), 0x0000FF);
  EXPECT_EQ(zrUtils::getColourFromInt(1211), 0x008800);
  // 2147483647 = 12 * 178956970 + 7
  EXPECT_EQ(zrUtils::getColourFromInt(std::numeric_limits<int>::max()), 0xFF00FF);
}

TEST(ColourFromInt, KeptYellowComesTwiceInTheCycle) {
  EXPECT_EQ(zrUtils::getColourFromInt(4), RGB_YELLOW);
  EXPECT_EQ(zrUtils::getColourFromInt(9), RGB_YELLOW);
}

TEST(ColourFromInt, KeptNegativeNumberIsNoColourOfTheCycle) {
  for (int i = -25; i < 0; ++i) EXPECT_EQ(zrUtils::getColourFromInt(i), 0xFFFFFF) << i;
  EXPECT_EQ(zrUtils::getColourFromInt(std::numeric_limits<int>::min()), 0xFFFFFF);
}

}  // namespace
