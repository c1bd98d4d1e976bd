#include <zrBase/utilities/wellPath.h>

#include <gtest/gtest.h>

#include <zrBase/geometry/gdfVertex.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

// The directional survey of a real well, station by station from the surface, against the true
// vertical depth and the offsets that the contractor computed from it by minimum curvature.

namespace {

struct SurveyedStation {
  double measuredDepth = 0.0;
  double inclination = 0.0;
  double azimuth = 0.0;
  double trueVerticalDepth = 0.0;
  double north = 0.0;
  double east = 0.0;

  gdfVertex place() const { return {east, north, trueVerticalDepth}; }
};

std::vector<SurveyedStation> readSurvey() {
  std::ifstream file(std::string(ZRBASE_EXAMPLE_DATA) + "/deviation.csv");
  std::vector<SurveyedStation> stations;
  std::string row;
  std::getline(file, row);
  while (std::getline(file, row)) {
    std::replace(row.begin(), row.end(), ',', ' ');
    std::istringstream words(row);
    words.imbue(std::locale::classic());
    SurveyedStation s;
    words >> s.measuredDepth >> s.inclination >> s.azimuth >> s.trueVerticalDepth >> s.north >>
        s.east;
    if (words) stations.push_back(s);
  }
  return stations;
}

/// The computed places of all stations, (east, north, true vertical depth), from a vertical
/// station at (0, 0, 0).
VertexLine placesBy(int method, const std::vector<SurveyedStation>& stations) {
  VertexLine places;
  gdfVertex place;
  SurveyedStation upper;
  for (const SurveyedStation& lower : stations) {
    double a = lower.measuredDepth - upper.measuredDepth;
    double b = lower.inclination;
    double c = lower.azimuth;
    zrUtils::convertToXyz(upper.measuredDepth, upper.inclination, upper.azimuth, a, b, c, method);
    place += gdfVertex(a, b, c);
    places.push_back(place);
    upper = lower;
  }
  return places;
}

TEST(SurveyedWell, HasTheContractorsPlacesByMinimumCurvature) {
  const std::vector<SurveyedStation> stations = readSurvey();
  ASSERT_EQ(stations.size(), 79u);
  const VertexLine places = placesBy(3, stations);
  for (std::size_t i = 0; i < stations.size(); ++i) {
    SCOPED_TRACE("station at " + std::to_string(stations[i].measuredDepth) + " m");
    EXPECT_NEAR(places[i].x(), stations[i].east, 0.05);
    EXPECT_NEAR(places[i].y(), stations[i].north, 0.05);
    EXPECT_NEAR(places[i].z(), stations[i].trueVerticalDepth, 0.05);
  }
}

TEST(SurveyedWell, SetsTheMethodsApart) {
  const std::vector<SurveyedStation> stations = readSurvey();
  ASSERT_EQ(stations.size(), 79u);
  const gdfVertex contractors = stations.back().place();
  // The tangential method overstates every build, and the well builds: too shallow and too far.
  const gdfVertex tangential = placesBy(0, stations).back();
  EXPECT_LT(tangential.z(), contractors.z() - 1.0);
  EXPECT_GT(tangential.mapLength(), contractors.mapLength() + 1.0);
  // The curve of balanced tangentials is shorter than the arcs, by little.
  const gdfVertex balanced = placesBy(2, stations).back();
  EXPECT_LT(balanced.length(), placesBy(3, stations).back().length());
  EXPECT_LT(balanced.distance(contractors), 0.5);
  // The azimuth goes over north between the fifth station and the seventh, and the averages do
  // not: the mean of 1.3 and 351.6 is south.
  const VertexLine averaged = placesBy(1, stations);
  EXPECT_GT((averaged[5] - averaged[4]).y(), 0.0);
  EXPECT_LT((averaged[6] - averaged[5]).y(), 0.0);
}

TEST(SurveyedWell, GoesThereAndBack) {
  const std::vector<SurveyedStation> stations = readSurvey();
  ASSERT_EQ(stations.size(), 79u);
  for (const SurveyedStation& s : stations) {
    double x = s.inclination, y = s.azimuth, z = s.measuredDepth;
    zrUtils::convertToXyz(x, y, z);
    zrUtils::convertToMD(x, y, z);
    EXPECT_NEAR(x, s.inclination, 1e-11);
    EXPECT_NEAR(y, s.azimuth, 1e-11);
    EXPECT_NEAR(z, s.measuredDepth, 1e-11);
  }
}

}  // namespace
