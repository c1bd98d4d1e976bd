#include <zrBase/clustering/RabriolLloyds.h>

#include <zrBase/clustering/internal/plainNumbers.h>
#include <zrBase/clustering/kmServices.h>

#include <ostream>

RabriolLloyds::RabriolLloyds(const KMfilterCenters& sol, const KMterm& parameters)
    : Rabriol(sol, parameters), initRunDist(curr.getDist(true)), isNewPhase(false) {}

double RabriolLloyds::accumRDL() { return (initRunDist - curr.getDist(true)) / initRunDist; }

void RabriolLloyds::reset() {
  Rabriol::reset();
  isNewPhase = false;
  initRunDist = curr.getDist(true);
  printStageStats();
}

void RabriolLloyds::beginStage() {}

KMalg RabriolLloyds::selectMethod() { return isNewPhase ? KM_ALG_RANDOM : KM_ALG_LLOYD; }

void RabriolLloyds::endStage() {
  ++stageNo;
  // Kept on purpose (KeptStagesAreJudgedByTheirAverage): all other decisions compare totals. Totals
  // that differ in their last bit may have the same average, and then the older solution stays.
  if (best.getAvgDist(true) > curr.getAvgDist(true)) best = curr;
  printStageStats();
}

bool RabriolLloyds::isRunDone() {
  // Kept on purpose (KeptCutOffDrawLeavesThePhaseNew): the limits are looked at first. A run that
  // they end with its draw is judged against the run before it, and the next one draws again, even
  // if the draw was a success.
  if (isDone() || stageNo - runInitStage >= term.getMaxRunStage()) return true;
  if (!isNewPhase) return accumRDL() >= term.getMinAccumRDL();
  isNewPhase = false;
  initRunDist = curr.getDist(true);
  return false;
}

void RabriolLloyds::endRun() {
  if (accumRDL() >= term.getMinAccumRDL()) {
    initRunDist = curr.getDist(true);
  } else {
    isNewPhase = true;
  }
  printRunStats();
}

void RabriolLloyds::printStageStats() {
  if (kmStatLev < KM_STAT_STAGES) return;
  const double currAverage = curr.getAvgDist(true);
  const double bestAverage = best.getAvgDist(true);
  const double lossInPercent = accumRDL() * 100.0;
  const PlainNumbers plainNumbers(*kmOut);
  *kmOut << "\t<stage: " << stageNo << " curr: " << currAverage << " best: " << bestAverage
         << " accumRDL: " << lossInPercent << "% >" << std::endl;
}

void RabriolLloyds::printRunStats() {
  // Kept on purpose (KeptNewCentersAreToldAfterEveryRun): whether new centers follow or not. The
  // line separates the runs of a log.
  if (kmStatLev >= KM_STAT_STAGES) *kmOut << "    <Generating new random centers>" << std::endl;
}
