#include "survey/gridColumns.h"

#include <ogrsf_frmts.h>

#include <cmath>

#include "common/commandError.h"
#include "common/textFormat.h"

namespace {

std::string nameOf(OGRLayer& layer, int column) {
  return textFormat::oneLine(layer.GetLayerDefn()->GetFieldDefn(column)->GetNameRef());
}

// Letters and digits in lower case: "Inline No." is "inlineno".
std::string plainName(const std::string& name) {
  std::string plain;
  for (const char c : textFormat::lowerCase(name)) {
    if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
      plain += c;
    }
  }
  return plain;
}

// The first of the names that a column has.
int columnOf(OGRLayer& layer, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    for (int i = 0; i < layer.GetLayerDefn()->GetFieldCount(); ++i) {
      if (plainName(nameOf(layer, i)) == name) {
        return i;
      }
    }
  }
  return -1;
}

// As a text, a real number would lose digits.
std::string textOf(const OGRFeature& row, int column) {
  if (!row.IsFieldSetAndNotNull(column)) {
    return "";
  }
  return row.GetFieldDefnRef(column)->GetType() == OFTReal
             ? textFormat::shortest(row.GetFieldAsDouble(column))
             : textFormat::oneLine(row.GetFieldAsString(column));
}

}  // namespace

GridColumns findGridColumns(OGRLayer& layer) {
  GridColumns columns;
  columns.inlineNumber =
      columnOf(layer, {"inline", "iline", "il", "inlinenumber", "inlineno", "inlinenr"});
  columns.crosslineNumber =
      columnOf(layer, {"crossline", "xline", "xl", "crosslinenumber", "crosslineno", "crosslinenr",
                       "xlinenumber", "xlineno", "trace", "tracenumber"});
  columns.x = columnOf(layer, {"x", "easting", "cdpx", "xcoordinate", "xcoord", "utmx"});
  columns.y = columnOf(layer, {"y", "northing", "cdpy", "ycoordinate", "ycoord", "utmy"});
  return columns;
}

GridColumns namedGridColumns(OGRLayer& layer, const std::vector<std::string>& names,
                             const std::string& file) {
  GridColumns columns;
  int* const wanted[] = {&columns.inlineNumber, &columns.crosslineNumber, &columns.x, &columns.y};
  for (std::size_t k = 0; k < names.size(); ++k) {
    for (int i = 0; i < layer.GetLayerDefn()->GetFieldCount(); ++i) {
      if (nameOf(layer, i) == names[k]) {
        *wanted[k] = i;
      }
    }
    if (*wanted[k] < 0) {
      throw CommandError(file + ": no column '" + textFormat::oneLine(names[k]) + "'; it has " +
                         columnList(layer));
    }
  }
  return columns;
}

std::optional<std::string> readNumber(const OGRFeature& row, int column, double& value) {
  const std::string name = row.GetFieldDefnRef(column)->GetNameRef();
  const std::string text = textOf(row, column);
  if (text.empty()) {
    return name + " is empty";
  }
  const std::optional<double> number = textFormat::number(text);
  if (!number) {
    return name + " '" + text + "' is not a number";
  }
  if (!std::isfinite(*number)) {
    return name + " '" + text + "' is not finite";
  }
  value = *number;
  return std::nullopt;
}

std::string columnList(OGRLayer& layer) {
  std::string list;
  for (int i = 0; i < layer.GetLayerDefn()->GetFieldCount(); ++i) {
    list += (list.empty() ? "" : ", ") + nameOf(layer, i);
  }
  return list.empty() ? "none" : list;
}
