#include "cluster/clusterColours.h"

#include <array>
#include <cmath>

namespace {

constexpr std::array<std::array<int, 3>, 12> kPalette = {{{33, 113, 181},
                                                          {230, 120, 20},
                                                          {52, 150, 70},
                                                          {200, 50, 60},
                                                          {122, 82, 168},
                                                          {140, 90, 60},
                                                          {222, 110, 180},
                                                          {110, 116, 124},
                                                          {172, 172, 40},
                                                          {40, 178, 190},
                                                          {16, 52, 104},
                                                          {96, 24, 70}}};
constexpr double kGoldenShare = 0.6180339887498949;

}  // namespace

QColor clusterColour(std::size_t cluster, std::size_t clusterCount) {
  if (clusterCount <= kPalette.size()) {
    const std::array<int, 3>& colour = kPalette[cluster];
    return {colour[0], colour[1], colour[2]};
  }
  constexpr std::array<int, 3> kLightness = {105, 80, 135};
  const double turns = static_cast<double>(cluster) * kGoldenShare;
  const int hue = static_cast<int>(360.0 * (turns - std::floor(turns)));
  return QColor::fromHsl(hue, 165, kLightness[cluster % kLightness.size()]);
}
