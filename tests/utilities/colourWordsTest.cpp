#include <zrBase/utilities/colourWords.h>

#include <gtest/gtest.h>

#include <cctype>
#include <cstddef>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using zrUtils::convertMotifTextToColour;
using zrUtils::convertTextToColour;

constexpr int white = 0xFFFFFF;

struct Row {
  const char* word;
  int red;
  int green;
  int blue;
};

int colourOf(const Row& row) { return row.red + 256 * row.green + 65536 * row.blue; }

/// The words of the suite's files, in components.
const std::vector<Row> suiteRows = {
    {"aquamarine", 128, 128, 128},
    {"bla", 0, 0, 0},
    {"black", 0, 0, 0},
    {"blu", 0, 0, 255},
    {"blue", 0, 0, 255},
    {"blue violet", 128, 128, 128},
    {"cyan", 0, 255, 255},
    {"dark blue", 0, 0, 102},
    {"dark green", 0, 136, 0},
    {"dark grey", 64, 64, 64},
    {"dark_grey", 64, 64, 64},
    {"firebrick", 128, 128, 128},
    {"gre", 0, 255, 0},
    {"green", 0, 255, 0},
    {"green yellow", 128, 128, 128},
    {"grey", 128, 128, 128},
    {"light blue", 132, 165, 255},
    {"light green", 128, 255, 0},
    {"light grey", 176, 176, 176},
    {"light_grey", 176, 176, 176},
    {"mag", 255, 0, 255},
    {"magenta", 255, 0, 255},
    {"ora", 255, 128, 0},
    {"orange", 255, 128, 0},
    {"pink", 255, 0, 128},
    {"pur", 255, 0, 255},
    {"purple", 255, 0, 255},
    {"red", 255, 0, 0},
    {"whi", 255, 255, 255},
    {"white", 255, 255, 255},
    {"yel", 255, 255, 0},
    {"yellow", 255, 255, 0},
};

