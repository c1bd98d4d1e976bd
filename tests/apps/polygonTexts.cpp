#include "apps/polygonTexts.h"

#include <gtest/gtest.h>

std::string table(const std::vector<std::string>& geometries) {
  std::string text = "WKT,name\n";
  for (std::size_t i = 0; i < geometries.size(); ++i) {
    text += "\"" + geometries[i] + "\",n" + std::to_string(i + 1) + "\n";
  }
  return text;
}

std::string square(double x, double y, double size) {
  const std::string west = std::to_string(x);
  const std::string east = std::to_string(x + size);
  const std::string south = std::to_string(y);
  const std::string north = std::to_string(y + size);
  return west + " " + south + "," + east + " " + south + "," + east + " " + north + "," + west +
         " " + north + "," + west + " " + south;
}

std::string polygon(const std::string& ring) { return "POLYGON ((" + ring + "))"; }

std::unique_ptr<OGRGeometry> geometryOf(const std::string& text) {
  OGRGeometry* geometry = nullptr;
  EXPECT_EQ(OGRGeometryFactory::createFromWkt(text.c_str(), nullptr, &geometry), OGRERR_NONE);
  return std::unique_ptr<OGRGeometry>(geometry);
}
