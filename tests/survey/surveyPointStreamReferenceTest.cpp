#include <zrBase/survey/zrSurveyCoordinatePoints.h>

#include <gtest/gtest.h>

#include "survey/support/surveyPoints.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

// The tracking written down once more, rule by rule and without a thought for speed, and both held
// against each other after every step of streams that are full of repeats, gaps and turns.

namespace {

constexpr double U = unsetNumber;

/// inline, trace, x, y.
using Record = std::array<double, 4>;
constexpr Record unsetRecord = {U, U, U, U};

struct ReferenceStream {
  double inlineInterval = U, traceInterval = U, lastInline = U, lastTrace = U;
  double minInline = U, maxInline = 0, minTrace = U, maxTrace = 0;
  bool recalculated = true, firstPoint = false;
  Record longestRowStart = unsetRecord, longestRowEnd = unsetRecord;
  Record minInlinePoint = unsetRecord, maxInlinePoint = unsetRecord;
  Record longestColumnStart = unsetRecord, longestColumnEnd = unsetRecord;
  Record minTracePoint = unsetRecord, maxTracePoint = unsetRecord;
  Record rowStart = unsetRecord, rowEnd = unsetRecord;
  Record columnStart = unsetRecord, columnEnd = unsetRecord;
  std::vector<Record> stored;

  std::vector<Record*> tracked() {
    return {&longestRowStart,    &longestRowEnd,    &minInlinePoint, &maxInlinePoint,
            &longestColumnStart, &longestColumnEnd, &minTracePoint,  &maxTracePoint,
            &rowStart,           &rowEnd,           &columnStart,    &columnEnd};
  }

  void add(double x, double y, double i, double t) {
    const Record p = {i, t, x, y};
    if (firstPoint) {
      for (Record* record : tracked()) *record = p;
      firstPoint = false;
      return;
    }
    steps(i, t);
    row(p, t, i);
    if (minInlinePoint[0] > i) minInlinePoint = p;
    if (i > maxInlinePoint[0]) maxInlinePoint = p;
    column(p, t, i);
    if (minTracePoint[1] > t) minTracePoint = p;
    if (t > maxTracePoint[1]) maxTracePoint = p;
  }

  void steps(double i, double t) {
    if (i != lastInline) {
      const double d = std::abs(i - lastInline);
      if (inlineInterval > d) inlineInterval = d;
      lastInline = i;
    }
    if (t != lastTrace) {
      const double d = std::abs(t - lastTrace);
      if (traceInterval > d) traceInterval = d;
      lastTrace = t;
    }
  }

  void row(const Record& p, double t, double i) {
    if (i == rowStart[0]) {
      if (t > rowEnd[1]) {
        if (traceInterval > t - rowEnd[1]) traceInterval = t - rowStart[1];
      } else if (rowStart[1] > t) {
        const double d = rowStart[1] - t;
        if (traceInterval > d) traceInterval = d;
      }
      if (rowStart[1] > t) rowStart = p;
      if (t > rowEnd[1]) rowEnd = p;
    } else {
      if (rowEnd[1] - rowStart[1] > longestRowEnd[1] - longestRowStart[1]) {
        longestRowStart = rowStart;
        longestRowEnd = rowEnd;
      }
      rowStart = p;
      rowEnd = p;
    }
  }

  void column(const Record& p, double t, double i) {
    if (t == columnStart[1]) {
      if (i > columnEnd[0]) {
        if (inlineInterval > i - columnEnd[0]) traceInterval = i - columnStart[0];
      } else if (columnStart[0] > i) {
        const double d = columnStart[0] - i;
        if (inlineInterval > d) traceInterval = d;
      }
      if (columnStart[0] > i) columnStart = p;
      if (i > columnEnd[0]) columnEnd = p;
    } else {
      if (columnEnd[0] - columnStart[0] > longestColumnEnd[0] - longestColumnStart[0]) {
        longestColumnStart = columnStart;
        longestColumnEnd = columnEnd;
      }
      columnStart = p;
      columnEnd = p;
    }
  }

  void store(double x, double y, double i, double t) {
    stored.push_back({i, t, x, y});
    if (i < minInline) minInline = i;
    if (i > maxInline) maxInline = i;
    if (t < minTrace) minTrace = t;
    if (t > maxTrace) maxTrace = t;
  }