/// The Motif names that can be found, in components.
const std::vector<Row> motifRows = {
    {"aliceblue", 240, 248, 255},
    {"antiquewhite", 250, 235, 215},
    {"aquamarine", 127, 255, 212},
    {"azure", 240, 255, 255},
    {"beige", 245, 245, 220},
    {"bisque", 255, 228, 196},
    {"black", 0, 0, 0},
    {"blanchedalmond", 255, 235, 205},
    {"blue", 0, 0, 205},
    {"blueviolet", 138, 43, 226},
    {"brown", 165, 42, 42},
    {"burlywood", 222, 184, 135},
    {"cadetblue", 95, 158, 160},
    {"chartreuse", 127, 255, 0},
    {"chocolate", 210, 105, 30},
    {"coral", 255, 127, 80},
    {"cornflowerblue", 100, 149, 237},
    {"cornsilk", 255, 248, 220},
    {"cyan", 0, 255, 255},
    {"darkgoldenrod", 184, 134, 11},
    {"darkgreen", 0, 100, 0},
    {"darkkhaki", 189, 183, 107},
    {"darkolivegreen", 85, 107, 47},
    {"darkorange", 255, 140, 0},
    {"darkorchid", 153, 50, 204},
    {"darksalmon", 233, 150, 122},
    {"darkseagreen", 143, 188, 143},
    {"darkslateblue", 72, 61, 139},
    {"darkslategray", 47, 79, 79},
    {"darkturquoise", 0, 206, 209},
    {"darkviolet", 148, 0, 211},
    {"deepskyblue", 0, 191, 255},
    {"dimgray", 105, 105, 105},
    {"dodgerblue", 30, 144, 255},
    {"firebrick", 178, 34, 34},
    {"floralwhite", 255, 250, 240},
    {"forestgreen", 34, 139, 34},
    {"gainsboro", 220, 220, 220},
    {"ghostwhite", 248, 248, 255},
    {"gold", 255, 215, 0},
    {"goldenrod", 218, 165, 32},
    {"gray", 190, 190, 190},
    {"green", 0, 255, 0},
    {"greenyellow", 173, 255, 47},
    {"honeydew", 240, 255, 240},
    {"hotpink", 255, 105, 180},
    {"indianred", 205, 92, 92},
    {"ivory", 255, 255, 240},
    {"khaki", 240, 230, 140},
    {"lavender", 230, 230, 250},
    {"lavenderblush", 255, 240, 245},
    {"lawngreen", 124, 252, 0},
    {"lemonchiffon", 255, 250, 205},
    {"lightblue", 173, 216, 230},
    {"lightcoral", 240, 128, 128},
    {"lightcyan", 224, 255, 255},
    {"lightgoldenrod", 238, 22, 130},
    {"lightgrey", 211, 211, 211},
    {"lightpink", 255, 182, 193},
    {"lightsalmon", 255, 160, 122},
    {"lightseagreen", 32, 178, 170},
    {"lightskyblue", 135, 206, 250},
    {"lightslateblue", 132, 112, 255},
    {"lightslategray", 119, 136, 153},
    {"lightyellow", 255, 255, 224},
    {"limegreen", 50, 205, 50},
    {"linen", 250, 240, 230},
    {"magenta", 255, 0, 255},
    {"maroon", 176, 48, 96},
    {"mediumaquamarine", 102, 205, 170},
    {"mediumblue", 0, 0, 205},
    {"mediumorchid", 186, 85, 211},
    {"mediumpurple", 147, 112, 219},
    {"mediumseagreen", 60, 179, 113},
    {"mediumslateblue", 123, 104, 238},
    {"mediumspringgreen", 0, 250, 154},
    {"mediumturquoise", 72, 209, 204},
    {"mediumvioletred", 199, 21, 133},
    {"mintcream", 245, 255, 250},
    {"mistyrose", 255, 228, 225},
    {"moccasin", 255, 228, 181},
    {"navajowhite", 255, 222, 173},
    {"navy", 0, 0, 128},
    {"navyblue", 0, 0, 128},
    {"oldlace", 253, 245, 230},
    {"olivedrab", 107, 142, 35},
    {"orange", 255, 165, 0},
    {"orangered", 255, 69, 0},
    {"orchid", 218, 112, 214},
    {"palegoldenrod", 238, 232, 170},
    {"palegreen", 152, 251, 152},
    {"paleturquoise", 175, 238, 238},
    {"palevioletred", 219, 112, 147},
    {"papayawhip", 255, 239, 213},
    {"peachpuff", 255, 218, 185},
    {"peru", 205, 133, 63},
    {"pink", 255, 192, 203},
    {"plum", 221, 160, 221},
    {"powderblue", 176, 224, 230},
    {"purple", 160, 32, 240},
    {"red", 255, 0, 0},
    {"rosybrown", 188, 143, 143},
    {"royalblue", 65, 105, 225},
    {"saddlebrown", 139, 69, 19},
    {"salmon", 250, 128, 114},
    {"sandybrown", 244, 164, 96},
    {"seagreen", 46, 139, 87},
    {"seashell", 255, 245, 238},
    {"sienna", 160, 82, 45},
    {"skyblue", 135, 206, 235},
    {"slateblue", 106, 90, 205},
    {"slategray", 112, 128, 144},
    {"snow", 255, 255, 255},
    {"springgreen", 0, 255, 127},
    {"steelblue", 70, 130, 180},
    {"tan", 210, 180, 140},
    {"thistle", 216, 191, 216},
    {"tomato", 255, 99, 71},
    {"turquoise", 64, 224, 208},
    {"violet", 238, 130, 238},
    {"violetred", 208, 32, 144},
    {"wheat", 245, 222, 179},
    {"white", 255, 255, 255},
    {"whitesmoke", 245, 245, 245},
    {"yellow", 255, 255, 0},
    {"yellowgreen", 154, 205, 50},
};

std::string inUpperCase(std::string word) {
  for (char& c : word) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return word;
}

TEST(ConvertTextToColour, KnowsEachOfItsWords) {
  EXPECT_EQ(suiteRows.size(), 32u);
  for (const Row& row : suiteRows) {
    EXPECT_EQ(convertTextToColour(row.word), colourOf(row)) << row.word;
    EXPECT_EQ(convertTextToColour(inUpperCase(row.word)), colourOf(row)) << row.word;
  }
}

