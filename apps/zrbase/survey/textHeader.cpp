#include "survey/textHeader.h"

#include <zrBase/utilities/ebcdic.h>

#include <QString>

#include <array>
#include <cstddef>

#include "common/commandError.h"
#include "common/textFormat.h"

namespace {

constexpr std::size_t kHeaderBytes = 3200;
constexpr int kColumns = 80;
constexpr char kEbcdicBlank = '\x40';

unsigned char byteOf(char c) { return static_cast<unsigned char>(c); }

// Blanks, letters and digits of one code are other signs, or none, of the other.
bool looksLikeEbcdic(const std::string& header) {
  std::size_t ebcdic = 0;
  std::size_t ascii = 0;
  for (const char c : header) {
    const unsigned char byte = byteOf(c);
    const bool letter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    ebcdic += c == kEbcdicBlank || byte > 0x80 ? 1U : 0U;
    ascii += c == ' ' || letter || (byte >= '0' && byte <= '9') ? 1U : 0U;
  }
  return ebcdic > ascii;
}

QString converted(const std::string& header) {
  QString text;
  zrUtils::convertEbcdicToAscii(header.data(), text);
  return text;
}

// Whether the conversion gives one visible character for the byte. Others give none, or a break of
// the line.
bool hasCharacter(char byte) {
  std::string probe(kHeaderBytes, kEbcdicBlank);
  const qsizetype length = converted(probe).size();
  probe[0] = byte;
  const QString text = converted(probe);
  return text.size() == length && text.at(0).isPrint();
}

QString fromEbcdic(std::string header) {
  enum class Known : char { no, yes, notAsked };
  std::array<Known, 256> known{};
  known.fill(Known::notAsked);
  for (char& c : header) {
    Known& answer = known[byteOf(c)];
    if (answer == Known::notAsked) {
      answer = hasCharacter(c) ? Known::yes : Known::no;
    }
    c = answer == Known::yes ? c : kEbcdicBlank;
  }
  // The conversion puts its own line ends one byte early; the header's are set by the caller.
  return converted(header).remove(QStringLiteral("\r\n"));
}

QString fromAscii(const std::string& header) {
  QString text = QString::fromLatin1(header.data(), static_cast<int>(header.size()));
  for (QChar& c : text) {
    c = c.isPrint() ? c : QLatin1Char(' ');
  }
  return text;
}

}  // namespace

HeaderEncoding headerEncoding(const std::string& text) {
  const std::string word = textFormat::lowerCase(text);
  if (word == "ebcdic") {
    return HeaderEncoding::ebcdic;
  }
  if (word == "ascii") {
    return HeaderEncoding::ascii;
  }
  if (word == "guess") {
    return HeaderEncoding::guess;
  }
  throw CommandError("--encoding: '" + textFormat::oneLine(text) +
                     "' is neither ebcdic, ascii nor guess");
}

std::string textOfHeader(const std::string& header, HeaderEncoding encoding) {
  const bool ebcdic = encoding == HeaderEncoding::guess ? looksLikeEbcdic(header)
                                                        : encoding == HeaderEncoding::ebcdic;
  const QString text = ebcdic ? fromEbcdic(header) : fromAscii(header);
  std::string lines;
  for (int first = 0; first < text.size(); first += kColumns) {
    lines += text.mid(first, kColumns).toStdString() + '\n';
  }
  return lines;
}
