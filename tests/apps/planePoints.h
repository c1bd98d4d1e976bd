#ifndef ZRBASE_TESTS_APPS_PLANEPOINTS_H
#define ZRBASE_TESTS_APPS_PLANEPOINTS_H

#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

/// Points scattered over planes of known orientation, the same in each run.
class PlanePoints {
 public:
  using Point = std::array<double, 3>;

  /// @param dip, azimuth  degrees; the azimuth of dip
  /// @param thickness  largest distance from the plane
  std::vector<Point> on(double dip, double azimuth, int count = 60, double thickness = 0.0,
                        const Point& centre = {500000.0, 4000000.0, 250.0}) {
    const double d = dip * M_PI / 180.0;
    const double a = azimuth * M_PI / 180.0;
    const Point down = {std::sin(a) * std::cos(d), std::cos(a) * std::cos(d), -std::sin(d)};
    const Point along = {-std::cos(a), std::sin(a), 0.0};
    const Point normal = {std::sin(a) * std::sin(d), std::cos(a) * std::sin(d), std::cos(d)};
    std::vector<Point> points;
    for (int i = 0; i < count; ++i) {
      const double u = 100.0 * next();
      const double v = 100.0 * next();
      const double w = thickness * next();
      Point point = centre;
      for (std::size_t k = 0; k < 3; ++k) {
        point[k] += u * down[k] + v * along[k] + w * normal[k];
      }
      points.push_back(point);
    }
    return points;
  }

  static std::string rows(const std::vector<Point>& points, const std::string& set) {
    std::string text;
    for (const Point& p : points) {
      text += std::to_string(p[0]) + "," + std::to_string(p[1]) + "," + std::to_string(p[2]) + "," +
              set + "\n";
    }
    return text;
  }

  /// "[x,y,z],[x,y,z]".
  static std::string json(const std::vector<Point>& points) {
    std::string text;
    for (const Point& p : points) {
      text += (text.empty() ? "[" : ",[") + std::to_string(p[0]) + "," + std::to_string(p[1]) +
              "," + std::to_string(p[2]) + "]";
    }
    return text;
  }

 private:
  // From -1 to 1; the generator of Lehmer (1951).
  double next() {
    state_ = state_ * 48271U % 2147483647U;
    return 2.0 * static_cast<double>(state_) / 2147483647.0 - 1.0;
  }

  std::uint64_t state_ = 1;
};

/// A GeoJSON collection with one feature of this geometry a text: "[[0,0,1],[1,0,2]]".
inline std::string planeFeatures(const std::string& type,
                                 const std::vector<std::string>& coordinates) {
  std::string features;
  for (const std::string& each : coordinates) {
    features += std::string(features.empty() ? "" : ",") +
                R"({"type":"Feature","properties":{},"geometry":{"type":")" + type +
                R"(","coordinates":)" + each + "}}";
  }
  return R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":)"
         R"("urn:ogc:def:crs:EPSG::32633"}},"features":[)" +
         features + "]}";
}

#endif  // ZRBASE_TESTS_APPS_PLANEPOINTS_H
