#include <zrBase/utilities/defaultDatabase.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QByteArray>
#include <QColor>
#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <filesystem>
#include <iostream>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

#include "utilities/support/decimalComma.h"
#include "utilities/support/temporaryFolder.h"

using namespace std::string_literals;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

/// What a call made of three empty lists.
struct Column {
  bool result = false;
  std::vector<std::string> names;
  std::vector<QColor> colours;
  std::vector<double> values;

  /// Each row as "name 12.5 #rrggbb".
  std::vector<std::string> rows() const {
    EXPECT_EQ(colours.size(), names.size());
    EXPECT_EQ(values.size(), names.size());
    std::vector<std::string> rows;
    for (std::size_t i = 0; i < names.size(); ++i) {
      std::ostringstream row;
      row.imbue(std::locale::classic());
      row << names[i] << ' ' << values[i] << ' ' << colours[i].name().toStdString();
      rows.push_back(row.str());
      EXPECT_EQ(colours[i].alpha(), 255);
    }
    return rows;
  }
};

Column columnOfFile(const std::string& file) {
  Column column;
  column.result = zrUtils::loadDefaultStratColumn(QString::fromStdString(file), column.names,
                                                  column.colours, column.values);
  return column;
}

Column columnOf(const std::string& content) {
  const TemporaryFolder folder;
  return columnOfFile(folder.write("database.txt", content));
}

/// The rows of a file with this content; the result has to tell whether there is one.
std::vector<std::string> rowsOf(const std::string& content) {
  const Column column = columnOf(content);
  EXPECT_EQ(column.result, !column.names.empty());
  return column.rows();
}

/// Five numbers, of which the last is 7, and a colour of red 1, green 2 and blue 3.
const std::string numbers = "\t0.1 0.2 300 0.4 7 197121\n";

TEST(DefaultDatabase, ReadsARow) {
  EXPECT_THAT(rowsOf("Jurassic\t0.1 0.2 300 0.4 201.5 13742644\n"),
              ElementsAre("Jurassic 201.5 #34b2d1"));
}

TEST(DefaultDatabase, HasRedInTheLowByte) {
  EXPECT_THAT(rowsOf("a\t0 0 0 0 0 255\nb\t0 0 0 0 0 65280\nc\t0 0 0 0 0 16711680\n"),
              ElementsAre("a 0 #ff0000", "b 0 #00ff00", "c 0 #0000ff"));
}

TEST(DefaultDatabase, DropsTheTopByteOfAColour) {
  EXPECT_THAT(rowsOf("a\t0 0 0 0 0 4278190335\nb\t0 0 0 0 0 4294967295\n"),
              ElementsAre("a 0 #ff0000", "b 0 #ffffff"));
}

TEST(DefaultDatabase, IsFalseForCommentsOnly) {
  EXPECT_THAT(rowsOf("# one\n#two\n#" + numbers), IsEmpty());
  EXPECT_THAT(rowsOf(""), IsEmpty());
}

TEST(DefaultDatabase, KeptCommentBeginsInTheFirstColumn) {
  EXPECT_THAT(rowsOf(" #a" + numbers), ElementsAre("#a 7 #010203"));
  EXPECT_THAT(rowsOf("\"#a\"" + numbers), ElementsAre("#a 7 #010203"));
}

TEST(DefaultDatabase, SkipsTheHeading) {
  EXPECT_THAT(rowsOf("Name, a b c\n"), IsEmpty());
  EXPECT_THAT(rowsOf("Name," + numbers + "Name" + numbers + "\"Name\"" + numbers), IsEmpty());
  EXPECT_THAT(rowsOf("  Name  1 2 3 4 5 6\n"), IsEmpty());
  EXPECT_THAT(rowsOf("name" + numbers + "Names" + numbers),
              ElementsAre("name 7 #010203", "Names 7 #010203"));
}

