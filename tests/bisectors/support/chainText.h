#ifndef ZRBASE_TESTS_BISECTORS_SUPPORT_CHAINTEXT_H
#define ZRBASE_TESTS_BISECTORS_SUPPORT_CHAINTEXT_H

#include <zrBase/bisectors/zr2DBisector.h>

#include "support/geometryText.h"

#include <string>
#include <vector>

using Chain = std::vector<zr2DBisector>;

/// The links of a bisector as text: "type 0, domains 0 2, above -1, from 0 1".
inline std::string linksOf(const zr2DBisector& b) {
  std::string text = "type " + std::to_string(b.getType()) + ", domains " +
                     std::to_string(b.getLeftDomain()) + ' ' + std::to_string(b.getRightDomain()) +
                     ", above " + std::to_string(b.getTopConnect()) + ", from";
  for (int i = 0; i < b.getNoBaseConnections(); ++i) {
    text += ' ' + std::to_string(b.getBaseConnection(i));
  }
  return text;
}

/// A merged bisector from "base, top" with its normal along it.
inline zr2DBisector bisector(const std::string& baseAndTop, int leftDomain, int rightDomain) {
  const VertexLine ends = line(baseAndTop);
  zr2DBisector b;
  b.setBase(ends.at(0));
  b.setTop(ends.at(1));
  b.calculateNormal();
  b.setLeftDomain(leftDomain);
  b.setRightDomain(rightDomain);
  return b;
}

#endif  // ZRBASE_TESTS_BISECTORS_SUPPORT_CHAINTEXT_H
