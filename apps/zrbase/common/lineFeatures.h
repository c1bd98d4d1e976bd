#ifndef ZRBASE_APPS_COMMON_LINEFEATURES_H
#define ZRBASE_APPS_COMMON_LINEFEATURES_H

#include <ogrsf_frmts.h>

#include <vector>

#include "common/vectorInput.h"
#include "common/vectorOutput.h"

/// @file
/// What output features tell about the lines of the input that they come from.

/// The fields `fid`, `part` and `name`, and then these.
std::vector<FieldModel> sourceFieldsAnd(const std::vector<FieldModel>& fields);

/// Fills `fid`, `part` and, where the source has one, `name`.
void setSource(OGRFeature& feature, const InputLine& source);

/// Whether any vertex has a z other than 0: the output has heights then.
bool anyElevation(const std::vector<InputLine>& lines);

#endif  // ZRBASE_APPS_COMMON_LINEFEATURES_H
