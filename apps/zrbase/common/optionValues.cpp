#include "common/optionValues.h"

#include <cmath>
#include <filesystem>
#include <optional>
#include <system_error>

#include "common/commandError.h"
#include "common/textFormat.h"

namespace optionValues {

double finiteNumber(const std::string& option, const std::string& text) {
  const std::optional<double> value = textFormat::number(text);
  if (!value || !std::isfinite(*value)) {
    throw CommandError(option + ": '" + textFormat::oneLine(text) + "' is not a finite number");
  }
  return *value;
}

double numberFromZero(const std::string& option, const std::string& text) {
  const double value = finiteNumber(option, text);
  if (value < 0.0) {
    throw CommandError(option + ": '" + textFormat::oneLine(text) + "' is below 0");
  }
  return value;
}

std::vector<double> numberList(const std::string& option, const std::vector<std::string>& texts) {
  std::vector<double> values;
  for (const std::string& text : texts) {
    for (const std::string& piece : textFormat::split(text, ',')) {
      values.push_back(finiteNumber(option, piece));
    }
  }
  return values;
}

std::vector<long long> featureIds(const std::string& option, const std::string& text) {
  std::vector<long long> ids;
  if (textFormat::lowerCase(text) == "all") {
    return ids;
  }
  for (const std::string& piece : textFormat::split(text, ',')) {
    const std::optional<long long> id = textFormat::wholeNumber(piece);
    if (!id) {
      throw CommandError(option + ": '" + textFormat::oneLine(text) +
                         "' is neither a feature id nor all");
    }
    ids.push_back(*id);
  }
  return ids;
}

void refuseOverwritingInput(const std::string& output, const std::string& input) {
  std::error_code ignored;
  if (!output.empty() && !input.empty() && std::filesystem::equivalent(output, input, ignored)) {
    throw CommandError(output + ": is an input too: give the output another name");
  }
}

}  // namespace optionValues
