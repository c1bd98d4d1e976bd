#ifndef ZRBASE_CLUSTERING_KMTERM_H
#define ZRBASE_CLUSTERING_KMTERM_H

#include <zrBase/export.h>

/// When a k-means search stops, and how the annealing of the hybrid search goes: a plain value.
///
/// RDL stands for relative distortion loss, (old - new) / old: 0.1 for a distortion that fell by a
/// tenth, below 0 for one that grew. Which search reads which figure:
///
///     figure           Lloyds  Swap  EZ_Hybrid  Hybrid
///     stage limit        x      x        x        x
///     minConsecRDL                       x        x
///     minAccumRDL        x
///     maxRunStage        x
///     initProbAccept                              x
///     tempRunLength                               x
///     tempReducFact                               x
///
/// No value is checked, and a search whose runs never end does not end either.
class ZRBASE_EXPORT KMterm {
 public:
  /// All figures 0: no limit of stages.
  KMterm();
  /// @param a,b,c,d  coefficients of the limit of stages, see getMaxTotStage
  KMterm(double a, double b, double c, double d, double minConsecRDL, double minAccumRDL,
         int maxRunStage, double initProbAccept, int tempRunLength, double tempReducFact);
  /// Copies all figures.
  KMterm(const KMterm& other) = default;
  /// Takes over all figures.
  KMterm& operator=(const KMterm& other) = default;

  /// Most stages of a run.
  int getMaxRunStage() const { return maxRunStage; }
  /// Sets the most stages of a run; below 2 each run has one.
  void setMaxRunStage(int stages) { maxRunStage = stages; }

  /// Relative distortion loss from one stage to the next that a run has to exceed to go on.
  double getMinConsecRDL() const { return minConsecRDL; }
  /// Sets that loss, 0.01 for a hundredth. 0 or more ends each series of Lloyd steps sooner or
  /// later; below 0, steps that change nothing go on for ever.
  void setMinConsecRDL(double loss) { minConsecRDL = loss; }

  /// Relative distortion loss over a run from which on the run counts as a success.
  double getMinAccumRDL() const { return minAccumRDL; }
  /// Sets that loss, 0.1 for a tenth; with 0 a run that gains nothing counts as a success, too.
  void setMinAccumRDL(double loss) { minAccumRDL = loss; }

  /// Probability, 0 to 1, of accepting a worse solution at the beginning.
  double getInitProbAccept() const { return initProbAccept; }
  /// Sets that probability. 1 accepts nearly everything for ever; above 1 a search of RabriolHybrid
  /// may never end.
  void setInitProbAccept(double probability) { initProbAccept = probability; }

  /// Stages at one temperature.
  int getTempRunLength() const { return tempRunLength; }
  /// Sets that number of stages; 0 or less lowers the temperature after every run.
  void setTempRunLength(int stages) { tempRunLength = stages; }

  /// Factor that the temperature is multiplied by after so many stages.
  double getTempReducFact() const { return tempReducFact; }
  /// Sets that factor: from 0 to 1 for a temperature that falls, 1 for one that stays.
  void setTempReducFact(double factor) { tempReducFact = factor; }

  /// Sets one coefficient of the limit of stages.
  /// @param i  0 to 3 for a, b, c and d; not checked
  void setMaxTotStage(int i, double v) { maxTotStageVec[i] = v; }

  /// Makes the limit of stages the same for any k and n: a is set to it and d to 0. b and c stay as
  /// they are, and count again once d is set to something else.
  void setAbsMaxTotStage(int stages);

  /// Limit of stages for k centers and n points: a + (b k + c n)^d, or a alone where d is 0,
  /// truncated to an int and saturating at its highest value.
  ///
  /// A limit of 0, below 0 or NaN means no limit: the result is 2147483647. A limit above 0 and
  /// below 1 is truncated to 0, and a search with that one has no stage at all.
  int getMaxTotStage(int k, int n) const;

 protected:
  /// What getMaxTotStage(k, n) gives for the coefficients v[0] to v[3].
  static int maxStage(const double* v, int k, int n);

  double maxTotStageVec[4];  ///< a, b, c and d of the limit of stages
  double minConsecRDL;       ///< loss from stage to stage for a run to go on
  double minAccumRDL;        ///< loss over a run that makes it a success
  int maxRunStage;           ///< most stages of a run
  double initProbAccept;     ///< probability of accepting a worse solution at first
  int tempRunLength;         ///< stages at one temperature
  double tempReducFact;      ///< cooling factor
};

#endif  // ZRBASE_CLUSTERING_KMTERM_H
