#include <zrBase/survey/zrSurveyCoordinates.h>

#include <zrBase/geometry/internal/saturatingCast.h>

#include <cmath>

namespace {

zrSurveyPoint surveyPoint(double inlineNumber, double traceNumber, double x, double y) {
  zrSurveyPoint point;
  point.Set(x, y, inlineNumber, traceNumber);
  return point;
}

bool sameNumbers(const zrSurveyPoint& a, const zrSurveyPoint& b) {
  return a.inlineNumber == b.inlineNumber && a.traceNumber == b.traceNumber && a.x == b.x &&
         a.y == b.y;
}

/// Of two extreme points the one further from a corner in one of the survey numbers, the highest at
/// a tie; null where one is unset, or where neither is away from the corner.
const zrSurveyPoint* furtherPoint(const zrSurveyPoint& corner, const zrSurveyPoint& lowest,
                                  const zrSurveyPoint& highest, double zrSurveyPoint::*number) {
  if (!lowest.IsSet() || !highest.IsSet()) return nullptr;
  const double origin = corner.*number;
  if (lowest.*number == origin && highest.*number == origin) return nullptr;
  return std::fabs(lowest.*number - origin) > std::fabs(highest.*number - origin) ? &lowest
                                                                                  : &highest;
}

/// Where one grid's world position of the survey numbers (number, number) lies in another grid.
gdfVertex numbersInOther(double number, const gdfTransMatrix& surveyToWorld,
                         const gdfTransMatrix& otherWorldToSurvey) {
  return (gdfVertex(number, number, 0.0) % surveyToWorld) % otherWorldToSurvey;
}

bool strictlyWithinTwo(double difference) { return -2.0 < difference && difference < 2.0; }

}  // namespace

zrSurveyCoordinates::zrSurveyCoordinates()
    : pointOne_(surveyPoint(0.0, 0.0, 0.0, 0.0)),
      pointTwo_(surveyPoint(0.0, 100.0, 1250.0, 0.0)),
      pointThree_(surveyPoint(100.0, 0.0, 0.0, 1250.0)) {}

zrSurveyCoordinates::zrSurveyCoordinates(const zrSurveyCoordinates& other) = default;
zrSurveyCoordinates::zrSurveyCoordinates(zrSurveyCoordinates&& other) noexcept = default;
zrSurveyCoordinates::~zrSurveyCoordinates() = default;

zrSurveyCoordinates& zrSurveyCoordinates::operator=(const zrSurveyCoordinates& other) {
  Copy(other);
  return *this;
}

void zrSurveyCoordinates::Copy(const zrSurveyCoordinates& other) {
  // Kept on purpose (KeptGridAssignmentSparesUnitsAndPoints): the copy constructor takes units and
  // points too. An assigned grid goes on with its own stream and units; callers swap grids under a
  // running import this way.
  name_ = other.name_;
  lineType_ = other.lineType_;
  valid_ = other.valid_;
  partial_ = other.partial_;
  inlineStep_ = other.inlineStep_;
  traceStep_ = other.traceStep_;
  inlineExtent_ = other.inlineExtent_;
  xlineExtent_ = other.xlineExtent_;
  twoFaultFlags_ = other.twoFaultFlags_;
  surveyToWorld_ = other.surveyToWorld_;
  worldToSurvey_ = other.worldToSurvey_;
  rotationDegrees_ = other.rotationDegrees_;
  inlineDist_ = other.inlineDist_;
  xlineDist_ = other.xlineDist_;
  pointOne_ = other.pointOne_;
  pointTwo_ = other.pointTwo_;
  pointThree_ = other.pointThree_;
}

void zrSurveyCoordinates::SetDefaults() { Copy(zrSurveyCoordinates()); }

bool zrSurveyCoordinates::DefaultsSet() const {
  const zrSurveyCoordinates fresh;
  return sameNumbers(pointOne_, fresh.pointOne_) && sameNumbers(pointTwo_, fresh.pointTwo_) &&
         sameNumbers(pointThree_, fresh.pointThree_);
}

// Kept on purpose (KeptCornerSettersLeaveValid): no setter of a corner clears the flag, here and in
// the header. Callers move corners of a valid grid and go on mapping until they ask for a new fit.
void zrSurveyCoordinates::SetOne(double inlineNumber, double traceNumber, double x, double y) {
  pointOne_ = surveyPoint(inlineNumber, traceNumber, x, y);
}

void zrSurveyCoordinates::SetTwo(double inlineNumber, double traceNumber, double x, double y) {
  pointTwo_ = surveyPoint(inlineNumber, traceNumber, x, y);
}

void zrSurveyCoordinates::SetThree(double inlineNumber, double traceNumber, double x, double y) {
  pointThree_ = surveyPoint(inlineNumber, traceNumber, x, y);
}

void zrSurveyCoordinates::SetOne(double inlineNumber, double traceNumber, const gdfVertex& world) {
  SetOne(inlineNumber, traceNumber, world.x(), world.y());
}

void zrSurveyCoordinates::SetTwo(double inlineNumber, double traceNumber, const gdfVertex& world) {
  SetTwo(inlineNumber, traceNumber, world.x(), world.y());
}

