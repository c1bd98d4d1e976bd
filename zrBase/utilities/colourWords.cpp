#include <zrBase/utilities/colourWords.h>

#include <algorithm>
#include <string_view>

namespace {

struct ColourWord {
  std::string_view word;
  int colour;
};

constexpr ColourWord suiteWords[] = {
    {"black", 0x000000},
    {"bla", 0x000000},
    {"white", 0xFFFFFF},
    {"whi", 0xFFFFFF},
    {"red", 0x0000FF},
    {"green", 0x00FF00},
    {"gre", 0x00FF00},
    {"blue", 0xFF0000},
    {"blu", 0xFF0000},
    {"dark blue", 0x660000},
    {"light blue", 0xFFA584},
    {"dark green", 0x008800},
    {"light green", 0x00FF80},
    {"yellow", 0x00FFFF},
    {"yel", 0x00FFFF},
    {"orange", 0x0080FF},
    {"ora", 0x0080FF},
    {"purple", 0xFF00FF},
    {"magenta", 0xFF00FF},
    {"mag", 0xFF00FF},
    {"pur", 0xFF00FF},
    {"pink", 0x8000FF},
    {"dark_grey", 0x404040},
    {"dark grey", 0x404040},
    {"light_grey", 0xB0B0B0},
    {"light grey", 0xB0B0B0},
    // Kept on purpose (KeptGrayIsNoWordOfTheSuite): only the spelling with an e is known, "gray" is
    // white.
    {"grey", 0x808080},
    {"cyan", 0xFFFF00},
    // Kept on purpose (KeptFourColourWordsAreGrey): these are told from an unknown word, and that
    // is all; their colours exist among the Motif names only.
    {"green yellow", 0x808080},
    {"blue violet", 0x808080},
    {"aquamarine", 0x808080},
    {"firebrick", 0x808080},
};

// Kept on purpose (KeptMotifNamesHaveColoursOfTheirOwn): snow is pure white, blue and mediumblue
// are both CD0000, navy and navyblue both 800000, and lightgoldenrod has a green of 22. Drawings
// were made with these.
constexpr ColourWord motifWords[] = {
    {"snow", 0xFFFFFF},
    {"white", 0xFFFFFF},
    {"black", 0x000000},
    {"ghostwhite", 0xFFF8F8},
    {"whitesmoke", 0xF5F5F5},
    {"gainsboro", 0xDCDCDC},
    {"floralwhite", 0xF0FAFF},
    {"oldlace", 0xE6F5FD},
    {"linen", 0xE6F0FA},
    {"antiquewhite", 0xD7EBFA},
    {"papayawhip", 0xD5EFFF},
    {"blanchedalmond", 0xCDEBFF},
    {"bisque", 0xC4E4FF},
    {"peachpuff", 0xB9DAFF},
    {"navajowhite", 0xADDEFF},
    {"moccasin", 0xB5E4FF},
    {"cornsilk", 0xDCF8FF},
    {"ivory", 0xF0FFFF},
    {"lemonchiffon", 0xCDFAFF},
    {"seashell", 0xEEF5FF},
    {"honeydew", 0xF0FFF0},
    {"mintcream", 0xFAFFF5},
    {"azure", 0xFFFFF0},
    {"aliceblue", 0xFFF8F0},
    {"lavender", 0xFAE6E6},
    {"lavenderblush", 0xF5F0FF},
    {"mistyrose", 0xE1E4FF},
    {"darkslategray", 0x4F4F2F},
    {"dimgray", 0x696969},
    {"slategray", 0x908070},
    {"lightslategray", 0x998877},
    {"gray", 0xBEBEBE},
    {"lightgrey", 0xD3D3D3},
    // Kept on purpose (KeptMotifNamesWithBlanksAreNeverFound): blanks have gone from the text
    // before it is compared, so this one, light steel blue, light goldenrod yellow and deep pink
    // stand here in vain.
    {"midnight blue", 0x701919},
    {"navy", 0x800000},
    {"navyblue", 0x800000},
    {"cornflowerblue", 0xED9564},
    {"darkslateblue", 0x8B3D48},
    {"slateblue", 0xCD5A6A},
    {"mediumslateblue", 0xEE687B},
    {"lightslateblue", 0xFF7084},
    {"blue", 0xCD0000},
    {"mediumblue", 0xCD0000},
    {"royalblue", 0xE16941},
    {"dodgerblue", 0xFF901E},
    {"deepskyblue", 0xFFBF00},
    {"skyblue", 0xEBCE87},
    {"lightskyblue", 0xFACE87},
    {"steelblue", 0xB48246},
    {"light steel blue", 0xDEC4B0},
    {"lightblue", 0xE6D8AD},
    {"powderblue", 0xE6E0B0},
    {"paleturquoise", 0xEEEEAF},
    {"darkturquoise", 0xD1CE00},
    {"mediumturquoise", 0xCCD148},
    {"turquoise", 0xD0E040},
    {"cyan", 0xFFFF00},
    {"lightcyan", 0xFFFFE0},
    {"cadetblue", 0xA09E5F},
    {"mediumaquamarine", 0xAACD66},
    {"aquamarine", 0xD4FF7F},
    {"darkgreen", 0x006400},
    {"darkolivegreen", 0x2F6B55},
    {"darkseagreen", 0x8FBC8F},
    {"seagreen", 0x578B2E},
    {"mediumseagreen", 0x71B33C},
    {"lightseagreen", 0xAAB220},
    {"palegreen", 0x98FB98},
    {"springgreen", 0x7FFF00},
    {"lawngreen", 0x00FC7C},
    {"green", 0x00FF00},
    {"chartreuse", 0x00FF7F},
    {"mediumspringgreen", 0x9AFA00},
    {"greenyellow", 0x2FFFAD},
    {"limegreen", 0x32CD32},
    {"yellowgreen", 0x32CD9A},
    {"forestgreen", 0x228B22},
    {"olivedrab", 0x238E6B},
    {"darkkhaki", 0x6BB7BD},
    {"khaki", 0x8CE6F0},
    {"palegoldenrod", 0xAAE8EE},
    {"light goldenrod yellow", 0xD2FAFA},
    {"lightyellow", 0xE0FFFF},
    {"yellow", 0x00FFFF},
    {"gold", 0x00D7FF},
    {"lightgoldenrod", 0x8216EE},
    {"goldenrod", 0x20A5DA},
    {"darkgoldenrod", 0x0B86B8},
    {"rosybrown", 0x8F8FBC},
    {"indianred", 0x5C5CCD},
    {"saddlebrown", 0x13458B},
    {"sienna", 0x2D52A0},
    {"peru", 0x3F85CD},
    {"burlywood", 0x87B8DE},
    {"beige", 0xDCF5F5},
    {"wheat", 0xB3DEF5},
    {"sandybrown", 0x60A4F4},
    {"tan", 0x8CB4D2},
    {"chocolate", 0x1E69D2},
    {"firebrick", 0x2222B2},
    {"brown", 0x2A2AA5},
    {"darksalmon", 0x7A96E9},
    {"salmon", 0x7280FA},
    {"lightsalmon", 0x7AA0FF},
    {"orange", 0x00A5FF},
    {"darkorange", 0x008CFF},
    {"coral", 0x507FFF},
    {"lightcoral", 0x8080F0},
    {"tomato", 0x4763FF},
    {"orangered", 0x0045FF},
    {"red", 0x0000FF},
    {"hotpink", 0xB469FF},
    {"deep pink", 0x9314FF},
    {"pink", 0xCBC0FF},
    {"lightpink", 0xC1B6FF},
    {"palevioletred", 0x9370DB},
    {"maroon", 0x6030B0},
    {"mediumvioletred", 0x8515C7},
    {"violetred", 0x9020D0},
    {"magenta", 0xFF00FF},
    {"violet", 0xEE82EE},
    {"plum", 0xDDA0DD},
    {"orchid", 0xD670DA},
    {"mediumorchid", 0xD355BA},
    {"darkorchid", 0xCC3299},
    {"darkviolet", 0xD30094},
    {"blueviolet", 0xE22B8A},
    {"purple", 0xF020A0},
    {"mediumpurple", 0xDB7093},
    {"thistle", 0xD8BFD8},
};

/// The letters A to Z in lower case, all other bytes as they are.
char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

void lower(std::string& text) { std::transform(text.begin(), text.end(), text.begin(), lowered); }

/// The colour of the first entry with this word, white if there is none.
template <class Words>
int colourOf(const Words& words, std::string_view text) {
  for (const ColourWord& entry : words) {
    if (entry.word == text) return entry.colour;
  }
  return 0xFFFFFF;
}

}  // namespace

namespace zrUtils {

int convertTextToColour(const std::string& text) {
  std::string word = text;
  lower(word);
  return colourOf(suiteWords, word);
}

int convertMotifTextToColour(const std::string& text) {
  std::string word = text;
  word.erase(std::remove(word.begin(), word.end(), ' '), word.end());
  lower(word);
  return colourOf(motifWords, word);
}

}  // namespace zrUtils
