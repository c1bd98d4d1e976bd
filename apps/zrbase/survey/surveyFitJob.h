#ifndef ZRBASE_APPS_SURVEY_SURVEYFITJOB_H
#define ZRBASE_APPS_SURVEY_SURVEYFITJOB_H

#include <string>

#include "survey/cornersInput.h"
#include "survey/segyFile.h"

/// The options of `zrbase survey fit`, as typed.
struct FitOptions {
  std::string segy;        ///< seismic file; empty where there are corners
  CornersOptions corners;  ///< its units hold for a seismic file too
  TraceBytes bytes;
  std::string steps;  ///< "2,4"; empty for those of the traces, or 1,1
  std::string crs;
  std::string output;
  bool grid = false;
  bool centres = false;
  std::string every = "1";
};

/// Fits the grid, writes what is asked for and prints the summary.
/// @throws CommandError for what the user can mend
void runSurveyFit(const FitOptions& options);

#endif  // ZRBASE_APPS_SURVEY_SURVEYFITJOB_H
