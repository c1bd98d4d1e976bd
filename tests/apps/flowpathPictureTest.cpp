#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <cstddef>
#include <set>
#include <string>

#include "apps/commandRunner.h"

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string example(const std::string& name) {
  return std::string(ZRBASE_EXAMPLE_DATA) + "/" + name;
}

class FlowpathPicture : public ::testing::Test {
 protected:
  // The picture of the demo's fault under this name, as bytes.
  std::string drawn(const std::string& name) {
    const CommandResult result =
        runZrbase({"flowpath", example("california.geojson"), "--where", "5", "--points",
                   example("points.csv"), "--height", "2500,-2500", "--slip", "-3000,5000", "-o",
                   folder.path("out.geojson"), "--picture", folder.path(name)});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(folder.names(), ::testing::UnorderedElementsAre(name, "out.geojson"));
    return readFile(folder.path(name));
  }

  TestFolder folder;
};

std::size_t countOf(const std::string& text, const std::string& piece) {
  std::size_t count = 0;
  for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) {
    ++count;
  }
  return count;
}

TEST_F(FlowpathPicture, SvgHoldsTheLinesAndTheLegend) {
  const std::string svg = drawn("map.svg");
  EXPECT_THAT(svg, StartsWith("<?xml"));
  EXPECT_THAT(svg, HasSubstr("</svg>"));
  EXPECT_GT(countOf(svg, "<polyline"), 40U);
  for (const char* const text : {"fault trace", "root bisector", "merged bisector", "flow path",
                                 "moved by slip", "Easting [km]", "Northing [km]", "EPSG:32611"}) {
    EXPECT_THAT(svg, HasSubstr(text));
  }
}

TEST_F(FlowpathPicture, SvgIsTheSameFromRunToRun) { EXPECT_EQ(drawn("map.svg"), drawn("map.svg")); }

TEST_F(FlowpathPicture, PngIsAnImageWithManyColours) {
  const std::string png = drawn("map.png");
  QImage image;
  ASSERT_TRUE(image.loadFromData(reinterpret_cast<const uchar*>(png.data()),
                                 static_cast<int>(png.size()), "PNG"));
  EXPECT_GT(image.width(), 1000);
  EXPECT_GT(image.height(), 1000);
  std::set<QRgb> colours;
  bool blue = false;
  bool orange = false;
  for (int y = 0; y < image.height(); y += 2) {
    for (int x = 0; x < image.width() * 3 / 4; ++x) {  // the map without its legend
      const QColor colour(image.pixel(x, y));
      colours.insert(colour.rgb());
      blue |= colour.blue() > colour.red() + 80;
      orange |= colour.red() > colour.blue() + 80;
    }
  }
  EXPECT_GT(colours.size(), 50U);
  EXPECT_TRUE(blue) << "no path right of the trace";
  EXPECT_TRUE(orange) << "no path left of the trace";
}

TEST_F(FlowpathPicture, EveryTraceOfAFileFitsOnOneMap) {
  const CommandResult result =
      runZrbase({"flowpath", example("anatolia.geojson"), "--height", "5000", "-o",
                 folder.path("out.gpkg"), "--picture", folder.path("map.svg")});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(readFile(folder.path("map.svg")), HasSubstr("Flow paths along 40 fault traces"));
}

TEST_F(FlowpathPicture, TraceWithoutPathsIsDrawnToo) {
  const std::string input = folder.file("trace.csv", "x,y\n0,0\n10,0\n");
  const CommandResult result = runZrbase(
      {"flowpath", input, "-o", folder.path("out.gpkg"), "--picture", folder.path("map.png")});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_FALSE(QImage(QString::fromStdString(folder.path("map.png"))).isNull());
}

}  // namespace
