#include "common/progressLine.h"

#include <unistd.h>

#include <iostream>

namespace {

constexpr std::size_t kFewFeatures = 5;
constexpr std::chrono::milliseconds kShowInterval(100);

}  // namespace

ProgressLine::ProgressLine(const std::string& label, std::size_t total)
    : label_(label), total_(total), enabled_(total > kFewFeatures && isatty(STDERR_FILENO) == 1) {}

ProgressLine::~ProgressLine() {
  if (shown_) {
    std::cerr << "\r\033[K" << std::flush;
  }
}

void ProgressLine::show(std::size_t done) {
  const auto now = std::chrono::steady_clock::now();
  if (!enabled_ || (shown_ && now - lastShown_ < kShowInterval)) {
    return;
  }
  std::cerr << "\r\033[K" << label_ << " " << done << "/" << total_ << std::flush;
  shown_ = true;
  lastShown_ = now;
}