TEST(ConvertTextToColour, GivesWhiteForAnUnknownWord) {
  EXPECT_EQ(convertTextToColour(""), white);
  EXPECT_EQ(convertTextToColour("tan"), white);
  EXPECT_EQ(convertTextToColour("0000FF"), white);
}

TEST(ConvertTextToColour, ComparesTheWholeWord) {
  EXPECT_EQ(convertTextToColour("reddish"), white);
  EXPECT_EQ(convertTextToColour("re"), white);
  EXPECT_EQ(convertTextToColour(" red"), white);
  EXPECT_EQ(convertTextToColour("red "), white);
  EXPECT_EQ(convertTextToColour("darkblue"), white);
  EXPECT_EQ(convertTextToColour("dark  blue"), white);
  EXPECT_EQ(convertTextToColour("dark_blue"), white);
  EXPECT_EQ(convertTextToColour(std::string("red\0", 4)), white);
  EXPECT_EQ(convertTextToColour(std::string("re\0d", 4)), white);
}

TEST(ConvertTextToColour, TakesAnyCase) {
  EXPECT_EQ(convertTextToColour("GREY"), 0x808080);
  EXPECT_EQ(convertTextToColour("Dark_Grey"), 0x404040);
  EXPECT_EQ(convertTextToColour("lIGHT bLUE"), 0xFFA584);
}

TEST(ConvertTextToColour, LowersNothingButLetters) {
  // Words with one character changed by one bit.
  EXPECT_EQ(convertTextToColour("re\xE4"), white);
  EXPECT_EQ(convertTextToColour("2ed"), white);
  EXPECT_EQ(convertTextToColour("dark\x7Fgrey"), white);
}

TEST(ConvertTextToColour, LeavesItsArgument) {
  const std::string word = "Light Grey";
  EXPECT_EQ(convertTextToColour(word), 0xB0B0B0);
  EXPECT_EQ(convertMotifTextToColour(word), 0xD3D3D3);
  EXPECT_EQ(word, "Light Grey");
}

TEST(ConvertTextToColour, KeptGrayIsNoWordOfTheSuite) {
  EXPECT_EQ(convertTextToColour("gray"), white);
  EXPECT_EQ(convertTextToColour("dark gray"), white);
  EXPECT_EQ(convertTextToColour("grey"), 0x808080);
  EXPECT_EQ(convertMotifTextToColour("gray"), 0xBEBEBE);
  EXPECT_EQ(convertMotifTextToColour("grey"), white);
}

TEST(ConvertTextToColour, KeptFourColourWordsAreGrey) {
  EXPECT_EQ(convertTextToColour("green yellow"), 0x808080);
  EXPECT_EQ(convertTextToColour("blue violet"), 0x808080);
  EXPECT_EQ(convertTextToColour("aquamarine"), 0x808080);
  EXPECT_EQ(convertTextToColour("firebrick"), 0x808080);
  EXPECT_EQ(convertMotifTextToColour("green yellow"), 0x2FFFAD);
}

TEST(ConvertMotifTextToColour, KnowsEachOfItsNames) {
  EXPECT_EQ(motifRows.size(), 126u);
  for (const Row& row : motifRows) {
    EXPECT_EQ(convertMotifTextToColour(row.word), colourOf(row)) << row.word;
    EXPECT_EQ(convertMotifTextToColour(inUpperCase(row.word)), colourOf(row)) << row.word;
  }
}

TEST(ConvertMotifTextToColour, GivesWhiteForAnUnknownName) {
  EXPECT_EQ(convertMotifTextToColour(""), white);
  EXPECT_EQ(convertMotifTextToColour("   "), white);
  EXPECT_EQ(convertMotifTextToColour("bla"), white);
  EXPECT_EQ(convertMotifTextToColour("reds"), white);
  EXPECT_EQ(convertMotifTextToColour(std::string("tan\0", 4)), white);
}

TEST(ConvertMotifTextToColour, TakesBlanksOut) {
  EXPECT_EQ(convertMotifTextToColour("Light Blue"), 0xE6D8AD);
  EXPECT_EQ(convertMotifTextToColour("  t a  n "), 0x8CB4D2);
}

