#ifndef ZRBASE_APPS_COMMON_SUMMARYTEXT_H
#define ZRBASE_APPS_COMMON_SUMMARYTEXT_H

#include <iosfwd>
#include <string>
#include <vector>

#include "common/modelSystem.h"

/// @file
/// Lines of the summaries that the jobs print, each under a heading of ten columns:
/// "crs       EPSG:32611 (WGS 84 / UTM zone 11N)".

namespace summaryText {

/// Heading and text.
void writeLine(std::ostream& out, const std::string& heading, const std::string& text);

/// The system of the work, and the one that the input was projected from.
void writeSystem(std::ostream& out, const SpatialReference& model, const SpatialReference& stated);

/// What bad features were left out of the file, one a line; nothing if none was.
void writeLeftOut(std::ostream& out, const std::string& file,
                  const std::vector<std::string>& leftOut);

/// A table with its first column aligned left, the others right; the first row is the heading.
void writeTable(std::ostream& out, const std::vector<std::vector<std::string>>& rows);

}  // namespace summaryText

#endif  // ZRBASE_APPS_COMMON_SUMMARYTEXT_H
