#ifndef ZRBASE_SURVEY_ZRSURVEYCOORDINATES_H
#define ZRBASE_SURVEY_ZRSURVEYCOORDINATES_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfTransMatrix.h>
#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/survey/zrSurveyCoordinatePoints.h>
#include <zrBase/survey/zrSurveyPoint.h>
#include <zrBase/utilities/zrUnits.h>

#include <cstdint>
#include <string>

/// A seismic survey grid: the way from survey numbers (inline, trace) to the world (x east, y
/// north) and back.
///
/// Three corners fix it, each known in both systems. By convention One and Two differ along the
/// trace axis, One and Three along the inline axis; a fit puts the corners into that order where it
/// can. Where vertices or matrices stand for survey numbers, x is the inline and y the trace.
///
///     Two   (1, 950) o------------------------o
///                    |                        |
///              trace ^                        |
///                    |                        |
///     One   (1, 1)   o--------> inline -------o (650, 1)  Three
///
/// The corners are set by hand, or come from a stream of traces:
///
///     zrSurveyCoordinates grid;
///     for (...) grid.points.AddStoredPoint(x, y, inlineNumber, traceNumber);
///     if (grid.RecalculateSurveyCoordinates()) grid.World2Survey(vertex);
///
/// or AddPoint for each trace, End, CalculateSurveyCoordinates, CalculateTransMatrices. The two
/// matrices are only what the last fit made of the corners: they lag behind when corners change,
/// and a failed fit leaves them as far as it got. Valid() tells, and nothing else looks at it.
class ZRBASE_EXPORT zrSurveyCoordinates {
 public:
  /// A tag of the caller, who casts his own values to it: the library only stores it.
  enum type : std::int32_t { typeDefault = 0 };

  /// The default grid: corners (inline, trace, x, y) of (0, 0, 0, 0), (0, 100, 1250, 0), (100, 0,
  /// 0, 1250), yet identity matrices, and not valid before a fit.
  zrSurveyCoordinates();
  /// A copy of every field, `units` and `points` included. Assignment leaves those two alone.
  zrSurveyCoordinates(const zrSurveyCoordinates& other);
  /// Takes every field over, `units` and `points` included.
  zrSurveyCoordinates(zrSurveyCoordinates&& other) noexcept;
  /// As Copy(): all but `units` and `points`.
  zrSurveyCoordinates& operator=(const zrSurveyCoordinates& other);
  ~zrSurveyCoordinates();
  /// Copies all fields but `units` and `points`, which stay. The copy constructor takes them too.
  void Copy(const zrSurveyCoordinates& other);

  /// Free name.
  const std::string& name() const { return name_; }
  /// Sets the name.
  void setName(const std::string& name) { name_ = name; }
  /// Whether the last fit, or CalculateSurveyCoordinates() after it, succeeded.
  bool Valid() const { return valid_; }
  /// Whether a stream once gave two corners only. Set by CalculateSurveyCoordinates(); nothing but
  /// SetDefaults() takes it back, and the library does not read it.
  bool Partial() const { return partial_; }
  /// The caller's tag.
  const type& LineType() const { return lineType_; }
  /// Sets the caller's tag.
  void SetLineType(type lineType) { lineType_ = lineType; }
  /// A flag of the caller, true by default; only stored.
  bool TwoFaultFlags() const { return twoFaultFlags_; }
  /// Sets the caller's flag.
  void SetFaultFlags(bool twoFaultFlags) { twoFaultFlags_ = twoFaultFlags; }
  /// Extent along the inlines, 100.0; only stored.
  double InlineExtent() const { return inlineExtent_; }
  /// Extent along the crosslines, 100.0; only stored.
  double XlineExtent() const { return xlineExtent_; }
  /// Step of the inline numbers, as the stream had it; 1.0 by default.
  double InlineStep() const { return inlineStep_; }
  /// Step of the trace numbers, as the stream had it; 1.0 by default.
  double TraceStep() const { return traceStep_; }
  /// World distance from one inline number to the next, in model units; 12.5 before resetPoints().
  double inlineDistance() const { return inlineDist_; }
  /// World distance from one trace number to the next, in model units; 12.5 before resetPoints().
  double xlineDistance() const { return xlineDist_; }
  /// How far the grid is turned, in degrees, positive anticlockwise: world direction from One to
  /// Two against their direction in survey numbers, with the inline as x. That of the last
  /// CalculateTransMatrices() that got to its end; from -360 to 360, not wrapped any further.
  double RotationDegrees() const { return rotationDegrees_; }
  /// Survey numbers to world, row vector form (gdfTransMatrix::preMult).
  const gdfTransMatrix& SurveyToWorld() const { return surveyToWorld_; }
  /// World to survey numbers, row vector form.
  const gdfTransMatrix& WorldToSurvey() const { return worldToSurvey_; }

