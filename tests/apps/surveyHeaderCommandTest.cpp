#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "apps/commandRunner.h"
#include "apps/segySurvey.h"

namespace {

using ::testing::Each;
using ::testing::SizeIs;
using ::testing::StartsWith;

class SurveyHeaderCommand : public ::testing::Test {
 protected:
  // The lines that the command prints.
  std::vector<std::string> lines(std::vector<std::string> options = {}) {
    options.insert(options.begin(), {"survey", "header", file});
    result = runZrbase(options);
    EXPECT_EQ(result.status, 0) << result.err;
    std::vector<std::string> all;
    std::istringstream stream(result.out);
    for (std::string line; std::getline(stream, line);) {
      all.push_back(line);
    }
    EXPECT_THAT(all, SizeIs(40));
    return all;
  }

  void SetUp() override { writeSegy(file, SegyGrid().traces()); }

  TestFolder folder;
  std::string file = folder.path("survey.sgy");
  CommandResult result;
};

// "C 1 CLIENT" in EBCDIC.
const std::string kEbcdicStart = "\xC3\x40\xF1\x40\xC3\xD3\xC9\xC5\xD5\xE3";

std::string ebcdicHeader() {
  std::string header(3200, '\x40');
  header.replace(0, kEbcdicStart.size(), kEbcdicStart);
  header.replace(80, 4, "\xC3\x40\xF2\x7A");    // "C 2:"
  header.replace(3120, 4, "\xC3\xF4\xF0\x4B");  // "C40."
  header[79] = '\xE7';                          // X
  header[3199] = '\xE9';                        // Z
  return header;
}

TEST_F(SurveyHeaderCommand, EbcdicIsFortyLinesOfEighty) {
  putTextHeader(file, ebcdicHeader());
  const std::vector<std::string> all = lines();
  EXPECT_THAT(all, Each(SizeIs(80)));
  EXPECT_EQ(all[0], "C 1 CLIENT" + std::string(69, ' ') + "X");
  EXPECT_THAT(all[1], StartsWith("C 2: "));
  EXPECT_EQ(all[2], std::string(80, ' '));
  EXPECT_EQ(all[39], "C40." + std::string(75, ' ') + "Z");
}

TEST_F(SurveyHeaderCommand, HeaderThatSegyioWroteIsRead) {
  EXPECT_THAT(lines()[0], StartsWith("C 1 TEST  "));
}

TEST_F(SurveyHeaderCommand, AsciiIsSeen) {
  std::string header(3200, ' ');
  header.replace(0, 18, "C 1 CLIENT @ {a|b}");
  header.replace(3120, 3, "C40");
  putTextHeader(file, header);
  const std::vector<std::string> all = lines();
  EXPECT_THAT(all, Each(SizeIs(80)));
  EXPECT_THAT(all[0], StartsWith("C 1 CLIENT @ {a|b}  "));
  EXPECT_THAT(all[39], StartsWith("C40  "));
}

TEST_F(SurveyHeaderCommand, BytesWithoutACharacterKeepTheirColumn) {
  std::string header = ebcdicHeader();
  header.replace(10, 6, std::string("\x25\x0D\x15\x05\x00\xFF", 6));
  header[16] = '\xC1';
  putTextHeader(file, header);
  EXPECT_THAT(lines(), Each(SizeIs(80)));
  EXPECT_EQ(lines()[0], "C 1 CLIENT      A" + std::string(62, ' ') + "X");
}

TEST_F(SurveyHeaderCommand, AsciiLineEndsKeepTheirColumn) {
  std::string header(3200, ' ');
  for (std::size_t i = 78; i < header.size(); i += 80) {
    header.replace(i, 2, "\r\n");
  }
  header.replace(0, 3, "C 1");
  putTextHeader(file, header);
  EXPECT_THAT(lines(), Each(SizeIs(80)));
}

TEST_F(SurveyHeaderCommand, EncodingCanBeTold) {
  std::string header(3200, '\x40');
  putTextHeader(file, header);
  EXPECT_EQ(lines({"--encoding", "ascii"})[0], std::string(80, '@'));
  EXPECT_EQ(lines({"--encoding", "ebcdic"})[0], std::string(80, ' '));
  EXPECT_EQ(lines()[0], std::string(80, ' '));
}

TEST_F(SurveyHeaderCommand, SignsBeyondAsciiAreUtf8) {
  std::string header = ebcdicHeader();
  header[10] = '\x5F';  // logical not
  putTextHeader(file, header);
  EXPECT_THAT(lines()[0], StartsWith("C 1 CLIENT\xC2\xAC "));
}

TEST_F(SurveyHeaderCommand, TruncatedTracesDoNotMatter) {
  const std::string bytes = readFile(file);
  file = folder.file("short.sgy", bytes.substr(0, bytes.size() - 5));
  EXPECT_THAT(lines()[0], StartsWith("C 1 TEST"));
}

TEST_F(SurveyHeaderCommand, LittleEndianFilesHaveOne) {
  SegyManner manner;
  manner.littleEndian = true;
  writeSegy(file, SegyGrid().traces(), manner);
  EXPECT_THAT(lines()[0], StartsWith("C 1 TEST"));
}

}  // namespace
