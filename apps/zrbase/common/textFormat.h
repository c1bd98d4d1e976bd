#ifndef ZRBASE_APPS_COMMON_TEXTFORMAT_H
#define ZRBASE_APPS_COMMON_TEXTFORMAT_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// @file
/// Numbers to text and back, always with a decimal point: no locale of the application or of the
/// user changes them.

namespace textFormat {

/// The number with `decimals` digits after the point ("12.50"); a negative zero loses its sign.
std::string fixed(double value, int decimals);

/// The shortest text that reads back as the same double ("0.1", "500000", "1e+30").
std::string shortest(double value);

/// A JSON array of the shortest texts: "[-10,0,5]".
std::string jsonList(const std::vector<double>& values);

/// The number that the whole text is, surrounding blanks apart; nothing if it is no number.
///
/// "nan" and "inf" are numbers here, so that the caller can name them in its message; a leading '+'
/// is allowed.
std::optional<double> number(std::string_view text);

/// The whole number that the whole text is, or nothing.
std::optional<long long> wholeNumber(std::string_view text);

/// The pieces between the separators, without the blanks around each.
std::vector<std::string> split(std::string_view text, char separator);

/// The text in ASCII lower case.
std::string lowerCase(std::string_view text);

/// The text without line ends and runs of blanks: what may stand in a message of one line.
std::string oneLine(std::string_view text);

/// "1 fault", "3 faults".
std::string counted(std::size_t count, const std::string& singular, const std::string& plural);

/// The ending of a file name in lower case with its point (".svg"), or an empty text.
std::string fileEnding(const std::string& fileName);

}  // namespace textFormat

#endif  // ZRBASE_APPS_COMMON_TEXTFORMAT_H
