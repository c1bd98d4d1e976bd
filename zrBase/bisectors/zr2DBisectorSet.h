#ifndef ZRBASE_BISECTORS_ZR2DBISECTORSET_H
#define ZRBASE_BISECTORS_ZR2DBISECTORSET_H

#include <zrBase/bisectors/zr2DBisector.h>
#include <zrBase/bisectors/zrFlowPath.h>
#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/tools2d/side.h>

#include <cstdint>
#include <vector>

/// The skeleton of the two sides of a template line (a fault in map or section), and the flow paths
/// along it.
///
/// The set divides the plane left and right of an open polyline into one domain per template
/// segment. At every interior template vertex one root bisector starts on each side; where two
/// neighbouring bisectors meet they end and a merged one goes on. Inside a domain a flow path keeps
/// its perpendicular distance, the height, from the domain's segment; it turns on each bisector it
/// crosses.
///
///        domain 0    \   domain 1   /   domain 2          left side: heights > 0
///                     \            /
///     T[0] ----------- T[1] ---- T[2] ------------> T[3]  template, direction of travel
///                     /            \.
///                    /              \                     right side: heights < 0
///
/// A chain is a vector whose first n - 2 entries, for n template vertices, are the roots: entry j
/// stands at template vertex j + 1, between the domains j and j + 1. Merged bisectors follow. Where
/// a function takes a side, zre::sideLeft means the left chain and any other value the right one,
/// unless it says otherwise.
///
/// Chains given to the functions are trusted. A climb through a chain of damaged links (an index
/// outside it, a cycle) ends instead of reading outside or going on for ever. Ties can also lead a
/// walk in a circle on a chain as it was built: it ends once it has taken as many steps as there
/// are template vertices, and goes on as at the end of the template; its path then holds repeats.
///
/// getDomain() and what calls it write the set, so one set serves one thread at a time; separate
/// sets are independent.
class ZRBASE_EXPORT zr2DBisectorSet {
 public:
  /// An empty set.
  /// @param tolerance handed to every side test against the template, in the measure of
  /// zr2DTools::getSideOfVector
  zr2DBisectorSet(double tolerance = 0.0) : tolerance_(tolerance) {}
  /// Copies all fields, the chains by value.
  zr2DBisectorSet(const zr2DBisectorSet&) = default;
  /// Copies all fields, the chains by value.
  zr2DBisectorSet& operator=(const zr2DBisectorSet&) = default;
  /// Takes the other's fields.
  zr2DBisectorSet(zr2DBisectorSet&&) = default;
  /// Takes the other's fields.
  zr2DBisectorSet& operator=(zr2DBisectorSet&&) = default;
  /// Releases the chains.
  virtual ~zr2DBisectorSet();

  /// Builds one chain, on the coordinates as they are.
  ///
  /// The other chain, the bounds and the last bisector are left alone. Merging ends after 1001
  /// passes at the latest.
  /// @param maxDistance two bisectors merge only strictly nearer than this to their outer template
  /// segments
  /// @return false for fewer than 2 vertices (nothing changes); with exactly 2 the template is
  /// stored and no bisector built
  virtual bool generateBisectors(const VertexLine& line, zre::side side, double maxDistance);
  /// Builds both chains for a template line within a model extent, given by two opposite corners.
  ///
  /// The reach of a merge is the sum of the extent's width and height. Work is done on coordinates
  /// shifted by the template's least x and y, and shifted back, which rounds. Merging ends after
  /// 5001 passes at the latest. Cost on real traces grows close to linearly with the number of
  /// vertices.
  /// @return false for fewer than 2 vertices (nothing changes); with exactly 2 the template and
  /// bounds are stored, and the
  ///         chains keep what they held
  virtual bool generateBisectors(const VertexLine& line, const gdfVertex& boundsFirst,
                                 const gdfVertex& boundsSecond);

