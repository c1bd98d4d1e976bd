#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QColor>
#include <QImage>
#include <algorithm>
#include <array>
#include <cstdlib>
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

std::vector<std::string> linesOf(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

class ColourCommand : public ::testing::Test {
 protected:
  // The rows of the CSV table for these colours, without the heading.
  std::vector<std::string> rowsOf(std::vector<std::string> colours) {
    colours.insert(colours.begin(), {"colour", "-o", folder.path("out.csv")});
    result = runZrbase(colours);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    std::vector<std::string> lines = linesOf(readFile(folder.path("out.csv")));
    EXPECT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "given,name,words,packed,hex,index,index_hex,hue,saturation,value");
    lines.erase(lines.begin());
    return lines;
  }

  TestFolder folder;
  CommandResult result;
};

// Red 255, green 128, blue 0 in the suite; 255, 165, 0 on a Motif display: hue 60 * 165 / 255.
TEST_F(ColourCommand, WordOfBothListsIsToldWithBothColours) {
  const std::vector<std::string> rows = rowsOf({"Orange"});
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_THAT(rows[0], StartsWith("Orange,orange,suite,33023,#FF8000,30,#FF8000,30.11764705882"));
  EXPECT_THAT(rows[1], StartsWith("Orange,orange,Motif,42495,#FFA500,"));
  EXPECT_THAT(rows[1], HasSubstr(",38.82352941176"));
}

TEST_F(ColourCommand, WordWithOneColourInBothListsIsOneRow) {
  EXPECT_THAT(rowsOf({"RED"}), ElementsAre("RED,red,both,255,#FF0000,1,#FF0000,0,1,1"));
}

TEST_F(ColourCommand, BlanksCountInWordsOfTheSuiteAlone) {
  const std::vector<std::string> rows = rowsOf({"dark green", "darkgreen"});
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_THAT(rows[0], StartsWith("dark green,dark green,suite,34816,#008800,"));
  EXPECT_THAT(rows[1], StartsWith("dark green,darkgreen,Motif,25600,#006400,"));
  EXPECT_THAT(rows[2], StartsWith("darkgreen,darkgreen,Motif,25600,#006400,"));
}

// An unknown word is white to the library, but these are words.
TEST_F(ColourCommand, WordsForWhiteAreKnown) {
  EXPECT_THAT(rowsOf({"white", "WHI", "Snow"}),
              ElementsAre("white,white,both,16777215,#FFFFFF,7,#FFFFFF,,0,1",
                          "WHI,whi,suite,16777215,#FFFFFF,7,#FFFFFF,,0,1",
                          "Snow,snow,Motif,16777215,#FFFFFF,7,#FFFFFF,,0,1"));
}

TEST_F(ColourCommand, ComponentsGetTheNameOfTheirVeryColour) {
  EXPECT_THAT(rowsOf({"#ff00ff"}),
              ElementsAre("#ff00ff,magenta,both,16711935,#FF00FF,6,#FF00FF,300,1,1"));
  EXPECT_THAT(rowsOf({"#BEBEBE"})[0], StartsWith("#BEBEBE,gray,Motif,12500670,#BEBEBE,"));
  EXPECT_THAT(rowsOf({"#010203"})[0], StartsWith("#010203,,,197121,#010203,"));
}

TEST_F(ColourCommand, IndexGivesItsColour) {
  EXPECT_THAT(rowsOf({"4"}), ElementsAre("4,cyan,both,16776960,#00FFFF,4,#00FFFF,180,1,1"));
  // Half saturated red: 255, 128, 128.
  EXPECT_THAT(rowsOf({"11"})[0], StartsWith("11,,,8421631,#FF8080,11,#FF8080,0,"));
}

TEST_F(ColourCommand, WhiteIndicesComeBackAsSeven) {
  EXPECT_THAT(rowsOf({"255"}), ElementsAre("255,white,both,16777215,#FFFFFF,7,#FFFFFF,,0,1"));
}

TEST_F(ColourCommand, BlackHasTheIndexOfWhite) {
  EXPECT_THAT(rowsOf({"black"}), ElementsAre("black,black,both,0,#000000,7,#FFFFFF,,0,0"));
}

