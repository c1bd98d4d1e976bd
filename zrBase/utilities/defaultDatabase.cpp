#include <zrBase/utilities/defaultDatabase.h>

#include <zrBase/utilities/textLines.h>

#include <QByteArray>
#include <QCoreApplication>

#include <cstddef>
#include <fstream>
#include <locale>
#include <sstream>

namespace zrUtils {

namespace {

/// A unit of the stratigraphic column.
struct Row {
  std::string name;
  double value = 0.0;
  unsigned int colour = 0;
};

bool isMark(const std::string& line) {
  return line == "2DLoom Database" || line == "2DLoom Database 4.2";
}

/// Where a name that begins at a position ends: at the first tab or the second of two spaces.
std::size_t endOfName(const std::string& line, std::size_t start) {
  for (std::size_t i = start; i < line.size(); ++i) {
    if (line[i] == '\t') return i;
    if (line[i] == ' ' && line[i - 1] == ' ') return i;
  }
  return std::string::npos;
}

/// Reads the numbers behind a name. What they begin with is what stays where one cannot be read.
/// @return false if the text ends before the colour
bool readNumbers(const std::string& text, Row& row) {
  std::istringstream numbers(text);
  numbers.imbue(std::locale::classic());
  double first = 0.39;
  double second = 0.56;
  float third = 1500.0F;
  double fourth = 0.5;
  numbers >> first >> second >> third >> fourth >> row.value;
  // Kept on purpose (KeptRowWithBadNumberIsStored): looked for is the end of the text, not whether
  // the numbers could be read. A bad one stops the reading before the end, and the row stays, with
  // what the value and the colour hold.
  if (numbers.eof()) return false;
  numbers >> row.colour;
  return true;
}

/// Reads a line that is neither empty nor a comment nor a mark.
bool readRow(const std::string& line, Row& row) {
  const std::size_t start = line.find_first_not_of(" \t");
  if (start == std::string::npos) return false;
  const std::size_t end = endOfName(line, start);
  if (end == std::string::npos) return false;
  row.name.assign(line, start, end - start);
  zrStrUtils::stripWhiteSpace(row.name);
  if (row.name.empty() || row.name == "Name," || row.name == "Name") return false;
  return readNumbers(line.substr(end), row);
}

QColor unpacked(unsigned int colour) {
  return QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                static_cast<int>(colour >> 16 & 0xFF), 255);
}

/// Calls a function with each line that is to be read as a row.
template <class Function>
void forEachDataLine(std::ifstream& in, Function function) {
  std::string line;
  int emptyLines = 0;
  while (in) {
    zrStrUtils::getLine(in, line);
    if (line.empty()) {
      // Kept on purpose (KeptTenEmptyLinesEndTheReading): notes may follow behind a wide gap. A
      // line of blanks or double quotes is an empty one, getLine leaves nothing of it.
      if (++emptyLines == 10) return;
      continue;
    }
    emptyLines = 0;
    // Kept on purpose (KeptCommentBeginsInTheFirstColumn): an indented # begins a name.
    if (line[0] == '#') continue;
    if (isMark(line)) {
      // Kept on purpose (KeptMarkHidesTheNextLine): whatever it holds, a row too; and marks are
      // found in the middle of a file.
      zrStrUtils::getLine(in, line);
      continue;
    }
    function(line);
  }
}

}  // namespace

bool loadDefaultStratColumn(const QString& file, std::vector<std::string>& names,
                            std::vector<QColor>& colours, std::vector<double>& values) {
  std::ifstream in(file.toLocal8Bit().constData());
  if (!in) return false;
  forEachDataLine(in, [&](const std::string& line) {
    Row row;
    if (!readRow(line, row)) return;
    names.push_back(row.name);
    values.push_back(row.value);
    colours.push_back(unpacked(row.colour));
  });
  // Kept on purpose (KeptEarlierColoursCountAsLoaded): the lists are appended to, and what they
  // held before the call makes the result true as well.
  return !colours.empty();
}

bool loadDefaultStratColumn(std::vector<std::string>& names, std::vector<QColor>& colours,
                            std::vector<double>& values) {
  const QString folder = QCoreApplication::applicationDirPath() + "/../data/";
  return loadDefaultStratColumn(folder + "DefaultDatabase.txt", names, colours, values);
}

}  // namespace zrUtils
