#ifndef ZRBASE_CLUSTERING_RABRIOLLLOYDS_H
#define ZRBASE_CLUSTERING_RABRIOLLLOYDS_H

#include <zrBase/clustering/searchFrame.h>
#include <zrBase/export.h>

/// Search by Lloyd's algorithm (Lloyd, 1957) from centers drawn again and again.
///
/// A run is a series of Lloyd steps, ended by a loss of `minAccumRDL` since its beginning, by
/// `maxRunStage` stages or by the limit of stages. After a run with that loss the next one goes on
/// from there; after any other, its first stage draws new centers. The best solution is kept up to
/// date at every stage.
class ZRBASE_EXPORT RabriolLloyds : public Rabriol {
 public:
  /// See Rabriol; computes the distortion of the solution given.
  RabriolLloyds(const KMfilterCenters& sol, const KMterm& term);
  /// Copies all state, phase and distortion of the run included; see Rabriol.
  RabriolLloyds(const RabriolLloyds& other) = default;
  /// Takes over all state, phase and distortion of the run included; see Rabriol.
  RabriolLloyds& operator=(const RabriolLloyds& other) = default;
  /// Frees the solutions; the data stays.
  ~RabriolLloyds() override = default;

 protected:
  /// Writes the line of a stage; beside the averages the loss since the run began, in percent.
  void printStageStats() override;
  /// Also makes the drawn centers those that the first run is measured against.
  void reset() override;
  /// Nothing to do.
  void beginStage() override;
  /// New centers if the last run asked for them, else a Lloyd step.
  KMalg selectMethod() override;
  /// Counts the stage. The current solution becomes the best one if its average distortion is
  /// strictly lower; a total that is lower by no more than rounding may not be enough.
  void endStage() override;
  /// Whether the run ends: by the limit of stages, by its length, by its loss. A stage that drew
  /// new centers goes on, and is what the loss is measured against from then on, unless one of the
  /// two limits ended the run with it.
  bool isRunDone() override;
  /// Judges the run by its loss, and writes the line of a run.
  void endRun() override;
  /// Writes `    <Generating new random centers>` at KM_STAT_STAGES and above, after every run:
  /// also after one that the next run goes on from.
  virtual void printRunStats();

  /// Relative distortion loss since the run began: NaN or infinite if that began with distortion 0.
  double accumRDL();

  double initRunDist;  ///< distortion at the start of the run
  bool isNewPhase;     ///< whether the next stage draws new centers
};

#endif  // ZRBASE_CLUSTERING_RABRIOLLLOYDS_H
