#ifndef ZRBASE_BISECTORS_ZRFLOWPATH_H
#define ZRBASE_BISECTORS_ZRFLOWPATH_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

#include <vector>

class gdfTransMatrix;

/// A sampled path that runs parallel to a template line at a fixed height, with a slip value at
/// each vertex, so that a point can be moved along it by an amount of slip.
///
/// Slip is the signed length along the path from the vertex it was generated from, whose slip is 0;
/// values ascend along the path and are negative before that vertex (paths of mode 0 and sheared
/// lines that turn back are exceptions). The start and end vectors
/// point out of the path, and carry it on straight past its ends.
///
///      startVector <-- v0 ---- v1 ---- v2 ---- v3 --> endVector
///      slip            -7      -3      0       4
///
class ZRBASE_EXPORT zrFlowPath {
 public:
  /// Empty lists, zero vectors, height 0, L 0, id -1.
  zrFlowPath() = default;
  /// A copy of all fields.
  zrFlowPath(const zrFlowPath&) = default;
  /// A copy of all fields.
  zrFlowPath& operator=(const zrFlowPath&) = default;
  /// Takes the other's fields.
  zrFlowPath(zrFlowPath&&) = default;
  /// Takes the other's fields.
  zrFlowPath& operator=(zrFlowPath&&) = default;
  /// Releases the lists.
  ~zrFlowPath() = default;

  /// Empties the vertices and the slip values; all else stays.
  void clear();
  /// The vertices, in the direction of growing slip.
  const VertexLine& getFlowLine() const { return flowLine_; }
  /// The vertices, to write to.
  VertexLine& getFlowLine() { return flowLine_; }
  /// One slip value for each vertex, in model units.
  const std::vector<double>& getSlipValues() const { return slipValues_; }
  /// The slip values, to write to.
  std::vector<double>& getSlipValues() { return slipValues_; }
  /// Unit vector out of the path at its first vertex, as last calculated.
  const gdfVertex& getStartVector() const { return startVector_; }
  /// Unit vector out of the path at its last vertex, as last calculated.
  const gdfVertex& getEndVector() const { return endVector_; }
  /// Height of the path above its template: positive on the left, negative on the right.
  double getH() const { return h_; }
  /// Sets the height.
  void setH(double h) { h_ = h; }
  /// z of the template vertex at the start of the domain where the path was seeded.
  double getL() const { return L_; }
  /// Sets L.
  void setL(double L) { L_ = L; }
  /// A tag for the caller; the library only stores it.
  double getId() const { return id_; }
  /// Sets the caller's tag.
  void setId(double id) { id_ = id; }

  /// Whether there are at least 2 vertices and as many slip values as vertices.
  bool valid() const;
  /// Assigns both lists, whose sizes are not compared, and calculates the end vectors.
  void setFlow(const VertexLine& flowLine, const std::vector<double>& slipValues);
  /// Calculates the start and end vectors from the first two and last two vertices, with
  /// gdfVertex::normalise: a segment of a length up to 1e-05 gives the zero vector. Fewer than 2
  /// vertices change nothing.
  void calcNormalisedEndVectors();

  /// Segment that holds a slip value, by binary search; O(log n).
  ///
  /// A slip on a vertex between two segments belongs to whichever the search meets first.
  /// @return the segment's index; -1 for a slip before the first value, -2 for one after the last,
  /// -3 without slip
  ///         values. A search that finds no segment (lists of different sizes, fewer than two
  ///         vertices) writes one line to standard error and gives -1.
  int getSegment(double slip) const;
  /// Point of the path at a slip value.
  ///
  /// Linear between vertices in x, y and z; straight on along the start and end vectors before the
  /// first and after the last slip, so these must be current (calcNormalisedEndVectors). Where a
  /// segment's two slips are equal, its first vertex. (0, 0, 0) without slip values or vertices.
  /// O(log n).
  gdfVertex getVertex(double slip) const;
  /// Point at slip + tan(angle) h: the slip corrected for a sheared reference line. getVertex(s,
  /// 0.0) is getVertex(s).
  /// @param angle shear angle in radians
  gdfVertex getVertex(double slip, double angle) const;
  /// Reverses both lists. Values are not negated, and the end vectors, the height and L stay as
  /// they are.
  void reverse();

  /// Lays a line through a point by a vertical shift (in y) and measures slip horizontally (in x).
  ///
  /// Where a vertex has exactly the x of the point, the last such one is the anchor; otherwise a
  /// vertex is inserted in the first segment that passes that x while running towards greater x.
  /// Slips are x differences from the anchor. The end vectors, h and L are left alone: call
  /// calcNormalisedEndVectors() to go on past the ends.
  /// @return false when no segment passes the x of the point; the vertices are then those of
  /// `line`, not shifted, and the
  ///         slip values are unchanged
  bool calculateVerticalShearFlowPath(const VertexLine& line, const gdfVertex& point);

  /// Applies a matrix to every vertex, as gdfVertex::operator*= does, and calculates the end
  /// vectors. Slip values, h and L stay.
  void transform(const gdfTransMatrix& matrix);

 private:
  int insertAnchor(const gdfVertex& point, double& shift);

  VertexLine flowLine_;
  std::vector<double> slipValues_;
  gdfVertex startVector_;
  gdfVertex endVector_;
  double h_ = 0.0;
  double L_ = 0.0;
  double id_ = -1.0;
};

#endif  // ZRBASE_BISECTORS_ZRFLOWPATH_H
