#include "column/columnFile.h"

#include <zrBase/utilities/colours.h>
#include <zrBase/utilities/defaultDatabase.h>

#include <QColor>
#include <QCoreApplication>
#include <QString>
#include <QTextCodec>
#include <algorithm>
#include <array>
#include <clocale>
#include <cstddef>
#include <filesystem>

#include "column/columnLines.h"
#include "common/commandError.h"

namespace {

/// While it lives, Qt takes each byte of a file name as it is, whatever the locale: a name that is
/// no text of the locale would lose bytes otherwise.
class PlainFileNames {
 public:
  PlainFileNames() { QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1")); }
  ~PlainFileNames() { QTextCodec::setCodecForLocale(nullptr); }
  PlainFileNames(const PlainFileNames&) = delete;
  PlainFileNames& operator=(const PlainFileNames&) = delete;
};

}  // namespace

std::string defaultColumnFile() {
  const PlainFileNames plain;
  int argumentCount = 1;
  std::array<char, 7> name = {"zrbase"};
  std::array<char*, 2> arguments = {name.data(), nullptr};
  const QCoreApplication application(argumentCount, arguments.data());
  // The application takes on the user's locale, with its decimal comma.
  std::setlocale(LC_ALL, "C");
  const std::string folder = QCoreApplication::applicationDirPath().toLatin1().toStdString();
  return std::filesystem::path(folder + "/../data/DefaultDatabase.txt").lexically_normal().string();
}

ColumnFile readColumn(const std::string& file) {
  const ColumnLines lines = checkColumnLines(file);
  if (!lines.marked) {
    throw CommandError(file + ": not a database: no line '2DLoom Database 4.2'");
  }
  const PlainFileNames plain;
  std::vector<std::string> names;
  std::vector<QColor> colours;
  std::vector<double> values;
  if (!zrUtils::loadDefaultStratColumn(QString::fromLatin1(file.c_str()), names, colours, values)) {
    throw CommandError(file + ": no units" +
                       (lines.warnings.empty() ? "" : ": " + lines.warnings.front()));
  }
  ColumnFile result;
  result.warnings = lines.warnings;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const QColor& colour = colours[i];
    result.units.push_back(
        {names[i], values[i], zrUtils::rgb(colour.red(), colour.green(), colour.blue())});
  }
  return result;
}

bool valuesAscend(const std::vector<ColumnUnit>& units) {
  const auto notAbove = [](const ColumnUnit& upper, const ColumnUnit& lower) {
    return lower.value <= upper.value;
  };
  return units.size() > 1 &&
         std::adjacent_find(units.begin(), units.end(), notAbove) == units.end();
}
