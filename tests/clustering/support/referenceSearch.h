#ifndef ZRBASE_TESTS_CLUSTERING_SUPPORT_REFERENCESEARCH_H
#define ZRBASE_TESTS_CLUSTERING_SUPPORT_REFERENCESEARCH_H

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

/// @file
/// The four searches written out as plain loops, with clusters found by comparing every point with
/// every center, and with a generator of their own. Nothing of the library is used.

/// The random numbers that a process draws from its start. It takes all that it needs from rand()
/// at construction, so that the library's own generator can start afresh afterwards.
class ReferenceGenerator {
 public:
  explicit ReferenceGenerator(std::size_t draws) {
    std::srand(0);
    for (int i = 0; i < 97; ++i) std::rand();
    for (int i = 1; i <= 97; ++i) table_[i] = std::rand() % 32768;
    held_ = std::rand() % 32768;
    for (std::size_t i = 0; i < draws; ++i) coming_.push_back(std::rand() % 32768);
  }

  double fraction() {
    const int place = 1 + static_cast<int>(97.0 * held_ / 32767.0);
    held_ = table_[place];
    table_[place] = coming_.at(next_++);
    return held_ / 32767.0;
  }

  int below(int n) {
    const int drawn = static_cast<int>(fraction() * n);
    return drawn == n ? n - 1 : drawn;
  }

 private:
  double table_[99] = {};
  double held_ = 0.0;
  std::vector<int> coming_;
  std::size_t next_ = 0;
};

using ReferencePoints = std::vector<std::vector<double>>;

/// What a search is asked to do.
struct ReferenceTask {
  ReferencePoints points;
  int k = 1;
  double dampFactor = 1.0;
  int limit = 1;
  double minConsecRDL = 0.0;
  double minAccumRDL = 0.0;
  int maxRunStage = 0;
  double initProbAccept = 0.0;
  int tempRunLength = 0;
  double tempReducFact = 0.0;
  int maxSwaps = 1;
  int level = 7;
};

/// Centers, and what was last found out about their clusters.
struct ReferenceSolution {
  ReferencePoints centers;
  ReferencePoints sums;
  std::vector<double> distortions;
  std::vector<int> weights;
  double total = 0.0;
  bool known = false;
};

/// One search; what it writes comes together in `text`.
class ReferenceSearch {
 public:
  ReferenceSearch(const ReferenceTask& task, ReferenceGenerator& generator)
      : task_(task),
        generator_(generator),
        n_(static_cast<int>(task.points.size())),
        dim_(task.points[0].size()) {
    const std::size_t k = static_cast<std::size_t>(task.k);
    curr_.centers.assign(k, std::vector<double>(dim_, 0.0));
    curr_.distortions.assign(k, 0.0);
  }

  std::ostringstream text;

  /// Repeated Lloyd steps.
  void searchByLloyds() {
    // It looks at what it is given: all centers at the origin, where the first takes all points.
    measure(curr_);
    draw();
    best_ = curr_;
    double start = total(curr_);
    bool drawNext = false;
    int stage = 0;
    const auto loss = [&] { return (start - total(curr_)) / start; };
    const auto tell = [&] {
      if (task_.level < 5) return;
      text << "\t<stage: " << stage << " curr: " << average(curr_) << " best: " << average(best_)
           << " accumRDL: " << loss() * 100.0 << "% >\n";
    };
    tell();
    while (stage < task_.limit) {
      for (int inRun = 1;; ++inRun) {
        if (drawNext) {
          draw();
        } else {
          lloyd();
        }
        ++stage;
        if (average(best_) > average(curr_)) best_ = curr_;
        tell();
        if (stage >= task_.limit || inRun >= task_.maxRunStage) break;
        if (drawNext) {
          drawNext = false;
          start = total(curr_);
        } else if (loss() >= task_.minAccumRDL) {
          break;
        }
      }
      if (loss() >= task_.minAccumRDL) {
        start = total(curr_);
      } else {
        drawNext = true;
      }
      if (task_.level >= 5) text << "    <Generating new random centers>\n";
      if (total(curr_) < total(best_)) best_ = curr_;
    }
    end(stage);
  }