void zrSurveyCoordinates::SetThree(double inlineNumber, double traceNumber,
                                   const gdfVertex& world) {
  SetThree(inlineNumber, traceNumber, world.x(), world.y());
}

void zrSurveyCoordinates::SetSurveyPoint(int index, double inlineNumber, double traceNumber,
                                         double x, double y) {
  if (index == 0) SetOne(inlineNumber, traceNumber, x, y);
  if (index == 1) SetTwo(inlineNumber, traceNumber, x, y);
  if (index == 2) SetThree(inlineNumber, traceNumber, x, y);
}

const zrSurveyPoint& zrSurveyCoordinates::SurveyPoint(int index) const {
  // Kept on purpose (KeptUnknownCornerIndexGivesFirst): any index has an answer here, where
  // SetSurveyPoint does nothing for one that it does not know.
  return index == 1 ? pointTwo_ : index == 2 ? pointThree_ : pointOne_;
}

int zrSurveyCoordinates::inlines() const {
  return gdfInternal::toInt(pointThree_.inlineNumber - pointOne_.inlineNumber + 1.0);
}

int zrSurveyCoordinates::xlines() const {
  return gdfInternal::toInt(pointTwo_.traceNumber - pointOne_.traceNumber + 1.0);
}

zrSurveyPoint zrSurveyCoordinates::inModelUnits(const zrSurveyPoint& streamed) const {
  return surveyPoint(streamed.inlineNumber, streamed.traceNumber, streamed.x * units.getXRatio(),
                     streamed.y * units.getYRatio());
}

bool zrSurveyCoordinates::CalculateSurveyCoordinates() {
  const zrSurveyPoint* first = &points.longestRowStart;
  const zrSurveyPoint* second = &points.longestRowEnd;
  const zrSurveyPoint* third = nullptr;
  if (first->IsSet() && second->IsSet() && first->traceNumber != second->traceNumber) {
    third = furtherPoint(*first, points.minInlinePoint, points.maxInlinePoint,
                         &zrSurveyPoint::inlineNumber);
  } else {
    first = &points.longestColumnStart;
    second = &points.longestColumnEnd;
    if (!first->IsSet() || !second->IsSet() || first->inlineNumber == second->inlineNumber) {
      return false;
    }
    third = furtherPoint(*first, points.minTracePoint, points.maxTracePoint,
                         &zrSurveyPoint::traceNumber);
  }
  pointOne_ = inModelUnits(*first);
  pointTwo_ = inModelUnits(*second);
  if (third != nullptr) {
    pointThree_ = inModelUnits(*third);
  } else {
    // Kept on purpose (KeptPartialStreamKeepsThirdCorner): the corner from before stands beside two
    // new ones, and the result is true all the same. Callers that import single lines supply it.
    // Kept on purpose (KeptPartialIsNotTakenBack): a later stream with three corners leaves the
    // flag up; SetDefaults alone lowers it.
    partial_ = true;
  }
  // Kept on purpose (KeptStreamedCornersCountAsValid): before any fit, whatever the matrices hold.
  // Callers that only want the corners ask for nothing else.
  valid_ = true;
  inlineStep_ = points.InlineInterval();
  traceStep_ = points.TraceInterval();
  return true;
}

bool zrSurveyCoordinates::RecalculateSurveyCoordinates() {
  // Kept on purpose (KeptRecalculationForgetsTheGridFirst): the grid is gone even if there is
  // nothing to recalculate it from; callers show the default one then.
  SetDefaults();
  if (!points.RecalculateCoordinates()) return false;
  // Kept on purpose (KeptRecalculationLeavesLastRunOpen): no End() here, so that the row and the
  // column in progress do not count. The inner range cuts through the survey, and the last run in
  // it is a piece like any other.
  CalculateSurveyCoordinates();
  // Kept on purpose (KeptRecalculationFitsDefaultCorners): whether the stream gave corners is not
  // asked. If not, the default corners are fitted, with success.
  return CalculateTransMatrices();
}

void zrSurveyCoordinates::ClearStoredSurveyCoordinates() {
  // Kept on purpose (KeptClearedStoreKeepsBounds): the bounds go on from where they were, as points
  // of the same survey are stored next.
  points.storedPoints.clear();
}

bool zrSurveyCoordinates::equal(const zrSurveyCoordinates& other) const {
  // Kept on purpose (KeptGridEqualityLooksAtTwoPlaces): two places, in numbers of the other grid.
  // Grids of different names, corners and steps are equal by it, and a may equal b without b
  // equalling a; duplicates in a project are found by exactly this.
  const gdfVertex origin = numbersInOther(0.0, surveyToWorld_, other.worldToSurvey_);
  const gdfVertex far = numbersInOther(100.0, surveyToWorld_, other.worldToSurvey_);
  return strictlyWithinTwo(origin.x()) && strictlyWithinTwo(origin.y()) &&
         strictlyWithinTwo(far.x() - 100.0) && strictlyWithinTwo(far.y() - 100.0);
}
