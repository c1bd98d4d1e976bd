#include "colour/colourModel.h"

#include <zrBase/utilities/colourIndex.h>
#include <zrBase/utilities/colourWords.h>
#include <zrBase/utilities/colours.h>

#include <algorithm>
#include <optional>

#include "colour/colourLists.h"
#include "common/commandError.h"
#include "common/textFormat.h"

namespace {

const char* const kSuite = "suite";
const char* const kMotif = "Motif";
const char* const kBoth = "both";

// A word that is not known is white to the library, so that white words are told by their names.
std::optional<int> suiteColour(const std::string& word) {
  const int packed = zrUtils::convertTextToColour(word);
  const bool known = packed != RGB_WHITE || word == "white" || word == "whi";
  return known ? std::optional<int>(packed) : std::nullopt;
}

std::optional<int> motifColour(const std::string& word) {
  const int packed = zrUtils::convertMotifTextToColour(word);
  const bool known = packed != RGB_WHITE || word == "white" || word == "snow";
  return known ? std::optional<int>(packed) : std::nullopt;
}

std::vector<NamedColour> coloursOfWord(const std::string& text) {
  const std::string word = textFormat::lowerCase(text);
  std::string closed = word;
  closed.erase(std::remove(closed.begin(), closed.end(), ' '), closed.end());
  const std::optional<int> suite = suiteColour(word);
  const std::optional<int> motif = motifColour(closed);
  std::vector<NamedColour> colours;
  if (suite) {
    colours.push_back({text, word, suite == motif ? kBoth : kSuite, *suite});
  }
  if (motif && suite != motif) {
    colours.push_back({text, closed, kMotif, *motif});
  }
  return colours;
}

bool isHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

CommandError noColour(const std::string& text, const std::string& reason) {
  return CommandError("'" + textFormat::oneLine(text) + "' is no colour: " + reason);
}

int packedOfHex(const std::string& text) {
  if (text.size() != 7 || !std::all_of(text.begin() + 1, text.end(), isHexDigit)) {
    throw noColour(text, "behind # stand six digits of 0 to 9 and A to F, RRGGBB");
  }
  return zrUtils::rgbTobgr(std::stoi(text.substr(1), nullptr, 16));
}

int packedOfIndex(const std::string& text) {
  const std::optional<long long> index = textFormat::wholeNumber(text);
  if (!index || *index < 1 || *index > 255) {
    throw noColour(text, "an index is from 1 to 255");
  }
  return static_cast<int>(zrUtils::AcadToColorRef(static_cast<int>(*index)));
}

NamedColour namedIfItHasAName(const std::string& text, int packed) {
  const std::vector<NamedColour> all = listedColours();
  const auto found = std::find_if(
      all.begin(), all.end(), [packed](const NamedColour& each) { return each.packed == packed; });
  if (found == all.end()) {
    return {text, "", "", packed};
  }
  const bool both = found->words == kSuite && motifColour(found->name) == packed;
  return {text, found->name, both ? kBoth : found->words, packed};
}

}  // namespace

std::vector<NamedColour> coloursOf(const std::string& text) {
  if (!text.empty() && text[0] == '#') {
    return {namedIfItHasAName(text, packedOfHex(text))};
  }
  if (!text.empty() && std::all_of(text.begin(), text.end(), isDigit)) {
    return {namedIfItHasAName(text, packedOfIndex(text))};
  }
  std::vector<NamedColour> colours = coloursOfWord(text);
  if (colours.empty()) {
    throw noColour(text, "neither a word of zrbase colour --list, nor #RRGGBB, nor an index");
  }
  return colours;
}

std::vector<NamedColour> listedColours() {
  std::vector<NamedColour> colours;
  colours.reserve(colourLists::kSuiteWords.size() + colourLists::kMotifWords.size());
  for (const char* const word : colourLists::kSuiteWords) {
    colours.push_back({word, word, kSuite, zrUtils::convertTextToColour(word)});
  }
  for (const char* const word : colourLists::kMotifWords) {
    colours.push_back({word, word, kMotif, zrUtils::convertMotifTextToColour(word)});
  }
  return colours;
}

HueSaturationValue hueSaturationValue(int packed) {
  HueSaturationValue result;
  zrUtils::RgbHsv(zrUtils::getRed(packed) / 255.0, zrUtils::getGreen(packed) / 255.0,
                  zrUtils::getBlue(packed) / 255.0, result.hue, result.saturation, result.value);
  return result;
}
