#ifndef ZRBASE_TESTS_CLUSTERING_SUPPORT_SCRIPTEDSEARCH_H
#define ZRBASE_TESTS_CLUSTERING_SUPPORT_SCRIPTEDSEARCH_H

#include <zrBase/clustering/KMdata.h>
#include <zrBase/clustering/KMfilterCenters.h>
#include <zrBase/clustering/KMterm.h>
#include <zrBase/clustering/kmServices.h>

#include <cstddef>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

/// Points on a line that are "drawn" in an order told beforehand.
///
/// Around the points -1 and 1 a single center c has the total distortion 2 + 2 c^2 and the average
/// distortion 1 + c^2, and a Lloyd step with a damping of 0.5 halves c.
class ScriptedData : public KMdata {
 public:
  explicit ScriptedData(std::vector<double> script, const std::vector<double>& points = {-1.0, 1.0})
      : KMdata(1, static_cast<int>(points.size())), script_(std::move(script)) {
    for (std::size_t i = 0; i < points.size(); ++i) pts[i][0] = points[i];
    buildKcTree();
  }

  void sampleCtr(double* sample) override { sample[0] = script_.at(next_++); }
  void sampleCtrs(double** sample, int count, bool) override {
    for (int i = 0; i < count; ++i) sampleCtr(sample[i]);
  }

  /// How many points have been drawn.
  std::size_t drawn() const { return next_; }

 private:
  std::vector<double> script_;
  std::size_t next_ = 0;
};

/// A single center at c, whose statistics are still to be computed.
inline KMfilterCenters centerAt(double c, KMdata& data, double dampFactor = 0.5) {
  KMfilterCenters centers(1, data, dampFactor);
  centers[0][0] = c;
  return centers;
}

/// Figures with a limit of stages; all others are 0.
inline KMterm stages(int limit) {
  KMterm term;
  term.setAbsMaxTotStage(limit);
  return term;
}

/// While it lives, all that the clustering code writes at a level is collected.
class Listening {
 public:
  explicit Listening(StatLev level = KM_STAT_STAGES) : out_(kmOut), level_(kmStatLev) {
    kmOut = &text_;
    kmStatLev = level;
  }
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;
  ~Listening() {
    kmOut = out_;
    kmStatLev = level_;
  }

  std::string text() const { return text_.str(); }
  std::ostringstream& stream() { return text_; }

 private:
  std::ostringstream text_;
  std::ostream* out_;
  StatLev level_;
};

#endif  // ZRBASE_TESTS_CLUSTERING_SUPPORT_SCRIPTEDSEARCH_H
