#ifndef ZRBASE_APPS_SURVEY_SURVEYCOMMAND_H
#define ZRBASE_APPS_SURVEY_SURVEYCOMMAND_H

#include "common/command.h"

/// `zrbase survey`: grids of seismic surveys, from corners or from traces. Its jobs are commands of
/// their own: fit, to-world, to-survey and header.
Command addSurveyCommand(CLI::App& application);

#endif  // ZRBASE_APPS_SURVEY_SURVEYCOMMAND_H
