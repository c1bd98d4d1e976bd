#include <zrBase/utilities/defaultColours.h>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>

#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <system_error>
#include <vector>

#include "utilities/support/temporaryFolder.h"

namespace {

namespace fs = std::filesystem;

using zrUtils::getDefaultColourFromList;
using zrUtils::loadDefaultColourList;

constexpr char copyMark[] = "ZRBASE_TEST_IN_COPY";

/// An application object for as long as this lives, as callers have one.
class Application {
 public:
  Application() : application_(count_, arguments_) {}

 private:
  int count_ = 1;
  char name_[6] = "tests";
  char* arguments_[2] = {name_, nullptr};
  QCoreApplication application_;
};

bool isCopy() { return qEnvironmentVariableIsSet(copyMark); }

/// Runs the calling test again in a copy of this program in a folder of its own. The database lies
/// beside the program's folder, and a palette once read stays: so no test sees another one's.
void passInCopy() {
  const Application application;
  const TemporaryFolder folder;
  fs::create_directory(folder.path() / "bin");
  const fs::path copy = folder.path() / "bin" / "tests";
  const fs::path program = QCoreApplication::applicationFilePath().toStdString();
  std::error_code noLink;
  fs::create_hard_link(program, copy, noLink);
  if (noLink) fs::copy_file(program, copy);

  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const QString& name : environment.keys()) {
    if (name.startsWith("GTEST_")) environment.remove(name);
  }
  environment.insert(copyMark, "1");
  const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
  QProcess process;
  process.setProcessEnvironment(environment);
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(QString::fromStdString(copy.string()),
                {QString("--gtest_filter=%1.%2").arg(test->test_suite_name(), test->name())});
  ASSERT_TRUE(process.waitForFinished(120000)) << process.errorString().toStdString();
  const std::string output = process.readAll().toStdString();
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << output;
  EXPECT_EQ(process.exitCode(), 0) << output;
  EXPECT_NE(output.find("[  PASSED  ] 1 test"), std::string::npos) << output;
}

/// The data folder of a program's copy.
fs::path dataFolder() {
  return fs::path(QCoreApplication::applicationDirPath().toStdString()).parent_path() / "data";
}

/// Writes a database with a row for each of these packed colours.
void writeDatabase(const std::vector<unsigned int>& colours) {
  fs::create_directories(dataFolder());
  std::ofstream out(dataFolder() / "DefaultDatabase.txt");
  out << "2DLoom Database\n1\n# Units and their colours\n";
  for (const unsigned int colour : colours) out << "Unit\t0.5 0.5 1500 0.5 10 " << colour << "\n";
}

/// Eight colours, with red 1 to 8.
const std::vector<unsigned int> eightColours = {1, 2, 3, 4, 5, 6, 7, 8};

int redOf(int i) { return getDefaultColourFromList(i).red(); }

TEST(DefaultColour, IsWhiteWithoutADatabase) {
  if (!isCopy()) return passInCopy();
  const Application application;
  for (int i : {0, 1, -6, -7, 100}) EXPECT_EQ(getDefaultColourFromList(i), QColor(Qt::white)) << i;
}

TEST(DefaultColour, IsReadOnceThereIsADatabase) {
  if (!isCopy()) return passInCopy();
  const Application application;
  EXPECT_EQ(getDefaultColourFromList(0), QColor(255, 255, 255));
  writeDatabase({});
  EXPECT_EQ(getDefaultColourFromList(0), QColor(255, 255, 255));
  writeDatabase({0x563412});
  EXPECT_EQ(getDefaultColourFromList(0), QColor(0x12, 0x34, 0x56));
}

TEST(DefaultColour, IsHeldFromTheFirstReadingOn) {
  if (!isCopy()) return passInCopy();
  const Application application;
  writeDatabase(eightColours);
  EXPECT_EQ(redOf(0), 7);
  writeDatabase({99});
  EXPECT_EQ(redOf(0), 7);
  fs::remove_all(dataFolder());
  EXPECT_EQ(redOf(0), 7);
}

TEST(DefaultColour, KeptPaletteStartsAtItsSeventhEntry) {
  if (!isCopy()) return passInCopy();
  const Application application;
  writeDatabase(eightColours);
  EXPECT_EQ(redOf(0), 7);
  EXPECT_EQ(redOf(1), 8);
  EXPECT_EQ(redOf(-1), 6);
  EXPECT_EQ(redOf(-6), 1);
}

TEST(DefaultColour, GoesRoundThePalette) {
  if (!isCopy()) return passInCopy();
  const Application application;
  writeDatabase(eightColours);
  EXPECT_EQ(redOf(2), 1);
  EXPECT_EQ(redOf(9), 8);
  EXPECT_EQ(redOf(10), 1);
  EXPECT_EQ(redOf(802), 1);
  // 2147483647 + 6 = 8 * 268435456 + 5
  EXPECT_EQ(redOf(std::numeric_limits<int>::max()), 6);
}

TEST(DefaultColour, GoesRoundAPaletteOfLessThanSeven) {
  if (!isCopy()) return passInCopy();
  const Application application;
  writeDatabase({11, 12, 13, 14});
  EXPECT_EQ(redOf(-6), 11);
  EXPECT_EQ(redOf(-3), 14);
  EXPECT_EQ(redOf(-2), 11);
  EXPECT_EQ(redOf(0), 13);
  EXPECT_EQ(redOf(3), 12);
}

TEST(DefaultColour, IsWhiteBeforeTheFirstEntry) {
  if (!isCopy()) return passInCopy();
  const Application application;
  writeDatabase(eightColours);
  EXPECT_EQ(getDefaultColourFromList(-7), QColor(Qt::white));
  EXPECT_EQ(getDefaultColourFromList(std::numeric_limits<int>::min()), QColor(Qt::white));
}

TEST(DefaultColourList, IsNotTouchedWithoutADatabase) {
  if (!isCopy()) return passInCopy();
  const Application application;
  std::vector<QColor> colours = {QColor(1, 2, 3)};
  EXPECT_FALSE(loadDefaultColourList(colours));
  EXPECT_EQ(colours, std::vector<QColor>({QColor(1, 2, 3)}));
}

TEST(DefaultColourList, TakesTheColoursInTheirOrder) {
  if (!isCopy()) return passInCopy();
  const Application application;
  writeDatabase({0x563412, 0xFF0000, 0});
  std::vector<QColor> colours;
  EXPECT_TRUE(loadDefaultColourList(colours));
  EXPECT_EQ(colours,
            std::vector<QColor>({QColor(0x12, 0x34, 0x56), QColor(0, 0, 255), QColor(0, 0, 0)}));
}

TEST(DefaultColourList, IsAppendedTo) {
  if (!isCopy()) return passInCopy();
  const Application application;
  writeDatabase({1});
  std::vector<QColor> colours;
  EXPECT_TRUE(loadDefaultColourList(colours));
  EXPECT_TRUE(loadDefaultColourList(colours));
  EXPECT_EQ(colours, std::vector<QColor>({QColor(1, 0, 0), QColor(1, 0, 0)}));
}

TEST(DefaultColourList, CountsWhatItHeldBefore) {
  if (!isCopy()) return passInCopy();
  const Application application;
  writeDatabase({});
  std::vector<QColor> colours;
  EXPECT_FALSE(loadDefaultColourList(colours));
  colours.emplace_back(1, 2, 3);
  EXPECT_TRUE(loadDefaultColourList(colours));
  EXPECT_EQ(colours.size(), 1u);
}

}  // namespace
