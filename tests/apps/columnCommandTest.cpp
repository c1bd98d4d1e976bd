#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <cstddef>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "apps/commandRunner.h"

namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

const char* const kHead = "2DLoom Database 4.2\nnames\n";

std::vector<std::string> linesOf(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

std::string rowOf(const std::string& name, const std::string& value, const std::string& colour) {
  return name + "\t0.39 0.56 1500 0.5 " + value + " " + colour + "\n";
}

class ColumnCommand : public ::testing::Test {
 protected:
  CommandResult run(const std::string& file, std::vector<std::string> options = {}) {
    options.insert(options.begin(), {"column", file});
    const CommandResult made = runZrbase(options);
    EXPECT_EQ(made.status, 0) << made.err;
    return made;
  }

  // The rows of the CSV table, without the heading.
  std::vector<std::string> rowsOf(const std::string& file) {
    result = run(file, {"-o", folder.path("out.csv")});
    std::vector<std::string> lines = linesOf(readFile(folder.path("out.csv")));
    EXPECT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "name,value,packed,hex,index,index_hex");
    lines.erase(lines.begin());
    return lines;
  }

  std::string database(const std::string& rows, const std::string& name = "base.txt") {
    return folder.file(name, kHead + rows);
  }

  const std::string example = std::string(ZRBASE_EXAMPLE_DATA) + "/DefaultDatabase.txt";
  TestFolder folder;
  CommandResult result;
};

TEST_F(ColumnCommand, ExampleGivesItsUnitsInFileOrder) {
  const std::vector<std::string> rows = rowsOf(example);
  EXPECT_EQ(result.err, "");
  ASSERT_EQ(rows.size(), 18U);
  EXPECT_THAT(rows[0], StartsWith("Quaternary,2.58,8387065,#F9F97F,"));
  EXPECT_THAT(rows[5], StartsWith("Upper Jurassic,161.5,15655859,#B3E3EE,"));
  EXPECT_THAT(rows[17], StartsWith("Tonian,1000,5160958,#FEBF4E,"));
  EXPECT_THAT(result.out, AllOf(HasSubstr("18 units, values ascend"),
                                HasSubstr("output    " + folder.path("out.csv") + ": 18 units")));
}

TEST_F(ColumnCommand, TableHasNameValueColourAndNearestIndex) {
  const std::vector<std::string> lines = linesOf(run(database(rowOf("Sand", "12.5", "33023"))).out);
  ASSERT_GE(lines.size(), 2U);
  EXPECT_EQ(lines[0], "unit  value  packed      hex  index  its colour");
  EXPECT_EQ(lines[1], "Sand   12.5   33023  #FF8000     30     #FF8000");
}

TEST_F(ColumnCommand, PureColoursHaveTheirIndices) {
  EXPECT_THAT(
      rowsOf(database(rowOf("A", "1", "255") + rowOf("B, upper", "-2", "16777215"))),
      ElementsAre("A,1,255,#FF0000,1,#FF0000", "\"B, upper\",-2,16777215,#FFFFFF,7,#FFFFFF"));
  EXPECT_THAT(result.out, Not(HasSubstr("ascend")));
}

TEST_F(ColumnCommand, FileNameOfAnyBytesIsRead) {
  EXPECT_THAT(rowsOf(database(rowOf("A", "1", "255"), "s\xC3\xA4ule \xFF.txt")),
              ElementsAre("A,1,255,#FF0000,1,#FF0000"));
}

TEST_F(ColumnCommand, LineThatIsPassedOverIsTold) {
  const std::string file =
      database(rowOf("A", "1", "255") + "B 0.39 0.56 1500 0.5 2 255\nC\t0.39 0.56 1500 0.5 3\n");
  EXPECT_EQ(rowsOf(file).size(), 1U);
  const std::string start = "zrbase column: warning: " + file + ": line ";
  EXPECT_EQ(result.err, start + "4: passed over: no tab or two blanks behind a name\n" + start +
                            "5: 'C' is passed over: 5 numbers instead of five and a colour\n");
}

// The library keeps the row, with what was read before the bad number.
TEST_F(ColumnCommand, NumberThatCannotBeReadIsTold) {
  EXPECT_THAT(rowsOf(database(rowOf("A", "old", "255") + rowOf("B", "2", "blue"))),
              ElementsAre("A,0,0,#000000,7,#FFFFFF", "B,2,0,#000000,7,#FFFFFF"));
  EXPECT_THAT(result.err, AllOf(HasSubstr("line 3: 'old' of 'A' is not a number"),
                                HasSubstr("line 4: 'blue' of 'B' is no colour")));
}

TEST_F(ColumnCommand, TextBehindTenEmptyLinesIsTold) {
  EXPECT_EQ(rowsOf(database(rowOf("A", "1", "255") + std::string(9, '\n') + rowOf("B", "2", "255") +
                            std::string(10, '\n') + rowOf("C", "3", "255")))
                .size(),
            2U);
  EXPECT_THAT(result.err, HasSubstr("line 24: not read: ten empty lines end the column"));
}

TEST_F(ColumnCommand, ManyWarningsAreCounted) {
  std::string rows = rowOf("A", "1", "255");
  for (int i = 0; i < 12; ++i) {
    rows += "note\n";
  }
  rowsOf(database(rows));
  EXPECT_EQ(linesOf(result.err).size(), 11U);
  EXPECT_THAT(result.err, HasSubstr("and 2 more lines"));
}

