#ifndef ZRBASE_TESTS_UTILITIES_SUPPORT_DECIMALCOMMA_H
#define ZRBASE_TESTS_UTILITIES_SUPPORT_DECIMALCOMMA_H

#include <clocale>
#include <locale>
#include <sstream>
#include <string>

/// While it lives, numbers have a comma in streams of the standard library and, where the locale
/// is installed, in the functions of C: 1.5 is "1,5", and 1000 is "1.000" in streams.
class DecimalComma {
 public:
  DecimalComma() : before_(std::setlocale(LC_ALL, nullptr)) {
    globalBefore_ = std::locale::global(std::locale(std::locale::classic(), new Punctuation));
    std::setlocale(LC_ALL, "de_DE.UTF-8");
  }
  DecimalComma(const DecimalComma&) = delete;
  DecimalComma& operator=(const DecimalComma&) = delete;
  ~DecimalComma() {
    std::locale::global(globalBefore_);
    std::setlocale(LC_ALL, before_.c_str());
  }

  /// Whether a new stream has the comma.
  static bool holds() {
    std::ostringstream text;
    text << 1.5;
    return text.str() == "1,5";
  }

 private:
  struct Punctuation : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };

  std::string before_;
  std::locale globalBefore_;
};

#endif  // ZRBASE_TESTS_UTILITIES_SUPPORT_DECIMALCOMMA_H
