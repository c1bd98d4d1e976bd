#ifndef ZRBASE_BISECTORS_INTERNAL_MERGEPASSES_H
#define ZRBASE_BISECTORS_INTERNAL_MERGEPASSES_H

#include <zrBase/bisectors/internal/chainMerger.h>
#include <zrBase/bisectors/internal/templateDirections.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace bisectorInternal {

/// Indices that are due, looked up in ascending order.
class DueSet {
 public:
  void insert(int index) {
    const auto i = static_cast<std::size_t>(index);
    if (i / bits >= words_.size()) words_.resize(i / bits + 1, 0);
    words_[i / bits] |= std::uint64_t{1} << (i % bits);
  }
  void erase(int index) {
    const auto i = static_cast<std::size_t>(index);
    words_[i / bits] &= ~(std::uint64_t{1} << (i % bits));
  }
  /// The least index from `from` upward that is due, or -1.
  int next(int from) const;

 private:
  static constexpr std::size_t bits = 64;
  std::vector<std::uint64_t> words_;
};

/// Repeated merge passes over a chain, which give the same chain as full passes and try only what
/// may come out differently than before.
///
/// A try of bisector i decides from the records it reads, and a try that adds nothing changes
/// nothing. So long as none of the records it read has been written since, the next try would read
/// the same and add nothing again: it is left out. Every try that is not left out happens in the
/// pass, and in the order, in which the full passes would make it: upward over the records that
/// were there at the pass's start. A pass that adds nothing is the last.
class MergePasses {
 public:
  explicit MergePasses(Chain& chain);

  void run(const TemplateDirections& directions, zre::side side, double maxDistance, int passLimit);

  /// Told by the merger: the bisector being tried depends on this record.
  void read(int index);
  /// Told by the merger: this record has changed. It is due, and so is whatever depended on it.
  void written(int index);

 private:
  /// "Bisector `watcher`, in its try number `attempt`, read this record": a list per record, in one
  /// pool.
  struct Watch {
    std::int32_t watcher;
    std::uint32_t attempt;
    std::int32_t next;
  };
  struct Record {
    std::int32_t firstWatch = -1;
    std::uint32_t attempts = 0;
  };

  void makeDue(int index);
  Record& record(int index) { return records_[static_cast<std::size_t>(index)]; }
  Watch& watch(std::int32_t place) { return watches_[static_cast<std::size_t>(place)]; }

  Chain& chain_;
  std::vector<Watch> watches_;
  std::int32_t freeWatch_ = -1;
  std::vector<Record> records_;
  DueSet due_;
  int trying_ = -1;
};

}  // namespace bisectorInternal

#endif  // ZRBASE_BISECTORS_INTERNAL_MERGEPASSES_H
