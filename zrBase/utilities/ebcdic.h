#ifndef ZRBASE_UTILITIES_EBCDIC_H
#define ZRBASE_UTILITIES_EBCDIC_H

#include <zrBase/export.h>

#include <QString>

namespace zrUtils {

/// Appends the textual header of a seismic trace file, 3200 bytes of EBCDIC, to a text.
///
/// The header holds 40 lines of 80 bytes without line ends. A line end "\r\n" is put in before
/// every 80th byte: so the first line of the text has 79 bytes, the next 39 have 80, and the last
/// byte stands behind the last line end.
///
/// A byte that is not listed here appends nothing, though it takes its column:
///
/// | Bytes                | Characters                                                   |
/// |----------------------|--------------------------------------------------------------|
/// | 0x05, 0x25           | tab, line feed                                               |
/// | 0x0C, 0x0D, 0x15     | carriage return                                              |
/// | 0x40, 0x50           | space, ampersand                                             |
/// | 0x4B to 0x4F         | full stop, less than, (, +, vertical line                    |
/// | 0x5A to 0x5F         | !, $, *, ), semicolon, logical not (Latin-1, 0xAC)           |
/// | 0x60, 0x61           | -, solidus                                                   |
/// | 0x6B to 0x6F         | comma, percent, low line, greater than, ?                    |
/// | 0x79 to 0x7F         | grave accent, colon, number, at, apostrophe, =, double quote |
/// | 0x81, 0x91, 0xA2 on  | a to i, j to r, s to z                                       |
/// | 0xA1                 | tilde                                                        |
/// | 0xC0, 0xD0, 0xE0     | left brace, right brace, backslash                           |
/// | 0xC1, 0xD1, 0xE2 on  | A to I, J to R, S to Z                                       |
/// | 0xF0 on              | 0 to 9                                                       |
///
/// @param text  3200 bytes, all of which are read; no terminator is looked for
/// @param out   appended to, never cleared
ZRBASE_EXPORT void convertEbcdicToAscii(const char* text, QString& out);

}  // namespace zrUtils

#endif  // ZRBASE_UTILITIES_EBCDIC_H
