#include "cluster/clusterSearch.h"

#include <zrBase/clustering/KMdata.h>
#include <zrBase/clustering/KMterm.h>
#include <zrBase/clustering/Rabriol.h>

#include <algorithm>
#include <cstddef>
#include <iostream>

#include "common/progressLine.h"

namespace {

constexpr double kLeastLoss = 0.01;  // of a run that goes on, from stage to stage or as a whole
constexpr int kRunStages = 3;        // in which Lloyd steps have to gain that much
constexpr double kFirstAcceptance = 0.5;
constexpr int kTemperatureStages = 10;
constexpr double kCooling = 0.95;
constexpr int kSwapsInARun = 1;
constexpr double kWholeWay = 1.0;  // a Lloyd step goes to the centroid
constexpr int kMostBeyond = 1000;  // stages past the limit

/// A strategy that shows its stages, and whose last run ends.
///
/// A run of swaps and Lloyd steps goes on as long as it gains. Distortions within the rounding of 0
/// may seem to gain for ever, and only the frame between runs looks at the limit of stages.
template <typename Strategy>
class Watched : public Strategy {
 public:
  template <typename... Parameters>
  Watched(ProgressLine* progress, const Parameters&... parameters)
      : Strategy(parameters...), progress_(progress) {}

 protected:
  void beginStage() override {
    Strategy::beginStage();
    if (progress_ != nullptr) {
      progress_->show(static_cast<std::size_t>(std::min(this->stageNo, this->maxTotStage)));
    }
  }

  bool isRunDone() override {
    return Strategy::isRunDone() || this->stageNo - this->maxTotStage >= kMostBeyond;
  }

 private:
  ProgressLine* progress_;
};

template <typename Strategy, typename... Parameters>
SearchResult run(KMdata& data, const ClusterRequest& request, const Parameters&... parameters) {
  const KMterm term(request.stages, 0.0, 0.0, 0.0, kLeastLoss, kLeastLoss, kRunStages,
                    kFirstAcceptance, kTemperatureStages, kCooling);
  const KMfilterCenters start(static_cast<int>(request.clusters), data, kWholeWay);
  ProgressLine progress("zrbase cluster: stage", static_cast<std::size_t>(request.stages));
  ProgressLine* const shown = request.trace == KM_STAT_SILENT ? &progress : nullptr;
  Watched<Strategy> search(shown, start, term, parameters...);
  KMfilterCenters best = search.execute();
  return {best, search.getTotalStages()};
}

}  // namespace

SearchResult searchClusters(KMdata& data, const ClusterRequest& request) {
  kmOut = &std::cerr;
  kmStatLev = request.trace;
  switch (request.strategy) {
    case ClusterStrategy::lloyd:
      return run<RabriolLloyds>(data, request);
    case ClusterStrategy::swap:
      return run<RabriolSwap>(data, request, kSwapsInARun);
    case ClusterStrategy::ezHybrid:
      return run<RabriolEZ_Hybrid>(data, request);
    case ClusterStrategy::hybrid:
      break;
  }
  return run<RabriolHybrid>(data, request);
}