  /// The left chain, to read and to write.
  std::vector<zr2DBisector>& getLeftBisectors() { return leftBisectors_; }
  /// The right chain, to read and to write.
  std::vector<zr2DBisector>& getRightBisectors() { return rightBisectors_; }
  /// The template line.
  const VertexLine& getTemplateLine() const { return templateLine_; }
  /// One corner of the model extent.
  const gdfVertex& getBoundsFirst() const { return boundsFirst_; }
  /// The opposite corner of the model extent.
  const gdfVertex& getBoundsSecond() const { return boundsSecond_; }
  /// Chain index that the last successful getDomain found, -1 before that.
  int getLastBisector() const { return lastBisector_; }
  /// The tolerance of the side tests.
  double getTolerance() const { return tolerance_; }
  /// 1 after a generateAngularFlowPath that ran off the bisectors, else 0.
  unsigned char getOffBisectors() const { return offBisectors_; }
  /// The walk of generateFlowPath(double, zrFlowPath&): 0, or any other value for the one with
  /// slips.
  int getFlowPathMode() const { return flowPathMode_; }
  /// Chooses the walk of generateFlowPath(double, zrFlowPath&).
  void setFlowPathMode(int mode) { flowPathMode_ = mode; }

  /// Replaces a chain by the root bisectors of the template: clears it, and with 3 or more template
  /// vertices puts one root at each interior vertex, with the unit bisector of the bend as normal
  /// and base + normal as top.
  void generateRootBisectors(zre::side side, std::vector<zr2DBisector>& chain) const;
  /// One merge pass over a chain: each open bisector is tried, in index order, against the open end
  /// to its right. Bisectors that the pass adds are first tried in the next one.
  void generateAdditionalBisectors(zre::side side, std::vector<zr2DBisector>& chain,
                                   double maxDistance) const;
  /// Inserts a merged bisector into a chain, or refuses it without a word.
  ///
  /// It is refused where its base lies beyond the neighbouring skeleton. Bisectors that it
  /// overtakes are tied to it or retired. `bisector` may come back with a top and a top connection
  /// of a tie.
  /// @param side left or right
  void magicAdd(zre::side side, std::vector<zr2DBisector>& chain, zr2DBisector& bisector) const;
  /// Ties a new bisector to an existing one, whose base becomes its top; the existing one is
  /// opened, takes the new one's right domain and a new top. `index` comes back as what the
  /// existing one was connected to.
  void mergeWithLeftBisector(zre::side side, std::vector<zr2DBisector>& chain, int& index,
                             zr2DBisector& bisector) const;
  /// The same operation as mergeWithLeftBisector: it too writes the right domain.
  void mergeWithRightBisector(zre::side side, std::vector<zr2DBisector>& chain, int& index,
                              zr2DBisector& bisector) const;
  /// Retires everything from an index upward, roots excepted, and reopens the bisectors below.
  /// Retired records stay in the vector, so that indices remain valid. -1 does nothing.
  void removeAllConnectionsAbove(std::vector<zr2DBisector>& chain, int index) const;

  /// Crossing of the infinite lines of two bisectors: zr2DTools::getIntersect2 at 1e-09.
  bool getIntersectionVertex(const zr2DBisector& a, const zr2DBisector& b, gdfVertex& out) const;
  /// Whether a place lies ahead of a bisector's base. Exactly sideways, and for
  /// what is no number, base.x > place.x decides.
  bool isSideOK(const zr2DBisector& bisector, const gdfVertex& place) const;
  /// Side of a vertex against the nearest bisector on the climb from an index upward.
  /// @param side not consulted
  /// @return zre::sideNone for a negative index, and where the climb meets a retired bisector
  zre::side getBisectorSide(zre::side side, const std::vector<zr2DBisector>& chain, int index,
                            const gdfVertex& p) const;
  /// Side of a vertex against the template, with the set's tolerance: getSide(line, p, tolerance).
  zre::side getSide(const gdfVertex& p) const;
  /// Side of a vertex against a line: zre::sideOn where it equals a vertex of it exactly, else
  /// zr2DTools::getSideOfLine.
  static zre::side getSide(const VertexLine& line, const gdfVertex& p, double tolerance);
  /// Template segment in whose domain a vertex lies.
  ///
  /// Probes run through p along x and along y from bound to bound; the nearest bisector they meet,
  /// with no crossing of the template in between, decides. A bisector whose base is p (within
  /// 1e-05) decides at once. Where none is met the one found last time does. Open bisectors count
  /// only up to their top: see expandBisectors().
  /// @param side zre::sideOn and zre::sideLeft mean the left chain, others the right one
  /// @param hit  where the deciding bisector was met. Where a base decides, or nothing is met, it
  /// keeps the place where an
  ///             earlier bisector of the chain was met, or what it held before
  /// @return segment index; 0 where nothing decides
  int getDomain(zre::side side, const gdfVertex& p, gdfVertex& hit);
  /// Looks for bends of equal angle on either side of a vertex (true, line untouched) or of a pair
  /// of vertices (true; where the first of the pair is a peak or a trough in y it is moved by 0.01
  /// in x and in y).
  bool symetric(VertexLine& line) const;

