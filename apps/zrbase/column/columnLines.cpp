#include "column/columnLines.h"

#include <zrBase/utilities/textLines.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <locale>
#include <optional>
#include <sstream>

#include "common/commandError.h"
#include "common/textFormat.h"

namespace {

constexpr int kEmptyLinesAtTheEnd = 10;
constexpr std::size_t kNumbers = 5;  // then the colour

bool isMark(const std::string& line) {
  return line == "2DLoom Database" || line == "2DLoom Database 4.2";
}

std::size_t endOfName(const std::string& line, std::size_t start) {
  return std::min(line.find('\t', start), line.find("  ", start));
}

std::vector<std::string> wordsOf(const std::string& text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  std::vector<std::string> words;
  for (std::string word; words.size() <= kNumbers && stream >> word;) {
    words.push_back(word);
  }
  return words;
}

bool isNumber(const std::string& word, std::size_t place) {
  const std::optional<double> number = textFormat::number(word);
  const bool single = place == 2;
  const double most =
      single ? std::numeric_limits<float>::max() : std::numeric_limits<double>::max();
  return number && std::abs(*number) <= most;
}

// A comment may follow without a blank.
bool isColour(const std::string& word) {
  unsigned int packed = 0;
  const auto result = std::from_chars(word.data(), word.data() + word.size(), packed);
  return result.ec == std::errc() && packed <= 0xFFFFFF;
}

/// What is wrong with a line that is neither empty nor a comment nor a mark; nothing if it is well.
std::string faultOf(const std::string& line) {
  const std::size_t start = line.find_first_not_of(" \t");
  const std::size_t end = endOfName(line, start);
  if (end == std::string::npos) {
    return "passed over: no tab or two blanks behind a name";
  }
  std::string name = line.substr(start, end - start);
  zrStrUtils::stripWhiteSpace(name);
  if (name.empty() || name == "Name" || name == "Name,") {
    return "";
  }
  const std::vector<std::string> words = wordsOf(line.substr(end));
  for (std::size_t i = 0; i < words.size() && i < kNumbers; ++i) {
    if (!isNumber(words[i], i)) {
      return "'" + words[i] + "' of '" + name +
             "' is not a number: neither it nor what follows is read";
    }
  }
  if (words.size() <= kNumbers) {
    return "'" + name +
           "' is passed over: " + textFormat::counted(words.size(), "number", "numbers") +
           " instead of five and a colour";
  }
  if (!isColour(words[kNumbers])) {
    return "'" + words[kNumbers] + "' of '" + name + "' is no colour from 0 to 16777215";
  }
  return "";
}

/// Lines with their numbers.
class NumberedLines {
 public:
  explicit NumberedLines(std::ifstream& in) : in_(in) {}

  bool next() {
    zrStrUtils::getLine(in_, line_);
    ++number_;
    return static_cast<bool>(in_) || !line_.empty();
  }
  const std::string& line() const { return line_; }
  std::string where() const { return "line " + std::to_string(number_) + ": "; }

 private:
  std::ifstream& in_;
  std::string line_;
  int number_ = 0;
};

bool anyText(NumberedLines& lines) {
  while (lines.next()) {
    if (!lines.line().empty()) {
      return true;
    }
  }
  return false;
}

std::ifstream opened(const std::string& file) {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  if (status.type() == fs::file_type::not_found) {
    throw CommandError(file + ": does not exist");
  }
  if (!error && status.type() != fs::file_type::regular) {
    throw CommandError(file + ": cannot be read: is not a regular file");
  }
  std::ifstream in(file);
  if (!in) {
    throw CommandError(file + ": cannot be read: " + std::strerror(errno));
  }
  return in;
}

}  // namespace

ColumnLines checkColumnLines(const std::string& file) {
  std::ifstream in = opened(file);
  NumberedLines lines(in);
  ColumnLines result;
  int emptyLines = 0;
  while (lines.next()) {
    if (lines.line().empty()) {
      if (++emptyLines == kEmptyLinesAtTheEnd && anyText(lines)) {
        result.warnings.push_back(lines.where() + "not read: ten empty lines end the column");
      }
      if (emptyLines >= kEmptyLinesAtTheEnd) {
        break;
      }
      continue;
    }
    emptyLines = 0;
    if (lines.line()[0] == '#') {
      continue;
    }
    if (isMark(lines.line())) {
      result.marked = true;
      lines.next();
      continue;
    }
    const std::string fault = faultOf(lines.line());
    if (!fault.empty()) {
      result.warnings.push_back(lines.where() + fault);
    }
  }
  return result;
}
