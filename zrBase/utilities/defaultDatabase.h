#ifndef ZRBASE_UTILITIES_DEFAULTDATABASE_H
#define ZRBASE_UTILITIES_DEFAULTDATABASE_H

#include <zrBase/export.h>

#include <QColor>
#include <QString>

#include <string>
#include <vector>

/// The default database: a text file with the stratigraphic units that a new model starts with.
///
///     2DLoom Database 4.2
///     (the line behind this mark is passed over)
///     # Name            five numbers, the fifth of which is kept      colour
///     Upper Jurassic    0.39  0.56  1500  0.5  163.5                   15655859
///
/// Lines are read by zrStrUtils::getLine, so blanks and double quotes at their ends do not count:
/// - ten empty lines in a row end the reading, and so does the end of the file;
/// - a line with # as its very first character is a comment;
/// - a line "2DLoom Database" or "2DLoom Database 4.2", wherever it stands, and the line behind it
///   are passed over;
/// - a line without a tab or two adjacent spaces behind its first word is passed over;
/// - any other line is a row. Its name begins at the first character that is no space or tab and
///   ends at the first tab or at two adjacent spaces; single spaces belong to it. Blanks and double
///   quotes around it go. Rows with an empty name or the heading "Name" or "Name," are passed over.
///
/// Behind the name stand five numbers in the C locale, of which the fifth is the value, and the
/// colour, a whole number 65536 blue + 256 green + red. What follows is not read. A row that ends
/// before the colour is dropped; a row with a number that cannot be read stays, see below.
namespace zrUtils {

/// Reads the stratigraphic units of a file.
///
/// A row with a number that cannot be read is not dropped: what follows the bad number is not read.
/// So its colour is black, and its value 0 unless the fifth number was read. A number beyond the
/// limits of its type, which is float for the third one, is a bad one too, and leaves the limit.
/// @param file  opened under its name in the encoding of the platform
/// @param names  appended to, one entry per row, bytes as they stand in the file
/// @param colours  appended to, likewise, opaque
/// @param values  appended to, likewise
/// @return false if the file cannot be opened, with the lists untouched; otherwise whether the list
///     of colours has an entry, one from before the call included
ZRBASE_EXPORT bool loadDefaultStratColumn(const QString& file, std::vector<std::string>& names,
                                          std::vector<QColor>& colours,
                                          std::vector<double>& values);

/// Reads the stratigraphic units of the suite's own file, data/DefaultDatabase.txt beside the
/// folder of the application (QCoreApplication::applicationDirPath, which needs an application
/// object). The lists and the result are those of the form with a file.
ZRBASE_EXPORT bool loadDefaultStratColumn(std::vector<std::string>& names,
                                          std::vector<QColor>& colours,
                                          std::vector<double>& values);

}  // namespace zrUtils

#endif  // ZRBASE_UTILITIES_DEFAULTDATABASE_H
