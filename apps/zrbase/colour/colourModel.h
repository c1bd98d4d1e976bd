#ifndef ZRBASE_APPS_COLOUR_COLOURMODEL_H
#define ZRBASE_APPS_COLOUR_COLOURMODEL_H

#include <string>
#include <vector>

/// A colour as it was asked for, and what there is to tell about it.
struct NamedColour {
  std::string given;  ///< as typed
  std::string name;   ///< empty if no word has exactly this colour
  std::string words;  ///< whose word the name is: "suite", "Motif" or "both"; empty without a name
  int packed = 0;     ///< 0x00BBGGRR
};

/// The colours of a text: a word of the suite or of a Motif display, #RRGGBB, or a colour index
/// from 1 to 255.
///
/// A word that both know with a colour each gives two, that of the suite first. The name of an
/// index or #RRGGBB is the first word of `listedColours` with this very colour.
/// @throws CommandError if the text is none of these
std::vector<NamedColour> coloursOf(const std::string& text);

/// Every word that has a colour, the words of the suite first.
std::vector<NamedColour> listedColours();

/// Hue, saturation and value, see zrUtils::RgbHsv.
struct HueSaturationValue {
  double hue = 0.0;  ///< degrees; -1 for a grey
  double saturation = 0.0;
  double value = 0.0;

  bool isGrey() const { return hue < 0.0; }
};
HueSaturationValue hueSaturationValue(int packed);

#endif  // ZRBASE_APPS_COLOUR_COLOURMODEL_H
