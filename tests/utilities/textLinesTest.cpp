#include <zrBase/utilities/textLines.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "utilities/support/temporaryFolder.h"

using namespace std::string_literals;

namespace {

/// The lines of a file with this content, "|" between them, until the stream fails.
std::string linesOf(const std::string& content) {
  const TemporaryFolder folder;
  std::ifstream in(folder.write("lines.txt", content));
  std::string lines;
  std::string line = "from before";
  while (true) {
    zrStrUtils::getLine(in, line);
    if (!in) break;
    lines += line + "|";
  }
  EXPECT_EQ(line, "");
  return lines;
}

/// The same by the form with a buffer of a size, which lies on the heap for the sanitizers.
std::string bufferedLinesOf(const std::string& content, int size) {
  const TemporaryFolder folder;
  std::ifstream in(folder.write("lines.txt", content));
  std::string lines;
  std::vector<char> buffer(static_cast<std::size_t>(size), 'z');
  while (true) {
    zrStrUtils::getLine(in, buffer.data(), size);
    lines += buffer.data();
    if (!in) break;
    lines += '|';
  }
  return lines;
}

std::string trimmedLeft(std::string text) {
  zrStrUtils::trimLeft(text);
  return text;
}

std::string trimmedRight(std::string text) {
  zrStrUtils::trimRight(text);
  return text;
}

std::string stripped(std::string text) {
  zrStrUtils::stripWhiteSpace(text);
  return text;
}

TEST(GetLine, ReadsUpToALineFeed) {
  EXPECT_EQ(linesOf("one\ntwo\n"), "one|two|");
  EXPECT_EQ(linesOf("one\n\ntwo\n"), "one||two|");
  EXPECT_EQ(linesOf(""), "");
  EXPECT_EQ(linesOf("\n"), "|");
}

TEST(GetLine, ReadsALastLineWithoutALineFeed) { EXPECT_EQ(linesOf("one\ntwo"), "one|two|"); }

TEST(GetLine, DropsCarriageReturnsAndBlanksAtTheEnd) {
  EXPECT_EQ(linesOf("one\r\n two \t\v\f \r\nthree\r\r\n\r\n"), "one| two|three||");
}

TEST(GetLine, DropsDoubleQuotesAtTheEnd) {
  EXPECT_EQ(linesOf("\"one\"\r\n \" \"\n\"\n'a'\n"), "\"one|||'a'|");
}

TEST(GetLine, KeepsACarriageReturnInside) { EXPECT_EQ(linesOf("a\rb\n"), "a\rb|"); }

TEST(GetLine, KeepsAnyOtherByte) {
  EXPECT_EQ(linesOf("a\0b\0\n"s), "a\0b\0|"s);
  EXPECT_EQ(linesOf("Schl\xFC\xA0\n"), "Schl\xFC\xA0|");
}

TEST(GetLine, EmptiesTheLineWhereNothingCanBeRead) {
  std::ifstream in;
  std::string line = "from before";
  zrStrUtils::getLine(in, line);
  EXPECT_EQ(line, "");
  EXPECT_FALSE(in);
}

TEST(GetLineIntoBuffer, ReadsLines) {
  EXPECT_EQ(bufferedLinesOf("one\ntwo\r\n\nlast", 20), "one|two||last|");
  EXPECT_EQ(bufferedLinesOf("", 20), "");
}

TEST(GetLineIntoBuffer, KeptBufferedLineLosesOnlySpaces) {
  EXPECT_EQ(bufferedLinesOf("one  \r\n", 20), "one|");
  EXPECT_EQ(bufferedLinesOf("two\t\n", 20), "two\t|");
  EXPECT_EQ(bufferedLinesOf("two \t \n", 20), "two \t|");
  EXPECT_EQ(bufferedLinesOf("\"three\"\n", 20), "\"three\"|");
  EXPECT_EQ(bufferedLinesOf("four\r  \n", 20), "four\r|");
  EXPECT_EQ(bufferedLinesOf("five\r\r\n", 20), "five\r|");
  EXPECT_EQ(bufferedLinesOf("   \r\n", 20), "|");
  EXPECT_EQ(linesOf("two \t \n\"three\"\n"), "two|\"three|");
}

TEST(GetLineIntoBuffer, TakesALineThatJustFits) {
  EXPECT_EQ(bufferedLinesOf("abc\nd\n", 4), "abc|d|");
}

TEST(GetLineIntoBuffer, CutsALineThatDoesNotFitAndFails) {
  EXPECT_EQ(bufferedLinesOf("abcd\ne\n", 4), "abc");
  EXPECT_EQ(bufferedLinesOf("ab d\ne\n", 4), "ab");
  const TemporaryFolder folder;
  std::ifstream in(folder.write("lines.txt", "abcd\ne\n"));
  char buffer[4] = "zzz";
  zrStrUtils::getLine(in, buffer, 4);
  EXPECT_FALSE(in);
  in.clear();
  zrStrUtils::getLine(in, buffer, 4);
  EXPECT_STREQ(buffer, "d");
  EXPECT_TRUE(in);
}

TEST(GetLineIntoBuffer, NeedsRoomForTheTerminator) {
  const TemporaryFolder folder;
  std::ifstream in(folder.write("lines.txt", "a\n"));
  char buffer[2] = {'y', 'z'};
  zrStrUtils::getLine(in, buffer, 0);
  zrStrUtils::getLine(in, buffer, -5);
  zrStrUtils::getLine(in, nullptr, 5);
  EXPECT_TRUE(in);
  EXPECT_EQ(buffer[0], 'y');
  zrStrUtils::getLine(in, buffer, 1);
  EXPECT_EQ(buffer[0], '\0');
  EXPECT_EQ(buffer[1], 'z');
}

TEST(GetLineIntoBuffer, EmptiesTheBufferWhereNothingCanBeRead) {
  std::ifstream in;
  char buffer[] = "from before";
  zrStrUtils::getLine(in, buffer, 5);
  EXPECT_STREQ(buffer, "");
}

TEST(GetLineIntoBuffer, TrimsWhatStandsBeforeANulByte) {
  EXPECT_EQ(bufferedLinesOf("ab \0cd\nef\n"s, 20), "ab|ef|");
  EXPECT_EQ(bufferedLinesOf("\0cd\nef\n"s, 20), "|ef|");
}

TEST(TrimLeft, RemovesBlanksAtTheStart) {
  EXPECT_EQ(trimmedLeft(" \t\n\v\f\ra b "), "a b ");
  EXPECT_EQ(trimmedLeft("a"), "a");
  EXPECT_EQ(trimmedLeft(" \t"), "");
  EXPECT_EQ(trimmedLeft(""), "");
}

TEST(TrimRight, RemovesBlanksAtTheEnd) {
  EXPECT_EQ(trimmedRight(" a b \t\n\v\f\r"), " a b");
  EXPECT_EQ(trimmedRight("a"), "a");
  EXPECT_EQ(trimmedRight(" \t"), "");
  EXPECT_EQ(trimmedRight(""), "");
}

TEST(TrimRight, StopsAtBytesAbove127) {
  EXPECT_EQ(trimmedRight("a \x80 "), "a \x80");
  EXPECT_EQ(trimmedRight("a\xA0 "), "a\xA0");
  EXPECT_EQ(trimmedRight("\xFF"), "\xFF");
}

TEST(TrimLeft, StopsAtBytesAbove127AndControls) {
  EXPECT_EQ(trimmedLeft(" \xA0 a"), "\xA0 a");
  EXPECT_EQ(trimmedLeft(" \0 a"s), "\0 a"s);
  EXPECT_EQ(trimmedLeft("\b a"), "\b a");
}

TEST(StripWhiteSpace, KeptDoubleQuoteCountsAsBlank) {
  EXPECT_EQ(stripped("\"Upper Jurassic\""), "Upper Jurassic");
  EXPECT_EQ(stripped(" \" \"a\"b\" \" "), "a\"b");
  EXPECT_EQ(stripped("\"\""), "");
  EXPECT_EQ(stripped("'a'"), "'a'");
  EXPECT_EQ(trimmedLeft("\"a\""), "a\"");
  EXPECT_EQ(trimmedRight("\"a\""), "\"a");
}

TEST(StripWhiteSpace, KnowsItsBlanksByTheirCodes) {
  for (int code = 0; code < 256; ++code) {
    const bool isBlank = (code >= 9 && code <= 13) || code == 32 || code == 34;
    EXPECT_EQ(stripped(std::string(3, static_cast<char>(code))).empty(), isBlank) << code;
  }
}

}  // namespace
