#include <zrBase/clustering/RabriolEZ_Hybrid.h>

#include <zrBase/clustering/internal/plainNumbers.h>
#include <zrBase/clustering/kmServices.h>

#include <cmath>
#include <ostream>

RabriolEZ_Hybrid::RabriolEZ_Hybrid(const KMfilterCenters& sol, const KMterm& parameters)
    : Rabriol(sol, parameters), isNewRun(true), prevDist(0.0) {}

double RabriolEZ_Hybrid::consecRDL() { return (prevDist - curr.getDist(true)) / prevDist; }

void RabriolEZ_Hybrid::reset() {
  Rabriol::reset();
  isNewRun = true;
  // Kept on purpose (KeptLossOfStageZeroIsInfinite): prevDist is still what it was before, at first
  // 0, so that the first line tells a loss of -inf. Logs begin with it.
  printStageStats();
}

void RabriolEZ_Hybrid::beginStage() { prevDist = curr.getDist(true); }

KMalg RabriolEZ_Hybrid::selectMethod() { return isNewRun ? KM_ALG_SWAP : KM_ALG_LLOYD; }

void RabriolEZ_Hybrid::endStage() {
  ++stageNo;
  curr.getDist(true);
  printStageStats();
}

bool RabriolEZ_Hybrid::isRunDone() {
  if (isNewRun) {
    isNewRun = false;
    return false;
  }
  // Kept on purpose (KeptRunGoesOnPastTheLimit): only the loss ends a run, not the limit of stages:
  // a swap is never left without the Lloyd steps that make it worth something.
  const double loss = consecRDL();
  return term.getMinConsecRDL() >= loss || std::isnan(loss);
}

void RabriolEZ_Hybrid::endRun() {
  // Kept on purpose (KeptBadRunIsNotTakenBack): tryAcceptance, that of the frame, leaves the
  // current solution alone too. So the search walks on through solutions that are worse than the
  // best.
  isNewRun = true;
  printRunStats();
}

void RabriolEZ_Hybrid::printStageStats() {
  if (kmStatLev < KM_STAT_STAGES) return;
  const double currAverage = curr.getAvgDist(true);
  const double bestAverage = best.getAvgDist(true);
  const double loss = consecRDL();
  const PlainNumbers plainNumbers(*kmOut);
  *kmOut << "    <stage: " << stageNo << " curr: " << currAverage << " best: " << bestAverage
         << " consecRDL: " << loss << " >" << std::endl;
}

void RabriolEZ_Hybrid::printRunStats() {
  if (kmStatLev >= KM_STAT_STAGES) *kmOut << "    <Swapping Centers>" << std::endl;
}