TEST_F(ColourCommand, TableHasARowForEachColourAndNoEscapesInAFile) {
  result = runZrbase({"colour", "red", "#B3E1B6"});
  EXPECT_EQ(result.status, 0);
  const std::vector<std::string> lines = linesOf(result.out);
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_THAT(lines[0], AllOf(StartsWith("colour"), HasSubstr("its colour")));
  EXPECT_THAT(lines[2], AllOf(StartsWith("#B3E1B6"), HasSubstr("11985331")));
  EXPECT_THAT(result.out, Not(HasSubstr("\033")));
}

// What the command prints on a terminal.
std::string onTerminal(const std::string& environment) {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) {
    return "no terminal";
  }
  const std::string name = ptsname(terminal);
  const int held = open(name.c_str(), O_RDWR | O_NOCTTY);  // what was written stays to be read
  const std::string line =
      environment + " '" + ZRBASE_COMMAND + "' colour '#0A141E' >" + name + " </dev/null";
  EXPECT_EQ(std::system(line.c_str()), 0);
  std::array<char, 4096> buffer{};
  const ssize_t count = read(terminal, buffer.data(), buffer.size());
  std::string text(buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
  for (ssize_t more = 0; text.find("#0A141E ") == std::string::npos;
       text.append(buffer.data(), static_cast<std::size_t>(more))) {
    more = read(terminal, buffer.data(), buffer.size());
    if (more <= 0) break;
  }
  close(held);
  close(terminal);
  return text;
}

TEST_F(ColourCommand, TerminalShowsSwatches) {
  EXPECT_THAT(onTerminal("NO_COLOR= TERM=xterm"),
              HasSubstr("\033[48;2;10;20;30m    \033[0m  #0A141E"));
}

TEST_F(ColourCommand, TerminalShowsNoSwatchesWhereColoursAreNotWanted) {
  for (const char* const environment : {"NO_COLOR=1 TERM=xterm", "NO_COLOR= TERM=dumb"}) {
    EXPECT_THAT(onTerminal(environment), AllOf(HasSubstr("#0A141E"), Not(HasSubstr("\033"))));
  }
}

// The names in the library's own tables; those with a blank among the Motif names are never found.
std::vector<std::string> wordsOfTheLibrary() {
  const std::string source =
      readFile(std::string(ZRBASE_SOURCE_DIR) + "/zrBase/utilities/colourWords.cpp");
  const std::size_t motif = source.find("motifWords[]");
  std::vector<std::string> words;
  for (std::size_t at = source.find("{\""); at != std::string::npos;
       at = source.find("{\"", at + 1)) {
    const std::string word = source.substr(at + 2, source.find('"', at + 2) - at - 2);
    if (at < motif || word.find(' ') == std::string::npos) {
      words.push_back((at < motif ? "suite " : "Motif ") + word);
    }
  }
  std::sort(words.begin(), words.end());
  return words;
}

TEST_F(ColourCommand, ListHoldsEveryWordOfTheLibrary) {
  std::vector<std::string> listed;
  for (const std::string& row : rowsOf({"--list"})) {
    const std::size_t first = row.find(',');
    const std::size_t second = row.find(',', first + 1);
    const std::string words = row.substr(second + 1, row.find(',', second + 1) - second - 1);
    listed.push_back(words + " " + row.substr(0, first));
  }
  std::sort(listed.begin(), listed.end());
  EXPECT_EQ(listed.size(), 158U);
  EXPECT_EQ(listed, wordsOfTheLibrary());
}

TEST_F(ColourCommand, SheetHasASwatchForEachColour) {
  const std::string path = folder.path("sheet.png");
  result = runZrbase({"colour", "#0A141E", "#C86432", "--picture", path});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(result.out, HasSubstr("picture   " + path));
  const QImage image(QString::fromStdString(path));
  ASSERT_FALSE(image.isNull());
  int first = 0;
  int second = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb pixel = image.pixel(x, y);
      first += pixel == qRgb(10, 20, 30) && x < image.width() / 2 ? 1 : 0;
      second += pixel == qRgb(200, 100, 50) && x > image.width() / 2 ? 1 : 0;
    }
  }
  EXPECT_GT(first, 20000);  // 268 by 112 pixels less the text
  EXPECT_GT(second, 20000);
}

