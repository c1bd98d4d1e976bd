#ifndef ZRBASE_TOOLS3D_INTERNAL_GROWINGCHAINS_H
#define ZRBASE_TOOLS3D_INTERNAL_GROWINGCHAINS_H

#include <zrBase/geometry/gdfVertex.h>

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace zr3DTools::internal {

/// A line that grows at both ends, vertex by vertex, without moving what it has.
class VertexChain {
 public:
  VertexChain(const gdfVertex& first, const gdfVertex& last) : back_{first, last} {}

  const gdfVertex& first() const { return front_.empty() ? back_.front() : front_.back(); }
  const gdfVertex& last() const { return back_.back(); }
  void addAtFirst(const gdfVertex& v) { front_.push_back(v); }
  void addAtLast(const gdfVertex& v) { back_.push_back(v); }

  VertexLine line() && {
    if (front_.empty()) return std::move(back_);
    VertexLine whole;
    whole.reserve(front_.size() + back_.size());
    whole.insert(whole.end(), front_.rbegin(), front_.rend());
    whole.insert(whole.end(), back_.begin(), back_.end());
    return whole;
  }

 private:
  VertexLine front_;
  VertexLine back_;
};

/// A line that grows at both ends by whole lines, to which it refers until it is written out.
class LineChain {
 public:
  enum Side : std::size_t { front, back };
  /// Which end of a line comes to lie at the chain.
  enum Joint { byFirst, byLast };

  static Side opposite(Side side) { return side == front ? back : front; }

  /// Begins with a line that is not empty.
  explicit LineChain(const VertexLine& middle)
      : middle_(middle), ends_{middle.front(), middle.back()} {}

  const gdfVertex& end(Side side) const { return ends_[side]; }
  const gdfVertex& first() const { return ends_[front]; }
  const gdfVertex& last() const { return ends_[back]; }

  /// Joins a line that is not empty to one side.
  void add(Side side, const VertexLine& line, Joint joint) {
    joined_[side].push_back({&line, joint});
    ends_[side] = joint == byFirst ? line.back() : line.front();
  }

  /// The whole line, in the direction in which the given side comes last.
  VertexLine lineTowards(Side last) const {
    const std::vector<Piece>& before = joined_[opposite(last)];
    const std::vector<Piece>& after = joined_[last];
    VertexLine whole;
    whole.reserve(size());
    for (auto piece = before.rbegin(); piece != before.rend(); ++piece) {
      append(whole, *piece->line, piece->joint == byFirst);
    }
    append(whole, middle_, last == front);
    for (const Piece& piece : after) append(whole, *piece.line, piece.joint == byLast);
    return whole;
  }
  VertexLine line() && { return lineTowards(back); }

 private:
  struct Piece {
    const VertexLine* line;
    Joint joint;
  };

  static void append(VertexLine& whole, const VertexLine& line, bool isReversed) {
    if (isReversed) {
      whole.insert(whole.end(), line.rbegin(), line.rend());
    } else {
      whole.insert(whole.end(), line.begin(), line.end());
    }
  }
  std::size_t size() const {
    std::size_t count = middle_.size();
    for (const std::vector<Piece>& pieces : joined_) {
      for (const Piece& piece : pieces) count += piece.line->size();
    }
    return count;
  }

  const VertexLine& middle_;
  std::array<gdfVertex, 2> ends_;
  std::array<std::vector<Piece>, 2> joined_;
};

}  // namespace zr3DTools::internal

#endif  // ZRBASE_TOOLS3D_INTERNAL_GROWINGCHAINS_H
