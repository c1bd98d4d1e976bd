#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QRegularExpression>
#include <cmath>
#include <string>
#include <vector>

#include "apps/commandRunner.h"
#include "apps/planePoints.h"

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

// A pole on a net of radius 1: x east, y north.
struct Pole {
  double x;
  double y;
};

class PlanePicture : public ::testing::Test {
 protected:
  // Draws the table under this name and gives its bytes.
  std::string drawn(const std::string& name, const std::string& rows) {
    const std::string input = folder.file("points.csv", "x,y,z,bed\n" + rows);
    result = runZrbase({"plane", input, "--group", "bed", "-o", folder.path("out.gpkg"),
                        "--picture", folder.path(name)});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    return readFile(folder.path(name));
  }

  std::string manySets(int count) {
    std::string rows;
    for (int i = 0; i < count; ++i) {
      rows += PlanePoints::rows(points.on(10 + i % 70, i * 7 % 360, 5), "m" + std::to_string(i));
    }
    return rows;
  }

  TestFolder folder;
  PlanePoints points;
  CommandResult result;
};

// The circles of an SVG inside its net, which is the largest; samples of legend and table stand
// beside it.
std::vector<Pole> polesIn(const std::string& svg) {
  const QRegularExpression circle("<circle cx=\"([-0-9.]+)\" cy=\"([-0-9.]+)\" r=\"([0-9.]+)\"");
  double netX = 0.0;
  double netY = 0.0;
  double radius = 0.0;
  std::vector<Pole> places;
  auto found = circle.globalMatch(QString::fromStdString(svg));
  while (found.hasNext()) {
    const QRegularExpressionMatch match = found.next();
    const double size = match.captured(3).toDouble();
    const Pole place = {match.captured(1).toDouble(), match.captured(2).toDouble()};
    if (size > 100.0) {
      netX = place.x;
      netY = place.y;
      radius = size;
    } else {
      places.push_back(place);
    }
  }
  std::vector<Pole> poles;
  for (const Pole& place : places) {
    const Pole pole = {(place.x - netX) / radius, (netY - place.y) / radius};
    if (std::hypot(pole.x, pole.y) < 1.01) {
      poles.push_back(pole);
    }
  }
  return poles;
}

int countOf(const std::string& text, const std::string& piece) {
  return QString::fromStdString(text).count(QString::fromStdString(piece));
}

// A plane of dip 30 towards 090 has its pole at trend 270, plunge 60: sqrt(2) sin(15) = 0.36603
// west of the centre. One of dip 60 towards 180 has it at plunge 30 in the north: sqrt(2) sin(30) =
// 0.70711.
TEST_F(PlanePicture, PolesAreOppositeToTheDipAtTheirEqualAreaDistance) {
  const std::vector<Pole> poles =
      polesIn(drawn("net.svg", PlanePoints::rows(points.on(30, 90), "a") +
                                   PlanePoints::rows(points.on(60, 180), "b")));
  ASSERT_EQ(poles.size(), 2U);
  EXPECT_NEAR(poles[0].x, -0.36603, 1e-4);
  EXPECT_NEAR(poles[0].y, 0.0, 1e-4);
  EXPECT_NEAR(poles[1].x, 0.0, 1e-4);
  EXPECT_NEAR(poles[1].y, 0.70711, 1e-4);
}

TEST_F(PlanePicture, PoleOfAFlatPlaneIsTheCentreAndOfAnUprightOneOnTheCircle) {
  const std::vector<Pole> poles =
      polesIn(drawn("net.svg",
                    "0,0,5,flat\n9,0,5,flat\n0,9,5,flat\n0,0,0,upright\n"
                    "0,10,0,upright\n0,0,10,upright\n"));
  ASSERT_EQ(poles.size(), 2U);
  EXPECT_NEAR(std::hypot(poles[0].x, poles[0].y), 0.0, 1e-9);
  EXPECT_NEAR(std::abs(poles[1].x), 1.0, 1e-4);
  EXPECT_NEAR(poles[1].y, 0.0, 1e-4);
}