TEST(DefaultDatabase, DropsARowWithoutAColour) {
  EXPECT_THAT(rowsOf("a\t1 2 3 4 5\n"), IsEmpty());
  EXPECT_THAT(rowsOf("a\t1 2 3 4 5 \t \r\n"), IsEmpty());
  EXPECT_THAT(rowsOf("a\t1 2 3 4 5\""), IsEmpty());
  EXPECT_THAT(rowsOf("a\t1 2 3 4\nb\t1\nc\t\nd  \n"), IsEmpty());
}

TEST(DefaultDatabase, EndsANameAtATab) {
  EXPECT_THAT(rowsOf("Upper Jurassic" + numbers), ElementsAre("Upper Jurassic 7 #010203"));
  EXPECT_THAT(rowsOf("Upper Jurassic " + numbers), ElementsAre("Upper Jurassic 7 #010203"));
  EXPECT_THAT(rowsOf("a b c d" + numbers), ElementsAre("a b c d 7 #010203"));
}

TEST(DefaultDatabase, EndsANameAtTwoSpaces) {
  EXPECT_THAT(rowsOf("Upper Jurassic  0 0 0 0 7 1\n"), ElementsAre("Upper Jurassic 7 #010000"));
  EXPECT_THAT(rowsOf("Upper Jurassic      0\t0 0   0 7\t\t1\n"),
              ElementsAre("Upper Jurassic 7 #010000"));
  // What follows the two spaces are numbers, and this is none.
  EXPECT_THAT(rowsOf("Upper  Jurassic" + numbers), ElementsAre("Upper 0 #000000"));
  EXPECT_THAT(rowsOf("Sand  1 0 0 0 0 7 1\n"), ElementsAre("Sand 0 #070000"));
}

TEST(DefaultDatabase, SkipsALineWithoutAnEndOfTheName) {
  EXPECT_THAT(rowsOf("Jurassic 1 2 3 4 5 6\nJurassic\n\"\n"), IsEmpty());
  // Blanks at the end of a line are gone before its name is looked for.
  EXPECT_THAT(rowsOf("Jurassic  \nJurassic\t\n"), IsEmpty());
}

TEST(DefaultDatabase, SkipsBlanksBeforeAName) {
  EXPECT_THAT(rowsOf("  \t  a" + numbers), ElementsAre("a 7 #010203"));
}

TEST(DefaultDatabase, CleansANameOfQuotes) {
  EXPECT_THAT(rowsOf("\"Upper Jurassic\"" + numbers), ElementsAre("Upper Jurassic 7 #010203"));
  EXPECT_THAT(rowsOf("\" a \"" + numbers), ElementsAre("a 7 #010203"));
  EXPECT_THAT(rowsOf("\"\"" + numbers + "\" \"" + numbers), IsEmpty());
}

TEST(DefaultDatabase, KeepsTheBytesOfAName) {
  EXPECT_THAT(rowsOf("S\xFC"
                     "d\0x\xFF"s +
                     numbers),
              ElementsAre("S\xFC"
                          "d\0x\xFF 7 #010203"s));
}

TEST(DefaultDatabase, KeptMarkHidesTheNextLine) {
  EXPECT_THAT(rowsOf("2DLoom Database\na" + numbers + "b" + numbers), ElementsAre("b 7 #010203"));
  EXPECT_THAT(rowsOf("a" + numbers + "2DLoom Database 4.2\nb" + numbers + "c" + numbers),
              ElementsAre("a 7 #010203", "c 7 #010203"));
  EXPECT_THAT(rowsOf("2DLoom Database \" \r\na" + numbers), IsEmpty());
  // A mark that is hidden hides nothing.
  EXPECT_THAT(rowsOf("2DLoom Database\n2DLoom Database\na" + numbers), ElementsAre("a 7 #010203"));
  EXPECT_THAT(rowsOf("a" + numbers + "2DLoom Database"), ElementsAre("a 7 #010203"));
}

