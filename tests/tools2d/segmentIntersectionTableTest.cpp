#include <zrBase/tools2d/segmentIntersection.h>

#include <gtest/gtest.h>

#include "support/geometryText.h"

#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#ifndef ZRBASE_TEST_DATA
#error "ZRBASE_TEST_DATA must name the folder tests/data"
#endif

// The cases of tests/data/segment_intersections.csv, one test each. Its last column says how the
// values were got.

namespace {

struct Row {
  std::string name;
  VertexLine ends;  // a, b, c, d
  double tolerance = 0.0;
  bool hit = false;
  std::string place;
  bool exact = false;
  std::string origin;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.name << " " << toText(row.ends) << ", " << row.origin;
}

Row toRow(const std::string& text) {
  std::vector<std::string> cells;
  std::istringstream parts(text);
  for (std::string cell; std::getline(parts, cell, ',');) cells.push_back(cell);
  if (cells.size() != 20) throw std::runtime_error("not 20 cells: " + text);
  Row row;
  row.name = cells[0];
  for (std::size_t i = 1; i <= 10; i += 3) {
    row.ends.push_back(vertex(cells[i] + " " + cells[i + 1] + " " + cells[i + 2]));
  }
  row.tolerance = vertex(cells[13] + " 0").x();
  if (cells[14] != "hit" && cells[14] != "miss")
    throw std::runtime_error("neither hit nor miss: " + text);
  row.hit = cells[14] == "hit";
  row.place = cells[15] + " " + cells[16] + " " + cells[17];
  if (cells[18] != "exact" && cells[18] != "near")
    throw std::runtime_error("neither exact nor near: " + text);
  row.exact = cells[18] == "exact";
  row.origin = cells[19];
  return row;
}

std::vector<Row> readRows() {
  std::ifstream file(std::string(ZRBASE_TEST_DATA) + "/segment_intersections.csv");
  std::vector<Row> rows;
  std::string text;
  std::getline(file, text);  // column names
  while (std::getline(file, text)) rows.push_back(toRow(text));
  return rows;
}

class SegmentIntersectionTable : public testing::TestWithParam<Row> {};

TEST_P(SegmentIntersectionTable, RowHolds) {
  const Row& row = GetParam();
  gdfVertex out(-99.0, -98.0, -97.0);
  const bool hit = zr2DTools::getSegmentSegmentIntersect(row.ends[0], row.ends[1], row.ends[2],
                                                         row.ends[3], out, row.tolerance);
  EXPECT_EQ(hit, row.hit) << row.origin;
  if (!row.hit) {
    EXPECT_THAT(out, VertexIs("-99 -98 -97")) << row.origin;
  } else if (row.exact) {
    EXPECT_THAT(out, VertexIs(row.place)) << row.origin;
  } else {
    EXPECT_THAT(out, VertexNear(row.place, 1e-11)) << row.origin;
  }
}

INSTANTIATE_TEST_SUITE_P(Csv, SegmentIntersectionTable, testing::ValuesIn(readRows()),
                         [](const auto& parameter) { return parameter.param.name; });

// A table that was not found or was cut short would otherwise pass without a word.
TEST(SegmentIntersectionTableFile, HasItsRowsEachWithANameAndAnOrigin) {
  const std::vector<Row> rows = readRows();
  EXPECT_GE(rows.size(), 40U);
  std::set<std::string> names;
  for (const Row& row : rows) {
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
    EXPECT_FALSE(row.origin.empty()) << row.name;
  }
}

}  // namespace
