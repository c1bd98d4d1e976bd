#ifndef ZRBASE_UTILITIES_FILENAMES_H
#define ZRBASE_UTILITIES_FILENAMES_H

#include <zrBase/export.h>

#include <QString>

#include <string>

/// File names: extensions, folders, characters that a file name must not have.
///
/// A std::string and a const char* hold UTF-8. The forms for std::string go through a QString and
/// back, so bytes that are no UTF-8 come back as the replacement character U+FFFD. A null pointer
/// is an empty text. Only names are looked at, never the file system.
namespace zrStrUtils {

/// The text behind the last full stop, in UTF-8; empty if there is none. Folders are not told
/// apart: "a.b/c" has the extension "b/c".
ZRBASE_EXPORT std::string getFilenameExtension(const QString& name);
/// The same for UTF-8.
ZRBASE_EXPORT std::string getFilenameExtension(const std::string& name);
/// The same for UTF-8; a literal would fit both other forms.
ZRBASE_EXPORT std::string getFilenameExtension(const char* name);

/// Appends a full stop and an extension, unless the name has just this one.
/// @param ext  without its full stop; compared exactly, so "TXT" is not "txt"
/// @param replace  whether another extension goes first, by removeFilenameExtension(name, nullptr)
/// @return whether the name changed
ZRBASE_EXPORT bool addFilenameExtension(QString& name, const char* ext, bool replace);
/// The same for UTF-8. Bytes that are no UTF-8 do not make a change that it answers for.
ZRBASE_EXPORT bool addFilenameExtension(std::string& name, const char* ext, bool replace);

/// Appends a full stop and an extension to a name without one. A full stop at its end is none:
/// "well." becomes "well..dat".
/// @return whether the name changed
ZRBASE_EXPORT bool addDefaultFilenameExtension(QString& name, const char* ext);

/// Removes the extension, with its full stop, and turns separators into those of the platform.
///
/// The extension is looked for in the last part of the name only: from the end up to a backslash or
/// the platform's own separator. A name of a full stop and an extension becomes empty.
/// @param ext  the only extension to remove, without its full stop, compared exactly; a
/// null pointer takes any, while an empty text takes just a full stop at the end
ZRBASE_EXPORT void removeFilenameExtension(QString& name, const char* ext);
/// The same for UTF-8.
ZRBASE_EXPORT void removeFilenameExtension(std::string& name, const char* ext);

/// Leaves the file's own name without folders and extensions: what stands before the first full
/// stop of its last part, "data/well.tar.gz" gives "well" (QFileInfo::baseName).
ZRBASE_EXPORT void stripFilename(QString& name);
/// The same for UTF-8.
ZRBASE_EXPORT void stripFilename(std::string& name);

/// Leaves the file's own name without folders and extension, in place, on names with backslashes.
///
/// Unlike stripFilename it takes off one extension, of two, three or four characters and of no
/// other length, and leaves names of up to four characters as they are. What would become empty
/// stays, so does a name with nothing to take off.
/// @param text  ends at its terminator
ZRBASE_EXPORT void stripFilenameFromChar(char* text);

/// Leaves the path of the folder, without a separator at its end, with the separators of the
/// platform: "." for a name without a folder (QDir::path).
ZRBASE_EXPORT void getDirectory(QString& name);
/// The same for UTF-8.
ZRBASE_EXPORT void getDirectory(std::string& name);

/// Cuts a name behind its last backslash, in place; the backslash stays, unlike in getDirectory. A
/// name without one stays as it is.
/// @param text  ends at its terminator
ZRBASE_EXPORT void getDirectoryFromChar(char* text);

/// Turns each character that some file system refuses into a low line: the space, colon, percent
/// sign, solidus, backslash, asterisk, both angle brackets, question mark, vertical line and double
/// quote.
ZRBASE_EXPORT void makeValidFilename(std::string& name);
/// The same for a QString.
ZRBASE_EXPORT void makeValidFilename(QString& name);

}  // namespace zrStrUtils

#endif  // ZRBASE_UTILITIES_FILENAMES_H
