#ifndef ZRBASE_APPS_COMMON_COMMANDERROR_H
#define ZRBASE_APPS_COMMON_COMMANDERROR_H

#include <stdexcept>
#include <string>

/// What stops a command because of its input: a missing file, a bad feature, a folder that cannot
/// be written.
///
/// `main` prints the text as one line on the standard error stream, after the name of the command,
/// and ends with status 2. The text therefore names the file, the feature if there is one, and the
/// reason: "faults.csv: row 3: ...".
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

#endif  // ZRBASE_APPS_COMMON_COMMANDERROR_H