  void end() {
    if (rowEnd[1] - rowStart[1] > longestRowEnd[1] - longestRowStart[1]) {
      longestRowStart = rowStart;
      longestRowEnd = rowEnd;
    }
    if (columnEnd[1] - columnStart[1] > longestColumnEnd[1] - longestColumnStart[1]) {
      longestColumnStart = columnStart;
      longestColumnEnd = columnEnd;
    }
  }

  bool recalculate() {
    if (stored.empty()) return false;
    firstPoint = true;
    recalculated = true;
    for (Record* record : tracked()) *record = unsetRecord;
    lastInline = U;
    lastTrace = U;
    const double dI = ((maxInline - minInline) / inlineInterval) * 0.2 * inlineInterval;
    const double dT = ((maxTrace - minTrace) / traceInterval) * 0.2 * traceInterval;
    minInline += dI;
    maxInline -= dI;
    minTrace += dT;
    maxTrace -= dT;
    for (std::size_t k = 0; k < stored.size(); ++k) {
      const Record p = stored[k];
      if (minInline <= p[0] && p[0] <= maxInline && minTrace <= p[1] && p[1] <= maxTrace) {
        add(p[2], p[3], p[0], p[1]);
      }
    }
    return true;
  }

  std::vector<double> numbers() {
    std::vector<double> all = {inlineInterval, traceInterval, lastInline, lastTrace,
                               minInline,      maxInline,     minTrace,   maxTrace};
    all.push_back(recalculated ? 1.0 : 0.0);
    all.push_back(firstPoint ? 1.0 : 0.0);
    for (const Record* record : tracked()) all.insert(all.end(), record->begin(), record->end());
    for (const Record& record : stored) all.insert(all.end(), record.begin(), record.end());
    return all;
  }
};

/// Survey numbers in the order of real files, or in none: whole, halves, or now and then huge.
class NumberSource {
 public:
  explicit NumberSource(unsigned seed) : random_(seed), grid_(below(2) == 0) {}

  unsigned below(unsigned n) { return static_cast<unsigned>(random_() % n); }

  /// The next inline and trace.
  std::array<double, 2> next() {
    if (grid_) {
      if (below(6) != 0) {
        t_ += 2.0;
      } else {
        i_ += below(5) == 0 ? -2.0 : 4.0;
        t_ = static_cast<double>(below(3));
      }
      if (below(12) == 0) return {t_, i_};
      return {i_, t_};
    }
    return {number(), number()};
  }

 private:
  double number() {
    switch (below(40)) {
      case 0:
        return 1e37 * below(40);
      case 1:
        return U;
      case 2:
        return -0.0;
      default:
        return 0.5 * below(12) - 2.0;
    }
  }

  std::mt19937 random_;
  bool grid_;
  double i_ = 3.0;
  double t_ = 1.0;
};

TEST(SurveyStreamReference, EveryFieldAgreesAfterEveryStep) {
  int recalculations = 0;
  for (unsigned seed = 0; seed < 1500; ++seed) {
    NumberSource source(seed);
    zrSurveyCoordinatePoints points;
    ReferenceStream reference;
    const bool isStore = source.below(3) == 0;
    for (int step = 0; step < 60; ++step) {
      const double x = source.below(100);
      const double y = source.below(100);
      const auto [i, t] = source.next();
      const unsigned operation = source.below(50);
      if (operation == 0) {
        points.End();
        reference.end();
      } else if (operation == 1) {
        points.firstPoint = true;
        reference.firstPoint = true;
      } else if (operation == 2) {
        const bool result = points.RecalculateCoordinates();
        ASSERT_EQ(result, reference.recalculate());
        recalculations += result ? 1 : 0;
      } else if (isStore) {
        points.AddStoredPoint(x, y, i, t);
        reference.store(x, y, i, t);
      } else {
        points.AddPoint(x, y, i, t);
        reference.add(x, y, i, t);
      }
      ASSERT_EQ(numbersOf(points), reference.numbers()) << "seed " << seed << ", step " << step;
    }
  }
  EXPECT_GT(recalculations, 200);
}

TEST(SurveyStreamReference, LongStreamsAgree) {
  NumberSource source(4711);
  zrSurveyCoordinatePoints points;
  ReferenceStream reference;
  for (int step = 0; step < 20000; ++step) {
    const auto [i, t] = source.next();
    points.AddPoint(i, t, i, t);
    reference.add(i, t, i, t);
  }
  points.End();
  reference.end();
  EXPECT_EQ(numbersOf(points), reference.numbers());
}

}  // namespace
