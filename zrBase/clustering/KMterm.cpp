#include <zrBase/clustering/KMterm.h>

#include <zrBase/geometry/internal/saturatingCast.h>

#include <cmath>
#include <limits>

KMterm::KMterm() : KMterm(0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0, 0.0, 0, 0.0) {}

KMterm::KMterm(double a, double b, double c, double d, double consecRDL, double accumRDL,
               int runStages, double probAccept, int runLength, double reducFact)
    : maxTotStageVec{a, b, c, d},
      minConsecRDL(consecRDL),
      minAccumRDL(accumRDL),
      maxRunStage(runStages),
      initProbAccept(probAccept),
      tempRunLength(runLength),
      tempReducFact(reducFact) {}

void KMterm::setAbsMaxTotStage(int stages) {
  // Kept on purpose (KeptAbsoluteLimitLeavesTwoCoefficients): d = 0 alone takes b and c out of the
  // sum, and who sets d again finds them.
  maxTotStageVec[0] = stages;
  maxTotStageVec[3] = 0.0;
}

int KMterm::getMaxTotStage(int k, int n) const { return maxStage(maxTotStageVec, k, n); }

int KMterm::maxStage(const double* v, int k, int n) {
  const double limit = v[3] == 0.0 ? v[0] : v[0] + std::pow(v[1] * k + v[2] * n, v[3]);
  // Kept on purpose (KeptLimitOfZeroIsNoLimit): a figure that nobody has set allows any number of
  // stages, and so does a negative one, or a NaN, which is not above 0.
  // Kept on purpose (KeptLimitBelowOneStageIsZero): what is above 0 is a limit before it is
  // truncated, so that 0.5 allows no stage at all.
  return limit > 0.0 ? gdfInternal::toInt(limit) : std::numeric_limits<int>::max();
}
