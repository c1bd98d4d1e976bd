#include "support/geometryText.h"

#include <cmath>
#include <iomanip>
#include <limits>
#include <sstream>
#include <stdexcept>

namespace {

double number(const std::string& word) {
  if (word == "nan") return std::numeric_limits<double>::quiet_NaN();
  if (word == "inf") return std::numeric_limits<double>::infinity();
  if (word == "-inf") return -std::numeric_limits<double>::infinity();
  std::istringstream stream(word);
  stream.imbue(std::locale::classic());
  double value = 0.0;
  if (!(stream >> value) || !stream.eof()) throw std::invalid_argument("not a number: " + word);
  return value;
}

}  // namespace

gdfVertex vertex(const std::string& text) {
  std::istringstream words(text);
  std::vector<double> numbers;
  for (std::string word; words >> word;) numbers.push_back(number(word));
  if (numbers.size() == 2) return {numbers[0], numbers[1]};
  if (numbers.size() == 3) return {numbers[0], numbers[1], numbers[2]};
  throw std::invalid_argument("not a vertex: \"" + text + "\"");
}

VertexLine line(const std::string& text) {
  VertexLine vertices;
  if (text.find_first_not_of(' ') == std::string::npos) return vertices;
  std::istringstream parts(text);
  for (std::string part; std::getline(parts, part, ',');) vertices.push_back(vertex(part));
  return vertices;
}

std::string toText(const gdfVertex& v) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out << std::setprecision(17) << v.x() << ' ' << v.y() << ' ' << v.z();
  return out.str();
}

std::string toText(const VertexLine& l) {
  std::string text;
  for (const gdfVertex& v : l) text += (text.empty() ? "" : ", ") + toText(v);
  return "\"" + text + "\"";
}

double largestDifference(const VertexLine& a, const VertexLine& b) {
  if (a.size() != b.size()) return std::numeric_limits<double>::infinity();
  double largest = 0.0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t c = 0; c < 3; ++c) {
      const double difference = std::fabs(a[i][c] - b[i][c]);
      if (std::isnan(difference)) return std::numeric_limits<double>::infinity();
      if (difference > largest) largest = difference;
    }
  }
  return largest;
}
