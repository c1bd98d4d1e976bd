#include <zrBase/utilities/ebcdic.h>

#include <gtest/gtest.h>
#include <iconv.h>

#include <QString>

#include <cstddef>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

/// Exactly 3200 bytes on the heap, so that a sanitizer sees a read beyond them.
using Header = std::vector<char>;

Header headerOf(int byte) { return Header(3200, static_cast<char>(byte)); }

QString converted(const Header& header) {
  QString text;
  zrUtils::convertEbcdicToAscii(header.data(), text);
  return text;
}

/// Latin-1 codes by EBCDIC byte, typed by rows of sixteen. 0 for a byte that has none.
constexpr int table[256] = {
    // clang-format off
    0,    0,    0,    0,    0,    0x09, 0,    0,    0,    0,    0,    0,    0x0D, 0x0D, 0,    0,
    0,    0,    0,    0,    0,    0x0D, 0,    0,    0,    0,    0,    0,    0,    0,    0,    0,
    0,    0,    0,    0,    0,    0x0A, 0,    0,    0,    0,    0,    0,    0,    0,    0,    0,
    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,
    0x20, 0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0x2E, 0x3C, 0x28, 0x2B, 0x7C,
    0x26, 0,    0,    0,    0,    0,    0,    0,    0,    0,    0x21, 0x24, 0x2A, 0x29, 0x3B, 0xAC,
    0x2D, 0x2F, 0,    0,    0,    0,    0,    0,    0,    0,    0,    0x2C, 0x25, 0x5F, 0x3E, 0x3F,
    0,    0,    0,    0,    0,    0,    0,    0,    0,    0x60, 0x3A, 0x23, 0x40, 0x27, 0x3D, 0x22,
    0,    0x61, 0x62, 0x63, 0x64, 0x65, 0x66, 0x67, 0x68, 0x69, 0,    0,    0,    0,    0,    0,
    0,    0x6A, 0x6B, 0x6C, 0x6D, 0x6E, 0x6F, 0x70, 0x71, 0x72, 0,    0,    0,    0,    0,    0,
    0,    0x7E, 0x73, 0x74, 0x75, 0x76, 0x77, 0x78, 0x79, 0x7A, 0,    0,    0,    0,    0,    0,
    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,
    0x7B, 0x41, 0x42, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48, 0x49, 0,    0,    0,    0,    0,    0,
    0x7D, 0x4A, 0x4B, 0x4C, 0x4D, 0x4E, 0x4F, 0x50, 0x51, 0x52, 0,    0,    0,    0,    0,    0,
    0x5C, 0,    0x53, 0x54, 0x55, 0x56, 0x57, 0x58, 0x59, 0x5A, 0,    0,    0,    0,    0,    0,
    0x30, 0x31, 0x32, 0x33, 0x34, 0x35, 0x36, 0x37, 0x38, 0x39, 0,    0,    0,    0,    0,    0,
    // clang-format on
};

/// What one byte becomes: the code of its only character, 0 for none, -1 for more than one.
int codeOf(int byte) {
  Header header = headerOf(0);
  header[0] = static_cast<char>(byte);
  const QString text = converted(header);
  const QString lineEnds = QString("\r\n").repeated(40);
  if (text == lineEnds) return 0;
  return text.mid(1) == lineEnds ? text[0].unicode() : -1;
}

TEST(ConvertEbcdicToAscii, ConvertsEachByteByItsTable) {
  for (int byte = 0; byte < 256; ++byte) EXPECT_EQ(codeOf(byte), table[byte]) << "byte " << byte;
}

/// Latin-1 code of a byte in code page 37 of the C library; -1 for one that Latin-1 has not.
int codePageOf(int byte) {
  iconv_t codePage = iconv_open("ISO-8859-1", "IBM037");
  if (codePage == reinterpret_cast<iconv_t>(-1)) {
    ADD_FAILURE() << "the C library has no code page IBM037";
    return -1;
  }
  char in = static_cast<char>(byte);
  char out = 0;
  char* inPointer = &in;
  char* outPointer = &out;
  std::size_t inSize = 1;
  std::size_t outSize = 1;
  const std::size_t result = iconv(codePage, &inPointer, &inSize, &outPointer, &outSize);
  iconv_close(codePage);
  return result == 0 && outSize == 0 ? static_cast<unsigned char>(out) : -1;
}

TEST(ConvertEbcdicToAscii, AgreesWithCodePage37ButForTwoControls) {
  int compared = 0;
  for (int byte = 0; byte < 256; ++byte) {
    if (table[byte] == 0 || byte == 0x0C || byte == 0x15) continue;
    EXPECT_EQ(codeOf(byte), codePageOf(byte)) << "byte " << byte;
    ++compared;
  }
  EXPECT_EQ(compared, 96);
}