TEST_F(ColourCommand, SheetTellsHexIndexAndName) {
  const std::string path = folder.path("sheet.svg");
  result = runZrbase({"colour", "blue", "6", "--picture", path});
  EXPECT_EQ(result.status, 0) << result.err;
  const std::string svg = readFile(path);
  for (const char* const text :
       {"#0000FF", "#0000CD", "suite", "Motif", "index 5", "6 = magenta"}) {
    EXPECT_THAT(svg, HasSubstr(text)) << text;
  }
  runZrbase({"colour", "blue", "6", "--picture", path});
  EXPECT_EQ(readFile(path), svg);
}

TEST_F(ColourCommand, HelpTellsThatAShellNeedsQuotes) {
  result = runZrbase({"colour", "--help"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.out,
              AllOf(HasSubstr("'#FF8000' and 'dark blue' in quotes"), HasSubstr("Examples:")));
}

class ColourBadInput : public ::testing::Test {
 protected:
  // Runs with outputs in an own folder, and holds every promise about a failure but the reason.
  std::string reasonOf(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"colour", "-o", outputs.path("out.csv"), "--picture",
                                         outputs.path("out.svg")});
    return refusalOf(arguments, outputs);
  }

  TestFolder outputs;
};

TEST_F(ColourBadInput, WordThatIsNoColourIsNamed) {
  EXPECT_THAT(reasonOf({"red", "octarine"}), HasSubstr("'octarine' is no colour: neither a word"));
  EXPECT_THAT(reasonOf({"deep pink"}), HasSubstr("'deep pink' is no colour"));
  EXPECT_THAT(reasonOf({""}), HasSubstr("'' is no colour"));
  EXPECT_THAT(reasonOf({"two\nlines"}), HasSubstr("'two lines' is no colour"));
}

TEST_F(ColourBadInput, IndexOutsideItsRangeIsNamed) {
  for (const char* const index : {"0", "256", "99999999999999999999"}) {
    EXPECT_THAT(reasonOf({index}),
                HasSubstr("'" + std::string(index) + "' is no colour: an index is from 1 to 255"));
  }
}

TEST_F(ColourBadInput, NumberThatIsNoIndexIsRefused) {
  EXPECT_THAT(reasonOf({"1.5"}), HasSubstr("'1.5' is no colour"));
  EXPECT_THAT(reasonOf({"-5"}), HasSubstr("-5"));
}

TEST_F(ColourBadInput, ComponentsThatAreNotSixDigitsAreRefused) {
  for (const char* const text : {"#", "#FF80", "#FF80000", "#GG8000", "#-12345", "#+F8000"}) {
    EXPECT_THAT(reasonOf({text}),
                HasSubstr("'" + std::string(text) + "' is no colour: behind # stand six digits"));
  }
}

TEST_F(ColourBadInput, NothingAskedForIsRefused) {
  EXPECT_THAT(reasonOf({}), HasSubstr("give a colour"));
}

TEST_F(ColourBadInput, ListWithColoursIsRefused) {
  EXPECT_THAT(reasonOf({"--list", "red"}), HasSubstr("--list"));
}

TEST_F(ColourBadInput, MoreColoursThanASheetHoldsAreRefused) {
  EXPECT_THAT(reasonOf(std::vector<std::string>(601, "7")),
              HasSubstr("a sheet holds at most 600 colours, not 601"));
}

TEST_F(ColourBadInput, UnknownEndingsAreRefused) {
  EXPECT_THAT(refusalOf({"colour", "red", "-o", outputs.path("out.gpkg")}, outputs),
              HasSubstr("out.gpkg: unknown ending for the output: .csv"));
  EXPECT_THAT(refusalOf({"colour", "red", "--picture", outputs.path("out.bmp")}, outputs),
              HasSubstr("out.bmp: unknown ending for the picture: .svg or .png"));
}

TEST_F(ColourBadInput, FolderThatDoesNotExistIsNamed) {
  EXPECT_THAT(refusalOf({"colour", "red", "-o", outputs.path("no/out.csv")}, outputs),
              HasSubstr("no/out.csv: cannot be written"));
}

}  // namespace
