#ifndef ZRBASE_APPS_COLUMN_COLUMNLINES_H
#define ZRBASE_APPS_COLUMN_COLUMNLINES_H

#include <string>
#include <vector>

/// What a look at the lines of a database file finds, before the library reads it: it tells nothing
/// about lines that it cannot use.
struct ColumnLines {
  bool marked = false;                ///< a line "2DLoom Database" was found
  std::vector<std::string> warnings;  ///< "line 7: ..."
};

/// Goes through the lines by the rules of zrBase/utilities/defaultDatabase.h.
/// @throws CommandError if the file cannot be read
ColumnLines checkColumnLines(const std::string& file);

#endif  // ZRBASE_APPS_COLUMN_COLUMNLINES_H
