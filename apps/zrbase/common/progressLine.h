#ifndef ZRBASE_APPS_COMMON_PROGRESSLINE_H
#define ZRBASE_APPS_COMMON_PROGRESSLINE_H

#include <chrono>
#include <cstddef>
#include <string>

/// A line on the standard error stream that counts up while many features are worked on.
///
/// It is only shown where that stream is a terminal, never in a log, and wiped when the work is
/// over.
class ProgressLine {
 public:
  /// @param total  features to come; fewer than a handful show nothing
  ProgressLine(const std::string& label, std::size_t total);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// Shows that `done` features are finished, at most ten times a second.
  void show(std::size_t done);

 private:
  std::string label_;
  std::size_t total_;
  bool enabled_;
  bool shown_ = false;
  std::chrono::steady_clock::time_point lastShown_{};
};

#endif  // ZRBASE_APPS_COMMON_PROGRESSLINE_H
