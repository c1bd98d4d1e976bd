#include <zrBase/clustering/searchFrame.h>

#include <zrBase/clustering/internal/plainNumbers.h>
#include <zrBase/clustering/kmServices.h>

#include <ostream>

Rabriol::Rabriol(const KMfilterCenters& sol, const KMterm& parameters)
    : n(sol.getData().getNPts()),
      k(sol.getK()),
      dim(sol.getDim()),
      term(parameters),
      maxTotStage(term.getMaxTotStage(k, n)),
      stageNo(0),
      runInitStage(0),
      curr(sol),
      best(sol) {}

KMfilterCenters Rabriol::execute() {
  reset();
  while (!isDone()) {
    beginRun();
    do {
      beginStage();
      move(selectMethod());
      endStage();
    } while (!isRunDone());
    endRun();
    tryAcceptance();
  }
  return best;
}

void Rabriol::reset() {
  stageNo = 0;
  // Kept on purpose (KeptGivenCentersAreReplaced): every search begins with a draw, however good
  // the centers are that it was given. Whoever searches twice counts on two different beginnings.
  drawCenters();
  curr.computeDistortion();
  best = curr;
}

void Rabriol::move(KMalg method) {
  switch (method) {
    case KM_ALG_LLOYD:
      return curr.moveToCentroid();
    case KM_ALG_SWAP:
      return curr.swapOneCenter(true);
    case KM_ALG_RANDOM:
      return drawCenters();
  }
}

void Rabriol::drawCenters() {
  curr.getData().sampleCtrs(curr.getCtrPts(), k, false);
  if (kmStatLev >= KM_STAT_CENTERS) curr.print(true);
  curr.valid = false;
}

bool Rabriol::isDone() const { return stageNo >= maxTotStage; }

void Rabriol::beginRun() { runInitStage = stageNo; }

void Rabriol::beginStage() {}

void Rabriol::endStage() { ++stageNo; }

bool Rabriol::isRunDone() { return isDone(); }

void Rabriol::endRun() {}

void Rabriol::tryAcceptance() {
  if (curr.getDist(true) < best.getDist(true)) best = curr;
}

void Rabriol::printStageStats() {
  if (kmStatLev < KM_STAT_STAGES) return;
  const double currAverage = curr.getAvgDist(true);
  const double bestAverage = best.getAvgDist(true);
  const PlainNumbers plainNumbers(*kmOut);
  *kmOut << "\t<stage: " << stageNo << " curr: " << currAverage << " best: " << bestAverage << " >"
         << std::endl;
}
