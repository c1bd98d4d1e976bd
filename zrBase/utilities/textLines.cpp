#include <zrBase/utilities/textLines.h>

#include <zrBase/utilities/internal/plainText.h>

#include <cstddef>
#include <cstring>
#include <fstream>

namespace zrStrUtils {

void getLine(std::ifstream& in, std::string& line) {
  line.clear();
  std::getline(in, line);
  // A carriage return is one of the blanks.
  trimRight(line);
}

void getLine(std::ifstream& in, char* line, int size) {
  if (line == nullptr || size < 1) return;
  line[0] = '\0';
  in.getline(line, size);
  std::size_t length = std::strlen(line);
  if (length > 0 && line[length - 1] == '\r') --length;
  // Kept on purpose (KeptBufferedLineLosesOnlySpaces): tabs and double quotes stay here, and so
  // does a space before one of them, while the form for strings takes all blanks away.
  while (length > 0 && line[length - 1] == ' ') --length;
  line[length] = '\0';
}

void trimLeft(std::string& s) { s.erase(0, s.size() - internal::trimmedLeft(s).size()); }

void trimRight(std::string& s) { s.resize(internal::trimmedRight(s).size()); }

void stripWhiteSpace(std::string& s) {
  trimLeft(s);
  trimRight(s);
}

}  // namespace zrStrUtils
