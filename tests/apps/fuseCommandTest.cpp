#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "apps/commandRunner.h"

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

using Vertices = std::vector<std::vector<double>>;

std::string coordinates(const Vertices& vertices) {
  std::string text;
  for (const std::vector<double>& vertex : vertices) {
    text += (text.empty() ? "[" : ",[") + std::to_string(vertex[0]) + "," +
            std::to_string(vertex[1]) + "]";
  }
  return text;
}

class FuseCommand : public ::testing::Test {
 protected:
  std::vector<ReadFeature> chainsOf(const std::string& input, const std::string& tolerance,
                                    const std::vector<std::string>& options = {},
                                    const std::string& output = "out.geojson") {
    std::vector<std::string> arguments = {"fuse",    input, "--tolerance",
                                          tolerance, "-o",  folder.path(output)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    result = runZrbase(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    const auto layers = readLayers(folder.path(output));
    EXPECT_EQ(layers.count("chains"), 1U);
    return layers.count("chains") == 0 ? std::vector<ReadFeature>() : layers.at("chains").features;
  }

  std::string lines(const std::vector<std::string>& coordinateTexts) {
    return folder.file("lines.geojson", metricLines(coordinateTexts));
  }

  TestFolder folder;
  CommandResult result;
};

TEST_F(FuseCommand, LinesInAnyOrderAndDirectionBecomeOne) {
  const auto chains =
      chainsOf(lines({"[10,0],[15,2],[20,0]", "[10,0],[0,0]", "[30,0],[20,0]"}), "1");
  ASSERT_EQ(chains.size(), 1U);
  EXPECT_THAT(chains[0].vertices,
              ElementsAre(ElementsAre(0, 0), ElementsAre(10, 0), ElementsAre(15, 2),
                          ElementsAre(20, 0), ElementsAre(30, 0)));
  EXPECT_EQ(chains[0].fields.at("fids"), "1,0,2");
  EXPECT_EQ(chains[0].number("lines"), 3);
  EXPECT_EQ(chains[0].number("vertices"), 5);
  EXPECT_EQ(chains[0].number("closed"), 0);
  EXPECT_NEAR(chains[0].number("length"), 10 + 2 * std::sqrt(29.0) + 10, 1e-9);
  EXPECT_THAT(result.out, HasSubstr("lines     3 lines became 1\n"));
}

// The earlier of the two vertices at a junction stays, and a line keeps its own close vertices.
TEST_F(FuseCommand, JunctionVerticesAreKeptOnceAndNoOtherIsTaken) {
  const auto chains = chainsOf(lines({"[0,0],[9.8,0],[10,0]", "[10.5,0],[10.6,0],[20,0]"}), "1");
  ASSERT_EQ(chains.size(), 1U);
  EXPECT_THAT(chains[0].vertices,
              ElementsAre(ElementsAre(0, 0), ElementsAre(9.8, 0), ElementsAre(10, 0),
                          ElementsAre(10.6, 0), ElementsAre(20, 0)));
}

TEST_F(FuseCommand, EndsExactlyTheToleranceApartDoNotMatch) {
  EXPECT_EQ(chainsOf(lines({"[0,0],[10,0]", "[11,0],[20,0]"}), "1").size(), 2U);
  EXPECT_EQ(chainsOf(lines({"[0,0],[10,0]", "[11,0],[20,0]"}), "1.001").size(), 1U);
}

TEST_F(FuseCommand, HeightsHaveToMatchToo) {
  const std::string file = folder.file(
      "z.csv", "WKT,name\n\"LINESTRING Z (0 0 0,10 0 0)\",a\n\"LINESTRING Z (10 0 5,20 0 5)\",b\n");
  EXPECT_EQ(chainsOf(file, "1").size(), 2U);
  EXPECT_EQ(chainsOf(file, "6").size(), 1U);
}

TEST_F(FuseCommand, SingleLineComesThrough) {
  const auto chains = chainsOf(lines({"[0,0],[10,0],[20,5]"}), "1");
  ASSERT_EQ(chains.size(), 1U);
  EXPECT_EQ(chains[0].vertices.size(), 3U);
  EXPECT_THAT(result.out, HasSubstr("1 line became 1\n"));
}

// Fusing would use the loop up at the end that it touches, and nothing of it would be left.
TEST_F(FuseCommand, ClosedLineIsLeftAsItIs) {
  const auto chains =
      chainsOf(lines({"[0,0],[10,0]", "[10,0],[15,5],[15,-5],[10,0]", "[10,0],[5,-9]"}), "1");
  ASSERT_EQ(chains.size(), 2U);
  EXPECT_EQ(chains[0].fields.at("fids"), "0,2");
  EXPECT_EQ(chains[1].fields.at("fids"), "1");
  EXPECT_EQ(chains[1].number("closed"), 1);
  EXPECT_EQ(chains[1].vertices.size(), 4U);
}

// Both of its ends match the end of the first line, though not each other: it would be used up too.
TEST_F(FuseCommand, ShortLineIsNotLost) {
  const auto chains = chainsOf(lines({"[0,0],[10,0]", "[9.4,0],[10.6,0]"}), "1");
  ASSERT_EQ(chains.size(), 2U);
  EXPECT_EQ(chains[1].fields.at("fids"), "1");
}

TEST_F(FuseCommand, RingOfLinesIsClosed) {
  const auto chains = chainsOf(lines({"[0,0],[10,0]", "[10,0],[10,10]", "[10,10],[0,0]"}), "1");
  ASSERT_EQ(chains.size(), 1U);
  EXPECT_EQ(chains[0].number("closed"), 1);
  EXPECT_EQ(chains[0].vertices.front(), chains[0].vertices.back());
  EXPECT_EQ(chains[0].vertices.size(), 4U);
  EXPECT_THAT(result.out, HasSubstr("chains    1 of several lines, 1 closed\n"));
}

TEST_F(FuseCommand, FirstLineInTheFileGoesOnAtABranch) {
  const auto chains = chainsOf(lines({"[0,0],[10,0]", "[10,0],[20,5]", "[10,0],[20,-5]"}), "1");
  ASSERT_EQ(chains.size(), 2U);
  EXPECT_EQ(chains[0].fields.at("fids"), "0,1");
  EXPECT_EQ(chains[1].fields.at("fids"), "2");
}

TEST_F(FuseCommand, NameIsKeptWhereAllAgree) {
  const std::string file = folder.file("names.csv",
                                       "WKT,name\n\"LINESTRING (0 0,1 0)\",a\n"
                                       "\"MULTILINESTRING ((1 0,2 0),(50 0,60 0))\",a\n"
                                       "\"LINESTRING (60 0,70 0)\",b\n");
  const auto chains = chainsOf(file, "0.5");
  ASSERT_EQ(chains.size(), 2U);
  EXPECT_EQ(chains[0].fields.at("name"), "a");
  EXPECT_EQ(chains[0].fields.at("fids"), "1,2.0");
  EXPECT_EQ(chains[1].fields.count("name"), 0U);
  EXPECT_EQ(chains[1].fields.at("fids"), "2.1,3");
}

// A trace of many vertices, cut into pieces that are shuffled and partly turned round.
TEST_F(FuseCommand, RealTraceComesBackFromItsPieces) {
  const auto whole =
      chainsOf(ZRBASE_EXAMPLE_DATA "/long_traces.geojson", "0.001", {"--where", "0"}, "whole.gpkg");
  ASSERT_EQ(whole.size(), 1U);
  const Vertices& trace = whole[0].vertices;
  ASSERT_GT(trace.size(), 100U);
  const std::size_t step = trace.size() / 7;
  std::vector<Vertices> pieces;
  for (std::size_t first = 0; first + 1 < trace.size(); first += step) {
    const std::size_t last = std::min(first + step, trace.size() - 1);
    pieces.emplace_back(trace.begin() + static_cast<std::ptrdiff_t>(first),
                        trace.begin() + static_cast<std::ptrdiff_t>(last) + 1);
  }
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    Vertices& piece = pieces[(i * 3 + 2) % pieces.size()];
    if (i % 2 == 1) {
      std::reverse(piece.begin(), piece.end());
    }
    texts.push_back(coordinates(piece));
  }
  ASSERT_EQ(texts.size() % 3 == 0, false);  // so that each piece was taken once
  const auto chains = chainsOf(lines(texts), "0.01");
  ASSERT_EQ(chains.size(), 1U);
  ASSERT_EQ(chains[0].vertices.size(), trace.size());
  for (std::size_t i = 0; i < trace.size(); ++i) {
    EXPECT_NEAR(chains[0].vertices[i][0], trace[i][0], 1e-6) << i;
    EXPECT_NEAR(chains[0].vertices[i][1], trace[i][1], 1e-6) << i;
  }
}

TEST_F(FuseCommand, UndoesASplit) {
  const std::string across = folder.file("across.csv", "lon,lat\n-119,32\n-117,34.5\n-115,36\n");
  ASSERT_EQ(runZrbase({"split", ZRBASE_EXAMPLE_DATA "/california.geojson", "--with", across, "-o",
                       folder.path("pieces.gpkg")})
                .status,
            0);
  const auto chains = chainsOf(folder.path("pieces.gpkg"), "0.01", {}, "fused.gpkg");
  EXPECT_EQ(chains.size(), 40U);
  EXPECT_THAT(result.out, HasSubstr("44 lines became 40\n"));
}

TEST_F(FuseCommand, SameInputGivesTheSameBytes) {
  for (const std::string ending : {".geojson", ".gpkg"}) {
    for (const std::string name : {"first", "second"}) {
      chainsOf(ZRBASE_EXAMPLE_DATA "/anatolia.geojson", "500", {}, name + ending);
    }
    EXPECT_EQ(readFile(folder.path("first" + ending)), readFile(folder.path("second" + ending)));
  }
}

TEST_F(FuseCommand, SkipBadGoesOnAndCounts) {
  const auto chains =
      chainsOf(lines({"[0,0],[10,0]", "[1,2]", "[10,0],[20,0]"}), "1", {"--skip-bad"});
  ASSERT_EQ(chains.size(), 1U);
  EXPECT_EQ(chains[0].fields.at("fids"), "0,2");
  EXPECT_THAT(result.out, HasSubstr("left out  1 bad feature"));
}

TEST(FuseHelp, HasExamples) {
  const CommandResult result = runZrbase({"fuse", "--help"});
  EXPECT_EQ(result.status, 0);
  for (const char* const text :
       {"Examples:", "--tolerance", "--crs", "--layer", "--where", "--skip-bad"}) {
    EXPECT_THAT(result.out, HasSubstr(text));
  }
}

}  // namespace
