#include <zrBase/geometry/gdfTriMatrix.h>
#include <zrBase/survey/zrSurveyCoordinates.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iostream>
#include <utility>

// The fits of a survey grid to its corners. S are corners in survey numbers (inline as x, trace as
// y), W in the world.

namespace {

gdfVertex surveyNumbers(const zrSurveyPoint& p) {
  return gdfVertex(p.inlineNumber, p.traceNumber, 0.0);
}

gdfVertex worldPosition(const zrSurveyPoint& p) { return gdfVertex(p.x, p.y, 0.0); }

bool samePlace(const zrSurveyPoint& a, const zrSurveyPoint& b) {
  return (a.inlineNumber == b.inlineNumber && a.traceNumber == b.traceNumber) ||
         (a.x == b.x && a.y == b.y);
}

/// World to survey as turn, uniform scale and shift: factor k, angle delta in radians, shift o.
struct Similarity {
  double k;
  double delta;
  gdfVertex o;
};

/// The one that carries W1 to S1 and W2 to S2.
Similarity similarityOf(const zrSurveyPoint& one, const zrSurveyPoint& two) {
  const gdfVertex s1 = surveyNumbers(one);
  const gdfVertex s2 = surveyNumbers(two);
  const gdfVertex w1 = worldPosition(one);
  const gdfVertex w2 = worldPosition(two);
  const double k = s1.distance(s2) / w1.distance(w2);
  const double delta = (w2 * k - w1 * k).rotation() - (s2 - s1).rotation();
  gdfTransMatrix turn;
  turn.rotateZ(-delta);
  const gdfVertex v1 = (w1 * k) % turn;
  return {k, delta, gdfVertex(s1.x() - v1.x(), s1.y() - v1.y(), 0.0)};
}

/// Stretch of the survey numbers along one axis, with the shift that goes with it.
struct Stretch {
  double fx;
  double fy;
  gdfVertex o;
};

/// The one that carries q, where the similarity puts the third corner, to the free number of the
/// third corner, and leaves the first two alone.
Stretch stretchOf(const zrSurveyPoint& one, const zrSurveyPoint& three, const gdfVertex& q,
                  bool alongTrace) {
  if (alongTrace) {
    const double fx = (three.inlineNumber - one.inlineNumber) / (q.x() - one.inlineNumber);
    return {fx, 1.0, gdfVertex(three.inlineNumber - q.x() * fx, 0.0, 0.0)};
  }
  const double fy = (three.traceNumber - one.traceNumber) / (q.y() - one.traceNumber);
  return {1.0, fy, gdfVertex(0.0, three.traceNumber - q.y() * fy, 0.0)};
}

}  // namespace

bool zrSurveyCoordinates::cornersAreDegenerate() const {
  const bool onOneInline = pointOne_.inlineNumber == pointTwo_.inlineNumber &&
                           pointTwo_.inlineNumber == pointThree_.inlineNumber;
  const bool onOneTrace = pointOne_.traceNumber == pointTwo_.traceNumber &&
                          pointTwo_.traceNumber == pointThree_.traceNumber;
  return onOneInline || onOneTrace || samePlace(pointOne_, pointTwo_) ||
         samePlace(pointTwo_, pointThree_) || samePlace(pointOne_, pointThree_);
}

/// Swaps corners so that the first two share a survey number. One and Two that share either stay.
/// Else an inline number comes first: the two corners then lie along the trace axis.
/// @return whether any two share one
bool zrSurveyCoordinates::orderCorners(bool& alongTrace) {
  zrSurveyPoint& one = pointOne_;
  zrSurveyPoint& two = pointTwo_;
  zrSurveyPoint& three = pointThree_;
  if (one.inlineNumber == two.inlineNumber) {
    alongTrace = true;
  } else if (one.traceNumber == two.traceNumber) {
    alongTrace = false;
  } else if (two.inlineNumber == three.inlineNumber) {
    std::swap(one, three);
    alongTrace = true;
  } else if (one.inlineNumber == three.inlineNumber) {
    std::swap(two, three);
    alongTrace = true;
  } else if (two.traceNumber == three.traceNumber) {
    std::swap(one, three);
    alongTrace = false;
  } else if (one.traceNumber == three.traceNumber) {
    std::swap(two, three);
    alongTrace = false;
  } else {
    return false;
  }
  return true;
}

