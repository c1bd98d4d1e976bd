#ifndef ZRBASE_CLUSTERING_RABRIOLSWAP_H
#define ZRBASE_CLUSTERING_RABRIOLSWAP_H

#include <zrBase/clustering/searchFrame.h>
#include <zrBase/export.h>

/// Search by swaps of one center for one data point, kept where they pay.
///
/// A run is a fixed number of swaps, judged together at its end: a solution that is strictly better
/// than the best one becomes that, any other is taken back. It is runs that count as stages.
class ZRBASE_EXPORT RabriolSwap : public Rabriol {
 public:
  /// See Rabriol.
  /// @param maxSwaps  swaps in a run; below 2 each run has one
  RabriolSwap(const KMfilterCenters& sol, const KMterm& term, int maxSwaps);
  /// Copies all state, the count of swaps included; see Rabriol.
  RabriolSwap(const RabriolSwap& other) = default;
  /// Takes over all state, the count of swaps included; see Rabriol.
  RabriolSwap& operator=(const RabriolSwap& other) = default;
  /// Frees the solutions; the data stays.
  ~RabriolSwap() override = default;

 protected:
  /// Also writes the line of stage 0.
  void reset() override;
  /// Also counts the swaps from 0.
  void beginRun() override;
  /// Nothing to do.
  void beginStage() override;
  /// Always a swap.
  KMalg selectMethod() override;
  /// Nothing to do: no swap counts as a stage.
  void endStage() override;
  /// Whether the limit of stages is reached; if not, counts the swap and tells whether it was the
  /// last.
  bool isRunDone() override;
  /// Counts the run as a stage and writes its line, before it is judged.
  void endRun() override;
  /// Makes the current solution the best one if its total distortion is strictly lower; if not, the
  /// best one the current.
  void tryAcceptance() override;

  int maxSwaps;  ///< swaps in a run
  int swapCt;    ///< swaps so far in this run
};

#endif  // ZRBASE_CLUSTERING_RABRIOLSWAP_H
