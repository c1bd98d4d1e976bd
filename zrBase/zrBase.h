#ifndef ZRBASE_ZRBASE_H
#define ZRBASE_ZRBASE_H

/// @file
/// The whole library: every public header, by subsystem.

#include <zrBase/export.h>

#include <zrBase/geometry/gdfSpherical.h>
#include <zrBase/geometry/gdfTransMatrix.h>
#include <zrBase/geometry/gdfTriMatrix.h>
#include <zrBase/geometry/gdfTuple_4.h>
#include <zrBase/geometry/gdfVertex.h>

#include <zrBase/tools2d/zr2DTools.h>

#include <zrBase/tools3d/zr3DTools.h>

#include <zrBase/bisectors/zr2DBisector.h>
#include <zrBase/bisectors/zr2DBisectorSet.h>
#include <zrBase/bisectors/zrFlowPath.h>

#include <zrBase/numerics/mgcEigen.h>
#include <zrBase/numerics/mgcEigenD.h>
#include <zrBase/numerics/symmetricEigenSolver.h>

#include <zrBase/utilities/unitConstants.h>
#include <zrBase/utilities/zrStrUtils.h>
#include <zrBase/utilities/zrTranslator.h>
#include <zrBase/utilities/zrUnits.h>
#include <zrBase/utilities/zrUtils.h>

#include <zrBase/survey/zrCordinateConversion.h>
#include <zrBase/survey/zrShotpointLine.h>
#include <zrBase/survey/zrSurveyCoordinatePoints.h>
#include <zrBase/survey/zrSurveyCoordinates.h>
#include <zrBase/survey/zrSurveyPoint.h>

#include <zrBase/clustering/KCnode.h>
#include <zrBase/clustering/KCtree.h>
#include <zrBase/clustering/KMcenters.h>
#include <zrBase/clustering/KMdata.h>
#include <zrBase/clustering/KMfilterCenters.h>
#include <zrBase/clustering/KMterm.h>
#include <zrBase/clustering/Rabriol.h>
#include <zrBase/clustering/kmPoints.h>
#include <zrBase/clustering/kmRandom.h>
#include <zrBase/clustering/kmServices.h>

#endif  // ZRBASE_ZRBASE_H