/// Both matrices from corners in order. @return the turn in radians
double zrSurveyCoordinates::fitMatrices(bool alongTrace) {
  const Similarity similarity = similarityOf(pointOne_, pointTwo_);
  const double k = similarity.k;
  worldToSurvey_.setToIdentity();
  worldToSurvey_.scaleX(k);
  worldToSurvey_.scaleY(k);
  worldToSurvey_.rotateZ(-similarity.delta);
  worldToSurvey_.translate(similarity.o);

  const gdfVertex q = worldPosition(pointThree_) % worldToSurvey_;
  const Stretch stretch = stretchOf(pointOne_, pointThree_, q, alongTrace);
  worldToSurvey_.scaleX(stretch.fx);
  worldToSurvey_.scaleY(stretch.fy);
  worldToSurvey_.translate(stretch.o);

  // Kept on purpose (KeptWayBackIsTheStepsUndone): the steps backwards, each undone by its own
  // opposite. No matrix is inverted: the way back rounds no worse than the way there, and grids
  // whose determinant fades to 0 still have one.
  surveyToWorld_.setToIdentity();
  surveyToWorld_.translate(-stretch.o);
  surveyToWorld_.scaleX(1.0 / stretch.fx);
  surveyToWorld_.scaleY(1.0 / stretch.fy);
  surveyToWorld_.translate(-similarity.o);
  surveyToWorld_.rotateZ(similarity.delta);
  surveyToWorld_.scaleY(1.0 / k);
  surveyToWorld_.scaleX(1.0 / k);
  return similarity.delta;
}

bool zrSurveyCoordinates::thirdCornerFits() const {
  const gdfVertex s = worldPosition(pointThree_) % worldToSurvey_;
  const double i = pointThree_.inlineNumber;
  const double t = pointThree_.traceNumber;
  // Kept on purpose (KeptThirdCornerMayMissByFive): only what lies above or below by more than 5 is
  // turned away, so that 5 passes, and so does a NaN. Surveys with bent edges load by it.
  return !(s.x() > i + 5.0 || s.x() < i - 5.0 || s.y() > t + 5.0 || s.y() < t - 5.0);
}

bool zrSurveyCoordinates::CalculateTransMatrices() {
  // Kept on purpose (KeptFailedFitLeavesMatricesAsTheyGot): untouched by corners that are turned
  // away at once, as fitted where a later check fails. valid_ alone says that they are of no use;
  // callers draw a rejected grid by them.
  valid_ = false;
  if (cornersAreDegenerate()) return false;
  // Kept on purpose (KeptFailedFitLeavesCornersSwapped): whatever follows, the corners stand in
  // their new order; callers that show what was wrong show that.
  bool alongTrace = false;
  if (!orderCorners(alongTrace)) {
    std::cerr << "Invalidate survey coordinates" << std::endl;
    return false;
  }
  const double delta = fitMatrices(alongTrace);
  // Kept on purpose (KeptOnlySurveyToWorldIsTested): worldToSurvey_ may hold an infinity in a grid
  // of extreme spacings, and the fit counts all the same.
  if (!surveyToWorld_.valid()) return false;
  if (!thirdCornerFits()) {
    // Kept on purpose (KeptInconsistantSurveyMessage): spelled so; log filters look for it.
    std::cerr << "Invalid or inconsistant survey data detected" << std::endl;
    return false;
  }
  // Kept on purpose (KeptGridRotationIsNotWrapped): the difference of two directions, so from
  // -360 to 360; -270 and 90 are told apart.
  rotationDegrees_ = delta * GDF_RADIANStoDEGREES;
  // Kept on purpose (KeptDefaultCornersAreNotReset): the default grid keeps its corners to the
  // digit and the distances it had, so that DefaultsSet() goes on telling it.
  if (!DefaultsSet()) resetPoints();
  valid_ = true;
  return true;
}