  /// Runs of swaps.
  void searchBySwaps() {
    draw();
    best_ = curr_;
    int stage = 0;
    const auto tell = [&] {
      if (task_.level < 5) return;
      text << "\t<stage: " << stage << " curr: " << average(curr_) << " best: " << average(best_)
           << " >\n";
    };
    tell();
    while (stage < task_.limit) {
      swap();
      for (int i = 1; i < task_.maxSwaps; ++i) swap();
      ++stage;
      tell();
      if (total(best_) > total(curr_)) {
        best_ = curr_;
      } else {
        curr_ = best_;
      }
    }
    end(stage);
  }

  /// A swap and Lloyd steps by turns.
  void searchByEzHybrid() {
    draw();
    best_ = curr_;
    int stage = 0;
    double before = 0.0;
    const auto tell = [&] {
      if (task_.level < 5) return;
      text << "    <stage: " << stage << " curr: " << average(curr_) << " best: " << average(best_)
           << " consecRDL: " << (before - total(curr_)) / before << " >\n";
    };
    tell();
    while (stage < task_.limit) {
      before = total(curr_);
      swap();
      ++stage;
      tell();
      bool pays = true;
      while (pays) {
        before = total(curr_);
        lloyd();
        ++stage;
        tell();
        pays = (before - total(curr_)) / before > task_.minConsecRDL;
      }
      if (task_.level >= 5) text << "    <Swapping Centers>\n";
      if (total(curr_) < total(best_)) best_ = curr_;
    }
    end(stage);
  }

  /// Swaps and Lloyd steps under annealing.
  void searchByHybrid() {
    draw();
    best_ = curr_;
    ReferenceSolution saved = curr_;
    int stage = 0;
    double before = 0.0;
    const int trials = task_.tempRunLength < 20 ? 20 : task_.tempRunLength;
    int tests = 0;
    double sumOfTrials = 0.0;
    double temperature = 0.0;
    int temperatureSince = INT_MAX;
    const auto accepted = [&](double loss) {
      ++tests;
      double probability = task_.initProbAccept;
      if (tests > trials) {
        const double byTemperature = std::exp(loss / temperature);
        if (byTemperature < probability) probability = byTemperature;
      } else {
        sumOfTrials += std::abs(loss);
        if (tests == trials) {
          temperatureSince = stage;
          temperature = -sumOfTrials / (trials * std::log(task_.initProbAccept));
        }
      }
      return generator_.fraction() < probability;
    };
    const auto tell = [&] {
      if (task_.level < 5) return;
      text << "    <stage: " << stage << " curr: " << average(curr_) << " best: " << average(best_)
           << " save: " << average(saved) << " consecRDL: " << (before - total(curr_)) / before
           << " >\n";
    };
    tell();
    while (stage < task_.limit) {
      bool goesOn = true;
      while (goesOn) {
        before = total(curr_);
        swap();
        ++stage;
        tell();
        goesOn = accepted((before - total(curr_)) / before);
      }
      bool pays = true;
      while (pays) {
        before = total(curr_);
        lloyd();
        ++stage;
        tell();
        pays = (before - total(curr_)) / before > task_.minConsecRDL;
      }
      if (stage - temperatureSince >= task_.tempRunLength) {
        temperatureSince = stage;
        temperature *= task_.tempReducFact;
      }
      if (task_.level >= 5) text << "    <End of Run>\n";
      const double gain = (total(saved) - total(curr_)) / total(saved);
      if (gain > 0.0) {
        saved = curr_;
        if (total(saved) < total(best_)) best_ = saved;
      } else if (accepted(gain)) {
        saved = best_;
      } else {
        curr_ = saved;
      }
    }
    end(stage);
  }

