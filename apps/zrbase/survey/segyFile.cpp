#include "survey/segyFile.h"

#include <segyio/segy.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <utility>
#include <vector>

#include "common/commandError.h"
#include "common/progressLine.h"
#include "common/textFormat.h"

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kHeaderBytes = SEGY_TEXT_HEADER_SIZE + SEGY_BINARY_HEADER_SIZE;
constexpr int kTracesInBlock = 1024;

using BinaryHeader = std::array<char, SEGY_BINARY_HEADER_SIZE>;
using RawTraceHeader = std::array<char, SEGY_TRACE_HEADER_SIZE>;

// Bytes of a sample by the format code; 0 for a code that there is not.
int bytesOfSample(int format) {
  constexpr std::array<int, 17> kBytes = {0, 4, 4, 2, 4, 4, 8, 3, 1, 8, 4, 2, 8, 0, 0, 3, 1};
  return format > 0 && static_cast<std::size_t>(format) < kBytes.size()
             ? kBytes[static_cast<std::size_t>(format)]
             : 0;
}

int binaryField(const BinaryHeader& header, int field) {
  std::int32_t value = 0;
  segy_get_bfield(header.data(), field, &value);
  return value;
}

std::int32_t traceField(const char* header, int field) {
  std::int32_t value = 0;
  segy_get_field(header, field, &value);
  return value;
}

// The scalar divides if it is negative; 0 stands for none.
double scaled(std::int32_t value, std::int32_t scalar) {
  if (scalar == 0) {
    return value;
  }
  return scalar < 0 ? value / -static_cast<double>(scalar) : value * static_cast<double>(scalar);
}

TraceHeader traceHeader(const char* raw, const TraceBytes& bytes, long long number) {
  TraceHeader trace;
  trace.number = number;
  trace.inlineNumber = traceField(raw, bytes.inlineNumber);
  trace.crosslineNumber = traceField(raw, bytes.crosslineNumber);
  const std::int32_t scalar = traceField(raw, SEGY_TR_SOURCE_GROUP_SCALAR);
  trace.x = scaled(traceField(raw, bytes.x), scalar);
  trace.y = scaled(traceField(raw, bytes.y), scalar);
  trace.coordinateUnits = traceField(raw, SEGY_TR_COORD_UNITS);
  return trace;
}

std::uintmax_t sizeOf(const std::string& file) {
  std::error_code error;
  if (fs::is_directory(file, error)) {
    throw CommandError(file + ": cannot be read: " + std::strerror(EISDIR));
  }
  const std::uintmax_t size = fs::file_size(file, error);
  if (error) {
    throw CommandError(file + ": cannot be read: " + error.message());
  }
  if (size < kHeaderBytes) {
    throw CommandError(file + ": not a SEG-Y file: its " + std::to_string(size) +
                       " bytes do not hold the headers of " + std::to_string(kHeaderBytes));
  }
  return size;
}

}  // namespace

void checkTraceBytes(const TraceBytes& bytes) {
  const RawTraceHeader header{};
  for (const auto& [option, byte] :
       {std::pair<const char*, int>("--inline-byte", bytes.inlineNumber),
        {"--crossline-byte", bytes.crosslineNumber},
        {"--x-byte", bytes.x},
        {"--y-byte", bytes.y}}) {
    std::int32_t value = 0;
    if (segy_get_field(header.data(), byte, &value) != SEGY_OK) {
      throw CommandError(std::string(option) + ": no field of a trace header begins at byte " +
                         std::to_string(byte));
    }
  }
}

void SegyFile::Close::operator()(segy_file_handle* handle) const { segy_close(handle); }

SegyFile::SegyFile(const std::string& file) : file_(file), size_(sizeOf(file)) {
  handle_.reset(segy_open(file.c_str(), "rb"));
  if (!handle_) {
    throw CommandError(file + ": cannot be read: " + std::strerror(errno));
  }
  readBinaryHeader();
}

