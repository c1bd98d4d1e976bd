#ifndef ZRBASE_APPS_COMMON_OPTIONVALUES_H
#define ZRBASE_APPS_COMMON_OPTIONVALUES_H

#include <string>
#include <vector>

/// @file
/// Values of options, read from the text that was typed so that a bad one is named as it stands.

namespace optionValues {

/// The number that the text is. @throws CommandError "--height: 'x' is not a finite number"
double finiteNumber(const std::string& option, const std::string& text);

/// As above, but at least 0.
double numberFromZero(const std::string& option, const std::string& text);

/// The numbers of all texts: `--height 100,200` and `--height 100 --height 200` are the same.
std::vector<double> numberList(const std::string& option, const std::vector<std::string>& texts);

/// "7", "7,9", or "all", which gives an empty list. @throws CommandError for anything else
std::vector<long long> featureIds(const std::string& option, const std::string& text);

/// @throws CommandError if `output` is the file `input`; an empty name is no file.
void refuseOverwritingInput(const std::string& output, const std::string& input);

}  // namespace optionValues

#endif  // ZRBASE_APPS_COMMON_OPTIONVALUES_H
