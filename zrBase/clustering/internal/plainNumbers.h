#ifndef ZRBASE_CLUSTERING_INTERNAL_PLAINNUMBERS_H
#define ZRBASE_CLUSTERING_INTERNAL_PLAINNUMBERS_H

#include <locale>
#include <ostream>

/// While it lives, a stream writes its numbers as in the C locale, whatever locale the application
/// has set; all else of the stream, its precision too, stays as it is.
class PlainNumbers {
 public:
  explicit PlainNumbers(std::ostream& stream)
      : stream_(stream), before_(stream.getloc()), changed_(before_ != std::locale::classic()) {
    if (changed_) stream_.imbue(std::locale::classic());
  }
  PlainNumbers(const PlainNumbers&) = delete;
  PlainNumbers& operator=(const PlainNumbers&) = delete;
  ~PlainNumbers() {
    if (changed_) stream_.imbue(before_);
  }

 private:
  std::ostream& stream_;
  std::locale before_;
  bool changed_;
};

#endif  // ZRBASE_CLUSTERING_INTERNAL_PLAINNUMBERS_H