  /// The path through a point, at the point's own height or at a given one.
  ///
  /// Slip is arc length from the point, whose slip is 0; the template's start has the negative
  /// values. Beyond the outermost bisectors the path goes on for the length of the end segments. A
  /// point on the template gives the template itself as a path; a template of fewer than 3 vertices
  /// a straight path.
  /// @param path     its lists are replaced; h is the signed height (left positive), L the z of the
  /// domain's start
  /// @param flipSide takes domain 0 of the other side when the point's domain is above 1
  /// @param height   signed; exactly 3.4028234663852886e+38 means: the point's own
  /// @return false, with an empty path, where the side's chain is empty
  bool generateFlowPath(const gdfVertex& point, zrFlowPath& path, bool flipSide, double height);
  /// The path at a height above the template, from its start to its end; left for positive heights.
  ///
  /// Height 0 gives the template itself. In mode 0 (see getFlowPathMode) the path ends with two
  /// slip values, and is not valid(); in any other mode slip 0 stands at the first bisector. At
  /// most some 5000 vertices.
  /// @param path its slip values must be empty: they are appended to
  /// @return false for fewer than 3 template vertices or an empty chain, path untouched; and, with
  /// an empty path, where no
  ///         vertex was found
  bool generateFlowPath(double height, zrFlowPath& path);
  /// A path that steps from bisector to bisector along a direction turned from the current template
  /// segment.
  ///
  /// Slip is 0 at the point and the last slip 3.4028234663852886e+38. A path that runs off the
  /// bisectors ends on the template line, where that is met, with one vertex more than slip values;
  /// getOffBisectors() is then 1.
  /// @param path        appended to: give an empty one. Fewer than 3 template vertices replace it
  /// by a straight path
  /// @param probeLength reach of each step in model units
  /// @param angle       degrees, clockwise
  /// @return true
  bool generateAngularFlowPath(gdfVertex point, zrFlowPath& path, double probeLength, bool flipSide,
                               double angle);
  /// The template itself as a path with h = 0 and slip 0 at the point, which is inserted unless it
  /// is a vertex. L stays.
  /// @return false, with an empty path, for an empty template
  bool generateFlowPathAlongInputLine(const gdfVertex& point, zrFlowPath& path);
  /// A straight path (point, point + direction) with the slips 0 and 1, along the first template
  /// segment, or along x where there is none. Always true.
  bool generateFlowPathLessThan3Vertices(zre::side side, const gdfVertex& point,
                                         zrFlowPath& path) const;
  /// Climbs a chain to the bisector that spans a height above its left domain's segment.
  /// @param height its absolute value counts
  /// @param out    the place on that bisector at that height; untouched without one
  /// @return the bisector's index; -1 for an index outside the chain, where the left domain is no
  /// template segment, and
  ///         where the climb runs out
  int getVertexAtHeightOnBisectorChain(zre::side side, const std::vector<zr2DBisector>& chain,
                                       double height, int index, gdfVertex& out) const;
  /// Nearest crossing of a probe with the bisectors from an index upward.
  /// @param direction   turned clockwise by `angle` and normalised when the angle is not 0
  /// @param distance    to the crossing; 3.4028234663852886e+38 without one
  /// @param outIndex    the bisector met; -1 without one
  /// @param probeLength the probe's reach; without length at 0 or less
  /// @param angle       degrees, clockwise; for sides other than left and right its sign chooses
  /// the chain, left below 0
  bool projectToBisectorChain(zre::side side, const gdfVertex& point, const gdfVertex& direction,
                              int index, gdfVertex& out, double& distance, int& outIndex,
                              double probeLength, double angle) const;
  /// First crossing, in line order, of a probe of 10000 model units with a line.
  /// @param outIndex `index` as given, not the segment's; -1 without a crossing
  /// @param angle    degrees, clockwise
  bool projectToTemplateLine(const VertexLine& line, const gdfVertex& point,
                             const gdfVertex& direction, int index, gdfVertex& out,
                             double& distance, int& outIndex, double angle) const;
  /// Length, base to top, of a bisector of the chain on the point's side; 0 for an index outside
  /// it.
  double getRootBisectorHeight(const gdfVertex& point, int index) const;
  /// Signed height of a point above the template: left positive, 0 on it.
  double calculateH(const gdfVertex& point);
  /// Height over the template and length along it of a point, through the bisector that decides its
  /// domain.
  ///
  /// The height is unsigned, the distance from that bisector to the end of the domain's segment.
  /// @return true, with the outputs unwritten, for a point on the template; false, with only the
  /// domain written,
  ///         for a domain below 1 or above the last
  bool calculateHeightAndLengthOnBaseLine(const gdfVertex& point, double& height, double& length,
                                          int& domain);
  /// Erases repeated vertices of a path (3D distance exactly 0), each with a slip value.
  void removeZeroLengthSegments(zrFlowPath& path) const;

