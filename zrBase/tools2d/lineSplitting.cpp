#include <zrBase/tools2d/lineSplitting.h>

#include <zrBase/tools2d/internal/lineLineScan.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

namespace zr2DTools {

namespace {

/// Half the side of the square about the start of a segment in which nothing is cut: 0.01 in single
/// precision.
constexpr double startReach = 0.009999999776482582;

/// A cut and the index of the first vertex of the line behind it.
struct Cut {
  std::size_t position;
  gdfVertex point;
};

bool isNearStart(const gdfVertex& hit, const gdfVertex& start) {
  return !(hit.x() < start.x() - startReach || hit.x() > start.x() + startReach ||
           hit.y() < start.y() - startReach || hit.y() > start.y() + startReach);
}

/// Height of the segment at a place on it, by map distance.
double heightAt(const gdfVertex& start, const gdfVertex& end, const gdfVertex& place) {
  if (start.z() == end.z()) return start.z();
  const double reached = start.mapDistance(place);
  const double whole = start.mapDistance(end);
  return start.z() + (reached / whole) * (end.z() - start.z());
}

/// Collects the cuts of a line by another, both of two vertices or more.
class CutCollector {
 public:
  CutCollector(const VertexLine& line, double tolerance) : line_(line), tolerance_(tolerance) {}

  std::vector<Cut> collect(const VertexLine& splitter) {
    const internal::LineRuns runs(splitter);
    std::array<internal::RunBox, internal::LineRuns::mostRuns> boxes;
    for (std::size_t run = 0; run < runs.count(); ++run) boxes[run] = runs.box(run);
    gdfVertex scratch;
    for (std::size_t i = 0; i + 1 < line_.size(); ++i) {
      const internal::RunBox segmentBox(line_.data() + i, line_.data() + i + 1);
      auto add = [this, i](const gdfVertex& hit) {
        addHit(i, hit);
        return false;
      };
      for (std::size_t run = 0; run < runs.count(); ++run) {
        if (segmentBox.isApartFrom(boxes[run])) continue;
        internal::visitSegmentRunCrossings(
            line_[i], line_[i + 1], splitter.data() + runs.start(run),
            splitter.data() + runs.end(run), tolerance_, scratch, add);
      }
    }
    return std::move(cuts_);
  }

 private:
  void addHit(std::size_t i, const gdfVertex& hit) {
    // Kept on purpose (KeptCutAtFirstVertexIsLost): only the start of a segment is looked at, and
    // with a reach of its own. That spares the second of the two hits at a vertex, and costs a
    // crossing at the first vertex of the line, where no segment ends.
    if (isNearStart(hit, line_[i])) return;
    // Kept on purpose (KeptRepeatedCutIsSoughtInLastOnly): a splitter that comes back to an earlier
    // cut of the same segment cuts there again.
    if (!cuts_.empty() && !differs(hit, cuts_.back().point)) return;
    // Kept on purpose (KeptCutsFollowTheSplitter): in the order of discovery; nothing is sorted
    // along the line.
    cuts_.push_back({i + 1, gdfVertex(hit.x(), hit.y(), heightAt(line_[i], line_[i + 1], hit))});
  }

  // By the exactness limit or more. Differences that are no numbers, as of two infinite places, are
  // none.
  static bool differs(const gdfVertex& hit, const gdfVertex& last) {
    return std::fabs(hit.x() - last.x()) >= gdfInternal::exactnessLimit ||
           std::fabs(hit.y() - last.y()) >= gdfInternal::exactnessLimit;
  }

  const VertexLine& line_;
  double tolerance_;
  std::vector<Cut> cuts_;
};

/// Puts the pieces of a line together, cut by cut.
class PieceBuilder {
 public:
  explicit PieceBuilder(const VertexLine& line) : line_(line) {}

  void endPieceAt(const Cut& cut) {
    VertexLine piece = beginPiece(cut.position - start_ + 2);
    piece.insert(piece.end(), at(start_), at(cut.position));
    start_ = cut.position;
    // A piece without a vertex before its cut cannot come to two.
    if (piece.empty()) return;
    if (piece.back() != cut.point) piece.push_back(cut.point);
    if (piece.size() < 2) return;
    carried_ = piece.back();
    isCarrying_ = true;
    pieces_.push_back(std::move(piece));
  }

  VertexLineList finish() {
    // Kept on purpose (KeptEndBehindCutOnLastSegmentIsDropped): a cut on the last segment leaves
    // only the last vertex, and no piece is made from the cut to it.
    if (start_ + 1 < line_.size()) {
      VertexLine piece = beginPiece(line_.size() - start_ + 1);
      piece.insert(piece.end(), at(start_), line_.end());
      pieces_.push_back(std::move(piece));
    }
    return std::move(pieces_);
  }

 private:
  VertexLine::const_iterator at(std::size_t index) const {
    return line_.begin() + static_cast<std::ptrdiff_t>(index);
  }

  /// A new piece, with the cut that the piece before ended at unless the line goes on with the same
  /// vertex.
  VertexLine beginPiece(std::size_t capacity) {
    VertexLine piece;
    piece.reserve(capacity);
    if (isCarrying_ && carried_ != line_[start_]) piece.push_back(carried_);
    isCarrying_ = false;
    return piece;
  }

  const VertexLine& line_;
  std::size_t start_ = 0;
  bool isCarrying_ = false;
  gdfVertex carried_;
  VertexLineList pieces_;
};

}  // namespace

bool fastSplitLineWithLine(const VertexLine& line, const VertexLine& splitter,
                           VertexLineList& pieces, double tolerance) {
  if (line.size() < 2 || splitter.size() < 2) return false;
  const std::vector<Cut> cuts = CutCollector(line, tolerance).collect(splitter);
  // Kept on purpose (KeptSingleCutGivesNoPiece): one cut is reported and nothing is listed. Callers
  // keep the line as it is then.
  if (cuts.size() < 2) return !cuts.empty();

  // Put together apart from the caller's list, which may hold the line.
  PieceBuilder builder(line);
  for (const Cut& cut : cuts) builder.endPieceAt(cut);
  VertexLineList made = builder.finish();
  pieces.insert(pieces.end(), std::make_move_iterator(made.begin()),
                std::make_move_iterator(made.end()));
  return true;
}

}  // namespace zr2DTools
