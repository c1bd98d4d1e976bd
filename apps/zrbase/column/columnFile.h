#ifndef ZRBASE_APPS_COLUMN_COLUMNFILE_H
#define ZRBASE_APPS_COLUMN_COLUMNFILE_H

#include <string>
#include <vector>

/// A unit of the stratigraphic column.
struct ColumnUnit {
  std::string name;  ///< bytes as they stand in the file
  double value = 0.0;
  int packed = 0;  ///< colour, 0x00BBGGRR
};

struct ColumnFile {
  std::vector<ColumnUnit> units;  ///< in file order
  /// Lines that are passed over, or not read to their end: "line 7: ...".
  std::vector<std::string> warnings;
};

/// The name of the default database: data/DefaultDatabase.txt beside the folder of the program.
std::string defaultColumnFile();

/// Reads the units of a file as zrUtils::loadDefaultStratColumn does.
/// @throws CommandError if it cannot be read, has no line that marks it as a database, or no units
ColumnFile readColumn(const std::string& file);

/// Whether each value is larger than the one before: then they stand at the boundaries. One alone
/// does not ascend.
bool valuesAscend(const std::vector<ColumnUnit>& units);

#endif  // ZRBASE_APPS_COLUMN_COLUMNFILE_H