TEST(DefaultDatabase, TakesOnlyTheTwoMarks) {
  for (const char* line : {"2DLoom Database 4.3", "2DLoom database", " 2DLoom Database", "2DLoom",
                           "2DLoom Database  4.2"}) {
    EXPECT_THAT(rowsOf(line + "\na"s + numbers), testing::Contains("a 7 #010203")) << line;
  }
}

TEST(DefaultDatabase, KeptTenEmptyLinesEndTheReading) {
  const std::string nine(9, '\n');
  EXPECT_THAT(rowsOf("a" + numbers + nine + "b" + numbers),
              ElementsAre("a 7 #010203", "b 7 #010203"));
  EXPECT_THAT(rowsOf("a" + numbers + nine + "\nb" + numbers), ElementsAre("a 7 #010203"));
  EXPECT_THAT(rowsOf(nine + "a" + numbers), ElementsAre("a 7 #010203"));
  EXPECT_THAT(rowsOf(nine + "\na" + numbers), IsEmpty());
}

TEST(DefaultDatabase, CountsEmptyLinesInARowOnly) {
  const std::string nine(9, '\n');
  EXPECT_THAT(rowsOf(nine + "#\n" + nine + "a" + numbers), ElementsAre("a 7 #010203"));
  EXPECT_THAT(rowsOf(nine + "no end\n" + nine + "a" + numbers), ElementsAre("a 7 #010203"));
  EXPECT_THAT(rowsOf(nine + "2DLoom Database\n\n" + nine + "a" + numbers),
              ElementsAre("a 7 #010203"));
}

TEST(DefaultDatabase, CountsALineOfBlanksOrQuotesAsEmpty) {
  std::string nine;
  for (int i = 0; i < 3; ++i) nine += "  \t\n\"\n\r\n";
  EXPECT_THAT(rowsOf(nine + "a" + numbers), ElementsAre("a 7 #010203"));
  EXPECT_THAT(rowsOf(nine + " \" \na" + numbers), IsEmpty());
}

TEST(DefaultDatabase, ReadsALastLineWithoutALineFeed) {
  EXPECT_THAT(rowsOf("a\t1 2 3 4 5 6\nb\t1 2 3 4 5 6"), ElementsAre("a 5 #060000", "b 5 #060000"));
}

TEST(DefaultDatabase, ReadsLineEndsWithCarriageReturns) {
  EXPECT_THAT(rowsOf("2DLoom Database 4.2\r\nhidden\r\na\t1 2 3 4 5 6\r\nb\t1 2 3 4 5 6\r\n"),
              ElementsAre("a 5 #060000", "b 5 #060000"));
}

TEST(DefaultDatabase, DoesNotReadBehindTheColour) {
  EXPECT_THAT(rowsOf("a\t1 2 3 4 5 6 7 b\nc\t1 2 3 4 5 6.9\nd\t1 2 3 4 5 6#\n"),
              ElementsAre("a 5 #060000", "c 5 #060000", "d 5 #060000"));
}

TEST(DefaultDatabase, KeptRowWithBadNumberIsStored) {
  // The first four, so that the value stays 0; the fifth; the colour alone.
  EXPECT_THAT(rowsOf("a\tx 2 3 4 5 6\nb\t1 2 3 x 5 6\n"),
              ElementsAre("a 0 #000000", "b 0 #000000"));
  EXPECT_THAT(rowsOf("a\t1 2 3 4 x 6\n"), ElementsAre("a 0 #000000"));
  EXPECT_THAT(rowsOf("a\t1 2 3 4 5 x\n"), ElementsAre("a 5 #000000"));
  EXPECT_THAT(rowsOf("a\t1,2 2 3 4 5 6\n"), ElementsAre("a 0 #000000"));
  EXPECT_THAT(rowsOf("a\tx\n"), ElementsAre("a 0 #000000"));
  // A sign at the end of the line is read before it turns out to be no number.
  EXPECT_THAT(rowsOf("a\t1 2 3 -\n"), IsEmpty());
}

