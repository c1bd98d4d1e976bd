#include <zrBase/utilities/ebcdic.h>

#include <QLatin1Char>

#include <array>
#include <cstddef>
#include <string_view>

namespace zrUtils {

namespace {

constexpr int headerBytes = 3200;
constexpr int lineColumns = 80;

/// Latin-1 character of each EBCDIC byte; 0 for a byte that has none.
using CharacterTable = std::array<char, 256>;

/// Characters of bytes that follow one another.
struct Run {
  unsigned char first;
  std::string_view characters;
};

// Kept on purpose (KeptBreaksBecomeCarriageReturns): form feed (0x0C) and new line (0x15) become
// carriage returns like 0x0D, while 0x25 alone is a line feed.
constexpr Run runs[] = {
    {0x05, "\t"},        {0x0C, "\r\r"},      {0x15, "\r"},         {0x25, "\n"},
    {0x40, " "},         {0x4B, ".<(+|"},     {0x50, "&"},          {0x5A, "!$*);\xAC"},
    {0x60, "-/"},        {0x6B, ",%_>?"},     {0x79, "`:#@'=\""},   {0x81, "abcdefghi"},
    {0x91, "jklmnopqr"}, {0xA1, "~stuvwxyz"}, {0xC0, "{ABCDEFGHI"}, {0xD0, "}JKLMNOPQR"},
    {0xE0, "\\"},        {0xE2, "STUVWXYZ"},  {0xF0, "0123456789"},
};

constexpr CharacterTable characterTable() {
  CharacterTable table{};
  for (const Run& run : runs) {
    for (std::size_t i = 0; i < run.characters.size(); ++i) {
      table[run.first + i] = run.characters[i];
    }
  }
  return table;
}

constexpr CharacterTable characters = characterTable();

}  // namespace

void convertEbcdicToAscii(const char* text, QString& out) {
  out.reserve(out.size() + headerBytes + 2 * (headerBytes / lineColumns));
  int column = 0;
  for (int i = 0; i < headerBytes; ++i) {
    // Kept on purpose (KeptFirstHeaderLineIsShort): the count goes up before the byte is handled,
    // so the line ends come one byte early. Readers of these texts count on 79 in the first line.
    if (++column == lineColumns) {
      out.append(QLatin1String("\r\n"));
      column = 0;
    }
    // Kept on purpose (KeptUnlistedByteTakesItsColumn): what has no character is left out and
    // still counted, so that its line comes out shorter.
    const char character = characters[static_cast<unsigned char>(text[i])];
    if (character != '\0') out.append(QLatin1Char(character));
  }
}

}  // namespace zrUtils
