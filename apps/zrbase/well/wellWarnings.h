#ifndef ZRBASE_APPS_WELL_WELLWARNINGS_H
#define ZRBASE_APPS_WELL_WELLWARNINGS_H

#include <string>

#include "well/surveyInput.h"
#include "well/wellModel.h"

/// Angle between the directions at two stations, in degrees, exactly 0 for equal angles.
double doglegDegrees(const SurveyStation& upper, const SurveyStation& lower);

/// What is odd about the result of a method between two stations; an empty text if nothing is.
///
/// The azimuths of the average angle and of the radius of curvature are plain numbers, so that an
/// interval across north goes round by south; minimum curvature hands an interval near a right
/// angle over to the average angle; the tangential method knows azimuths from 0 to 360 only.
std::string methodWarning(WellMethod method, const SurveyStation& upper,
                          const SurveyStation& lower);

#endif  // ZRBASE_APPS_WELL_WELLWARNINGS_H