void SegyFile::readBinaryHeader() {
  BinaryHeader header{};
  int format = 0;
  for (const bool little : {false, true}) {
    // The format of the samples, which are never read, does not matter here.
    segy_set_format(handle_.get(), SEGY_IBM_FLOAT_4_BYTE | (little ? SEGY_LSB : SEGY_MSB));
    if (segy_binheader(handle_.get(), header.data()) != SEGY_OK) {
      throw CommandError(file_ + ": cannot be read: its binary header breaks off");
    }
    const int code = binaryField(header, SEGY_BIN_FORMAT);
    format = little && bytesOfSample(code) == 0 ? format : code;
    littleEndian_ = little;
    if (bytesOfSample(code) > 0) {
      break;
    }
  }
  if (bytesOfSample(format) == 0) {
    throw CommandError(file_ + ": not a SEG-Y file: " + std::to_string(format) +
                       " is no format of samples");
  }
  const int extended = binaryField(header, SEGY_BIN_EXT_HEADERS);
  if (extended < 0) {
    throw CommandError(file_ + ": its number of extended text headers is not stated");
  }
  const int samples = binaryField(header, SEGY_BIN_SAMPLES) & 0xFFFF;
  firstTrace_ =
      static_cast<long>(kHeaderBytes) + SEGY_TEXT_HEADER_SIZE * static_cast<long>(extended);
  sampleBytes_ = samples * bytesOfSample(format);
  feet_ = binaryField(header, SEGY_BIN_MEASUREMENT_SYSTEM) == 2;
}

std::string SegyFile::textHeader() const {
  std::string text(SEGY_TEXT_HEADER_SIZE, '\0');
  std::ifstream stream(file_, std::ios::binary);
  if (!stream.read(text.data(), static_cast<std::streamsize>(text.size()))) {
    throw CommandError(file_ + ": cannot be read: its text header breaks off");
  }
  return text;
}

int SegyFile::traceCount() const {
  const std::uintmax_t first = static_cast<std::uintmax_t>(firstTrace_);
  const std::uintmax_t traceBytes =
      SEGY_TRACE_HEADER_SIZE + static_cast<std::uintmax_t>(sampleBytes_);
  if (sampleBytes_ == 0) {
    throw CommandError(file_ + ": its binary header states no samples in a trace");
  }
  if (size_ <= first) {
    throw CommandError(file_ +
                       (size_ == first ? ": no traces" : ": truncated in its text headers"));
  }
  const std::uintmax_t count = (size_ - first) / traceBytes;
  const std::uintmax_t rest = (size_ - first) % traceBytes;
  if (rest > 0) {
    throw CommandError(file_ + ": trace " + std::to_string(count + 1) + ": truncated, " +
                       std::to_string(rest) + " of its " + std::to_string(traceBytes) +
                       " bytes are there, or traces of different lengths");
  }
  if (count > static_cast<std::uintmax_t>(std::numeric_limits<int>::max())) {
    throw CommandError(file_ + ": " + std::to_string(count) + " traces are too many");
  }
  return static_cast<int>(count);
}

void SegyFile::forEachTrace(const TraceBytes& bytes,
                            const std::function<void(const TraceHeader&)>& use) {
  const int count = traceCount();
  ProgressLine progress("zrbase survey: trace", static_cast<std::size_t>(count));
  std::vector<RawTraceHeader> block(static_cast<std::size_t>(std::min(count, kTracesInBlock)));
  for (int first = 0; first < count;) {
    const int inBlock = std::min(count - first, kTracesInBlock);
    for (int i = 0; i < inBlock; ++i) {
      if (segy_traceheader(handle_.get(), first + i, block[static_cast<std::size_t>(i)].data(),
                           firstTrace_, sampleBytes_) != SEGY_OK) {
        throw CommandError(file_ + ": trace " + std::to_string(first + i + 1LL) +
                           ": its header cannot be read");
      }
    }
    for (int i = 0; i < inBlock; ++i) {
      use(traceHeader(block[static_cast<std::size_t>(i)].data(), bytes, first + i + 1LL));
    }
    first += inBlock;
    progress.show(static_cast<std::size_t>(first));
  }
}
