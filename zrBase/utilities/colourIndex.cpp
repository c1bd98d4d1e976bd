#include <zrBase/utilities/colourIndex.h>

#include <zrBase/geometry/internal/saturatingCast.h>
#include <zrBase/utilities/colours.h>
#include <zrBase/utilities/rounding.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace zrUtils {

namespace {

constexpr ACADRGB white = {1.0, 1.0, 1.0};

// Kept on purpose (KeptIndicesEightAndNineAreWhite): three indices for one colour.
constexpr ACADRGB firstColours[] = {
    white,            // 0, which stands for every index beyond the limits
    {1.0, 0.0, 0.0},  // 1 red
    {1.0, 1.0, 0.0},  // 2 yellow
    {0.0, 1.0, 0.0},  // 3 green
    {0.0, 1.0, 1.0},  // 4 cyan
    {0.0, 0.0, 1.0},  // 5 blue
    {1.0, 0.0, 1.0},  // 6 magenta
    white,            // 7
    white,            // 8
    white,            // 9
};

// Kept on purpose (KeptBrightnessIsInSinglePrecision): the widened floats, not the doubles.
constexpr double brightness[] = {1.0, 0.65f, 0.5, 0.3f, 0.15f};

constexpr ACADRGB scaled(const ACADRGB& colour, double scale) {
  // Kept on purpose (KeptDarkShadesAreDoubled): strictly below one half, so that 0.5 stays and is
  // darker than the 0.6 that 0.3 becomes; of the greys 250 is lighter than 252.
  if (scale < 0.5) scale *= 2.0;
  return {colour.red * scale, colour.green * scale, colour.blue * scale};
}

/// A colour of the wheel by its sector of 60 degrees, red to yellow first. `low` is the component
/// that the sector lacks, `rising` and `falling` are those that change within it.
constexpr ACADRGB wheelColour(int sector, double low, double rising, double falling) {
  switch (sector) {
    case 0:
      return {1.0, rising, low};
    case 1:
      return {falling, 1.0, low};
    case 2:
      return {low, 1.0, rising};
    case 3:
      return {low, falling, 1.0};
    case 4:
      return {rising, low, 1.0};
    default:
      return {1.0, low, falling};
  }
}

/// The colour of an index from 10 to 249.
constexpr ACADRGB hueColour(int index) {
  const int tens = (index - 10) / 10;
  const double position = tens * 0.25;
  const int sector = static_cast<int>(position);
  const double t = position - sector;
  const int shade = index % 10;
  const double s = shade % 2 == 1 ? 0.5 : 1.0;
  return scaled(wheelColour(sector, 1.0 - s, 1.0 - (1.0 - t) * s, 1.0 - s * t),
                brightness[shade / 2]);
}

/// The colour of an index from 250 to 255.
constexpr ACADRGB greyColour(int index) {
  return scaled(white, static_cast<float>(index - 250) * 0.134f + 0.33f);
}

constexpr std::array<ACADRGB, 256> allColours() {
  std::array<ACADRGB, 256> colours = {};
  for (int index = 0; index < 256; ++index) {
    ACADRGB& colour = colours[static_cast<std::size_t>(index)];
    colour = index < 10 ? firstColours[index] : index < 250 ? hueColour(index) : greyColour(index);
  }
  return colours;
}

/// The colours by index, and white as entry 0.
constexpr std::array<ACADRGB, 256> colours = allColours();

/// A fraction as a byte.
unsigned int byteOf(double fraction) {
  return static_cast<unsigned int>(gdfInternal::toInt(fround(fraction * 255.0))) & 0xFF;
}

/// A colour that has its index whatever the mode.
struct ExactColour {
  unsigned int packed;
  int index;
};

constexpr ExactColour exactColours[] = {
    {0x0000FF, 1},
    {0x00FFFF, 2},
    {0x00FF00, 3},
    {0xFFFF00, 4},
    {0xFF0000, 5},
    {0xFF00FF, 6},
    {0xFFFFFF, 7},
    // Kept on purpose (KeptBlackSharesTheIndexOfWhite): what is drawn black on paper is drawn white
    // on a screen. No index is black.
    {0x000000, 7},
};

/// The index that belongs to the hue alone.
int indexOfHue(const ACADRGB& colour) {
  double h;
  double s;
  double v;
  RgbHsv(colour.red, colour.green, colour.blue, h, s, v);
  if (s == 0.0) return 7;
  // Kept on purpose (KeptModeEightKnowsSixHues): dark and pale colours, too, become pure ones.
  return (gdfInternal::toInt(h) + 30) % 360 / 60 + 1;
}

int indexOfNearest(const ACADRGB& wanted) {
  // Kept on purpose (KeptGreysAreSoughtAmongTheGreys): a dark red is nearer to a dark grey than the
  // darkest of the greys is, and is passed over.
  const bool grey = wanted.red == wanted.green && wanted.green == wanted.blue;
  int nearest = 255;
  double least = 1000.0;
  for (int index = grey ? 250 : 1; index <= 255; ++index) {
    const ACADRGB& colour = colours[static_cast<std::size_t>(index)];
    const double red = wanted.red - colour.red;
    const double green = wanted.green - colour.green;
    const double blue = wanted.blue - colour.blue;
    const double distance = red * red + green * green + blue * blue;
    if (distance < least) {
      least = distance;
      nearest = index;
    }
    if (distance == 0.0) break;
  }
  // Kept on purpose (KeptLastGreyIsGivenAsSeven): 255 is never a result.
  return nearest == 255 ? 7 : nearest;
}

/// The index of a colour in bytes that is none of the exact ones.
int indexOf(int red, int green, int blue, int mode) {
  const ACADRGB colour = {red / 255.0, green / 255.0, blue / 255.0};
  return mode == 8 ? indexOfHue(colour) : indexOfNearest(colour);
}

}  // namespace

