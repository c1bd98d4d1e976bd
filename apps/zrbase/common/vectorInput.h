#ifndef ZRBASE_APPS_COMMON_VECTORINPUT_H
#define ZRBASE_APPS_COMMON_VECTORINPUT_H

#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <string>
#include <vector>

#include "common/modelSystem.h"

/// One line of a file, one part of a multi-line, or one ring of a polygon.
struct InputLine {
  long long fid = 0;  ///< feature id in the file; 0 for the line made of the rows of a table
  int part = 0;       ///< part of a multi-line or multi-polygon, counted from 0
  int partCount = 1;
  int ring = -1;     ///< of a polygon: 0 for the outer ring, then its holes; -1 for a line
  std::string name;  ///< the feature's name field, empty if there is none
  VertexLine vertices;

  /// "12", "12.1" for a part of several, "12 ring 1" for a hole.
  std::string label() const;
  /// Whether it is a ring of a polygon; a line may be closed and is none.
  bool isRing() const { return ring >= 0; }
};

/// One point of a file.
struct InputPoint {
  long long fid = 0;
  std::string name;
  gdfVertex position;
};

/// Decides what a bad feature means: the end of the command, or one more that is left out and told
/// about.
class BadFeatures {
 public:
  /// @param skip  go on without bad features (`--skip-bad`)
  BadFeatures(std::string file, bool skip);

  /// @throws CommandError "file: where: reason" unless bad features are skipped
  void report(const std::string& where, const std::string& reason);
  /// What was left out, "feature 3: a line of one vertex", in file order.
  const std::vector<std::string>& leftOut() const { return leftOut_; }

 private:
  std::string file_;
  bool skip_;
  std::vector<std::string> leftOut_;
};

struct LineSelection {
  std::string layer;            ///< name; empty for the first layer with lines
  std::vector<long long> fids;  ///< empty for all
};

struct LineFile {
  std::vector<InputLine> lines;
  SpatialReference system;        ///< as stated by the file, null if it states none
  std::size_t otherFeatures = 0;  ///< selected features that are no lines, ignored
  std::size_t repeatedVertices =
      0;  ///< vertices that repeated the one before them exactly, dropped
};

struct PointFile {
  std::vector<InputPoint> points;
  SpatialReference system;
};

/// Reads the lines of any vector file that OGR opens, in the file's own coordinates.
///
/// Lines, curves (as chords) and each part of a multi-line are templates. A table (CSV) without
/// geometry but with columns x, y and perhaps z is one line made of its rows in order; columns
/// named lon and lat state WGS 84. A repeated vertex would be a segment without length: it is
/// dropped and counted.
/// @throws CommandError if the file, the layer or a feature cannot be used, see BadFeatures
LineFile readLines(const std::string& file, const LineSelection& selection, BadFeatures& bad);

/// Reads lines as readLines does, and the rings of polygons and multi-polygons beside them.
///
/// The rings of a polygon follow each other, the outer one first; each repeats its first vertex at
/// the end exactly. A polygon with a bad ring is a bad feature as a whole.
LineFile readRings(const std::string& file, const LineSelection& selection, BadFeatures& bad);

/// Reads the points of any vector file that OGR opens, each point of a multi-point apart, or a
/// table as above.
PointFile readPoints(const std::string& file, BadFeatures& bad);

/// Projects in place; what cannot be projected is a bad feature and leaves the list.
void projectLines(std::vector<InputLine>& lines, const Projection& projection, BadFeatures& bad);
void projectPoints(std::vector<InputPoint>& points, const Projection& projection, BadFeatures& bad);

#endif  // ZRBASE_APPS_COMMON_VECTORINPUT_H
