#ifndef ZRBASE_UTILITIES_TEXTLINES_H
#define ZRBASE_UTILITIES_TEXTLINES_H

#include <zrBase/export.h>

#include <iosfwd>
#include <string>

/// Lines of text files, and the blanks around a text.
///
/// Blanks are the space, tab, line feed, vertical tab, form feed and carriage return, in every
/// locale, and the double quote: a quoted word comes out bare. Bytes above 127 are never blanks.
namespace zrStrUtils {

/// Reads a line that ends with a line feed, a carriage return and a line feed, or the end of the
/// file. All blanks at its end go, double quotes among them; those at its start stay.
/// @param in  left as by std::getline: it fails if there was nothing left to read
/// @param line  replaced; empty after a failure
ZRBASE_EXPORT void getLine(std::ifstream& in, std::string& line);

/// Reads a line into a buffer. Only one carriage return and then the spaces at its end go: unlike
/// the other form, this one leaves tabs and double quotes.
///
/// A line that does not fit is cut to size - 1 characters and the stream fails, as with
/// std::istream::getline; its rest can be read after a clear().
/// @param line  replaced by the line and a terminator; empty after a failure with nothing read
/// @param size  of the buffer. Below 1, and with a null pointer, nothing is read or written.
ZRBASE_EXPORT void getLine(std::ifstream& in, char* line, int size);

/// Removes the blanks at the start of a text.
ZRBASE_EXPORT void trimLeft(std::string& s);

/// Removes the blanks at the end of a text.
ZRBASE_EXPORT void trimRight(std::string& s);

/// Removes the blanks at both ends of a text.
ZRBASE_EXPORT void stripWhiteSpace(std::string& s);

}  // namespace zrStrUtils

#endif  // ZRBASE_UTILITIES_TEXTLINES_H
