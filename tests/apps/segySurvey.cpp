#include "apps/segySurvey.h"

#include <gtest/gtest.h>
#include <segyio/segy.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <random>

namespace {

constexpr double kDegree = 0.017453292519943295;
constexpr long kFirstTrace = SEGY_TEXT_HEADER_SIZE + SEGY_BINARY_HEADER_SIZE;

std::int32_t stored(double coordinate, int scalar) {
  const double factor = scalar == 0 ? 1.0 : scalar < 0 ? -scalar : 1.0 / scalar;
  return static_cast<std::int32_t>(std::lround(coordinate * factor));
}

// Turns every other run of one line round.
void turnRuns(std::vector<SegyTrace>& traces, int SegyTrace::*line) {
  bool turn = false;
  for (auto first = traces.begin(); first != traces.end(); turn = !turn) {
    const auto last = std::find_if(
        first, traces.end(), [&](const SegyTrace& trace) { return trace.*line != (*first).*line; });
    if (turn) {
      std::reverse(first, last);
    }
    first = last;
  }
}

void writeTraces(segy_file* file, const std::vector<SegyTrace>& traces, const SegyManner& manner) {
  const int bytes = segy_trsize(manner.format, manner.samples);
  const std::vector<char> samples(static_cast<std::size_t>(bytes));
  for (std::size_t i = 0; i < traces.size(); ++i) {
    std::array<char, SEGY_TRACE_HEADER_SIZE> header{};
    const SegyTrace& trace = traces[i];
    segy_set_field(header.data(), SEGY_TR_SEQ_FILE, static_cast<std::int32_t>(i + 1));
    segy_set_field(header.data(), SEGY_TR_SOURCE_GROUP_SCALAR, manner.scalar);
    segy_set_field(header.data(), SEGY_TR_COORD_UNITS, manner.coordinateUnits);
    segy_set_field(header.data(), manner.inlineByte, trace.inlineNumber);
    segy_set_field(header.data(), manner.crosslineByte, trace.crosslineNumber);
    segy_set_field(header.data(), manner.xByte, stored(trace.x, manner.scalar));
    segy_set_field(header.data(), manner.yByte, stored(trace.y, manner.scalar));
    const int number = static_cast<int>(i);
    ASSERT_EQ(segy_write_traceheader(file, number, header.data(), kFirstTrace, bytes), SEGY_OK);
    ASSERT_EQ(segy_writetrace(file, number, samples.data(), kFirstTrace, bytes), SEGY_OK);
  }
}

}  // namespace

double SegyGrid::x(int inlineNumber, int crosslineNumber) const {
  const double along = crosslineSpacing * (crosslineNumber - firstCrossline) / crosslineStep;
  const double across = inlineSpacing * (inlineNumber - firstInline) / inlineStep;
  return x0 + along * std::sin(azimuth * kDegree) - across * std::cos(azimuth * kDegree);
}

double SegyGrid::y(int inlineNumber, int crosslineNumber) const {
  const double along = crosslineSpacing * (crosslineNumber - firstCrossline) / crosslineStep;
  const double across = inlineSpacing * (inlineNumber - firstInline) / inlineStep;
  return y0 + along * std::cos(azimuth * kDegree) + across * std::sin(azimuth * kDegree);
}

std::vector<SegyTrace> SegyGrid::traces() const {
  std::vector<SegyTrace> all;
  for (int a = 0; a < inlines; ++a) {
    for (int b = 0; b < crosslines; ++b) {
      const int i = firstInline + a * inlineStep;
      const int t = firstCrossline + b * crosslineStep;
      all.push_back({i, t, x(i, t), y(i, t)});
    }
  }
  return all;
}

std::vector<SegyTrace> byCrossline(std::vector<SegyTrace> traces) {
  std::stable_sort(traces.begin(), traces.end(), [](const SegyTrace& a, const SegyTrace& b) {
    return a.crosslineNumber < b.crosslineNumber;
  });
  return traces;
}

std::vector<SegyTrace> serpentine(std::vector<SegyTrace> traces) {
  turnRuns(traces, &SegyTrace::inlineNumber);
  return traces;
}

std::vector<SegyTrace> crosslineSerpentine(std::vector<SegyTrace> traces) {
  traces = byCrossline(std::move(traces));
  turnRuns(traces, &SegyTrace::crosslineNumber);
  return traces;
}

std::vector<SegyTrace> shuffled(std::vector<SegyTrace> traces) {
  std::mt19937 random(20240229);
  for (std::size_t i = traces.size(); i > 1; --i) {
    std::swap(traces[i - 1], traces[random() % i]);
  }
  return traces;
}

void writeSegy(const std::string& path, const std::vector<SegyTrace>& traces,
               const SegyManner& manner) {
  segy_file* const file = segy_open(path.c_str(), "w+b");
  ASSERT_NE(file, nullptr) << path;
  ASSERT_EQ(segy_set_format(file, manner.format | (manner.littleEndian ? SEGY_LSB : SEGY_MSB)),
            SEGY_OK);
  std::string text(SEGY_TEXT_HEADER_SIZE, ' ');
  text.replace(0, 8, "C 1 TEST");
  ASSERT_EQ(segy_write_textheader(file, 0, text.c_str()), SEGY_OK);  // as EBCDIC
  std::array<char, SEGY_BINARY_HEADER_SIZE> header{};
  segy_set_bfield(header.data(), SEGY_BIN_FORMAT, manner.format);
  segy_set_bfield(header.data(), SEGY_BIN_SAMPLES, manner.samples);
  segy_set_bfield(header.data(), SEGY_BIN_INTERVAL, 4000);
  segy_set_bfield(header.data(), SEGY_BIN_MEASUREMENT_SYSTEM, manner.measurementSystem);
  ASSERT_EQ(segy_write_binheader(file, header.data()), SEGY_OK);
  writeTraces(file, traces, manner);
  ASSERT_EQ(segy_close(file), SEGY_OK);
}

void putTextHeader(const std::string& path, const std::string& bytes) {
  ASSERT_EQ(bytes.size(), static_cast<std::size_t>(SEGY_TEXT_HEADER_SIZE));
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  ASSERT_TRUE(file.good());
}