TEST(DefaultDatabase, TakesANumberBeyondItsTypeForABadOne) {
  EXPECT_THAT(rowsOf("a\t1 2 1e39 4 5 6\n"), ElementsAre("a 0 #000000"));
  const Column column = columnOf("a\t1e38 1e38 1e38 1e38 1e400 6\n");
  ASSERT_EQ(column.values.size(), 1U);
  EXPECT_EQ(column.values[0], std::numeric_limits<double>::max());
  EXPECT_EQ(column.colours[0], QColor(0, 0, 0));
  EXPECT_THAT(rowsOf("a\t1 2 3 4 5 4294967296\n"), ElementsAre("a 5 #ffffff"));
}

TEST(DefaultDatabase, ReadsTheColourAsAStreamDoes) {
  EXPECT_THAT(rowsOf("a\t1 2 3 4 5 -1\nb\t1 2 3 4 5 0x0000FF\nc\t1 2 3 4 5 +7\n"),
              ElementsAre("a 5 #ffffff", "b 5 #000000", "c 5 #070000"));
}

TEST(DefaultDatabase, AppendsToItsLists) {
  const TemporaryFolder folder;
  Column column;
  column.names = {"before", "and"};
  column.values = {1.0};
  EXPECT_TRUE(zrUtils::loadDefaultStratColumn(
      QString::fromStdString(folder.write("database.txt", "a" + numbers)), column.names,
      column.colours, column.values));
  EXPECT_THAT(column.names, ElementsAre("before", "and", "a"));
  EXPECT_THAT(column.values, ElementsAre(1.0, 7.0));
  EXPECT_THAT(column.colours, ElementsAre(QColor(1, 2, 3)));
}

TEST(DefaultDatabase, KeptEarlierColoursCountAsLoaded) {
  const TemporaryFolder folder;
  const QString file = QString::fromStdString(folder.write("database.txt", "# nothing\n"));
  std::vector<std::string> names = {"before"};
  std::vector<QColor> colours;
  std::vector<double> values = {1.0};
  EXPECT_FALSE(zrUtils::loadDefaultStratColumn(file, names, colours, values));
  colours = {QColor(1, 2, 3)};
  EXPECT_TRUE(zrUtils::loadDefaultStratColumn(file, names, colours, values));
  EXPECT_EQ(names.size() + colours.size() + values.size(), 3U);
}

TEST(DefaultDatabase, IsFalseForAFileThatIsNotThere) {
  const TemporaryFolder folder;
  const QString file = QString::fromStdString((folder.path() / "missing.txt").string());
  std::vector<std::string> names = {"before"};
  std::vector<QColor> colours = {QColor(1, 2, 3)};
  std::vector<double> values = {1.0};
  EXPECT_FALSE(zrUtils::loadDefaultStratColumn(file, names, colours, values));
  EXPECT_FALSE(zrUtils::loadDefaultStratColumn(QString(), names, colours, values));
  EXPECT_EQ(names.size() + colours.size() + values.size(), 3U);
}

TEST(DefaultDatabase, IsFalseForAFolder) {
  const TemporaryFolder folder;
  EXPECT_FALSE(columnOfFile(folder.path().string()).result);
}

TEST(DefaultDatabase, ReadsADecimalPointInEveryLocale) {
  const DecimalComma comma;
  ASSERT_TRUE(DecimalComma::holds());
  EXPECT_THAT(rowsOf("a\t0.1 0.2 1500.5 0.4 201.5 1234567\nb\t1 2 3 4 1.234 1.234\n"),
              ElementsAre("a 201.5 #87d612", "b 1.234 #010000"));
}

TEST(DefaultDatabase, ReadsALongLine) {
  const std::string name(100000, 'n');
  EXPECT_THAT(rowsOf(name + std::string(100000, ' ') + "1 2 3 4 5 6\n"),
              ElementsAre(name + " 5 #060000"));
}