 private:
  /// Finds the clusters of a solution, if they are not known.
  void measure(ReferenceSolution& solution) const {
    if (solution.known) return;
    const std::size_t k = solution.centers.size();
    solution.sums.assign(k, std::vector<double>(dim_, 0.0));
    solution.weights.assign(k, 0);
    std::vector<double> squares(k, 0.0);
    for (const std::vector<double>& p : task_.points) {
      std::size_t nearest = 0;
      double least = HUGE_VAL;
      for (std::size_t j = 0; j < k; ++j) {
        double distance = 0.0;
        for (std::size_t d = 0; d < dim_; ++d) {
          const double difference = p[d] - solution.centers[j][d];
          distance += difference * difference;
        }
        if (distance < least) {
          least = distance;
          nearest = j;
        }
      }
      ++solution.weights[nearest];
      for (std::size_t d = 0; d < dim_; ++d) {
        solution.sums[nearest][d] += p[d];
        squares[nearest] += p[d] * p[d];
      }
    }
    solution.total = 0.0;
    for (std::size_t j = 0; j < k; ++j) {
      double own = 0.0;
      double mixed = 0.0;
      for (std::size_t d = 0; d < dim_; ++d) {
        own += solution.centers[j][d] * solution.centers[j][d];
        mixed += solution.centers[j][d] * solution.sums[j][d];
      }
      solution.distortions[j] = squares[j] - 2 * mixed + solution.weights[j] * own;
      solution.total += solution.distortions[j];
    }
    solution.known = true;
  }

  double total(ReferenceSolution& solution) const {
    measure(solution);
    return solution.total;
  }

  double average(ReferenceSolution& solution) const { return total(solution) / n_; }

  void draw() {
    std::vector<int> drawn;
    for (std::vector<double>& center : curr_.centers) {
      int r = generator_.below(n_);
      while (std::count(drawn.begin(), drawn.end(), r) > 0) r = generator_.below(n_);
      drawn.push_back(r);
      center = task_.points[static_cast<std::size_t>(r)];
    }
    centersMoved();
  }

  void lloyd() {
    measure(curr_);
    for (std::size_t j = 0; j < curr_.centers.size(); ++j) {
      if (curr_.weights[j] == 0) continue;
      for (std::size_t d = 0; d < dim_; ++d) {
        curr_.centers[j][d] = task_.dampFactor * curr_.sums[j][d] / curr_.weights[j] +
                              (1 - task_.dampFactor) * curr_.centers[j][d];
      }
    }
    centersMoved();
  }

  void swap() {
    const int replaced = generator_.below(task_.k);
    const int point = generator_.below(n_);
    std::vector<double>& center = curr_.centers[static_cast<std::size_t>(replaced)];
    center = task_.points[static_cast<std::size_t>(point)];
    if (task_.level >= 6) {
      text << "\tswapping: " << inBrackets(center) << "<-->Center[" << replaced << "]\n";
    }
    centersMoved();
  }

  void centersMoved() {
    curr_.known = false;
    if (task_.level < 7) return;
    for (std::size_t j = 0; j < curr_.centers.size(); ++j) {
      text << "    " << std::setw(4) << j << "\t" << inBrackets(curr_.centers[j])
           << " dist = " << std::setw(8) << curr_.distortions[j] << "\n";
    }
  }

  static std::string inBrackets(const std::vector<double>& point) {
    std::ostringstream brackets;
    brackets << "[ ";
    for (std::size_t d = 0; d < point.size(); ++d) {
      brackets << (d == 0 ? "" : " ") << std::setw(8) << point[d];
    }
    brackets << " ]";
    return brackets.str();
  }

  /// The outcome, every bit of it.
  void end(int stage) {
    text << stage << " stages, " << std::hexfloat << total(best_) << ":";
    for (const std::vector<double>& center : best_.centers) {
      for (const double coordinate : center) text << " " << coordinate;
    }
    text << "\n";
  }

  const ReferenceTask& task_;
  ReferenceGenerator& generator_;
  int n_;
  std::size_t dim_;
  ReferenceSolution curr_;
  ReferenceSolution best_;
};

#endif  // ZRBASE_TESTS_CLUSTERING_SUPPORT_REFERENCESEARCH_H
