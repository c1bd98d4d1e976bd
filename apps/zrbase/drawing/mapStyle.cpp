#include "drawing/mapStyle.h"

#include <QVector>
#include <algorithm>
#include <array>
#include <cmath>

#include "common/textFormat.h"

namespace mapStyle {
namespace {

struct ColourAnchor {
  double place;  // height over the largest height, -1 to 1
  int red;
  int green;
  int blue;
};

constexpr std::array<ColourAnchor, 7> kHeightColours = {{{-1.0, 8, 48, 107},
                                                         {-0.55, 33, 113, 181},
                                                         {-0.12, 86, 163, 208},
                                                         {0.0, 122, 122, 122},
                                                         {0.12, 243, 165, 66},
                                                         {0.55, 217, 95, 14},
                                                         {1.0, 127, 39, 4}}};

int between(int low, int high, double share) {
  return static_cast<int>(std::lround(low + (high - low) * share));
}

QPen solidPen(const QColor& colour, double width) {
  return QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

}  // namespace

Weights weightsFor(std::size_t traceCount) {
  if (traceCount > 8) {
    return {1.9, 1.2, 0.5, 2.8};
  }
  return {3.4, 2.2, 0.9, 4.6};
}

QColor ink() { return {28, 30, 34}; }
QColor quietInk() { return {95, 100, 108}; }
QColor background() { return {252, 251, 248}; }
QColor gridLine() { return {232, 230, 224}; }

QPen tracePen(double width) { return solidPen(ink(), width); }
QPen rootPen(double width) { return solidPen(QColor(150, 160, 172), width); }

QPen mergedPen(double width) {
  QPen pen(QColor(142, 124, 92), width);
  pen.setDashPattern({6.0, 3.5});
  return pen;
}

QPen movePen(double width) { return solidPen(ink(), width); }

QColor heightColour(double height, double largest) {
  const double place = largest > 0.0 ? std::clamp(height / largest, -1.0, 1.0) : 0.0;
  std::size_t i = 1;
  while (i + 1 < kHeightColours.size() && place > kHeightColours[i].place) {
    ++i;
  }
  const ColourAnchor& low = kHeightColours[i - 1];
  const ColourAnchor& high = kHeightColours[i];
  const double share = (place - low.place) / (high.place - low.place);
  return {between(low.red, high.red, share), between(low.green, high.green, share),
          between(low.blue, high.blue, share)};
}

QFont font(int pixels, bool bold) {
  QFont result("DejaVu Sans");
  result.setStyleHint(QFont::SansSerif);
  result.setPixelSize(pixels);
  result.setBold(bold);
  return result;
}

std::string numberText(double metres, double unit, bool withSign) {
  std::string text = textFormat::fixed(std::abs(metres) / unit, 2);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') {
    text.pop_back();
  }
  if (text == "0") {
    return text;
  }
  const std::string plus = withSign ? "+" : "";
  return (metres < 0.0 ? "\u2212" : plus) + text;
}

std::string lengthText(double metres, bool withSign) {
  const bool kilometres = std::abs(metres) >= 1000.0;
  return numberText(metres, kilometres ? 1000.0 : 1.0, withSign) + (kilometres ? " km" : " m");
}

}  // namespace mapStyle
