#ifndef ZRBASE_APPS_COMMON_TABLEOUTPUTS_H
#define ZRBASE_APPS_COMMON_TABLEOUTPUTS_H

#include <functional>
#include <string>
#include <vector>

#include "common/safeOutput.h"

namespace CLI {
class App;
}

/// @file
/// Outputs of a job that makes a table without places: a CSV file and a picture, each if named.

/// The names of the files as typed, empty for none.
struct TableOutputs {
  std::string table;
  std::string picture;
};

/// Adds -o and --picture. @param shows  what the picture is, for the help
void addTableOutputOptions(CLI::App& command, const std::string& shows, TableOutputs& outputs);

/// @throws CommandError for an ending that is none of theirs
void checkTableOutputs(const TableOutputs& outputs);

/// Makes both and then gives both their names. @throws CommandError if one cannot be written
void writeTableOutputs(const TableOutputs& outputs, const std::string& table,
                       const std::function<void(const SafeOutput&)>& drawPicture);

/// Tells them on the standard output. @param counted  what the table holds, "3 colours"
void printTableOutputs(const TableOutputs& outputs, const std::string& counted);

/// Rows with commas between cells, which are in double quotes where they need them.
std::string csvText(const std::vector<std::vector<std::string>>& rows);

#endif  // ZRBASE_APPS_COMMON_TABLEOUTPUTS_H
