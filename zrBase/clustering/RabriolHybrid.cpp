#include <zrBase/clustering/RabriolHybrid.h>

#include <zrBase/clustering/internal/plainNumbers.h>
#include <zrBase/clustering/kmRandom.h>
#include <zrBase/clustering/kmServices.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>

RabriolHybrid::RabriolHybrid(const KMfilterCenters& sol, const KMterm& parameters)
    : Rabriol(sol, parameters),
      temperature(0.0),
      initTempRunStage(0),
      areSwapping(true),
      prevDist(0.0),
      sumTrials(0.0),
      trialCt(0),
      save(sol) {}

double RabriolHybrid::accumRDL() {
  const double distortion = curr.getDist(true);
  const double saved = save.getDist(true);
  return (saved - distortion) / saved;
}

double RabriolHybrid::consecRDL() { return (prevDist - curr.getDist(true)) / prevDist; }

void RabriolHybrid::reset() {
  Rabriol::reset();
  save = curr;
  areSwapping = true;
  initTempRuns();
  // Kept on purpose (KeptAnnealedSearchBeginsWithAnOldLoss): prevDist is not set back. The first
  // line tells a loss of -inf, that of a second search the loss since the end of the first.
  printStageStats();
}

void RabriolHybrid::initTempRuns() {
  // Kept on purpose (KeptTemperatureOutlivesReset): it is left alone. No test reads it before the
  // trials have measured a new one.
  sumTrials = 0.0;
  initTempRunStage = std::numeric_limits<int>::max();
  trialCt = nTrials();
}

int RabriolHybrid::nTrials() const {
  // Kept on purpose (KeptTrialsAreAtLeastTwenty): fewer would make a mean of little worth, however
  // short the time at one temperature is.
  return std::max(term.getTempRunLength(), 20);
}

bool RabriolHybrid::isTempRunDone() const {
  return stageNo - initTempRunStage >= term.getTempRunLength();
}

void RabriolHybrid::endTempRun() {
  initTempRunStage = stageNo;
  temperature *= term.getTempReducFact();
}

void RabriolHybrid::beginStage() { prevDist = curr.getDist(true); }

KMalg RabriolHybrid::selectMethod() { return areSwapping ? KM_ALG_SWAP : KM_ALG_LLOYD; }

void RabriolHybrid::endStage() {
  ++stageNo;
  curr.getDist(true);
  printStageStats();
}

bool RabriolHybrid::isRunDone() {
  const double loss = consecRDL();
  if (areSwapping) {
    // Kept on purpose (KeptSwapWithoutDistortionIsLeftToTheTest): a loss of NaN ends neither the
    // run nor its first part by itself. It is tested, counted as a trial, and costs a draw.
    if (!simAnnealAccept(loss)) areSwapping = false;
    return false;
  }
  // Kept on purpose (KeptAnnealedRunGoesOnPastTheLimit): the limit of stages is not looked at, here
  // or above, so that what is judged at the end of a run is always the outcome of Lloyd steps.
  return term.getMinConsecRDL() >= loss || std::isnan(loss);
}

void RabriolHybrid::endRun() {
  if (isTempRunDone()) endTempRun();
  areSwapping = true;
  printRunStats();
}

void RabriolHybrid::tryAcceptance() {
  if (accumRDL() > 0.0) {
    save = curr;
    if (save.getDist(true) < best.getDist(true)) best = save;
  } else if (simAnnealAccept(accumRDL())) {
    // Kept on purpose (KeptAcceptedLossSavesTheBest): it looks as if the current solution were to
    // be saved. It is not: the search walks on from it, and what it falls back on is the best of
    // all.
    save = best;
  } else {
    curr = save;
  }
}

bool RabriolHybrid::simAnnealAccept(double x) {
  double probability = term.getInitProbAccept();
  --trialCt;
  if (trialCt < 0) {
    // Kept on purpose (KeptCertainAcceptanceNeedsNoTemperature): of a NaN, as a temperature that is
    // not finite may give it, the initial probability is the smaller.
    probability = std::min(probability, std::exp(x / temperature));
  } else {
    // Kept on purpose (KeptTrialIgnoresTheSizeOfTheLoss): as long as there is no temperature, a
    // solution is accepted as often whether it is much worse, a little worse or better.
    sumTrials += std::fabs(x);
    if (trialCt == 0) {
      initTempRunStage = stageNo;
      temperature = -sumTrials / (nTrials() * std::log(probability));
    }
  }
  // Strictly: a draw of exactly 1.0 is refused even by a probability of 1.0, one time in 32768.
  return kmRanUnif(0.0, 1.0) < probability;
}

void RabriolHybrid::printStageStats() {
  if (kmStatLev < KM_STAT_STAGES) return;
  const double currAverage = curr.getAvgDist(true);
  const double bestAverage = best.getAvgDist(true);
  const double saveAverage = save.getAvgDist(true);
  const double loss = consecRDL();
  const PlainNumbers plainNumbers(*kmOut);
  *kmOut << "    <stage: " << stageNo << " curr: " << currAverage << " best: " << bestAverage
         << " save: " << saveAverage << " consecRDL: " << loss << " >" << std::endl;
}

void RabriolHybrid::printRunStats() {
  if (kmStatLev >= KM_STAT_STAGES) *kmOut << "    <End of Run>" << std::endl;
}
