#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <string>
#include <vector>

#include "apps/clusterTables.h"
#include "apps/commandRunner.h"

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class ClusterPicture : public ::testing::Test {
 protected:
  // Clusters a table and gives the bytes of the picture under this name.
  std::string drawn(const std::string& table, std::vector<std::string> options,
                    const std::string& name = "scatter.svg") {
    options.insert(options.begin(), {"cluster", folder.file("points.csv", table), "-o",
                                     folder.path("out.csv"), "--picture", folder.path(name)});
    const CommandResult result = runZrbase(options);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(result.out, HasSubstr("picture   " + folder.path(name)));
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

TEST_F(ClusterPicture, SvgHoldsPointsCentersAndLegend) {
  const std::string svg = drawn(scatteredPoints(300, 3), {"-k", "3"});
  EXPECT_THAT(svg, StartsWith("<?xml"));
  EXPECT_THAT(svg, AllOf(HasSubstr("Clusters of points.csv"), HasSubstr("3 clusters"),
                         HasSubstr("300 points"), HasSubstr("center")));
  // A dot a point, two a center, and the legend's own.
  EXPECT_EQ(countOf(svg, "<circle"), 300U + 6U + 2U + 3U);
  EXPECT_THAT(svg, Not(HasSubstr("<image")));
}

TEST_F(ClusterPicture, AxesAreTheFirstColumnsOrThoseNamed) {
  EXPECT_THAT(drawn(scatteredPoints(50, 2), {"-k", "2", "--columns", "v,y,x"}),
              AllOf(HasSubstr(">v<"), HasSubstr(">y<"), Not(HasSubstr(">x<"))));
  EXPECT_THAT(drawn(scatteredPoints(50, 2), {"-k", "2", "--columns", "v,y,x", "--axes", "x,v"}),
              AllOf(HasSubstr(">x<"), HasSubstr(">v<"), Not(HasSubstr(">y<"))));
}

TEST_F(ClusterPicture, CoordinatesOfASystemAreInMetres) {
  EXPECT_THAT(drawn("lon,lat\n15,40\n15.1,40.1\n15.2,40.3\n", {"-k", "2"}),
              AllOf(HasSubstr(">x [m]<"), HasSubstr(">y [m]<"), HasSubstr("EPSG:32633")));
}

TEST_F(ClusterPicture, OneColumnStandsOverTheClusters) {
  EXPECT_THAT(drawn(scatteredPoints(50, 2), {"-k", "2", "--columns", "v"}),
              AllOf(HasSubstr(">v<"), HasSubstr(">cluster<")));
}

TEST_F(ClusterPicture, ManyPointsAreAnImageOfAFixedSize) {
  const std::string svg = drawn(scatteredPoints(60000, 4), {"-k", "4"});
  EXPECT_THAT(svg, HasSubstr("<image"));
  EXPECT_LT(svg.size(), 2000000U);
  EXPECT_LT(countOf(svg, "<circle"), 50U);
}

TEST_F(ClusterPicture, ManyClustersFitTheLegend) {
  EXPECT_THAT(drawn(scatteredPoints(2000, 5), {"-k", "60", "--stages", "20"}),
              AllOf(HasSubstr("60 clusters"), HasSubstr("and 42 more")));
}

TEST_F(ClusterPicture, SameFromRunToRun) {
  const std::string table = scatteredPoints(300, 3);
  EXPECT_EQ(drawn(table, {"-k", "3"}), drawn(table, {"-k", "3"}));
}

TEST_F(ClusterPicture, PngHasAColourForEachCluster) {
  const std::string png = drawn(scatteredPoints(3000, 3), {"-k", "3"}, "scatter.png");
  QImage image;
  ASSERT_TRUE(image.loadFromData(reinterpret_cast<const uchar*>(png.data()),
                                 static_cast<int>(png.size()), "PNG"));
  EXPECT_GT(image.width(), 1000);
  int blue = 0;
  int orange = 0;
  int green = 0;
  for (int y = 0; y < image.height(); y += 2) {
    for (int x = 0; x < image.width() * 3 / 4; x += 2) {
      const QColor colour(image.pixel(x, y));
      blue += colour.blue() > colour.red() + 100 ? 1 : 0;
      orange += colour.red() > colour.blue() + 100 ? 1 : 0;
      green += colour.green() > colour.red() + 60 && colour.green() > colour.blue() + 40 ? 1 : 0;
    }
  }
  EXPECT_GT(blue, 500);
  EXPECT_GT(orange, 500);
  EXPECT_GT(green, 500);
}

TEST_F(ClusterPicture, SinglePlaceIsDrawnToo) {
  EXPECT_THAT(drawn("x,y\n4,5\n4,5\n", {"-k", "1"}), HasSubstr("1 cluster"));
}

}  // namespace