TEST(ConvertMotifTextToColour, TakesNothingButBlanksOut) {
  for (const char* text :
       {"light\tblue", "light\nblue", "light\rblue", "light\vblue", "light\fblue",
        "light\xA0"
        "blue",
        "light_blue", "lightblue\n"}) {
    EXPECT_EQ(convertMotifTextToColour(text), white) << text;
  }
}

TEST(ConvertMotifTextToColour, KeptMotifNamesHaveColoursOfTheirOwn) {
  EXPECT_EQ(convertMotifTextToColour("snow"), 0xFFFFFF);
  EXPECT_EQ(convertMotifTextToColour("blue"), 0xCD0000);
  EXPECT_EQ(convertMotifTextToColour("mediumblue"), 0xCD0000);
  EXPECT_EQ(convertMotifTextToColour("navy"), 0x800000);
  EXPECT_EQ(convertMotifTextToColour("navyblue"), 0x800000);
  EXPECT_EQ(convertMotifTextToColour("lightgoldenrod") >> 8 & 0xFF, 22);
}

TEST(ConvertMotifTextToColour, KeptMotifNamesWithBlanksAreNeverFound) {
  for (const char* text :
       {"midnight blue", "midnightblue", "light steel blue", "lightsteelblue", "light steelblue",
        "light goldenrod yellow", "lightgoldenrodyellow", "deep pink", "deeppink", "Deep Pink"}) {
    EXPECT_EQ(convertMotifTextToColour(text), white) << text;
  }
}

/// A word with a few letters in upper case, and now and then something put in or left out.
std::string spoiled(std::string word, std::mt19937& random) {
  for (char& c : word) {
    if (random() % 4 == 0) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  }
  for (unsigned int left = static_cast<unsigned int>(random() % 3); left > 0; --left) {
    constexpr std::string_view inserts = "     \t_a\xE4";
    const std::size_t place = random() % (word.size() + 1);
    if (random() % 8 == 0 && place < word.size()) {
      word.erase(place, 1);
    } else {
      word.insert(place, 1, inserts[random() % inserts.size()]);
    }
  }
  return word;
}

/// Looks a text up in a dictionary, without its blanks if so wanted.
int lookedUp(const std::vector<Row>& rows, const std::string& text, bool withBlanks) {
  std::map<std::string, int> dictionary;
  for (const Row& row : rows) dictionary[row.word] = colourOf(row);
  std::string key;
  for (const char c : text) {
    const int code = static_cast<unsigned char>(c);
    if (c != ' ' || withBlanks) key += code < 128 ? static_cast<char>(std::tolower(code)) : c;
  }
  const auto found = dictionary.find(key);
  return found == dictionary.end() ? white : found->second;
}

TEST(ConvertTextToColour, AgreesWithADictionaryOnSpoiledWords) {
  std::mt19937 random(83);
  int known = 0;
  for (int i = 0; i < 2000; ++i) {
    const std::vector<Row>& source = i % 8 == 0 ? motifRows : suiteRows;
    const std::string text = spoiled(source[random() % source.size()].word, random);
    const int colour = lookedUp(suiteRows, text, true);
    ASSERT_EQ(convertTextToColour(text), colour) << text;
    known += colour != white ? 1 : 0;
  }
  EXPECT_GT(known, 500);
  EXPECT_LT(known, 1500);
}

TEST(ConvertMotifTextToColour, AgreesWithADictionaryOnSpoiledNames) {
  std::mt19937 random(84);
  int known = 0;
  for (int i = 0; i < 2000; ++i) {
    const std::vector<Row>& source = i % 8 == 0 ? suiteRows : motifRows;
    const std::string text = spoiled(source[random() % source.size()].word, random);
    const int colour = lookedUp(motifRows, text, false);
    ASSERT_EQ(convertMotifTextToColour(text), colour) << text;
    known += colour != white ? 1 : 0;
  }
  EXPECT_GT(known, 500);
  EXPECT_LT(known, 1750);
}

}  // namespace
