#include <zrBase/utilities/colourIndex.h>

#include <gtest/gtest.h>

#include <QColor>

#include <cmath>
#include <random>

namespace {

// A plain writing of the index, without any table of its colours.

void referenceRgb(int index, double out[3]) {
  out[0] = out[1] = out[2] = 1.0;
  if (index < 1 || index > 255) return;
  if (index < 10) {
    if (index >= 4 && index <= 5) out[0] = 0.0;
    if (index == 3) out[0] = 0.0;
    if (index == 1 || index == 5 || index == 6) out[1] = 0.0;
    if (index <= 3) out[2] = 0.0;
    return;
  }
  double m;
  if (index >= 250) {
    float product = static_cast<float>(index - 250);
    product *= 0.134f;
    product += 0.33f;
    m = static_cast<double>(product);
  } else {
    int h = (index - 10) / 10;
    if (h >= 24) h -= 24;
    const double f = h * 0.25;
    const double i = std::trunc(f);
    const double t = f - i;
    const int u = index % 10;
    const double s = u % 2 != 0 ? 0.5 : 1.0;
    const double a = 1 - s;
    const double b = 1 - (1 - t) * s;
    const double d = 1 - s * t;
    const double wheel[6][3] = {{1, b, a}, {d, 1, a}, {a, 1, b}, {a, d, 1}, {b, a, 1}, {1, a, d}};
    for (int k = 0; k < 3; ++k) out[k] = wheel[static_cast<int>(i)][k];
    m = u < 2 ? 1.0 : u < 4 ? double(0.65f) : u < 6 ? 0.5 : u < 8 ? double(0.3f) : double(0.15f);
  }
  if (m < 0.5) m = m * 2;
  for (int k = 0; k < 3; ++k) out[k] *= m;
}

void referenceHsv(double r, double g, double b, double& h, double& s, double& v) {
  v = r;
  if (g > v) v = g;
  if (b > v) v = b;
  double smallest = r;
  if (g < smallest) smallest = g;
  if (b < smallest) smallest = b;
  if (v == 0) {
    s = 0;
    h = -1;
    return;
  }
  const double d = v - smallest;
  s = d / v;
  if (s == 0) {
    h = -1;
    return;
  }
  if (r == v) {
    h = (v - b) / d - (v - g) / d;
  } else if (g == v) {
    h = (v - r) / d + 2 - (v - b) / d;
  } else {
    h = (v - g) / d + 4 - (v - r) / d;
  }
  h = h * 60;
  if (h < 0) h += 360;
}

int referenceIndex(unsigned int red, unsigned int green, unsigned int blue, int mode) {
  const double r = red / 255.0;
  const double g = green / 255.0;
  const double b = blue / 255.0;
  if (mode == 8) {
    double h, s, v;
    referenceHsv(r, g, b, h, s, v);
    return s == 0 ? 7 : (static_cast<int>(std::trunc(h)) + 30) % 360 / 60 + 1;
  }
  double least = 1000.0;
  int winner = 0;
  for (int index = r == g && g == b ? 250 : 1; index <= 255 && least != 0; ++index) {
    double c[3];
    referenceRgb(index, c);
    const double e = (r - c[0]) * (r - c[0]) + (g - c[1]) * (g - c[1]) + (b - c[2]) * (b - c[2]);
    if (e < least) {
      least = e;
      winner = index;
    }
  }
  return winner == 255 ? 7 : winner;
}

/// 0 if the colour is not exact.
int exactIndex(unsigned int packed) {
  const unsigned int exact[] = {0x0000FF, 0x00FFFF, 0x00FF00, 0xFFFF00, 0xFF0000, 0xFF00FF};
  for (int i = 0; i < 6; ++i) {
    if (packed == exact[i]) return i + 1;
  }
  return packed == 0xFFFFFF || packed == 0 ? 7 : 0;
}

/// A packed colour with many pure, grey and repeated bytes, now and then with a top byte.
unsigned int randomColour(std::mt19937& random) {
  const auto below = [&random](unsigned int limit) {
    return static_cast<unsigned int>(random() % limit);
  };
  unsigned int bytes[3];
  for (unsigned int& byte : bytes) {
    const unsigned int kind = below(6);
    byte = kind == 0 ? 0 : kind == 1 ? 255 : below(256);
  }
  if (below(6) == 0) bytes[1] = bytes[0];
  if (below(6) == 0) bytes[2] = bytes[1];
  const unsigned int top = below(10) == 0 ? below(256) : 0;
  return bytes[0] | bytes[1] << 8 | bytes[2] << 16 | top << 24;
}

TEST(ColourIndexReference, AgreesOnEachIndex) {
  for (int index = -5; index <= 260; ++index) {
    double expected[3];
    referenceRgb(index, expected);
    ACADRGB colour;
    zrUtils::AcadRgb(index, &colour);
    EXPECT_EQ(colour.red, expected[0]) << index;
    EXPECT_EQ(colour.green, expected[1]) << index;
    EXPECT_EQ(colour.blue, expected[2]) << index;
    unsigned int packed = 0;
    for (int k = 2; k >= 0; --k) {
      packed = packed << 8 | static_cast<unsigned int>(std::floor(expected[k] * 255.0 + 0.5));
    }
    EXPECT_EQ(zrUtils::AcadToColorRef(index), packed) << index;
  }
}

TEST(ColourIndexReference, AgreesOnTheIndexOfRandomColours) {
  std::mt19937 random(255);
  for (int i = 0; i < 5000; ++i) {
    const unsigned int packed = randomColour(random);
    const unsigned int red = packed & 0xFF;
    const unsigned int green = packed >> 8 & 0xFF;
    const unsigned int blue = packed >> 16 & 0xFF;
    const int mode = i % 3 == 0 ? 8 : i % 3;
    const int exact = exactIndex(packed);
    const int expected = exact != 0 ? exact : referenceIndex(red, green, blue, mode);
    ASSERT_EQ(zrUtils::ColorRefToAcad(packed, mode), expected) << packed << " mode " << mode;
    // A top byte and an alpha that is not full hide an exact colour likewise.
    const QColor colour(static_cast<int>(red), static_cast<int>(green), static_cast<int>(blue),
                        255 - static_cast<int>(packed >> 24));
    ASSERT_EQ(zrUtils::ColorRefToAcad(colour, mode), expected) << packed << " mode " << mode;
  }
}

TEST(ColourIndexReference, AgreesOnHueSaturationAndValue) {
  std::mt19937 random(360);
  for (int i = 0; i < 5000; ++i) {
    const unsigned int packed = randomColour(random);
    const double r = (packed & 0xFF) / 255.0;
    const double g = (packed >> 8 & 0xFF) / 255.0;
    const double b = (packed >> 16 & 0xFF) / 255.0;
    double h, s, v, hue, saturation, value;
    referenceHsv(r, g, b, h, s, v);
    zrUtils::RgbHsv(r, g, b, hue, saturation, value);
    ASSERT_EQ(hue, h) << packed;
    ASSERT_EQ(saturation, s) << packed;
    ASSERT_EQ(value, v) << packed;
  }
}

}  // namespace