// Half way along its strike the great circle of dip 30 towards 090 is at plunge 30 in the east:
// 0.70711 of the radius 290 right of 370.
TEST_F(PlanePicture, GreatCirclePassesThroughItsDip) {
  const std::string svg = drawn("net.svg", PlanePoints::rows(points.on(30, 90), "a"));
  const QRegularExpression line("stroke=\"#0072b2\"[^>]*>\\s*<polyline[^>]*points=\"([^\"]*)\"");
  const QRegularExpressionMatch match = line.match(QString::fromStdString(svg));
  ASSERT_TRUE(match.hasMatch());
  const QStringList places = match.captured(1).trimmed().split(' ');
  ASSERT_EQ(places.size(), 91);
  EXPECT_NEAR(places[45].section(',', 0, 0).toDouble(), 370.0 + 290.0 * 0.70711, 0.05);
  EXPECT_NEAR(places[45].section(',', 1, 1).toDouble(), 425.0, 0.05);
  EXPECT_NEAR(places[0].section(',', 0, 0).toDouble(), 370.0, 0.05);
  EXPECT_NEAR(places[0].section(',', 1, 1).toDouble(), 425.0 - 290.0, 0.05);
}

TEST_F(PlanePicture, SvgTellsProjectionCountMethodAndOrientations) {
  const std::string svg = drawn("net.svg", PlanePoints::rows(points.on(30, 90), "Base") +
                                               PlanePoints::rows(points.on(60, 225), "Top"));
  for (const char* const text :
       {"equal-area (Schmidt) net, lower hemisphere", "n = 2", "(ls)", "Poles to 2 planes", "Base",
        "Top", "225.0 / 60.0", "030", "plane, as a great circle", "azimuths from the y axis"}) {
    EXPECT_THAT(svg, HasSubstr(text));
  }
}

TEST_F(PlanePicture, ManyPlanesAreShownByTheirPolesAndAShortTable) {
  const std::string svg = drawn("net.svg", manySets(40));
  EXPECT_EQ(polesIn(svg).size(), 40U);
  EXPECT_THAT(svg,
              AllOf(HasSubstr("n = 40"), HasSubstr("and 25 more"), Not(HasSubstr("great circle"))));
  // Seventeen great and seventeen small circles of the net, and none of a plane.
  EXPECT_EQ(countOf(svg, "<polyline"), countOf(drawn("other.svg", manySets(31)), "<polyline"));
}

TEST_F(PlanePicture, SvgIsTheSameFromRunToRun) {
  const std::string rows = manySets(12);
  EXPECT_EQ(drawn("one.svg", rows), drawn("two.svg", rows));
}

TEST_F(PlanePicture, PngShowsThePoleInItsColour) {
  const std::string png = drawn("net.png", PlanePoints::rows(points.on(30, 90), "a"));
  QImage image;
  ASSERT_TRUE(image.loadFromData(reinterpret_cast<const uchar*>(png.data()),
                                 static_cast<int>(png.size()), "PNG"));
  EXPECT_EQ(image.width(), 2240);
  EXPECT_EQ(image.height(), 1560);
  const QColor pole(image.pixel(static_cast<int>(2.0 * (370.0 - 290.0 * 0.36603)), 2 * 425));
  EXPECT_EQ(pole, QColor(0, 114, 178));
}

TEST_F(PlanePicture, NoPictureIsDrawnUnasked) {
  const std::string input = folder.file("points.csv", "x,y,z\n0,0,0\n1,0,0\n0,1,0\n");
  ASSERT_EQ(runZrbase({"plane", input, "-o", folder.path("out.csv")}).status, 0);
  EXPECT_THAT(folder.names(), ::testing::UnorderedElementsAre("points.csv", "out.csv"));
}

}  // namespace
