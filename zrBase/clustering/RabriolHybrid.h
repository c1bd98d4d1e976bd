#ifndef ZRBASE_CLUSTERING_RABRIOLHYBRID_H
#define ZRBASE_CLUSTERING_RABRIOLHYBRID_H

#include <zrBase/clustering/searchFrame.h>
#include <zrBase/export.h>

/// Search by swaps and Lloyd steps under simulated annealing (Kirkpatrick, Gelatt and Vecchi,
/// 1983).
///
/// A run is a series of swaps, for as long as the annealing test accepts them, and then Lloyd steps
/// until one loses no more than `minConsecRDL`. At its end the test decides whether the search goes
/// on from there. The limit of stages ends no run, so that the last one may go beyond it.
///
/// The test accepts a relative distortion loss x with the probability exp(x / temperature), at most
/// `initProbAccept`. The temperature is measured: the first `tempRunLength` tests, at least 20, are
/// trials, which accept with `initProbAccept`, and whose mean absolute loss is then one that just
/// this probability belongs to. From there on it is multiplied by `tempReducFact` at the end of the
/// first run that is `tempRunLength` stages or more away from the last change.
class ZRBASE_EXPORT RabriolHybrid : public Rabriol {
 public:
  /// See Rabriol.
  RabriolHybrid(const KMfilterCenters& sol, const KMterm& term);
  /// Copies all state, the temperature and the saved solution included; see Rabriol.
  RabriolHybrid(const RabriolHybrid& other) = default;
  /// Takes over all state, the temperature and the saved solution included; see Rabriol.
  RabriolHybrid& operator=(const RabriolHybrid& other) = default;
  /// Frees the solutions; the data stays.
  ~RabriolHybrid() override = default;

 protected:
  /// Writes the line of a stage; beside the averages of all three solutions the loss since the
  /// stage before it.
  void printStageStats() override;
  /// Also saves the drawn centers, begins the trials anew and writes the line of stage 0. Its loss
  /// is that against the last stage of the execute() before: the first time that is a distortion of
  /// 0, and the loss -inf, or a NaN. The temperature of an earlier execute() stays until the trials
  /// replace it.
  void reset() override;
  /// Notes the distortion.
  void beginStage() override;
  /// A swap in the first part of a run, then Lloyd steps.
  KMalg selectMethod() override;
  /// Counts the stage and writes its line.
  void endStage() override;
  /// Whether the run ends: never in its first part, which is over once a swap is not accepted;
  /// after a Lloyd step if its loss is at most `minConsecRDL`, or a NaN, as it is between two
  /// distortions of 0.
  ///
  /// In the first part such a NaN goes to the test like any other loss. Where no swap leads to a
  /// distortion, that is the test's last word: with an `initProbAccept` above 1 the run never ends.
  bool isRunDone() override;
  /// Lowers the temperature if it is time to, asks for swaps, and writes the line of a run.
  void endRun() override;
  /// Decides about the outcome of a run.
  ///
  /// If it is better than the saved solution it is saved, and becomes the best one if it is
  /// strictly better than that. If not, and if the test accepts it, the search goes on from it, but
  /// it is the best solution that is saved. If the test does not accept it either, the search goes
  /// back to what is saved.
  void tryAcceptance() override;
  /// Writes `    <End of Run>` at KM_STAT_STAGES and above.
  virtual void printRunStats();

  /// Relative distortion loss of the current solution against the saved one.
  double accumRDL();
  /// Relative distortion loss since the stage began; NaN or infinite if that began with 0.
  double consecRDL();
  /// The annealing test: counts a trial while these last, and draws one random number in any case.
  /// @param x  a relative distortion loss; below 0 for a worse solution
  bool simAnnealAccept(double x);
  /// Begins the trials anew.
  void initTempRuns();
  /// Number of trials: `tempRunLength`, and at least 20.
  int nTrials() const;
  /// Whether it is time to lower the temperature; never during the trials.
  bool isTempRunDone() const;
  /// Lowers the temperature.
  void endTempRun();

  double temperature;    ///< the current temperature
  int initTempRunStage;  ///< stage at which it began; 2147483647 during the trials
  bool areSwapping;      ///< whether the run is in its first part
  double prevDist;       ///< distortion at the start of the stage
  double sumTrials;      ///< sum of the absolute losses of the trials
  int trialCt;           ///< trials to come; below 0 once they are over and more was tested
  KMfilterCenters save;  ///< the solution that a run which is not accepted goes back to
};

#endif  // ZRBASE_CLUSTERING_RABRIOLHYBRID_H