  /// First corner.
  const zrSurveyPoint& One() const { return pointOne_; }
  /// First corner, to write to.
  zrSurveyPoint& One() { return pointOne_; }
  /// Second corner, away from the first along the trace axis.
  const zrSurveyPoint& Two() const { return pointTwo_; }
  /// Second corner, to write to.
  zrSurveyPoint& Two() { return pointTwo_; }
  /// Third corner, away from the first along the inline axis.
  const zrSurveyPoint& Three() const { return pointThree_; }
  /// Third corner, to write to.
  zrSurveyPoint& Three() { return pointThree_; }
  /// Sets the first corner. As all setters of corners it leaves Valid() and the matrices as they
  /// are.
  void SetOne(double inlineNumber, double traceNumber, double x, double y);
  /// Sets the second corner.
  void SetTwo(double inlineNumber, double traceNumber, double x, double y);
  /// Sets the third corner.
  void SetThree(double inlineNumber, double traceNumber, double x, double y);
  /// Sets the first corner; the z of the vertex is dropped.
  void SetOne(double inlineNumber, double traceNumber, const gdfVertex& world);
  /// Sets the second corner; the z of the vertex is dropped.
  void SetTwo(double inlineNumber, double traceNumber, const gdfVertex& world);
  /// Sets the third corner; the z of the vertex is dropped.
  void SetThree(double inlineNumber, double traceNumber, const gdfVertex& world);
  /// Copies the first corner from a point.
  void SetOne(const zrSurveyPoint& point) { pointOne_ = point; }
  /// Copies the second corner from a point.
  void SetTwo(const zrSurveyPoint& point) { pointTwo_ = point; }
  /// Copies the third corner from a point.
  void SetThree(const zrSurveyPoint& point) { pointThree_ = point; }
  /// Sets the corner of index 0, 1 or 2; any other index does nothing.
  void SetSurveyPoint(int index, double inlineNumber, double traceNumber, double x, double y);
  /// Corner of index 0, 1 or 2; any other index gives the first.
  const zrSurveyPoint& SurveyPoint(int index) const;

  /// Number of inlines from One to Three, both counted, at a step of 1; truncated to an int,
  /// limited to its range, 0 for a NaN. Below 1 where the numbers fall.
  int inlines() const;
  /// Number of traces from One to Two, both counted; as inlines().
  int xlines() const;

  /// Survey numbers to world, in place. Comes in as inline and trace, goes out as x and y. c is
  /// taken as 0, whatever it holds, and comes back as the z of the matrix product. Valid() is not
  /// looked at.
  void Survey2World(double& a, double& b, double& c) const;
  /// The same on a vertex.
  void Survey2World(gdfVertex& vertex) const;
  /// World to survey numbers, in place. Comes in as x, y, z, goes out as inline and trace, with
  /// z = 0. Here the z that comes in does enter the product: a NaN there spreads, where
  /// Survey2World would drop it. Valid() is not looked at.
  void World2Survey(double& x, double& y, double& z) const;
  /// The same on a vertex.
  void World2Survey(gdfVertex& vertex) const;