TEST_F(ColumnCommand, SvgHasTitleNamesAndValues) {
  const std::string path = folder.path("column.svg");
  const CommandResult drawn = run(example, {"--picture", path});
  EXPECT_THAT(drawn.out, HasSubstr("picture   " + path));
  const std::string svg = readFile(path);
  for (const char* const text :
       {"Stratigraphic column", "18 units, not to scale", "DefaultDatabase.txt", "Upper Jurassic",
        "Tonian", "161.5", "1000", "Each value stands at the base of its unit."}) {
    EXPECT_THAT(svg, HasSubstr(text)) << text;
  }
  run(example, {"--picture", path});
  EXPECT_EQ(readFile(path), svg);
}

TEST_F(ColumnCommand, ValuesThatDoNotAscendStandBesideTheirUnits) {
  const std::string path = folder.path("column.svg");
  run(database(rowOf("A", "1", "255") + rowOf("B", "1", "255")),
      {"--picture", path, "--title", "North basin"});
  EXPECT_THAT(readFile(path),
              AllOf(HasSubstr("North basin"), HasSubstr("Each value stands beside its unit.")));
}

TEST_F(ColumnCommand, BoxesAreStackedInFileOrder) {
  const std::string path = folder.path("column.png");
  run(database(rowOf("A", "1", "1971210") + rowOf("B", "2", "3302600")), {"--picture", path});
  const QImage image(QString::fromStdString(path));
  ASSERT_FALSE(image.isNull());
  std::vector<QRgb> seen;  // down a line through the boxes, right of the names
  for (int y = 0; y < image.height(); ++y) {
    const QRgb pixel = image.pixel(500, y);
    const bool box = pixel == qRgb(10, 20, 30) || pixel == qRgb(200, 100, 50);
    if (box && (seen.empty() || seen.back() != pixel)) {
      seen.push_back(pixel);
    }
  }
  EXPECT_THAT(seen, ElementsAre(qRgb(10, 20, 30), qRgb(200, 100, 50)));
}

TEST_F(ColumnCommand, WithoutFileTheOneBesideTheProgramsFolderIsRead) {
  namespace fs = std::filesystem;
  const std::string expected =
      (fs::canonical(ZRBASE_COMMAND).parent_path() / "../data/DefaultDatabase.txt")
          .lexically_normal()
          .string();
  ASSERT_FALSE(fs::exists(expected));
  const TestFolder outputs;
  EXPECT_EQ(refusalOf({"column", "-o", outputs.path("out.csv")}, outputs),
            "zrbase column: no FILE given, and the suite's own " + expected + " does not exist\n");
}

class ColumnBadInput : public ::testing::Test {
 protected:
  std::string reasonOf(const std::string& file) {
    return refusalOf(
        {"column", file, "-o", outputs.path("out.csv"), "--picture", outputs.path("out.png")},
        outputs);
  }

  TestFolder inputs;
  TestFolder outputs;
};

TEST_F(ColumnBadInput, MissingFileIsNamed) {
  EXPECT_THAT(reasonOf(inputs.path("nothing.txt")), HasSubstr("nothing.txt: does not exist"));
}

TEST_F(ColumnBadInput, FolderIsRefused) {
  EXPECT_THAT(reasonOf(inputs.path("")), HasSubstr("is not a regular file"));
  EXPECT_THAT(reasonOf("/dev/null"), HasSubstr("/dev/null: cannot be read"));
}

TEST_F(ColumnBadInput, FileWithoutTheMarkIsRefused) {
  EXPECT_THAT(reasonOf(inputs.file("rows.txt", rowOf("A", "1", "255"))),
              HasSubstr("rows.txt: not a database: no line '2DLoom Database 4.2'"));
  EXPECT_THAT(reasonOf(inputs.file("empty.txt", "")), HasSubstr("empty.txt: not a database"));
  EXPECT_THAT(reasonOf(inputs.file("bytes.txt", std::string("\x00\xFF\x01\n\x7F", 5))),
              HasSubstr("bytes.txt: not a database"));
}

TEST_F(ColumnBadInput, FileWithoutUnitsIsRefused) {
  EXPECT_THAT(reasonOf(inputs.file("head.txt", kHead)), HasSubstr("head.txt: no units"));
  EXPECT_THAT(reasonOf(inputs.file("note.txt", std::string(kHead) + "A 1 2 3 4 5 6\n")),
              HasSubstr("note.txt: no units: line 3: passed over"));
}

// The line behind the mark is passed over, whatever it holds.
TEST_F(ColumnBadInput, SingleUnitRightBehindTheMarkIsNotRead) {
  EXPECT_THAT(reasonOf(inputs.file("one.txt", "2DLoom Database\n" + rowOf("A", "1", "255"))),
              HasSubstr("one.txt: no units"));
}

TEST_F(ColumnBadInput, MoreUnitsThanAPictureHoldsAreRefused) {
  std::string rows = kHead;
  for (int i = 0; i < 1001; ++i) {
    rows += rowOf("A", "1", "255");
  }
  EXPECT_THAT(reasonOf(inputs.file("many.txt", rows)), HasSubstr("at most 1000 units, not 1001"));
}

TEST_F(ColumnBadInput, InputIsNeverAnOutput) {
  const std::string file = inputs.file("base.csv", kHead + rowOf("A", "1", "255"));
  const std::string before = readFile(file);
  EXPECT_THAT(refusalOf({"column", file, "-o", file}, outputs), HasSubstr("is an input too"));
  EXPECT_EQ(readFile(file), before);
}

TEST_F(ColumnBadInput, UnknownEndingsAreRefused) {
  const std::string file = inputs.file("base.txt", kHead + rowOf("A", "1", "255"));
  EXPECT_THAT(refusalOf({"column", file, "-o", outputs.path("out.json")}, outputs),
              HasSubstr("out.json: unknown ending for the output: .csv"));
  EXPECT_THAT(refusalOf({"column", file, "--picture", outputs.path("out.pdf")}, outputs),
              HasSubstr("out.pdf: unknown ending for the picture: .svg or .png"));
}

}  // namespace
