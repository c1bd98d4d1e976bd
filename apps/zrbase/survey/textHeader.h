#ifndef ZRBASE_APPS_SURVEY_TEXTHEADER_H
#define ZRBASE_APPS_SURVEY_TEXTHEADER_H

#include <string>

/// In what the text header of a seismic file is written.
enum class HeaderEncoding { guess, ebcdic, ascii };

/// "ebcdic", "ascii" or "guess". @throws CommandError for anything else, naming --encoding
HeaderEncoding headerEncoding(const std::string& text);

/// The text of a header as 40 lines of 80 characters in UTF-8, each with its line end.
///
/// Every byte has its column: what is no character, such as a line end within the header, becomes
/// a blank.
/// @param header  3200 bytes
std::string textOfHeader(const std::string& header, HeaderEncoding encoding);

#endif  // ZRBASE_APPS_SURVEY_TEXTHEADER_H
