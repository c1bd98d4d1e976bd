#include <zrBase/bisectors/internal/mergePasses.h>

namespace bisectorInternal {

int DueSet::next(int from) const {
  std::size_t word = static_cast<std::size_t>(from) / bits;
  if (word >= words_.size()) return -1;
  std::uint64_t rest = words_[word] >> (static_cast<std::size_t>(from) % bits);
  if (rest != 0) return from + __builtin_ctzll(rest);
  while (++word < words_.size()) {
    if (words_[word] != 0) return static_cast<int>(word * bits) + __builtin_ctzll(words_[word]);
  }
  return -1;
}

MergePasses::MergePasses(Chain& chain) : chain_(chain), records_(chain.size()) {
  records_.reserve(5 * chain.size() / 2);
  watches_.reserve(8 * chain.size());
  for (std::size_t i = 0; i < chain.size(); ++i) due_.insert(static_cast<int>(i));
}

void MergePasses::read(int index) {
  const Watch added{trying_, record(trying_).attempts, record(index).firstWatch};
  std::int32_t place = freeWatch_;
  if (place == -1) {
    place = static_cast<std::int32_t>(watches_.size());
    watches_.push_back(added);
  } else {
    freeWatch_ = watch(place).next;
    watch(place) = added;
  }
  record(index).firstWatch = place;
}

/// A bisector that is not open comes to nothing by its own record alone: its try is left out, until
/// that is written.
void MergePasses::makeDue(int index) {
  if (isOpen(at(chain_, index))) due_.insert(index);
}

void MergePasses::written(int index) {
  if (static_cast<std::size_t>(index) >= records_.size()) {
    records_.resize(static_cast<std::size_t>(index) + 1);
  }
  makeDue(index);
  std::int32_t place = record(index).firstWatch;
  record(index).firstWatch = -1;
  while (place != -1) {
    Watch& ended = watch(place);
    // A watch of an earlier attempt is out of date: the later attempt has set its own.
    if (ended.attempt == record(ended.watcher).attempts) makeDue(ended.watcher);
    const std::int32_t next = ended.next;
    ended.next = freeWatch_;
    freeWatch_ = place;
    place = next;
  }
}

void MergePasses::run(const TemplateDirections& directions, zre::side side, double maxDistance,
                      int passLimit) {
  ChainMerger<MergePasses> merger(directions, side, chain_, *this);
  for (int pass = 0; pass < passLimit; ++pass) {
    const int count = static_cast<int>(chain_.size());
    for (int i = due_.next(0); i != -1 && i < count; i = due_.next(i + 1)) {
      due_.erase(i);
      trying_ = i;
      ++record(i).attempts;
      merger.tryMerge(i, maxDistance);
    }
    if (static_cast<int>(chain_.size()) == count) return;
  }
}

}  // namespace bisectorInternal