void zrSurveyCoordinates::CalculateTransMatrices1() {
  const gdfTriMatrix corners(gdfVertex(1.0, pointOne_.inlineNumber, pointOne_.traceNumber),
                             gdfVertex(1.0, pointTwo_.inlineNumber, pointTwo_.traceNumber),
                             gdfVertex(1.0, pointThree_.inlineNumber, pointThree_.traceNumber));
  const gdfTriMatrix inverse = corners.invert();
  // World x is c[0] + c[1]*inline + c[2]*trace, world y the same with d.
  const gdfVertex c = inverse * gdfVertex(pointOne_.x, pointTwo_.x, pointThree_.x);
  const gdfVertex d = inverse * gdfVertex(pointOne_.y, pointTwo_.y, pointThree_.y);

  const double sx = std::sqrt(c.y() * c.y() + d.y() * d.y());
  double sy = std::sqrt(c.z() * c.z() + d.z() * d.z());
  // A left-handed grid is carried by a negative scale.
  if (d.z() * c.y() - c.z() * d.y() < 0.0) sy = -sy;

  const double fullTurn = 4.0 * std::asin(1.0);
  double theta = std::atan2(d.y(), c.y());
  if (theta < 0.0) theta += fullTurn;
  if (theta > fullTurn) theta -= fullTurn;

  // Kept on purpose (KeptAlternativeFitHasNoShear): the direction of the trace axis is not used, a
  // sheared grid comes out at right angles and its corners are missed. Survey bins are rectangles.
  surveyToWorld_.setToIdentity();
  surveyToWorld_.scaleX(sx);
  surveyToWorld_.scaleY(sy);
  surveyToWorld_.scaleZ(1.0);
  surveyToWorld_.rotateZ(theta);
  surveyToWorld_.translate(gdfVertex(c.x(), d.x(), 0.0));

  worldToSurvey_.setToIdentity();
  worldToSurvey_.translate(gdfVertex(-c.x(), -d.x(), 0.0));
  worldToSurvey_.rotateZ(-theta);
  worldToSurvey_.scaleX(1.0 / sx);
  worldToSurvey_.scaleY(1.0 / sy);
  worldToSurvey_.scaleZ(1.0);

  // Kept on purpose (KeptAlternativeFitIsAlwaysValid): corners on a line, which have no such
  // planes, are not turned away; callers that come here have looked at them.
  // Kept on purpose (KeptAlternativeFitSparesRotation): RotationDegrees() and both distances stay
  // those of the other fit, which callers run first for the figures they show.
  valid_ = true;
}

void zrSurveyCoordinates::resetPoints() {
  // Not std::minmax, whose maximum gives way to a NaN: only a number that is really above or below
  // displaces that of the first corner.
  const std::initializer_list<double> inlineNumbers = {
      pointOne_.inlineNumber, pointTwo_.inlineNumber, pointThree_.inlineNumber};
  const std::initializer_list<double> traceNumbers = {pointOne_.traceNumber, pointTwo_.traceNumber,
                                                      pointThree_.traceNumber};
  const double minI = std::min(inlineNumbers);
  const double maxI = std::max(inlineNumbers);
  const double minT = std::min(traceNumbers);
  const double maxT = std::max(traceNumbers);
  const gdfVertex one = gdfVertex(minI, minT, 0.0) % surveyToWorld_;
  const gdfVertex two = gdfVertex(minI, maxT, 0.0) % surveyToWorld_;
  const gdfVertex three = gdfVertex(maxI, minT, 0.0) % surveyToWorld_;
  SetOne(minI, minT, one);
  SetTwo(minI, maxT, two);
  SetThree(maxI, minT, three);
  // Kept on purpose (KeptFlatCornersGiveNoDistance): no guard against corners of one inline or one
  // trace; 0/0 is the answer, and callers test the distance before they draw a bin.
  inlineDist_ = three.distance(one) / (maxI - minI);
  xlineDist_ = two.distance(one) / (maxT - minT);
}