TEST(ConvertEbcdicToAscii, KeptBreaksBecomeCarriageReturns) {
  EXPECT_EQ(codeOf(0x0C), '\r');
  EXPECT_EQ(codeOf(0x15), '\r');
  EXPECT_EQ(codeOf(0x0D), '\r');
  EXPECT_EQ(codeOf(0x25), '\n');
  // A form feed and a next line in the code page.
  EXPECT_EQ(codePageOf(0x0C), 0x0C);
  EXPECT_EQ(codePageOf(0x15), 0x85);
}

TEST(ConvertEbcdicToAscii, HasNoBracketsAndNoCircumflex) {
  for (const int byte : {0xBA, 0xBB, 0xB0}) EXPECT_EQ(codeOf(byte), 0) << byte;
  EXPECT_EQ(codePageOf(0xBA), '[');
  EXPECT_EQ(codePageOf(0xBB), ']');
  EXPECT_EQ(codePageOf(0xB0), '^');
}

TEST(ConvertEbcdicToAscii, AppendsTheLogicalNotAsOneCharacter) { EXPECT_EQ(codeOf(0x5F), 0xAC); }

TEST(ConvertEbcdicToAscii, KeptFirstHeaderLineIsShort) {
  QString expected = QString(79, ' ');
  for (int i = 0; i < 39; ++i) expected += "\r\n" + QString(80, ' ');
  expected += "\r\n ";
  const QString text = converted(headerOf(0x40));
  EXPECT_EQ(text, expected);
  EXPECT_EQ(text.count("\r\n"), 40);
}

TEST(ConvertEbcdicToAscii, KeptUnlistedByteTakesItsColumn) {
  Header header = headerOf(0x40);
  for (int i = 0; i < 70; ++i) header[static_cast<std::size_t>(i)] = 0;
  const QString text = converted(header);
  EXPECT_EQ(text.indexOf("\r\n"), 9);
  EXPECT_EQ(text.indexOf("\r\n", 10), 9 + 2 + 80);
}

TEST(ConvertEbcdicToAscii, PutsTheLineEndBeforeTheByte) {
  Header header = headerOf(0x40);
  header[78] = static_cast<char>(0xC1);
  header[79] = static_cast<char>(0xC2);
  header[159] = static_cast<char>(0xC3);
  const QString text = converted(header);
  EXPECT_EQ(text.mid(76, 8), "  A\r\nB  ");
  EXPECT_EQ(text.mid(159, 5), "  \r\nC");
}

TEST(ConvertEbcdicToAscii, CountsALineFeedOfTheHeaderAsAColumn) {
  Header header = headerOf(0x40);
  header[10] = 0x25;
  const QString text = converted(header);
  EXPECT_EQ(text.left(13), "          \n  ");
  EXPECT_EQ(text.indexOf("\r\n"), 79);
}

TEST(ConvertEbcdicToAscii, AppendsToWhatIsThere) {
  QString text = "before: ";
  zrUtils::convertEbcdicToAscii(headerOf(0xF1).data(), text);
  EXPECT_EQ(text.left(10), "before: 11");
  EXPECT_EQ(text.size(), 8 + 3200 + 80);
}

TEST(ConvertEbcdicToAscii, ReadsExactly3200Bytes) {
  Header header(3300, static_cast<char>(0xC1));
  EXPECT_EQ(converted(header).count('A'), 3200);
}

TEST(ConvertEbcdicToAscii, ReadsACardImage) {
  // C 1 CLIENT: "ZR" 100%
  const Header card = {'\xC3', '\x40', '\xF1', '\x40', '\xC3', '\xD3', '\xC9',
                       '\xC5', '\xD5', '\xE3', '\x7A', '\x40', '\x7F', '\xE9',
                       '\xD9', '\x7F', '\x40', '\xF1', '\xF0', '\xF0', '\x6C'};
  Header header = headerOf(0x40);
  for (std::size_t i = 0; i < card.size(); ++i) header[i] = card[i];
  EXPECT_EQ(converted(header).left(23), "C 1 CLIENT: \"ZR\" 100%  ");
}

TEST(ConvertEbcdicToAscii, ConvertsRandomHeaders) {
  std::mt19937 random(20240229);
  std::uniform_int_distribution<int> anyByte(0, 255);
  for (int i = 0; i < 50; ++i) {
    Header header = headerOf(0);
    std::string expected;
    for (std::size_t k = 0; k < header.size(); ++k) {
      const int byte = anyByte(random);
      header[k] = static_cast<char>(byte);
      if (k % 80 == 79) expected += "\r\n";
      if (table[byte] != 0) expected += static_cast<char>(table[byte]);
    }
    ASSERT_EQ(converted(header),
              QString::fromLatin1(expected.data(), static_cast<int>(expected.size())));
  }
}

}  // namespace
