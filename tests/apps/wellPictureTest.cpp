#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "apps/commandRunner.h"

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class WellPicture : public ::testing::Test {
 protected:
  // The picture of the survey under this name, as bytes.
  std::string drawn(const std::string& name, const std::string& survey,
                    std::vector<std::string> options = {}) {
    options.insert(options.begin(), {"well", survey, "-o", folder.path("out.geojson"), "--picture",
                                     folder.path(name)});
    const CommandResult result = runZrbase(options);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, HasSubstr(name));
    return readFile(folder.path(name));
  }

  std::string drawnRows(const std::string& name, const std::string& rows,
                        std::vector<std::string> options = {}) {
    return drawn(name, folder.file("survey.csv", "MD,Inc,Azi\n" + rows), std::move(options));
  }

  const std::string example = std::string(ZRBASE_EXAMPLE_DATA) + "/deviation.csv";
  TestFolder folder;
};

QImage imageOf(const std::string& png) {
  QImage image;
  EXPECT_TRUE(image.loadFromData(reinterpret_cast<const uchar*>(png.data()),
                                 static_cast<int>(png.size()), "PNG"));
  return image;
}

bool isPath(const QColor& colour) { return colour.blue() > colour.red() + 100; }
bool isLastStation(const QColor& colour) { return colour.red() > colour.blue() + 150; }

std::size_t countOf(const std::string& text, const std::string& piece) {
  std::size_t count = 0;
  for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) {
    ++count;
  }
  return count;
}

TEST_F(WellPicture, SvgHoldsBothViewsAndTheLegend) {
  const std::string svg = drawn("well.svg", example);
  EXPECT_THAT(svg, StartsWith("<?xml"));
  EXPECT_THAT(svg, HasSubstr("</svg>"));
  for (const char* const text :
       {"Well deviation", "79 stations", "Plan view", "Vertical section", "East of wellhead [m]",
        "North of wellhead [m]", "True vertical depth [m]", "Offset towards 302.0", "wellhead",
        "station", "measured depth [m]", "closure, 940.6 m towards 302.0"}) {
    EXPECT_THAT(svg, HasSubstr(text)) << text;
  }
}

TEST_F(WellPicture, SvgIsTheSameFromRunToRun) {
  const std::string first = drawn("well.svg", example);
  EXPECT_EQ(drawn("well.svg", example), first);
}

TEST_F(WellPicture, EachViewHasThePathAndItsEnd) {
  const QImage image = imageOf(drawn("well.png", example));
  ASSERT_GT(image.width(), 1500);
  ASSERT_GT(image.height(), 1000);
  std::vector<bool> path(2, false);
  std::vector<bool> end(2, false);
  const int legend = image.height() - 120;
  for (int y = 200; y < legend; ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor colour(image.pixel(x, y));
      const std::size_t half = x < image.width() * 2 / 3 ? 0 : 1;  // the plan is the wider one here
      path[half] = path[half] || isPath(colour);
      end[half] = end[half] || isLastStation(colour);
    }
  }
  EXPECT_TRUE(path[0] && path[1]);
  EXPECT_TRUE(end[0] && end[1]);
}

// At the same scale both ways 1000 m east and 1000 m north are equally long on the page: the last
// station of a well to the north-east stands as far right of the wellhead as above it.
TEST_F(WellPicture, PlanHasOneScale) {
  const QImage image = imageOf(drawnRows("well.png", "0,60,45\n1000,60,45\n2000,60,45\n"));
  int left = image.width(), right = 0, top = image.height(), bottom = 0;
  for (int y = 200; y < image.height() - 120; ++y) {
    for (int x = 0; x < image.width() / 2; ++x) {
      if (isPath(QColor(image.pixel(x, y)))) {
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
      }
    }
  }
  ASSERT_GT(right - left, 300);
  EXPECT_NEAR(right - left, bottom - top, 4);
}

TEST_F(WellPicture, UnitsAndWellheadAreTold) {
  const std::string svg = drawnRows("well.svg", "0,0,0\n1000,10,20\n",
                                    {"--units", "ft", "--wellhead", "1500,2500.5,80"});
  EXPECT_THAT(svg, AllOf(HasSubstr("East of wellhead [ft]"), HasSubstr("1500, 2500.5, 80"),
                         HasSubstr("1000.0 ft"), Not(HasSubstr("[m]"))));
}

TEST_F(WellPicture, DepthsAreToldAlongThePath) {
  const std::string svg = drawnRows("well.svg", "0,30,90\n1000,30,90\n");
  EXPECT_GE(countOf(svg, "<path"), 2U);
  EXPECT_GE(countOf(svg, "<circle"), 10U);
}

TEST_F(WellPicture, VerticalWellIsDrawnWithoutAClosure) {
  EXPECT_THAT(drawnRows("well.svg", "0,0,0\n1000,0,0\n"), Not(HasSubstr("closure")));
  EXPECT_FALSE(imageOf(drawnRows("well.png", "0,0,0\n1000,0,0\n")).isNull());
}

TEST_F(WellPicture, TinyAndHugeWellsAreDrawn) {
  EXPECT_FALSE(imageOf(drawnRows("tiny.png", "0,10,0\n1e-6,20,0\n")).isNull());
  EXPECT_FALSE(imageOf(drawnRows("huge.png", "0,10,0\n1e9,20,0\n")).isNull());
}

TEST_F(WellPicture, ClosureAtNorthIsNotThreeHundredAndSixty) {
  EXPECT_THAT(drawnRows("well.svg", "0,10,359.99\n1000,10,359.99\n"), HasSubstr("towards 0.0"));
}

}  // namespace
