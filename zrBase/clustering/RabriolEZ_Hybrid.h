#ifndef ZRBASE_CLUSTERING_RABRIOLEZ_HYBRID_H
#define ZRBASE_CLUSTERING_RABRIOLEZ_HYBRID_H

#include <zrBase/clustering/searchFrame.h>
#include <zrBase/export.h>

/// Search by one swap and then Lloyd steps, again and again.
///
/// A run is one swap, and Lloyd steps until one loses no more than `minConsecRDL`. Nothing is taken
/// back: each run goes on from where the last one ended, and the best solution only takes note. The
/// limit of stages ends no run, so that the last one may go beyond it.
class ZRBASE_EXPORT RabriolEZ_Hybrid : public Rabriol {
 public:
  /// See Rabriol.
  RabriolEZ_Hybrid(const KMfilterCenters& sol, const KMterm& term);
  /// Copies all state, the distortion of the last stage included; see Rabriol.
  RabriolEZ_Hybrid(const RabriolEZ_Hybrid& other) = default;
  /// Takes over all state, the distortion of the last stage included; see Rabriol.
  RabriolEZ_Hybrid& operator=(const RabriolEZ_Hybrid& other) = default;
  /// Frees the solutions; the data stays.
  ~RabriolEZ_Hybrid() override = default;

 protected:
  /// Writes the line of a stage; beside the averages the loss since the stage before it.
  void printStageStats() override;
  /// Also writes the line of stage 0, whose loss is that against the last stage of the execute()
  /// before: the first time that is a distortion of 0, and the loss -inf, or a NaN.
  void reset() override;
  /// Notes the distortion.
  void beginStage() override;
  /// A swap for the first stage of a run, then Lloyd steps.
  KMalg selectMethod() override;
  /// Counts the stage and writes its line.
  void endStage() override;
  /// Whether the run ends: never after the swap; after a Lloyd step if its loss is at most
  /// `minConsecRDL`, or a NaN, as it is between two distortions of 0.
  bool isRunDone() override;
  /// Asks for a swap, and writes the line of a run.
  void endRun() override;
  /// Writes `    <Swapping Centers>` at KM_STAT_STAGES and above.
  virtual void printRunStats();

  /// Relative distortion loss since the stage began; NaN or infinite if that began with 0.
  double consecRDL();

  bool isNewRun;    ///< whether the next stage is the swap of a run
  double prevDist;  ///< distortion at the start of the stage
};

#endif  // ZRBASE_CLUSTERING_RABRIOLEZ_HYBRID_H