void AcadRgb(int index, ACADRGB* out) {
  const bool listed = index >= 1 && index <= 255;
  *out = colours[listed ? static_cast<std::size_t>(index) : 0];
}

unsigned int AcadToColorRef(int index) {
  ACADRGB colour;
  AcadRgb(index, &colour);
  return byteOf(colour.red) | byteOf(colour.green) << 8 | byteOf(colour.blue) << 16;
}

void AcadToColorRef(int index, unsigned int& out) { out = AcadToColorRef(index); }

int ColorRefToAcad(unsigned int c, int mode) {
  for (const ExactColour& exact : exactColours) {
    // Kept on purpose (KeptTopByteHidesAnExactColour): compared whole, so that 0xFF000000 is no
    // black here.
    if (c == exact.packed) return exact.index;
  }
  const int packed = static_cast<int>(c & 0xFFFFFF);
  return indexOf(getRed(packed), getGreen(packed), getBlue(packed), mode);
}

int ColorRefToAcad(const QColor& c, int mode) {
  for (const ExactColour& exact : exactColours) {
    const int packed = static_cast<int>(exact.packed);
    // Kept on purpose (KeptTranslucentBlackIsNotExact): QColor's comparison takes in the alpha, the
    // colour model, and 16 bits of each component.
    if (c == QColor(getRed(packed), getGreen(packed), getBlue(packed))) return exact.index;
  }
  return indexOf(c.red(), c.green(), c.blue(), mode);
}

void RgbHsv(double r, double g, double b, double& h, double& s, double& v) {
  v = std::max({r, g, b});
  h = -1.0;
  s = 0.0;
  if (v == 0.0) return;
  const double d = v - std::min({r, g, b});
  s = d / v;
  if (s == 0.0) return;
  const double rc = (v - r) / d;
  const double gc = (v - g) / d;
  const double bc = (v - b) / d;
  if (r == v) {
    h = bc - gc;
  } else if (g == v) {
    h = rc + 2.0 - bc;
  } else {
    h = gc + 4.0 - rc;
  }
  h *= 60.0;
  if (h < 0.0) h += 360.0;
}

}  // namespace zrUtils
