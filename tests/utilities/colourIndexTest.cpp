#include <zrBase/utilities/colourIndex.h>

#include <gtest/gtest.h>

#include <QColor>
#include <Qt>

#include <limits>

namespace {

using zrUtils::AcadToColorRef;
using zrUtils::ColorRefToAcad;

ACADRGB acadRgb(int index) {
  ACADRGB colour = {-1.0, -1.0, -1.0};
  zrUtils::AcadRgb(index, &colour);
  return colour;
}

#define EXPECT_ACADRGB(index, r, g, b)     \
  do {                                     \
    const ACADRGB colour = acadRgb(index); \
    EXPECT_EQ(colour.red, r) << index;     \
    EXPECT_EQ(colour.green, g) << index;   \
    EXPECT_EQ(colour.blue, b) << index;    \
  } while (false)

/// The packed colours by index; index 0 stands for those beyond the limits.
constexpr unsigned int packedColours[] = {
    // clang-format off
    0xFFFFFF, 0x0000FF, 0x00FFFF, 0x00FF00, 0xFFFF00,
    0xFF0000, 0xFF00FF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF,
    0x0000FF, 0x8080FF, 0x0000A6, 0x5353A6, 0x000080,
    0x404080, 0x000099, 0x4D4D99, 0x00004D, 0x26264D,
    0x0040FF, 0x809FFF, 0x0029A6, 0x5368A6, 0x002080,
    0x405080, 0x002699, 0x4D6099, 0x00134D, 0x26304D,
    0x0080FF, 0x80BFFF, 0x0053A6, 0x537CA6, 0x004080,
    0x406080, 0x004D99, 0x4D7399, 0x00264D, 0x26394D,
    0x00BFFF, 0x80DFFF, 0x007CA6, 0x5391A6, 0x006080,
    0x407080, 0x007399, 0x4D8699, 0x00394D, 0x26434D,
    0x00FFFF, 0x80FFFF, 0x00A6A6, 0x53A6A6, 0x008080,
    0x408080, 0x009999, 0x4D9999, 0x004D4D, 0x264D4D,
    0x00FFBF, 0x80FFDF, 0x00A67C, 0x53A691, 0x008060,
    0x408070, 0x009973, 0x4D9986, 0x004D39, 0x264D43,
    0x00FF80, 0x80FFBF, 0x00A653, 0x53A67C, 0x008040,
    0x408060, 0x00994D, 0x4D9973, 0x004D26, 0x264D39,
    0x00FF40, 0x80FF9F, 0x00A629, 0x53A668, 0x008020,
    0x408050, 0x009926, 0x4D9960, 0x004D13, 0x264D30,
    0x00FF00, 0x80FF80, 0x00A600, 0x53A653, 0x008000,
    0x408040, 0x009900, 0x4D994D, 0x004D00, 0x264D26,
    0x40FF00, 0x9FFF80, 0x29A600, 0x68A653, 0x208000,
    0x508040, 0x269900, 0x60994D, 0x134D00, 0x304D26,
    0x80FF00, 0xBFFF80, 0x53A600, 0x7CA653, 0x408000,
    0x608040, 0x4D9900, 0x73994D, 0x264D00, 0x394D26,
    0xBFFF00, 0xDFFF80, 0x7CA600, 0x91A653, 0x608000,
    0x708040, 0x739900, 0x86994D, 0x394D00, 0x434D26,
    0xFFFF00, 0xFFFF80, 0xA6A600, 0xA6A653, 0x808000,
    0x808040, 0x999900, 0x99994D, 0x4D4D00, 0x4D4D26,
    0xFFBF00, 0xFFDF80, 0xA67C00, 0xA69153, 0x806000,
    0x807040, 0x997300, 0x99864D, 0x4D3900, 0x4D4326,
    0xFF8000, 0xFFBF80, 0xA65300, 0xA67C53, 0x804000,
    0x806040, 0x994D00, 0x99734D, 0x4D2600, 0x4D3926,
    0xFF4000, 0xFF9F80, 0xA62900, 0xA66853, 0x802000,
    0x805040, 0x992600, 0x99604D, 0x4D1300, 0x4D3026,
    0xFF0000, 0xFF8080, 0xA60000, 0xA65353, 0x800000,
    0x804040, 0x990000, 0x994D4D, 0x4D0000, 0x4D2626,
    0xFF0040, 0xFF809F, 0xA60029, 0xA65368, 0x800020,
    0x804050, 0x990026, 0x994D60, 0x4D0013, 0x4D2630,
    0xFF0080, 0xFF80BF, 0xA60053, 0xA6537C, 0x800040,
    0x804060, 0x99004D, 0x994D73, 0x4D0026, 0x4D2639,
    0xFF00BF, 0xFF80DF, 0xA6007C, 0xA65391, 0x800060,
    0x804070, 0x990073, 0x994D86, 0x4D0039, 0x4D2643,
    0xFF00FF, 0xFF80FF, 0xA600A6, 0xA653A6, 0x800080,
    0x804080, 0x990099, 0x994D99, 0x4D004D, 0x4D264D,
    0xBF00FF, 0xDF80FF, 0x7C00A6, 0x9153A6, 0x600080,
    0x704080, 0x730099, 0x864D99, 0x39004D, 0x43264D,
    0x8000FF, 0xBF80FF, 0x5300A6, 0x7C53A6, 0x400080,
    0x604080, 0x4D0099, 0x734D99, 0x26004D, 0x39264D,
    0x4000FF, 0x9F80FF, 0x2900A6, 0x6853A6, 0x200080,
    0x504080, 0x260099, 0x604D99, 0x13004D, 0x30264D,
    0xA8A8A8, 0xEDEDED, 0x989898, 0xBBBBBB, 0xDDDDDD,
    0xFFFFFF,
    // clang-format on
};

TEST(AcadColour, IsARecordOfThreeFractions) {
  const ACADRGB colour{0.25, 0.5, 0.75};
  EXPECT_EQ(colour.red, 0.25);
  EXPECT_EQ(colour.green, 0.5);
  EXPECT_EQ(colour.blue, 0.75);
}

TEST(AcadRgb, GivesWhiteBeyondItsLimits) {
  for (int index :
       {0, -1, 256, 1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_ACADRGB(index, 1.0, 1.0, 1.0);
    EXPECT_EQ(AcadToColorRef(index), 0xFFFFFFu) << index;
  }
}

TEST(AcadRgb, BeginsWithThePureColours) {
  EXPECT_ACADRGB(1, 1.0, 0.0, 0.0);
  EXPECT_ACADRGB(2, 1.0, 1.0, 0.0);
  EXPECT_ACADRGB(3, 0.0, 1.0, 0.0);
  EXPECT_ACADRGB(4, 0.0, 1.0, 1.0);
  EXPECT_ACADRGB(5, 0.0, 0.0, 1.0);
  EXPECT_ACADRGB(6, 1.0, 0.0, 1.0);
  EXPECT_ACADRGB(7, 1.0, 1.0, 1.0);
}

TEST(AcadRgb, KeptIndicesEightAndNineAreWhite) {
  EXPECT_ACADRGB(8, 1.0, 1.0, 1.0);
  EXPECT_ACADRGB(9, 1.0, 1.0, 1.0);
}

TEST(AcadRgb, IsHalfSaturatedAtOddIndices) {
  EXPECT_ACADRGB(10, 1.0, 0.0, 0.0);
  EXPECT_ACADRGB(11, 1.0, 0.5, 0.5);
  EXPECT_ACADRGB(14, 0.5, 0.0, 0.0);
  EXPECT_ACADRGB(15, 0.5, 0.25, 0.25);
}

TEST(AcadRgb, GoesRoundTheWheel) {
  // The fourth hue of each sector, t = 0.75, full and half saturated.
  EXPECT_ACADRGB(40, 1.0, 0.75, 0.0);
  EXPECT_ACADRGB(41, 1.0, 0.875, 0.5);
  EXPECT_ACADRGB(80, 0.25, 1.0, 0.0);
  EXPECT_ACADRGB(81, 0.625, 1.0, 0.5);
  EXPECT_ACADRGB(120, 0.0, 1.0, 0.75);
  EXPECT_ACADRGB(121, 0.5, 1.0, 0.875);
  EXPECT_ACADRGB(160, 0.0, 0.25, 1.0);
  EXPECT_ACADRGB(161, 0.5, 0.625, 1.0);
  EXPECT_ACADRGB(200, 0.75, 0.0, 1.0);
  EXPECT_ACADRGB(201, 0.875, 0.5, 1.0);
  EXPECT_ACADRGB(240, 1.0, 0.0, 0.25);
  EXPECT_ACADRGB(241, 1.0, 0.5, 0.625);
}

TEST(AcadRgb, StartsEachSectorWithAPureColour) {
  EXPECT_ACADRGB(50, 1.0, 1.0, 0.0);
  EXPECT_ACADRGB(90, 0.0, 1.0, 0.0);
  EXPECT_ACADRGB(130, 0.0, 1.0, 1.0);
  EXPECT_ACADRGB(170, 0.0, 0.0, 1.0);
  EXPECT_ACADRGB(210, 1.0, 0.0, 1.0);
}

TEST(AcadRgb, KeptBrightnessIsInSinglePrecision) {
  EXPECT_EQ(acadRgb(12).red, 0.64999997615814208984375);
  EXPECT_EQ(acadRgb(16).red, 2 * 0.300000011920928955078125);
  EXPECT_EQ(acadRgb(18).red, 2 * 0.1500000059604644775390625);
  EXPECT_EQ(acadRgb(250).red, 2 * 0.3300000131130218505859375);
  // 0.134f is 0.13400000333786011; 251 adds it to 0.33 once, 252 twice, and the second sum is
  // rounded to a float again. It is not doubled.
  EXPECT_EQ(acadRgb(252).red, 0.598000049591064453125);
  EXPECT_EQ(acadRgb(251).red, 2 * 0.4640000164508819580078125);
}

TEST(AcadRgb, GivesGreysAtItsEnd) {
  const double greys[] = {0.66, 0.928, 0.598, 0.732, 0.866, 1.0};
  for (int index = 250; index <= 255; ++index) {
    const ACADRGB colour = acadRgb(index);
    EXPECT_NEAR(colour.red, greys[index - 250], 6e-8) << index;
    EXPECT_EQ(colour.green, colour.red) << index;
    EXPECT_EQ(colour.blue, colour.red) << index;
  }
  EXPECT_EQ(acadRgb(255).red, 1.0);
}

TEST(AcadRgb, KeptDarkShadesAreDoubled) {
  EXPECT_NEAR(acadRgb(250).red, 0.66, 1e-7);
  EXPECT_GT(acadRgb(250).red, acadRgb(252).red);
  EXPECT_EQ(acadRgb(14).red, 0.5);
  EXPECT_NEAR(acadRgb(16).red, 0.6, 1e-7);
  EXPECT_NEAR(acadRgb(18).red, 0.3, 1e-7);
}

TEST(AcadToColorRef, GivesEachIndexItsColour) {
  for (int index = 0; index <= 255; ++index) {
    EXPECT_EQ(AcadToColorRef(index), packedColours[index]) << index;
    unsigned int packed = 1;
    AcadToColorRef(index, packed);
    EXPECT_EQ(packed, packedColours[index]) << index;
  }
}

TEST(AcadToColorRef, RoundsToTheNearestByte) {
  // 0.5 * 255 = 127.5 goes up; 0.65 * 255 = 165.75; 0.75 * 0.65 * 255 = 124.3125.
  EXPECT_EQ(AcadToColorRef(14), 0x000080u);
  EXPECT_EQ(AcadToColorRef(12), 0x0000A6u);
  EXPECT_EQ(AcadToColorRef(42), 0x007CA6u);
}

/// The index that an index comes back as from its own colour.
int indexAfterTheRound(int index) {
  switch (index) {
    case 8:
    case 9:
    case 255:
      return 7;
    case 10:
      return 1;
    case 50:
      return 2;
    case 90:
      return 3;
    case 130:
      return 4;
    case 170:
      return 5;
    case 210:
      return 6;
    default:
      return index;
  }
}

TEST(ColorRefToAcad, FindsEachIndexByItsColour) {
  for (int index = 1; index <= 255; ++index) {
    const unsigned int packed = AcadToColorRef(index);
    EXPECT_EQ(ColorRefToAcad(packed, 0), indexAfterTheRound(index)) << index;
    const QColor colour(static_cast<int>(packed & 0xFF), static_cast<int>(packed >> 8 & 0xFF),
                        static_cast<int>(packed >> 16));
    EXPECT_EQ(ColorRefToAcad(colour, 0), indexAfterTheRound(index)) << index;
  }
}

TEST(ColorRefToAcad, TakesTheModeForBasicColoursExactly) {
  // Nearly black: 18 of all, 1 of the basic colours by hue.
  EXPECT_EQ(ColorRefToAcad(0x000001, 8), 1);
  EXPECT_EQ(ColorRefToAcad(0x000001, 9), 18);
  EXPECT_EQ(ColorRefToAcad(0x000001, 24), 18);
}

TEST(ColorRefToAcad, KnowsTheExactColoursInEachMode) {
  for (int mode : {0, 8, -1, 7, 24}) {
    EXPECT_EQ(ColorRefToAcad(0x0000FF, mode), 1);
    EXPECT_EQ(ColorRefToAcad(0x00FFFF, mode), 2);
    EXPECT_EQ(ColorRefToAcad(0x00FF00, mode), 3);
    EXPECT_EQ(ColorRefToAcad(0xFFFF00, mode), 4);
    EXPECT_EQ(ColorRefToAcad(0xFF0000, mode), 5);
    EXPECT_EQ(ColorRefToAcad(0xFF00FF, mode), 6);
    EXPECT_EQ(ColorRefToAcad(0xFFFFFF, mode), 7);
    EXPECT_EQ(ColorRefToAcad(QColor(Qt::red), mode), 1);
    EXPECT_EQ(ColorRefToAcad(QColor(Qt::yellow), mode), 2);
    EXPECT_EQ(ColorRefToAcad(QColor(Qt::green), mode), 3);
    EXPECT_EQ(ColorRefToAcad(QColor(Qt::cyan), mode), 4);
    EXPECT_EQ(ColorRefToAcad(QColor(Qt::blue), mode), 5);
    EXPECT_EQ(ColorRefToAcad(QColor(Qt::magenta), mode), 6);
    EXPECT_EQ(ColorRefToAcad(QColor(Qt::white), mode), 7);
  }
}

TEST(ColorRefToAcad, KeptBlackSharesTheIndexOfWhite) {
  for (int mode : {0, 8}) {
    EXPECT_EQ(ColorRefToAcad(0x000000, mode), 7);
    EXPECT_EQ(ColorRefToAcad(QColor(Qt::black), mode), 7);
  }
}

TEST(ColorRefToAcad, KeptTopByteHidesAnExactColour) {
  // The darkest grey is nearest to black; the pure red and the white are found by the search.
  EXPECT_EQ(ColorRefToAcad(0xFF000000u, 0), 252);
  EXPECT_EQ(ColorRefToAcad(0x01000000u, 0), 252);
  EXPECT_EQ(ColorRefToAcad(0xFF0000FFu, 0), 1);
  EXPECT_EQ(ColorRefToAcad(0xFFFFFFFFu, 0), 7);
  EXPECT_EQ(ColorRefToAcad(0xFF000000u, 8), 7);
  EXPECT_EQ(ColorRefToAcad(0xFF00FFFFu, 8), 2);
}

TEST(ColorRefToAcad, KeptTranslucentBlackIsNotExact) {
  EXPECT_EQ(ColorRefToAcad(QColor(0, 0, 0, 254), 0), 252);
  EXPECT_EQ(ColorRefToAcad(QColor::fromHsv(0, 0, 0), 0), 252);
  EXPECT_EQ(ColorRefToAcad(QColor(), 0), 252);
  EXPECT_EQ(ColorRefToAcad(QColor::fromRgba64(1, 0, 0), 0), 252);
  EXPECT_EQ(ColorRefToAcad(QColor(0, 0, 0, 0), 8), 7);
  EXPECT_EQ(ColorRefToAcad(QColor(255, 0, 0, 0), 0), 1);
}

TEST(ColorRefToAcad, TakesTheNearestIndex) {
  EXPECT_EQ(ColorRefToAcad(0x0000FE, 0), 1);   // as near to 10, which comes later
  EXPECT_EQ(ColorRefToAcad(0xFFFFFE, 0), 7);   // as near to 8, 9 and 255
  EXPECT_EQ(ColorRefToAcad(0x8080FF, 0), 11);  // half saturated red
  EXPECT_EQ(ColorRefToAcad(0x000084, 0), 14);  // 132 of 255: 127.5 is nearer than 153
  EXPECT_EQ(ColorRefToAcad(0x000090, 0), 16);  // 144 of 255: 153 is nearer than 127.5
  EXPECT_EQ(ColorRefToAcad(0x000001, 0), 18);  // the darkest red
}

TEST(ColorRefToAcad, KeptGreysAreSoughtAmongTheGreys) {
  // (77, 77, 77) is 55 away from index 19, (77, 38, 38), and 130 from 252, (152, 152, 152).
  EXPECT_EQ(ColorRefToAcad(0x4D4D4D, 0), 252);
  EXPECT_EQ(ColorRefToAcad(0x010101, 0), 252);
  EXPECT_EQ(ColorRefToAcad(0x808080, 0), 252);
  EXPECT_EQ(ColorRefToAcad(0xA8A8A8, 0), 250);
  EXPECT_EQ(ColorRefToAcad(0xECECEC, 0), 251);
  EXPECT_EQ(ColorRefToAcad(0xBBBBBB, 0), 253);
  EXPECT_EQ(ColorRefToAcad(0xDCDCDC, 0), 254);
}

TEST(ColorRefToAcad, KeptLastGreyIsGivenAsSeven) {
  EXPECT_EQ(ColorRefToAcad(0xFEFEFE, 0), 7);
  EXPECT_EQ(ColorRefToAcad(QColor(250, 250, 250), 0), 7);
}

TEST(ColorRefToAcad, KeptModeEightKnowsSixHues) {
  EXPECT_EQ(ColorRefToAcad(0x000001, 8), 1);
  EXPECT_EQ(ColorRefToAcad(0x8080FF, 8), 1);
  EXPECT_EQ(ColorRefToAcad(0xFEFFFE, 8), 3);
  EXPECT_EQ(ColorRefToAcad(0x808080, 8), 7);
  EXPECT_EQ(ColorRefToAcad(QColor(1, 0, 0), 8), 1);
  EXPECT_EQ(ColorRefToAcad(QColor(1, 1, 1), 8), 7);
}

TEST(ColorRefToAcad, CutsTheWheelAtThirtyDegrees) {
  // 60 * 127 / 255 = 29.88, 60 * 128 / 255 = 30.12, and the same to either side of each pure hue.
  EXPECT_EQ(ColorRefToAcad(0x007FFF, 8), 1);
  EXPECT_EQ(ColorRefToAcad(0x0080FF, 8), 2);
  EXPECT_EQ(ColorRefToAcad(0x00FF80, 8), 2);  // 89.88
  EXPECT_EQ(ColorRefToAcad(0x00FF7F, 8), 3);  // 90.12
  EXPECT_EQ(ColorRefToAcad(0x7FFF00, 8), 3);  // 149.88
  EXPECT_EQ(ColorRefToAcad(0x80FF00, 8), 4);  // 150.12
  EXPECT_EQ(ColorRefToAcad(0xFF8000, 8), 4);  // 209.88
  EXPECT_EQ(ColorRefToAcad(0xFF7F00, 8), 5);  // 210.12
  EXPECT_EQ(ColorRefToAcad(0xFF007F, 8), 5);  // 269.88
  EXPECT_EQ(ColorRefToAcad(0xFF0080, 8), 6);  // 270.12
  EXPECT_EQ(ColorRefToAcad(0x8000FF, 8), 6);  // 329.88
  EXPECT_EQ(ColorRefToAcad(0x7F00FF, 8), 1);  // 330.12
}

struct Hsv {
  double h;
  double s;
  double v;
};

Hsv hsv(double r, double g, double b) {
  Hsv result = {77.0, 77.0, 77.0};
  zrUtils::RgbHsv(r, g, b, result.h, result.s, result.v);
  return result;
}

#define EXPECT_HSV(colour, hue, saturation, value) \
  do {                                             \
    const Hsv result = colour;                     \
    EXPECT_EQ(result.h, hue);                      \
    EXPECT_EQ(result.s, saturation);               \
    EXPECT_EQ(result.v, value);                    \
  } while (false)

TEST(RgbHsv, GivesPureHues) {
  EXPECT_HSV(hsv(1.0, 0.0, 0.0), 0.0, 1.0, 1.0);
  EXPECT_HSV(hsv(1.0, 1.0, 0.0), 60.0, 1.0, 1.0);
  EXPECT_HSV(hsv(0.0, 1.0, 0.0), 120.0, 1.0, 1.0);
  EXPECT_HSV(hsv(0.0, 1.0, 1.0), 180.0, 1.0, 1.0);
  EXPECT_HSV(hsv(0.0, 0.0, 1.0), 240.0, 1.0, 1.0);
  EXPECT_HSV(hsv(1.0, 0.0, 1.0), 300.0, 1.0, 1.0);
}

TEST(RgbHsv, TakesNegativeComponentsAsTheyCome) {
  // v = -1, the spread is 3, s = 3 / -1; the hue (1 - 1/3) 60 of the sector between red and green.
  const Hsv negative = hsv(-1.0, -2.0, -4.0);
  EXPECT_NEAR(negative.h, 40.0, 1e-12);
  EXPECT_EQ(negative.s, -3.0);
  EXPECT_EQ(negative.v, -1.0);
}

TEST(RgbHsv, GivesNoHueForGrey) {
  EXPECT_HSV(hsv(0.5, 0.5, 0.5), -1.0, 0.0, 0.5);
  EXPECT_HSV(hsv(1.0, 1.0, 1.0), -1.0, 0.0, 1.0);
}

TEST(RgbHsv, GivesNoHueForBlack) {
  EXPECT_HSV(hsv(0.0, 0.0, 0.0), -1.0, 0.0, 0.0);
  EXPECT_HSV(hsv(-1.0, 0.0, -0.5), -1.0, 0.0, 0.0);
}

TEST(RgbHsv, LiesBetweenTheHuesOfTheTwoLargest) {
  EXPECT_HSV(hsv(0.5, 0.375, 0.25), 30.0, 0.5, 0.5);
  EXPECT_HSV(hsv(0.25, 0.375, 0.5), 210.0, 0.5, 0.5);
  EXPECT_HSV(hsv(0.375, 0.25, 0.5), 270.0, 0.5, 0.5);
  EXPECT_HSV(hsv(0.5, 0.0, 0.25), 330.0, 1.0, 0.5);
  EXPECT_HSV(hsv(0.25, 0.5, 0.0), 90.0, 1.0, 0.5);
}

}  // namespace