  /// Takes the corners from what `points` has seen, with x and y times the ratios of `units`, and
  /// the steps from its intervals. No matrix is made: a true, and Valid(), speak of the corners.
  ///
  /// The longest row gives One and Two, if its ends differ in trace; Three is then the point of the
  /// lowest or of the highest inline, whichever is further from One in inline, the highest at a
  /// tie. Else the longest column gives One and Two, and Three comes from the extremes of trace in
  /// the same way. Where both extremes have the number of One, or one is unset, as with traces
  /// that came in by AddPoint alone, Three stays as it is and Partial() is set.
  /// @return false, with nothing changed, when neither the row nor the column has two ends that
  ///         differ
  bool CalculateSurveyCoordinates();
  /// Fits both matrices to the corners: turn and scale from the first two, which come out exact but
  /// for rounding, then a stretch along the free axis from the third.
  ///
  /// First the corners are put in order. One and Two stay where they share an inline or a trace
  /// number. Else two that share an inline number become One and Two, or, if no two do, two that
  /// share a trace number. The order stays, also when the fit fails. After a success the corners
  /// are those of resetPoints(), except that the default corners stay.
  ///
  /// The third corner may miss its survey numbers by 5 in either axis, the 5 included: the fit has
  /// no shear. For one that misses by more, and for three corners of which no two share a number, a
  /// line goes to the standard error stream.
  /// @return false, with Valid() false, for corners on one inline or one trace, or of which two
  ///         coincide in survey numbers or in the world (compared exactly; corners and matrices are
  ///         untouched), for corners that share no number, when SurveyToWorld() has an element that
  ///         is not finite, and when the third corner misses
  bool CalculateTransMatrices();
  /// Fits both matrices to all three corners at once, with nothing tested: the plane through them
  /// gives the direction and length of the inline axis, the length and the handedness of the trace
  /// axis. The trace axis is taken perpendicular to the inline axis, so that a sheared grid is not
  /// met. The corners, RotationDegrees() and both distances stay. Valid() becomes true, whatever
  /// the corners: with three on a line the matrices are of no use.
  void CalculateTransMatrices1();
  /// SetDefaults(), then RecalculateCoordinates() of `points`, CalculateSurveyCoordinates() and
  /// CalculateTransMatrices(). The last row or column in progress is not closed.
  /// @return false, with the defaults set, when no points are stored; else what the fit gives, also
  ///         when the stored points gave no corners: the default corners are fitted then
  bool RecalculateSurveyCoordinates();
  /// Empties the stored points of `points`; their bounds and the tracking stay.
  void ClearStoredSurveyCoordinates();
  /// Sets everything but `units` and `points` to what a new object holds.
  void SetDefaults();
  /// Whether the corners are those of a new object, compared exactly; nothing else is compared.
  bool DefaultsSet() const;
  /// Makes the corners those of the bounding rectangle of their survey numbers: One lowest in both,
  /// Two at the highest trace, Three at the highest inline. World positions and both distances are
  /// then those of SurveyToWorld(). Corners that agree in inline or trace give a distance that is
  /// not finite. A survey number of Two or Three that is a NaN is passed over; one of One is taken
  /// as both the lowest and the highest.
  void resetPoints();

  /// Whether this grid's world positions of survey (0, 0) and (100, 100) lie strictly within 2 of
  /// those numbers in the other grid, in both axes. Nothing else is compared. The grids do not
  /// change places freely: the 2 are numbers of the other grid.
  bool equal(const zrSurveyCoordinates& other) const;
  /// As equal().
  bool operator==(const zrSurveyCoordinates& other) const { return equal(other); }

  /// Their ratios of x and y scale what CalculateSurveyCoordinates() takes from `points`.
  zrUnits units;
  /// The stream of traces, fed by the caller.
  zrSurveyCoordinatePoints points;

 private:
  bool cornersAreDegenerate() const;
  bool orderCorners(bool& alongTrace);
  double fitMatrices(bool alongTrace);
  bool thirdCornerFits() const;
  zrSurveyPoint inModelUnits(const zrSurveyPoint& streamed) const;

  std::string name_;
  bool valid_ = false;
  bool partial_ = false;
  type lineType_ = typeDefault;
  bool twoFaultFlags_ = true;
  double inlineExtent_ = 100.0;
  double xlineExtent_ = 100.0;
  double inlineStep_ = 1.0;
  double traceStep_ = 1.0;
  double inlineDist_ = 12.5;
  double xlineDist_ = 12.5;
  double rotationDegrees_ = 0.0;
  gdfTransMatrix surveyToWorld_;
  gdfTransMatrix worldToSurvey_;
  zrSurveyPoint pointOne_;
  zrSurveyPoint pointTwo_;
  zrSurveyPoint pointThree_;
};

// Inline: a survey has its points by the million, and a call would cost as much as the product.

inline void zrSurveyCoordinates::Survey2World(gdfVertex& vertex) const {
  vertex = gdfVertex(vertex.x(), vertex.y(), 0.0) % surveyToWorld_;
}

inline void zrSurveyCoordinates::World2Survey(gdfVertex& vertex) const {
  // Kept on purpose (KeptWorldHeightEntersTheProduct): z is cleared after the product, where
  // Survey2World drops it before. A height that is not a number makes both survey numbers so, and
  // callers find the hole in their data by that.
  vertex %= worldToSurvey_;
  vertex.z() = 0.0;
}

inline void zrSurveyCoordinates::Survey2World(double& a, double& b, double& c) const {
  gdfVertex vertex(a, b, c);
  Survey2World(vertex);
  a = vertex.x();
  b = vertex.y();
  c = vertex.z();
}

inline void zrSurveyCoordinates::World2Survey(double& x, double& y, double& z) const {
  gdfVertex vertex(x, y, z);
  World2Survey(vertex);
  x = vertex.x();
  y = vertex.y();
  z = vertex.z();
}

#endif  // ZRBASE_SURVEY_ZRSURVEYCOORDINATES_H
