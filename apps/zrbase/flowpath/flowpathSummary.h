#ifndef ZRBASE_APPS_FLOWPATH_FLOWPATHSUMMARY_H
#define ZRBASE_APPS_FLOWPATH_FLOWPATHSUMMARY_H

#include <iosfwd>
#include <vector>

#include "flowpath/flowpathModel.h"

/// Writes the table of templates: label and name, vertices, roots, merged bisectors, paths,
/// milliseconds, and a line of totals where there are several. Below it stands what could not be
/// made.
void writeSummaryTable(std::ostream& out, const std::vector<TemplateModel>& models);

#endif  // ZRBASE_APPS_FLOWPATH_FLOWPATHSUMMARY_H
