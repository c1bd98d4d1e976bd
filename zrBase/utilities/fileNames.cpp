#include <zrBase/utilities/fileNames.h>

#include <zrBase/utilities/internal/plainText.h>

#include <QDir>
#include <QFileInfo>

#include <cstddef>
#include <cstring>
#include <string_view>

namespace zrStrUtils {

namespace {

/// Applies a change of a QString to UTF-8.
template <class Change>
void throughQString(std::string& name, Change change) {
  QString text = QString::fromStdString(name);
  change(text);
  name = text.toStdString();
}

}  // namespace

std::string getFilenameExtension(const QString& name) {
  // Kept on purpose (KeptExtensionReachesOverSeparators): a full stop in a folder's name counts
  // too.
  const int stop = name.lastIndexOf('.');
  return stop < 0 ? std::string() : name.mid(stop + 1).toStdString();
}

std::string getFilenameExtension(const std::string& name) {
  return getFilenameExtension(QString::fromStdString(name));
}

std::string getFilenameExtension(const char* name) {
  return getFilenameExtension(QString::fromUtf8(name));
}

bool addFilenameExtension(QString& name, const char* ext, bool replace) {
  if (getFilenameExtension(name) == internal::viewOf(ext)) return false;
  const QString before = name;
  if (replace) removeFilenameExtension(name, nullptr);
  name += '.' + QString::fromUtf8(ext);
  return name != before;
}

bool addFilenameExtension(std::string& name, const char* ext, bool replace) {
  bool changed = false;
  throughQString(name, [&](QString& text) { changed = addFilenameExtension(text, ext, replace); });
  return changed;
}

bool addDefaultFilenameExtension(QString& name, const char* ext) {
  // Kept on purpose (KeptStopAtTheEndIsNoExtension): an empty extension is none.
  if (!getFilenameExtension(name).empty()) return false;
  name += '.' + QString::fromUtf8(ext);
  return true;
}

void removeFilenameExtension(QString& name, const char* ext) {
  name = QDir::toNativeSeparators(name);
  const int stop = name.lastIndexOf('.');
  // Kept on purpose (KeptBackslashEndsTheExtensionOnEveryPlatform): backslashes separate folders in
  // names that come from elsewhere, and here, unlike in getFilenameExtension, they are heeded.
  if (stop < 0 || name.indexOf('\\', stop) >= 0) return;
  if (name.indexOf(QDir::separator(), stop) >= 0) return;
  if (ext != nullptr && getFilenameExtension(name) != ext) return;
  name.truncate(stop);
}

void removeFilenameExtension(std::string& name, const char* ext) {
  throughQString(name, [&](QString& text) { removeFilenameExtension(text, ext); });
}

void stripFilename(QString& name) { name = QFileInfo(name).baseName(); }

void stripFilename(std::string& name) {
  throughQString(name, [](QString& text) { stripFilename(text); });
}

void stripFilenameFromChar(char* text) {
  const std::string_view name = internal::viewOf(text);
  // Kept on purpose (KeptShortNamesKeepTheirFolders): up to four characters nothing is taken off,
  // not even a folder.
  if (name.size() <= 4) return;
  const std::size_t backslash = name.rfind('\\');
  const std::size_t start = backslash == std::string_view::npos ? 0 : backslash + 1;
  std::size_t end = name.size();
  // Kept on purpose (KeptOnlyExtensionsOfTwoToFourCharactersGo): the shortest is tried first, and
  // neither ".c" nor ".geojson" is seen.
  for (std::size_t fromEnd = 3; fromEnd <= 5; ++fromEnd) {
    if (name[name.size() - fromEnd] != '.') continue;
    end = name.size() - fromEnd;
    break;
  }
  if (start >= end || end - start == name.size()) return;
  std::memmove(text, text + start, end - start);
  text[end - start] = '\0';
}

void getDirectory(QString& name) { name = QDir::toNativeSeparators(QFileInfo(name).dir().path()); }

void getDirectory(std::string& name) {
  throughQString(name, [](QString& text) { getDirectory(text); });
}

void getDirectoryFromChar(char* text) {
  const std::size_t backslash = internal::viewOf(text).rfind('\\');
  if (backslash != std::string_view::npos) text[backslash + 1] = '\0';
}

void makeValidFilename(QString& name) {
  const QString refused(" :%/\\*<>?|\"");
  for (QChar& c : name) {
    if (refused.contains(c)) c = '_';
  }
}

void makeValidFilename(std::string& name) {
  throughQString(name, [](QString& text) { makeValidFilename(text); });
}

}  // namespace zrStrUtils
