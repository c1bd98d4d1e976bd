#ifndef ZRBASE_SURVEY_ZRSHOTPOINTLINE_H
#define ZRBASE_SURVEY_ZRSHOTPOINTLINE_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// A seismic line: its name, its kind, and the map positions of its shotpoints, in the order of
/// their numbers whatever the order they come in. A value: copies are independent.
class ZRBASE_EXPORT zrShotpointLine {
 public:
  /// Kind of a line. The library only stores it: other values come by cast and are the caller's.
  enum type : std::int32_t { typeDefault = 0 };

  /// A line of that name without shotpoints, of type typeDefault.
  zrShotpointLine(const std::string& name) : name_(name) {}

  /// Takes over name and shotpoints. The type stays, unlike by operator=.
  void copy(const zrShotpointLine& other);
  /// Puts a shotpoint at (x, y, 0). A number that the line has already keeps its first position,
  /// and the new one is dropped without a word.
  /// @param shotpoint  the number; fractions and negative numbers count, a NaN must not come
  /// @param x  east, in model units
  /// @param y  north, in model units
  void addPoint(double shotpoint, double x, double y);
  /// Appends the shotpoints, in ascending order of their numbers: the positions to `line`, the
  /// numbers to `shotpoints`. Neither is emptied first.
  /// @return whether `line` then has more than 1 vertex, what it held before included
  bool getLine(VertexLine& line, std::vector<double>& shotpoints) const;
  /// Whether there is more than 1 shotpoint.
  bool valid() const { return points_.size() > 1; }

  /// The name, as given.
  const std::string& getName() const { return name_; }
  /// Kind of the line.
  const type& LineType() const { return lineType_; }
  /// Kind of the line, to write to.
  type& LineType() { return lineType_; }
  /// Sets the kind of the line.
  void setLineType(type lineType) { lineType_ = lineType; }

 private:
  std::string name_;
  type lineType_ = typeDefault;
  std::map<double, gdfVertex> points_;
};

/// The shotpoint lines of a data set, gathered while their points come in any order. A value:
/// copies are independent.
class ZRBASE_EXPORT zrShotpointCollection {
 public:
  /// Adds a shotpoint to the line of a name, by zrShotpointLine::addPoint. The first point of a
  /// name makes the line, which gets the collection's type.
  /// @param shotpoint  the number; fractions and negative numbers count, a NaN must not come
  /// @param name  compared byte by byte: "A" and "a" are two lines
  /// @param x  east, in model units
  /// @param y  north, in model units
  /// @note O(number of lines), but quick for points that come line by line.
  void addPoint(double shotpoint, const std::string& name, double x, double y);
  /// Does nothing.
  /// @return false
  bool calculateShotpoints() const;

  /// The lines, in the order in which their names first came.
  const std::vector<zrShotpointLine>& getLines() const { return lines_; }
  /// Type given to each new line.
  const zrShotpointLine::type& LineType() const { return lineType_; }
  /// Type given to each new line, to write to.
  zrShotpointLine::type& LineType() { return lineType_; }
  /// Sets the type given to each new line; lines that exist keep theirs.
  void setLineType(zrShotpointLine::type lineType) { lineType_ = lineType; }

 private:
  zrShotpointLine::type lineType_ = zrShotpointLine::typeDefault;
  std::vector<zrShotpointLine> lines_;
};

#endif  // ZRBASE_SURVEY_ZRSHOTPOINTLINE_H
