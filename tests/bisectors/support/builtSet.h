#ifndef ZRBASE_TESTS_BISECTORS_SUPPORT_BUILTSET_H
#define ZRBASE_TESTS_BISECTORS_SUPPORT_BUILTSET_H

#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <string>

#include "support/geometryText.h"

/// A set built on both sides of a template within (-100, -100) to (100, 100), its open bisectors
/// pushed out by 400.
inline zr2DBisectorSet builtSet(const std::string& templateLine) {
  zr2DBisectorSet set;
  set.generateBisectors(line(templateLine), vertex("-100 -100"), vertex("100 100"));
  set.expandBisectors();
  return set;
}

/// The mark of a height or a slip that is not set.
constexpr double unsetMark = 3.4028234663852886e+38;

#endif  // ZRBASE_TESTS_BISECTORS_SUPPORT_BUILTSET_H
