#include <zrBase/clustering/RabriolSwap.h>

RabriolSwap::RabriolSwap(const KMfilterCenters& sol, const KMterm& parameters, int swapsInRun)
    : Rabriol(sol, parameters), maxSwaps(swapsInRun), swapCt(0) {}

void RabriolSwap::reset() {
  Rabriol::reset();
  printStageStats();
}

void RabriolSwap::beginRun() {
  Rabriol::beginRun();
  swapCt = 0;
}

void RabriolSwap::beginStage() {}

KMalg RabriolSwap::selectMethod() { return KM_ALG_SWAP; }

void RabriolSwap::endStage() {}

bool RabriolSwap::isRunDone() {
  if (isDone()) return true;
  ++swapCt;
  return swapCt >= maxSwaps;
}

void RabriolSwap::endRun() {
  curr.getDist(true);
  // Kept on purpose (KeptSwapRunCountsAsOneStage): a limit of 3 stages is a limit of 3 runs here,
  // of however many swaps.
  ++stageNo;
  printStageStats();
}

void RabriolSwap::tryAcceptance() {
  // Kept on purpose (KeptEqualSwapIsTakenBack): a run that leaves the distortion as it was goes
  // back, too.
  if (best.getDist(true) > curr.getDist(true)) {
    best = curr;
  } else {
    curr = best;
  }
}
