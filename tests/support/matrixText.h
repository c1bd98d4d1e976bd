#ifndef ZRBASE_TESTS_SUPPORT_MATRIXTEXT_H
#define ZRBASE_TESTS_SUPPORT_MATRIXTEXT_H

#include <gmock/gmock.h>
#include <zrBase/geometry/gdfTransMatrix.h>
#include <zrBase/geometry/gdfTriMatrix.h>
#include <zrBase/geometry/gdfTuple_4.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

/// Matrices and tuples as text: numbers row by row, commas for the reader's eye only. A text with
/// the wrong count of numbers throws std::invalid_argument.
inline std::vector<double> numbers(std::string text, std::size_t count) {
  std::replace(text.begin(), text.end(), ',', ' ');
  std::istringstream stream(text);
  std::vector<double> values;
  for (double value = 0.0; stream >> value;) values.push_back(value);
  if (values.size() != count || !stream.eof()) throw std::invalid_argument(text);
  return values;
}

inline gdfTransMatrix transMatrix(const std::string& text) {
  const std::vector<double> values = numbers(text, 16);
  gdfTransMatrix matrix;
  for (int k = 0; k < 16; ++k) matrix(k / 4, k % 4) = values[static_cast<std::size_t>(k)];
  return matrix;
}

inline gdfTriMatrix triMatrix(const std::string& text) {
  const std::vector<double> values = numbers(text, 9);
  gdfTriMatrix matrix;
  for (int k = 0; k < 9; ++k) matrix(k / 3, k % 3) = values[static_cast<std::size_t>(k)];
  return matrix;
}

inline gdfTuple_4 tuple(const std::string& text) {
  const std::vector<double> values = numbers(text, 4);
  return gdfTuple_4(values[0], values[1], values[2], values[3]);
}

/// Elements in storage order.
inline std::vector<double> elements(const gdfTransMatrix& m) {
  const double* first = &m.getMatrix()[0][0];
  return std::vector<double>(first, first + 16);
}
inline std::vector<double> elements(const gdfTriMatrix& m) {
  std::vector<double> values;
  for (int k = 0; k < 9; ++k) values.push_back(m(k / 3, k % 3));
  return values;
}
inline std::vector<double> elements(const gdfTuple_4& t) { return {t.a(), t.b(), t.c(), t.d()}; }

/// Exact: each element equal by ==. For a matrix of either size and for a tuple.
MATCHER_P(ElementsAreExactly, text, "is exactly " + std::string(text)) {
  const std::vector<double> actual = elements(arg);
  *result_listener << "which is " << testing::PrintToString(actual);
  return actual == numbers(text, actual.size());
}

/// Approximate: each element within the tolerance.
MATCHER_P2(ElementsAreNear, text, tolerance,
           "is " + std::string(text) + " within " + testing::PrintToString(tolerance)) {
  const std::vector<double> actual = elements(arg);
  *result_listener << "which is " << testing::PrintToString(actual);
  const std::vector<double> expected = numbers(text, actual.size());
  return std::equal(actual.begin(), actual.end(), expected.begin(),
                    [this](double a, double b) { return std::fabs(a - b) <= tolerance; });
}

#endif  // ZRBASE_TESTS_SUPPORT_MATRIXTEXT_H