/// The rows of the sample among the example data, typed from its sources.
const std::vector<std::string> sampleRows = {
    "Quaternary 2.58 #f9f97f",       "Neogene 23 #ffe619",
    "Paleogene 66 #fd9a52",          "Upper Cretaceous 100.5 #a6d84a",
    "Lower Cretaceous 145 #8ccd57",  "Upper Jurassic 161.5 #b3e3ee",
    "Middle Jurassic 174.7 #80cfd8", "Lower Jurassic 201.4 #42aed0",
    "Triassic 251.9 #812b92",        "Permian 298.9 #f04028",
    "Carboniferous 358.9 #67a599",   "Devonian 419.2 #cb8c37",
    "Silurian 443.8 #b3e1b6",        "Ordovician 485.4 #009270",
    "Cambrian 538.8 #7fa056",        "Ediacaran 635 #fed96a",
    "Cryogenian 720 #fecc5c",        "Tonian 1000 #febf4e"};

TEST(DefaultDatabase, ReadsTheSample) {
  const Column sample = columnOfFile(ZRBASE_EXAMPLE_DATA "/DefaultDatabase.txt");
  EXPECT_TRUE(sample.result);
  EXPECT_THAT(sample.rows(), ElementsAreArray(sampleRows));
}

/// An application, which knows the folder of its program.
struct Application {
  int argumentCount = 1;
  char name[6] = "tests";
  char* arguments[2] = {name, nullptr};
  QCoreApplication application{argumentCount, arguments};
};

/// Tells what the default form reads. Also run by a copy of this program that has a data folder
/// beside its own one: see ReadsTheFileOfAnInstalledTree.
TEST(DefaultFile, IsTheOneBesideTheProgramsFolder) {
  const Application application;
  Column column;
  column.result = zrUtils::loadDefaultStratColumn(column.names, column.colours, column.values);
  const QString file = QCoreApplication::applicationDirPath() + "/../data/DefaultDatabase.txt";
  const Column expected = columnOfFile(file.toStdString());
  EXPECT_EQ(column.result, expected.result);
  EXPECT_EQ(column.result, std::filesystem::exists(file.toStdString()));
  EXPECT_EQ(column.rows(), expected.rows());
  for (const std::string& row : column.rows()) std::cout << "row: " << row << '\n';
}

/// The rows that a copy of this program reads from its own default file.
std::vector<std::string> rowsReadBy(const std::string& program) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const QString& name : environment.keys()) {
    // It runs one test, not a share of all, and reports to nobody else.
    if (name.startsWith("GTEST_")) environment.remove(name);
  }
  QProcess process;
  process.setProcessEnvironment(environment);
  process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process.start(QString::fromStdString(program),
                QStringList("--gtest_filter=DefaultFile.IsTheOneBesideTheProgramsFolder"));
  EXPECT_TRUE(process.waitForFinished(120000));
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(process.exitCode(), 0);
  std::vector<std::string> rows;
  std::istringstream output(process.readAllStandardOutput().toStdString());
  for (std::string line; std::getline(output, line);) {
    if (line.rfind("row: ", 0) == 0) rows.push_back(line.substr(5));
  }
  return rows;
}

std::string thisProgram() {
  const Application application;
  return QCoreApplication::applicationFilePath().toStdString();
}

TEST(DefaultFile, ReadsTheFileOfAnInstalledTree) {
  const TemporaryFolder folder;
  const std::filesystem::path program = folder.path() / "bin" / "program";
  std::filesystem::create_directories(program.parent_path());
  std::filesystem::copy_file(thisProgram(), program);
  EXPECT_THAT(rowsReadBy(program.string()), IsEmpty());

  std::filesystem::create_directories(folder.path() / "data");
  std::filesystem::copy_file(ZRBASE_EXAMPLE_DATA "/DefaultDatabase.txt",
                             folder.path() / "data" / "DefaultDatabase.txt");
  EXPECT_THAT(rowsReadBy(program.string()), ElementsAreArray(sampleRows));
}

}  // namespace
