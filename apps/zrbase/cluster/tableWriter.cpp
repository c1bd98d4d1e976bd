#include "cluster/tableWriter.h"

#include <cerrno>
#include <cstring>

#include "common/commandError.h"
#include "common/textFormat.h"

namespace {

constexpr std::size_t kBufferSize = 1U << 20U;

CommandError cannotWrite(const SafeOutput& output, int errorNumber) {
  return CommandError(output.finalPath() + ": cannot be written: " + std::strerror(errorNumber));
}

}  // namespace

TableWriter::TableWriter(const SafeOutput& output)
    : output_(output), file_(std::fopen(output.partialPath().c_str(), "wb")) {
  if (!file_) {
    throw cannotWrite(output, errno);
  }
  buffer_.reserve(kBufferSize + 4096);
}

void TableWriter::separate() {
  if (rowBegun_) {
    buffer_ += ',';
  }
  rowBegun_ = true;
}

void TableWriter::cell(std::string_view text) {
  separate();
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
    buffer_ += text;
    return;
  }
  buffer_ += '"';
  for (const char c : text) {
    buffer_ += c;
    if (c == '"') {
      buffer_ += c;
    }
  }
  buffer_ += '"';
}

void TableWriter::cell(double value) {
  separate();
  buffer_ += textFormat::shortest(value);
}

void TableWriter::cell(long long value) {
  separate();
  buffer_ += std::to_string(value);
}

void TableWriter::emptyCell() { separate(); }

void TableWriter::endRow() {
  buffer_ += '\n';
  rowBegun_ = false;
  ++rows_;
  if (buffer_.size() >= kBufferSize) {
    flush();
  }
}

void TableWriter::flush() {
  if (std::fwrite(buffer_.data(), 1, buffer_.size(), file_.get()) != buffer_.size()) {
    throw cannotWrite(output_, errno);
  }
  buffer_.clear();
}

void TableWriter::finish() {
  flush();
  if (std::fclose(file_.release()) != 0) {
    throw cannotWrite(output_, errno);
  }
}
