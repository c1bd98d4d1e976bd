#ifndef ZRBASE_APPS_COMMON_SAFEOUTPUT_H
#define ZRBASE_APPS_COMMON_SAFEOUTPUT_H

#include <string>

/// A file that appears whole or not at all.
///
/// The content is written to a partial file beside the final one
/// (".<name>.<process>.partial<ending>", so that a driver that goes by the ending accepts it), and
/// `commit` renames it. Without a commit the destructor removes the partial file, and so does an
/// interrupt of the program; what stood under the final name stays untouched.
class SafeOutput {
 public:
  /// Reserves the partial file. @throws CommandError if the folder cannot be written, or the name
  /// is a folder.
  explicit SafeOutput(const std::string& finalPath);
  ~SafeOutput();
  SafeOutput(const SafeOutput&) = delete;
  SafeOutput& operator=(const SafeOutput&) = delete;

  /// The name to write to until `commit`.
  const std::string& partialPath() const { return partialPath_; }
  /// The name that the file will have.
  const std::string& finalPath() const { return finalPath_; }

  /// Replaces the content of the partial file. @throws CommandError if not every byte arrives.
  void write(const char* bytes, std::size_t count) const;

  /// Gives the partial file its final name. @throws CommandError if the system refuses.
  void commit();

 private:
  std::string finalPath_;
  std::string partialPath_;
  bool committed_ = false;
};

#endif  // ZRBASE_APPS_COMMON_SAFEOUTPUT_H
