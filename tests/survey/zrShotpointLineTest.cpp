#include <zrBase/survey/zrShotpointLine.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto someType = static_cast<zrShotpointLine::type>(7);
constexpr auto otherType = static_cast<zrShotpointLine::type>(-3);

/// A line "A" with shotpoints 30, 10 and 20, added in this order.
zrShotpointLine unsortedLine() {
  zrShotpointLine line("A");
  line.addPoint(30.0, 3.0, 33.0);
  line.addPoint(10.0, 1.0, 11.0);
  line.addPoint(20.0, 2.0, 22.0);
  return line;
}

VertexLine positions(const zrShotpointLine& line) {
  VertexLine vertices;
  std::vector<double> shotpoints;
  line.getLine(vertices, shotpoints);
  return vertices;
}

std::vector<double> numbersOf(const zrShotpointLine& line) {
  VertexLine vertices;
  std::vector<double> shotpoints;
  line.getLine(vertices, shotpoints);
  return shotpoints;
}

TEST(ShotpointLine, StartsEmptyWithItsName) {
  const zrShotpointLine line("NS-12");
  EXPECT_EQ(line.getName(), "NS-12");
  EXPECT_EQ(line.LineType(), zrShotpointLine::typeDefault);
  EXPECT_EQ(static_cast<int>(line.LineType()), 0);
  EXPECT_FALSE(line.valid());
  EXPECT_THAT(positions(line), IsEmpty());
}

TEST(ShotpointLine, GivesPointsInOrderOfTheirNumbers) {
  VertexLine vertices;
  std::vector<double> shotpoints;
  EXPECT_TRUE(unsortedLine().getLine(vertices, shotpoints));
  EXPECT_THAT(shotpoints, ElementsAre(10.0, 20.0, 30.0));
  EXPECT_THAT(vertices, LineIs("1 11 0, 2 22 0, 3 33 0"));
}

TEST(ShotpointLine, OrdersFractionsAndNegativeNumbers) {
  zrShotpointLine line("A");
  for (const double number : {0.5, -1.0, 100.0, -0.25, 0.0}) line.addPoint(number, number, 0.0);
  EXPECT_THAT(numbersOf(line), ElementsAre(-1.0, -0.25, 0.0, 0.5, 100.0));
}

TEST(ShotpointLine, KeptFirstPositionOfShotpointStays) {
  zrShotpointLine line = unsortedLine();
  line.addPoint(10.0, -5.0, -5.0);
  EXPECT_THAT(positions(line), LineIs("1 11, 2 22, 3 33"));
  // Both zeros are one number.
  line.addPoint(0.0, 8.0, 8.0);
  line.addPoint(-0.0, 9.0, 9.0);
  EXPECT_THAT(positions(line), LineIs("8 8, 1 11, 2 22, 3 33"));
}

TEST(ShotpointLine, IsNotValidWithOnePointButGivesIt) {
  zrShotpointLine line("A");
  line.addPoint(10.0, 1.0, 2.0);
  EXPECT_FALSE(line.valid());
  VertexLine vertices;
  std::vector<double> shotpoints;
  EXPECT_FALSE(line.getLine(vertices, shotpoints));
  EXPECT_THAT(vertices, LineIs("1 2"));
  EXPECT_THAT(shotpoints, ElementsAre(10.0));
  line.addPoint(10.0, 3.0, 4.0);
  EXPECT_FALSE(line.valid());
  line.addPoint(11.0, 1.0, 2.0);
  EXPECT_TRUE(line.valid());
}

TEST(ShotpointLine, DoublesListsThatAreHandedInTwice) {
  VertexLine vertices;
  std::vector<double> shotpoints;
  const zrShotpointLine line = unsortedLine();
  line.getLine(vertices, shotpoints);
  EXPECT_TRUE(line.getLine(vertices, shotpoints));
  EXPECT_THAT(shotpoints, ElementsAre(10.0, 20.0, 30.0, 10.0, 20.0, 30.0));
  EXPECT_THAT(vertices, LineIs("1 11, 2 22, 3 33, 1 11, 2 22, 3 33"));
}

