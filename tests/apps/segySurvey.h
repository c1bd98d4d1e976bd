#ifndef ZRBASE_TESTS_APPS_SEGYSURVEY_H
#define ZRBASE_TESTS_APPS_SEGYSURVEY_H

#include <string>
#include <vector>

/// A trace as a test wants it in a file.
struct SegyTrace {
  int inlineNumber = 0;
  int crosslineNumber = 0;
  double x = 0.0;
  double y = 0.0;
};

/// How a file holds its traces.
struct SegyManner {
  int format = 5;  ///< of the samples: 1 IBM, 5 IEEE, 8 bytes
  bool littleEndian = false;
  int scalar = -100;
  int inlineByte = 189;
  int crosslineByte = 193;
  int xByte = 181;
  int yByte = 185;
  int coordinateUnits = 1;
  int measurementSystem = 1;  ///< 2 for feet
  int samples = 3;
};

/// A grid with its lines at right angles: place of (inline, crossline) is the origin, plus steps
/// along the inlines and across them.
struct SegyGrid {
  int firstInline = 1000;
  int inlineStep = 2;
  int inlines = 21;
  int firstCrossline = 300;
  int crosslineStep = 4;
  int crosslines = 31;
  double x0 = 500000.0;
  double y0 = 6000000.0;
  // From crossline to crossline 25 m towards azimuth 60, from inline to inline 50 m towards 330.
  double azimuth = 60.0;
  double crosslineSpacing = 25.0;
  double inlineSpacing = 50.0;

  double x(int inlineNumber, int crosslineNumber) const;
  double y(int inlineNumber, int crosslineNumber) const;
  /// All traces, inline by inline, each from its lowest crossline on.
  std::vector<SegyTrace> traces() const;
};

/// Orders of the traces of a grid.
std::vector<SegyTrace> byCrossline(std::vector<SegyTrace> traces);
std::vector<SegyTrace> serpentine(std::vector<SegyTrace> traces);  ///< every other inline backwards
std::vector<SegyTrace> crosslineSerpentine(std::vector<SegyTrace> traces);
std::vector<SegyTrace> shuffled(std::vector<SegyTrace> traces);

/// Writes a file with segyio; its text header is blank EBCDIC but for "C 1 TEST".
void writeSegy(const std::string& path, const std::vector<SegyTrace>& traces,
               const SegyManner& manner = {});

/// Replaces the text header by these 3200 bytes.
void putTextHeader(const std::string& path, const std::string& bytes);

#endif  // ZRBASE_TESTS_APPS_SEGYSURVEY_H
