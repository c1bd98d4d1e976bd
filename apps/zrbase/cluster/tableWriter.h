#ifndef ZRBASE_APPS_CLUSTER_TABLEWRITER_H
#define ZRBASE_APPS_CLUSTER_TABLEWRITER_H

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "common/safeOutput.h"

/// Writes a table of comma-separated values row by row, however long it gets.
class TableWriter {
 public:
  /// @throws CommandError if the file cannot be written; so do the others
  explicit TableWriter(const SafeOutput& output);

  /// A text, in quotes where it needs them.
  void cell(std::string_view text);
  /// The shortest text that reads back as the same number.
  void cell(double value);
  void cell(long long value);
  void emptyCell();
  void endRow();
  /// Ends the file.
  void finish();

  /// Rows so far, the heading among them.
  std::size_t rows() const { return rows_; }

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  void separate();
  void flush();

  const SafeOutput& output_;
  std::unique_ptr<std::FILE, Close> file_;
  std::string buffer_;
  bool rowBegun_ = false;
  std::size_t rows_ = 0;
};

#endif  // ZRBASE_APPS_CLUSTER_TABLEWRITER_H