TEST(ShotpointLine, KeptShotpointsJoinEarlierContent) {
  // A line without points is told as one, for the list has two vertices; the numbers do not count.
  VertexLine vertices = line("7 7 7, 8 8 8");
  std::vector<double> shotpoints;
  EXPECT_TRUE(zrShotpointLine("A").getLine(vertices, shotpoints));
  EXPECT_THAT(vertices, LineIs("7 7 7, 8 8 8"));
  EXPECT_THAT(shotpoints, IsEmpty());

  VertexLine none;
  shotpoints = {1.0, 2.0};
  EXPECT_FALSE(zrShotpointLine("A").getLine(none, shotpoints));
  EXPECT_THAT(shotpoints, ElementsAre(1.0, 2.0));
}

TEST(ShotpointLine, KeptShotpointCopyKeepsOwnType) {
  zrShotpointLine source = unsortedLine();
  source.setLineType(someType);
  zrShotpointLine target("B");
  target.addPoint(99.0, 9.0, 9.0);
  target.setLineType(otherType);
  target.copy(source);
  EXPECT_EQ(target.getName(), "A");
  EXPECT_THAT(numbersOf(target), ElementsAre(10.0, 20.0, 30.0));
  EXPECT_EQ(target.LineType(), otherType);

  target = source;
  EXPECT_EQ(target.LineType(), someType);
  EXPECT_EQ(zrShotpointLine(source).LineType(), someType);
}

TEST(ShotpointLine, CopiesItselfWithoutLoss) {
  zrShotpointLine line = unsortedLine();
  line.copy(line);
  EXPECT_EQ(line.getName(), "A");
  EXPECT_THAT(positions(line), LineIs("1 11, 2 22, 3 33"));
}

TEST(ShotpointLine, CopiesAreIndependent) {
  zrShotpointLine line = unsortedLine();
  const zrShotpointLine before = line;
  line.addPoint(40.0, 4.0, 44.0);
  EXPECT_THAT(numbersOf(before), ElementsAre(10.0, 20.0, 30.0));
}

TEST(ShotpointLine, StoresAnyType) {
  zrShotpointLine line("A");
  line.setLineType(someType);
  EXPECT_EQ(line.LineType(), someType);
  line.LineType() = otherType;
  EXPECT_EQ(std::as_const(line).LineType(), otherType);
}

TEST(ShotpointCollection, StartsEmpty) {
  const zrShotpointCollection collection;
  EXPECT_EQ(collection.LineType(), zrShotpointLine::typeDefault);
  EXPECT_THAT(collection.getLines(), IsEmpty());
}

TEST(ShotpointCollection, GathersPointsByNameInOrderOfFirstAppearance) {
  zrShotpointCollection collection;
  collection.addPoint(20.0, "B", 2.0, 0.0);
  collection.addPoint(5.0, "A", 5.0, 0.0);
  collection.addPoint(10.0, "B", 1.0, 0.0);
  collection.addPoint(4.0, "A", 4.0, 0.0);
  collection.addPoint(10.0, "B", 77.0, 77.0);
  ASSERT_EQ(collection.getLines().size(), 2u);
  EXPECT_EQ(collection.getLines()[0].getName(), "B");
  EXPECT_THAT(positions(collection.getLines()[0]), LineIs("1 0, 2 0"));
  EXPECT_EQ(collection.getLines()[1].getName(), "A");
  EXPECT_THAT(positions(collection.getLines()[1]), LineIs("4 0, 5 0"));
}

TEST(ShotpointCollection, TellsNamesApartByteByByte) {
  zrShotpointCollection collection;
  const std::vector<std::string> names = {"A", "a", "A ", "", std::string("A\0B", 3)};
  for (const std::string& name : names) collection.addPoint(1.0, name, 0.0, 0.0);
  ASSERT_EQ(collection.getLines().size(), names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(collection.getLines()[i].getName(), names[i]);
  }
}