  /// Gives a merged bisector the direction between the template segments of its two domains: normal
  /// and top.
  /// @return the new top; (0, 0, 0), with nothing changed, where a domain is negative or the top
  /// would hold a NaN
  gdfVertex calculateNewTop(zre::side side, zr2DBisector& bisector) const;
  /// Pushes the open bisectors of a chain out by the sum of the extent's width and height; their
  /// tops get z = 0.
  void expandBisectors(zre::side side);
  /// The left chain, then the right chain.
  void expandBisectors();
  /// Moves template, bounds, bases and tops by a shift. Directions and real tops stay.
  void Offset(const gdfVertex& shift);
  /// Replaces a chain by FBF roots: roots whose real normal keeps the direction of the bend, while
  /// normal and top are mirrored in x where the bend's two arms lead upward in y.
  void generateRootFBF_Bisectors(zre::side side, std::vector<zr2DBisector>& chain) const;
  /// Widens every bend of an FBF chain by a width, towards the next base.
  ///
  /// An unmirrored inner bisector stays, and a copy moves by the width, but not past the next base.
  /// A mirrored one moves by the whole width; before it stands the unmoved one, or, where the width
  /// is more than the way from the previous base, one moved by the rest. Chains of 2 or fewer stay;
  /// retired inner bisectors leave; links are copied as they stand.
  void UpdateFBF_Bisectors(zre::side side, double width);
  /// The left chain, then the right chain.
  void UpdateFBF_Bisectors(double width);

 private:
  std::vector<zr2DBisector>& chainOf(zre::side side) {
    return side == zre::sideLeft ? leftBisectors_ : rightBisectors_;
  }
  const std::vector<zr2DBisector>& chainOf(zre::side side) const {
    return side == zre::sideLeft ? leftBisectors_ : rightBisectors_;
  }
  const std::vector<zr2DBisector>& chainOfAngle(zre::side side, double angle) const;
  void setTemplate(const VertexLine& line);
  void workOutDirections();
  double heightAboveSegment(int segment, const gdfVertex& p) const;
  void walkTowardsStart(zre::side side, const gdfVertex& seed, double height, int domain,
                        zrFlowPath& path) const;
  void walkTowardsEnd(zre::side side, const gdfVertex& seed, double height, int domain,
                      zrFlowPath& path) const;
  void straightAngularFlowPath(zre::side side, const gdfVertex& point, zrFlowPath& path) const;
  gdfVertex setStraightAttributes(zre::side side, const gdfVertex& point, zrFlowPath& path) const;

  std::vector<zr2DBisector> leftBisectors_;
  std::vector<zr2DBisector> rightBisectors_;
  VertexLine templateLine_;
  std::int32_t lastBisector_ = -1;
  gdfVertex boundsFirst_;
  gdfVertex boundsSecond_;
  std::int32_t flowPathMode_ = 0;
  double tolerance_;
  unsigned char offBisectors_ = 0;
  /// Unit direction of each template segment: always that of templateLine_, so that walks need not
  /// work it out.
  VertexLine segmentDirections_;
};

#endif  // ZRBASE_BISECTORS_ZR2DBISECTORSET_H
