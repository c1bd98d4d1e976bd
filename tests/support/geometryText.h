#ifndef ZRBASE_TESTS_SUPPORT_GEOMETRYTEXT_H
#define ZRBASE_TESTS_SUPPORT_GEOMETRYTEXT_H

#include <gmock/gmock.h>

#include <zrBase/geometry/gdfVertex.h>

#include <string>

/// Test inputs as text: a vertex is "x y" or "x y z" (z is 0 when left out), a line is vertices
/// joined by commas. A text that does not parse throws std::invalid_argument, so that a slip of the
/// pen fails the test.
gdfVertex vertex(const std::string& text);
VertexLine line(const std::string& text);

/// How a failed expectation shows a line: every coordinate to the last bit.
std::string toText(const gdfVertex& v);
std::string toText(const VertexLine& l);

/// Largest difference of any coordinate; infinity when the sizes differ or a NaN occurs.
double largestDifference(const VertexLine& a, const VertexLine& b);

/// Exact: the same vertices in the same order, each coordinate equal by ==.
MATCHER_P(LineIs, text, "is exactly " + std::string(text)) {
  *result_listener << "which is " << toText(arg);
  return arg == line(text);
}

/// Approximate: the same number of vertices, each coordinate within the tolerance.
MATCHER_P2(LineNear, text, tolerance,
           "is " + std::string(text) + " within " + testing::PrintToString(tolerance)) {
  *result_listener << "which is " << toText(arg);
  return largestDifference(arg, line(text)) <= tolerance;
}

/// Exact: each coordinate equal by ==.
MATCHER_P(VertexIs, text, "is exactly " + std::string(text)) {
  *result_listener << "which is " << toText(arg);
  return arg == vertex(text);
}

/// Approximate: each coordinate within the tolerance.
MATCHER_P2(VertexNear, text, tolerance,
           "is " + std::string(text) + " within " + testing::PrintToString(tolerance)) {
  *result_listener << "which is " << toText(arg);
  return largestDifference({arg}, {vertex(text)}) <= tolerance;
}

#endif  // ZRBASE_TESTS_SUPPORT_GEOMETRYTEXT_H