TEST(ShotpointCollection, GivesItsTypeToNewLinesOnly) {
  zrShotpointCollection collection;
  collection.addPoint(1.0, "A", 0.0, 0.0);
  collection.setLineType(someType);
  collection.addPoint(2.0, "A", 0.0, 0.0);
  collection.addPoint(1.0, "B", 0.0, 0.0);
  collection.LineType() = otherType;
  collection.addPoint(1.0, "C", 0.0, 0.0);
  ASSERT_EQ(collection.getLines().size(), 3u);
  EXPECT_EQ(collection.getLines()[0].LineType(), zrShotpointLine::typeDefault);
  EXPECT_EQ(collection.getLines()[1].LineType(), someType);
  EXPECT_EQ(collection.getLines()[2].LineType(), otherType);
}

TEST(ShotpointCollection, KeptCalculateShotpointsDoesNothing) {
  zrShotpointCollection collection;
  EXPECT_FALSE(collection.calculateShotpoints());
  collection.addPoint(1.0, "A", 0.0, 0.0);
  collection.addPoint(3.0, "A", 2.0, 0.0);
  EXPECT_FALSE(collection.calculateShotpoints());
  collection.addPoint(2.0, "B", 5.0, 0.0);
  collection.addPoint(4.0, "B", 6.0, 0.0);
  EXPECT_FALSE(collection.calculateShotpoints());
  ASSERT_EQ(collection.getLines().size(), 2u);
  EXPECT_THAT(numbersOf(collection.getLines()[0]), ElementsAre(1.0, 3.0));
  EXPECT_THAT(numbersOf(collection.getLines()[1]), ElementsAre(2.0, 4.0));
}

TEST(ShotpointCollection, CopiesAreIndependent) {
  zrShotpointCollection collection;
  collection.setLineType(someType);
  collection.addPoint(1.0, "A", 0.0, 0.0);
  const zrShotpointCollection before = collection;
  zrShotpointCollection assigned;
  assigned = collection;
  collection.addPoint(2.0, "A", 0.0, 0.0);
  collection.addPoint(1.0, "B", 0.0, 0.0);
  for (const zrShotpointCollection& copy : {before, assigned}) {
    EXPECT_EQ(copy.LineType(), someType);
    ASSERT_EQ(copy.getLines().size(), 1u);
    EXPECT_THAT(numbersOf(copy.getLines()[0]), ElementsAre(1.0));
  }
}

// Against a scan from the front over plain records.
RC_GTEST_PROP(ShotpointCollection, AgreesWithAScanFromTheFront, ()) {
  struct Plain {
    std::string name;
    std::map<double, gdfVertex> points;
  };
  std::vector<Plain> expected;
  zrShotpointCollection collection;
  const int count = *rc::gen::inRange(0, 60);
  for (int k = 0; k < count; ++k) {
    const std::string name(1, static_cast<char>('A' + *rc::gen::inRange(0, 6)));
    const double number = *rc::gen::inRange(0, 8);
    collection.addPoint(number, name, k, -k);
    Plain* found = nullptr;
    for (Plain& p : expected) {
      if (found == nullptr && p.name == name) found = &p;
    }
    if (found == nullptr) {
      expected.push_back({name, {}});
      found = &expected.back();
    }
    if (found->points.count(number) == 0) found->points[number] = gdfVertex(k, -k);
  }
  RC_ASSERT(collection.getLines().size() == expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    VertexLine vertices;
    std::vector<double> numbers;
    for (const auto& [number, position] : expected[i].points) {
      numbers.push_back(number);
      vertices.push_back(position);
    }
    RC_ASSERT(collection.getLines()[i].getName() == expected[i].name);
    RC_ASSERT(numbersOf(collection.getLines()[i]) == numbers);
    RC_ASSERT(positions(collection.getLines()[i]) == vertices);
  }
}

}  // namespace
