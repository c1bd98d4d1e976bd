#ifndef ZRBASE_TESTS_APPS_CLUSTERTABLES_H
#define ZRBASE_TESTS_APPS_CLUSTERTABLES_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "apps/commandRunner.h"

/// A table without quotes: a map from column to text for each row.
using TextTable = std::vector<std::map<std::string, std::string>>;

inline std::vector<std::string> tableCells(const std::string& row) {
  std::vector<std::string> cells(1);
  for (const char c : row) {
    if (c == ',') {
      cells.emplace_back();
    } else {
      cells.back() += c;
    }
  }
  return cells;
}

inline TextTable readTextTable(const std::string& path) {
  std::istringstream lines(readFile(path));
  std::string line;
  std::getline(lines, line);
  const std::vector<std::string> names = tableCells(line);
  TextTable table;
  while (std::getline(lines, line)) {
    const std::vector<std::string> cells = tableCells(line);
    EXPECT_EQ(cells.size(), names.size()) << line;
    table.emplace_back();
    for (std::size_t i = 0; i < cells.size() && i < names.size(); ++i) {
      table.back()[names[i]] = cells[i];
    }
  }
  return table;
}

inline double numberIn(const std::map<std::string, std::string>& row, const std::string& column) {
  const std::vector<double> numbers = numbersIn(row.at(column));
  EXPECT_EQ(numbers.size(), 1U) << column << " " << row.at(column);
  return numbers.empty() ? 0.0 : numbers.front();
}

/// Points around as many places as `groups`, 1000 apart: a table with columns x, y and v.
inline std::string scatteredPoints(int count, int groups) {
  std::uint64_t state = 12345;
  const auto draw = [&state] {
    state = state * 6364136223846793005U + 1442695040888963407U;
    return static_cast<int>(state >> 33U) % 400;
  };
  std::string text = "x,y,v\n";
  for (int i = 0; i < count; ++i) {
    const int group = i % groups;
    text += std::to_string(1000 * group + draw()) + "," +
            std::to_string(1000 * (group % 2) + draw()) + "," + std::to_string(draw()) + "." +
            std::to_string(draw()) + "\n";
  }
  return text;
}

/// Three triangles: their means are (1, 1), (101, 1) and (1, 101), each distortion is 2 + 2 + 4.
inline const char* const kTriangles =
    "name,x,y\na,0,0\nb,100,0\nc,0,100\na,2,0\nb,102,0\nc,2,100\na,1,3\nb,101,3\nc,1,103\n";

/// Runs `zrbase cluster` in a folder of its own.
class ClusterRun : public ::testing::Test {
 protected:
  // Clusters a table of this text and leaves the result in `output`.
  void cluster(const std::string& table, std::vector<std::string> options,
               const std::string& output = "out.csv") {
    run(folder.file("points.csv", table), std::move(options), output);
  }

  void run(const std::string& file, std::vector<std::string> options,
           const std::string& output = "out.csv") {
    options.insert(options.begin(), {"cluster", file, "-o", folder.path(output)});
    result = runZrbase(options);
    EXPECT_EQ(result.status, 0) << result.err;
  }

  TextTable points() const { return readTextTable(folder.path("out.csv")); }
  TextTable centers() const { return readTextTable(folder.path("out_centers.csv")); }

  // The values of a column of the points, as one text a cluster, sorted.
  std::vector<std::string> groups(const std::string& column) const {
    std::map<std::string, std::string> texts;
    for (const auto& row : points()) {
      texts[row.at("cluster")] += row.at(column);
    }
    std::vector<std::string> sorted;
    for (const auto& [cluster, text] : texts) {
      sorted.push_back(text);
    }
    std::sort(sorted.begin(), sorted.end());
    return sorted;
  }

  TestFolder folder;
  CommandResult result;
};

#endif  // ZRBASE_TESTS_APPS_CLUSTERTABLES_H
