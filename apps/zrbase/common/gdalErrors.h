#ifndef ZRBASE_APPS_COMMON_GDALERRORS_H
#define ZRBASE_APPS_COMMON_GDALERRORS_H

#include <string>

/// While it lives, GDAL prints nothing: its failures are kept here, to be folded into a message of
/// our own.
class GdalErrors {
 public:
  GdalErrors();
  ~GdalErrors();
  GdalErrors(const GdalErrors&) = delete;
  GdalErrors& operator=(const GdalErrors&) = delete;

  /// The first failure since the last `clear`, as one line; `otherwise` if there was none.
  std::string reason(const std::string& otherwise) const;
  /// Whether GDAL failed since the last `clear`; warnings do not count.
  bool failed() const { return !firstFailure_.empty(); }
  /// Forgets what was kept.
  void clear() { firstFailure_.clear(); }

  /// For the handler: keeps the text if it is the first one.
  void keep(const std::string& text);

 private:
  std::string firstFailure_;
};

#endif  // ZRBASE_APPS_COMMON_GDALERRORS_H
