#include "survey/traceMoments.h"

void TraceMoments::add(const zrSurveyPoint& p) {
  if (count_ == 0.0) {
    first_ = p;
  }
  const double i = p.inlineNumber - first_.inlineNumber;
  const double t = p.traceNumber - first_.traceNumber;
  const double x = p.x - first_.x;
  const double y = p.y - first_.y;
  count_ += 1.0;
  i_ += i;
  t_ += t;
  x_ += x;
  y_ += y;
  ii_ += i * i;
  it_ += i * t;
  tt_ += t * t;
  xi_ += x * i;
  xt_ += x * t;
  yi_ += y * i;
  yt_ += y * t;
}

std::optional<std::array<zrSurveyPoint, 3>> TraceMoments::corners(double lowestInline,
                                                                  double highestInline,
                                                                  double lowestCrossline,
                                                                  double highestCrossline) const {
  constexpr double kOneLine = 1e-9;
  const double ii = ii_ - i_ * i_ / count_;
  const double it = it_ - i_ * t_ / count_;
  const double tt = tt_ - t_ * t_ / count_;
  const double determinant = ii * tt - it * it;
  if (!(determinant > kOneLine * ii * tt)) {
    return std::nullopt;
  }
  const double xi = xi_ - x_ * i_ / count_;
  const double xt = xt_ - x_ * t_ / count_;
  const double yi = yi_ - y_ * i_ / count_;
  const double yt = yt_ - y_ * t_ / count_;
  const auto place = [&](double inlineNumber, double crosslineNumber) {
    const double i = inlineNumber - first_.inlineNumber - i_ / count_;
    const double t = crosslineNumber - first_.traceNumber - t_ / count_;
    zrSurveyPoint p;
    p.Set(
        first_.x + x_ / count_ + ((xi * tt - xt * it) * i + (xt * ii - xi * it) * t) / determinant,
        first_.y + y_ / count_ + ((yi * tt - yt * it) * i + (yt * ii - yi * it) * t) / determinant,
        inlineNumber, crosslineNumber);
    return p;
  };
  return std::array<zrSurveyPoint, 3>{place(lowestInline, lowestCrossline),
                                      place(lowestInline, highestCrossline),
                                      place(highestInline, lowestCrossline)};
}
