#ifndef ZRBASE_CLUSTERING_SEARCHFRAME_H
#define ZRBASE_CLUSTERING_SEARCHFRAME_H

#include <zrBase/clustering/KMfilterCenters.h>
#include <zrBase/clustering/KMterm.h>
#include <zrBase/export.h>

/// The move that one stage of a search makes. Other values make none.
enum KMalg : int {
  KM_ALG_LLOYD = 0,   ///< each center goes to the centroid of its points
  KM_ALG_SWAP = 1,    ///< one center, drawn at random, is replaced by a data point, drawn at random
  KM_ALG_RANDOM = 4,  ///< all centers are drawn anew from the data points
};

/// The frame of every k-means search: a fixed course, and operations that give it its character.
///
/// A stage is one move of the current centers. A run is a series of stages, at the end of which the
/// search decides what to do with what came out. The frame holds two solutions, the current one and
/// the best one seen:
///
///     reset
///     while not isDone:
///       beginRun
///       do
///         beginStage, the move of selectMethod, endStage
///       while not isRunDone
///       endRun
///       tryAcceptance
///
/// Searches ready for use are RabriolLloyds, RabriolSwap, RabriolEZ_Hybrid and RabriolHybrid (local
/// search by swaps after Kanungo, Mount and others, 2004). A search of one's own derives from this
/// class, and at least names the move of each stage.
///
/// The random numbers come from the one generator of the process (kmRandom.h): what a search finds
/// depends on what was drawn before it. At KM_STAT_STAGES and above a search writes its stages to
/// kmOut. That draws nothing, and changes no result.
///
/// The data has to live as long as the search, and must not change its size or dimension under it.
class ZRBASE_EXPORT Rabriol {
 protected:
  /// Writes the line of one stage at KM_STAT_STAGES and above: its number and the average
  /// distortion of both solutions, which are computed for it if they are stale.
  virtual void printStageStats();

 public:
  /// A search from a solution and the figures that end it; both are copied.
  /// @param sol  gives data, number of centers and damping; its centers are replaced by execute()
  Rabriol(const KMfilterCenters& sol, const KMterm& term);
  /// Copies all state, with centers of its own for the same data.
  Rabriol(const Rabriol& other) = default;
  /// Takes over all state, sizes and data included, with centers of its own.
  Rabriol& operator=(const Rabriol& other) = default;
  /// Frees both solutions; the data stays.
  virtual ~Rabriol() = default;

  /// Runs the search, anew with each call, and gives the best solution that it saw.
  ///
  /// It begins with centers drawn from the data: those of the solution given at construction have
  /// no part in it. The limit of stages is looked at between runs, and within a run only by
  /// searches that say so. It never returns if a run never ends, if there is no limit, or if there
  /// are more centers than points.
  virtual KMfilterCenters execute();

  /// Number of stages of the last execute(), 0 before the first. What counts as a stage is up to
  /// the search: RabriolSwap counts its runs.
  int getTotalStages() const { return stageNo; }

 protected:
  /// Prepares a new search: stage 0, centers drawn from the data, no point twice, which are the
  /// best ones so far.
  virtual void reset();
  /// Whether the limit of stages is reached.
  virtual bool isDone() const;
  /// Prepares a run; notes at which stage it begins.
  virtual void beginRun();
  /// Prepares a stage; nothing to do here.
  virtual void beginStage();
  /// The move of the stage.
  virtual KMalg selectMethod() = 0;
  /// Closes a stage; counts it.
  virtual void endStage();
  /// Whether the stage just closed was the last of its run; here: whether isDone().
  virtual bool isRunDone();
  /// Closes a run; nothing to do here.
  virtual void endRun();
  /// Decides about the outcome of a run: the current solution becomes the best one if its total
  /// distortion is strictly lower. The current one goes on from where it stands.
  virtual void tryAcceptance();

  int n;                 ///< number of data points
  int k;                 ///< number of centers
  int dim;               ///< dimension
  KMterm term;           ///< the figures that end the search
  int maxTotStage;       ///< limit of stages
  int stageNo;           ///< stages so far
  int runInitStage;      ///< stages before the current run
  KMfilterCenters curr;  ///< the solution that is being worked on
  KMfilterCenters best;  ///< the best solution seen

 private:
  void drawCenters();
  void move(KMalg method);
};

#endif  // ZRBASE_CLUSTERING_SEARCHFRAME_H
