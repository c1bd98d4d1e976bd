#include "well/wellModel.h"

#include <zrBase/utilities/wellPath.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "common/commandError.h"
#include "common/textFormat.h"
#include "well/wellWarnings.h"

namespace {

const std::array<const char*, 5> kMethodNames = {"tangential", "average", "balanced",
                                                 "minimum-curvature", "radius"};

WellOffset nextOffset(const WellOffset& from, const SurveyStation& upper,
                      const SurveyStation& lower, WellMethod method) {
  double a = lower.measuredDepth - upper.measuredDepth;
  double b = lower.inclination;
  double c = lower.azimuth;
  zrUtils::convertToXyz(upper.measuredDepth, upper.inclination, upper.azimuth, a, b, c,
                        static_cast<int>(method));
  return {from.tvd + c, from.north + b, from.east + a};
}

bool isFinite(const WellOffset& offset) {
  return std::isfinite(offset.tvd) && std::isfinite(offset.north) && std::isfinite(offset.east);
}

/// Goes down the survey in its own unit; the results are in that of the request.
class WellComputer {
 public:
  WellComputer(const Survey& survey, const WellRequest& request)
      : survey_(survey), request_(request) {
    path_.method = request.method;
    path_.unit = request.unit.value_or(survey.unit);
    path_.wellhead = request.wellhead;
    ratio_ = path_.unit == survey.unit ? 1.0 : metresIn(survey.unit) / metresIn(path_.unit);
  }

  WellPath compute() {
    begin();
    for (std::size_t i = 1; i < survey_.stations.size(); ++i) {
      step(survey_.stations[i - 1], survey_.stations[i]);
    }
    compareWithOwn();
    return path_;
  }

 private:
  void begin() {
    const SurveyStation& first = survey_.stations.front();
    if (request_.ownTieIn && !first.own) {
      throw CommandError(survey_.file + ": row " + std::to_string(first.row) +
                         ": --tie-in file finds no true vertical depth, north and east in the unit "
                         "of the depths");
    }
    const std::optional<WellOffset> tieIn = request_.ownTieIn ? first.own : request_.tieIn;
    if (tieIn || first.measuredDepth == 0.0) {
      offset_ = tieIn.value_or(WellOffset());
      keep(first, 0.0);
      return;
    }
    path_.fromWellhead = true;
    SurveyStation wellhead;
    wellhead.azimuth = first.azimuth;  // a vertical station has none of its own
    step(wellhead, first);
  }

  void step(const SurveyStation& upper, const SurveyStation& lower) {
    offset_ = nextOffset(offset_, upper, lower, request_.method);
    const double length = (lower.measuredDepth - upper.measuredDepth) * ratio_;
    keep(lower, doglegDegrees(upper, lower) / length * doglegLength(path_.unit));
    const std::string warning = methodWarning(request_.method, upper, lower);
    if (!warning.empty()) {
      path_.warnings.push_back("row " + std::to_string(lower.row) + ": " + warning);
    }
  }

  void keep(const SurveyStation& station, double dogleg) {
    const WellOffset scaled = {offset_.tvd * ratio_, offset_.north * ratio_, offset_.east * ratio_};
    const gdfVertex& wellhead = path_.wellhead;
    const gdfVertex place(wellhead.x() + scaled.east, wellhead.y() + scaled.north,
                          wellhead.z() - scaled.tvd);
    if (!isFinite(scaled) || !isFinite({place.z(), place.y(), place.x()}) ||
        !std::isfinite(dogleg) || !std::isfinite(station.measuredDepth * ratio_)) {
      throw CommandError(survey_.file + ": row " + std::to_string(station.row) +
                         ": its place or dogleg is not finite by the method " +
                         methodName(request_.method));
    }
    path_.stations.push_back({station.row, station.measuredDepth * ratio_, station.inclination,
                              station.azimuth, scaled, place, dogleg});
  }

  void compareWithOwn() {
    if (!survey_.hasOwnPlaces()) {
      return;
    }
    WellOffset farthest;
    for (std::size_t i = 0; i < survey_.stations.size(); ++i) {
      const WellOffset& own = *survey_.stations[i].own;
      const WellOffset& made = path_.stations[i].offset;
      farthest.tvd = std::max(farthest.tvd, std::abs(made.tvd - own.tvd * ratio_));
      farthest.north = std::max(farthest.north, std::abs(made.north - own.north * ratio_));
      farthest.east = std::max(farthest.east, std::abs(made.east - own.east * ratio_));
    }
    path_.farthestFromOwn = farthest;
  }

  const Survey& survey_;
  const WellRequest& request_;
  WellPath path_;
  WellOffset offset_;
  double ratio_ = 1.0;
};

}  // namespace

WellMethod wellMethod(const std::string& name) {
  std::string known;
  for (std::size_t i = 0; i < kMethodNames.size(); ++i) {
    if (textFormat::lowerCase(name) == kMethodNames[i]) {
      return static_cast<WellMethod>(i);
    }
    known += (i == 0 ? "" : ", ") + std::string(kMethodNames[i]);
  }
  throw CommandError("--method: '" + textFormat::oneLine(name) + "' is none of " + known);
}

std::string methodName(WellMethod method) { return kMethodNames[static_cast<std::size_t>(method)]; }

VertexLine WellPath::line() const {
  VertexLine vertices;
  if (fromWellhead) {
    vertices.push_back(wellhead);
  }
  for (const WellStation& station : stations) {
    vertices.push_back(station.place);
  }
  return vertices;
}

const WellStation& WellPath::sharpest() const {
  return *std::max_element(
      stations.begin(), stations.end(),
      [](const WellStation& a, const WellStation& b) { return a.dogleg < b.dogleg; });
}

double WellPath::displacement() const {
  const WellOffset& offset = last().offset;
  return std::sqrt(offset.east * offset.east + offset.north * offset.north);
}

double WellPath::closureAzimuth() const {
  double inclination = last().offset.east;
  double azimuth = last().offset.north;
  double length = last().offset.tvd;
  zrUtils::convertToMD(inclination, azimuth, length);
  return azimuth >= 360.0 ? 0.0 : azimuth;
}

WellPath computeWell(const Survey& survey, const WellRequest& request) {
  return WellComputer(survey, request).compute();
}
