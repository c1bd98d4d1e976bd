#ifndef ZRBASE_APPS_SURVEY_GRIDCOLUMNS_H
#define ZRBASE_APPS_SURVEY_GRIDCOLUMNS_H

#include <optional>
#include <string>
#include <vector>

class OGRFeature;
class OGRLayer;

/// Where a layer holds survey numbers and places; -1 for a column that is not there.
struct GridColumns {
  int inlineNumber = -1;
  int crosslineNumber = -1;
  int x = -1;
  int y = -1;

  bool hasNumbers() const { return inlineNumber >= 0 && crosslineNumber >= 0; }
  bool hasPlace() const { return x >= 0 && y >= 0; }
};

/// Finds the columns by the names in use (inline, il, iline; crossline, xl, xline, trace; x,
/// easting, cdp_x ...), whatever their case and the signs between words.
GridColumns findGridColumns(OGRLayer& layer);

/// Finds the columns by four names, of inline, crossline, x and y, in this order.
/// @throws CommandError if one of them is not there; the text begins with `file`
GridColumns namedGridColumns(OGRLayer& layer, const std::vector<std::string>& names,
                             const std::string& file);

/// Reads the finite number in a column of a row into `value`. @return why it holds none, or nothing
std::optional<std::string> readNumber(const OGRFeature& row, int column, double& value);

/// "id, inline, x": the names of a layer's columns; "none".
std::string columnList(OGRLayer& layer);

#endif  // ZRBASE_APPS_SURVEY_GRIDCOLUMNS_H
