#include <zrBase/utilities/nameFilter.h>

#include <zrBase/utilities/internal/plainText.h>

#include <cstddef>
#include <string_view>

namespace zrStrUtils {

namespace {

/// A pattern taken apart: its text, and on which sides something else may stand.
struct NamePattern {
  explicit NamePattern(std::string_view pattern)
      : text(pattern), isOpenBefore(pattern.front() == '*'), isOpenBehind(pattern.back() == '*') {
    if (isOpenBefore) text.remove_prefix(1);
    // A lone asterisk is the first and the last character.
    if (isOpenBehind && !text.empty()) text.remove_suffix(1);
  }

  bool fits(std::string_view name) const {
    if (name.size() < text.size()) return false;
    if (isOpenBefore && isOpenBehind) return name.find(text) != std::string_view::npos;
    if (isOpenBefore) return name.substr(name.size() - text.size()) == text;
    if (isOpenBehind) return name.substr(0, text.size()) == text;
    return name == text;
  }

  std::string_view text;
  bool isOpenBefore;
  bool isOpenBehind;
};

}  // namespace

int filterSelect(const char* pattern, const std::vector<std::string>& names,
                 std::vector<int>& indices) {
  indices.clear();
  const std::string_view text = internal::viewOf(pattern);
  if (text.empty()) return 0;
  const NamePattern namePattern(text);
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (namePattern.fits(names[i])) indices.push_back(static_cast<int>(i));
  }
  return static_cast<int>(indices.size());
}

}  // namespace zrStrUtils
