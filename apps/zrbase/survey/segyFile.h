#ifndef ZRBASE_APPS_SURVEY_SEGYFILE_H
#define ZRBASE_APPS_SURVEY_SEGYFILE_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

struct segy_file_handle;

/// Where a trace header holds the geometry: first bytes of its fields, counted from 1.
struct TraceBytes {
  int inlineNumber = 189;
  int crosslineNumber = 193;
  int x = 181;
  int y = 185;
};

/// @throws CommandError if no field of a trace header begins at a byte; names its option
void checkTraceBytes(const TraceBytes& bytes);

/// What the header of one trace tells about its place.
struct TraceHeader {
  long long number = 0;  ///< of the trace in the file, counted from 1
  std::int32_t inlineNumber = 0;
  std::int32_t crosslineNumber = 0;
  double x = 0.0;  ///< with the coordinate scalar applied
  double y = 0.0;
  int coordinateUnits = 0;  ///< 1 or 0 for lengths, 2 to 4 for angles
};

/// A seismic file in SEG-Y, opened for reading, of either byte order.
class SegyFile {
 public:
  /// @throws CommandError if the file cannot be read, or its headers are not those of a SEG-Y file
  explicit SegyFile(const std::string& file);

  /// Text header, as it stands in the file: 3200 bytes.
  std::string textHeader() const;
  /// Whether the binary header says that lengths are in feet.
  bool statesFeet() const { return feet_; }
  /// Whether the numbers are little endian.
  bool littleEndian() const { return littleEndian_; }

  /// Number of traces, by the size of the file. @throws CommandError if there is none, or the last
  /// one is not whole
  int traceCount() const;
  /// Calls `use` on the header of each trace in file order. A block of headers is held at a time,
  /// and the samples are passed over.
  /// @throws CommandError if reading breaks off, or if `use` does
  void forEachTrace(const TraceBytes& bytes, const std::function<void(const TraceHeader&)>& use);

 private:
  struct Close {
    void operator()(segy_file_handle* handle) const;
  };

  void readBinaryHeader();

  std::string file_;
  std::uintmax_t size_ = 0;
  std::unique_ptr<segy_file_handle, Close> handle_;
  bool littleEndian_ = false;
  bool feet_ = false;
  long firstTrace_ = 0;  // offset in the file
  int sampleBytes_ = 0;  // of all samples of a trace
};

#endif  // ZRBASE_APPS_SURVEY_SEGYFILE_H
