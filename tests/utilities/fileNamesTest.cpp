#include <zrBase/utilities/fileNames.h>

#include <gtest/gtest.h>

#include <QString>

#include <cstddef>
#include <cstring>
#include <random>
#include <string>
#include <vector>

using namespace std::string_literals;

namespace {

QString qString(const std::string& text) { return QString::fromStdString(text); }

/// The extension by all three forms, which have to agree.
std::string extensionOf(const char* name) {
  const std::string extension = zrStrUtils::getFilenameExtension(name);
  EXPECT_EQ(zrStrUtils::getFilenameExtension(std::string(name)), extension) << name;
  EXPECT_EQ(zrStrUtils::getFilenameExtension(QString::fromUtf8(name)), extension) << name;
  return extension;
}

/// Applies the form for UTF-8 and that for QString, which have to agree.
template <class Change>
std::string changedByBoth(const std::string& name, Change change) {
  std::string text = name;
  change(text);
  QString wide = qString(name);
  change(wide);
  EXPECT_EQ(text, wide.toStdString()) << name;
  return text;
}

/// The name with an extension added, and "+" before it where the call tells of a change.
std::string added(const std::string& name, const char* ext, bool replace) {
  return changedByBoth(name, [&](auto& text) {
    if (zrStrUtils::addFilenameExtension(text, ext, replace)) text.insert(0, "+");
  });
}

std::string addedByDefault(const char* name, const char* ext) {
  QString text = QString::fromUtf8(name);
  const bool changed = zrStrUtils::addDefaultFilenameExtension(text, ext);
  return (changed ? "+" : "") + text.toStdString();
}

std::string removed(const std::string& name, const char* ext) {
  return changedByBoth(name, [&](auto& text) { zrStrUtils::removeFilenameExtension(text, ext); });
}

std::string stripped(const std::string& name) {
  return changedByBoth(name, [](auto& text) { zrStrUtils::stripFilename(text); });
}

std::string directoryOf(const std::string& name) {
  return changedByBoth(name, [](auto& text) { zrStrUtils::getDirectory(text); });
}

std::string valid(const std::string& name) {
  return changedByBoth(name, [](auto& text) { zrStrUtils::makeValidFilename(text); });
}

/// Applies a change in place to a buffer that just holds the name, on the heap for the sanitizers.
template <class Change>
std::string changedInPlace(const std::string& name, Change change) {
  std::vector<char> buffer(name.begin(), name.end());
  buffer.push_back('\0');
  change(buffer.data());
  return buffer.data();
}

std::string strippedInPlace(const std::string& name) {
  return changedInPlace(name, zrStrUtils::stripFilenameFromChar);
}

std::string directoryInPlace(const std::string& name) {
  return changedInPlace(name, zrStrUtils::getDirectoryFromChar);
}

TEST(GetFilenameExtension, IsTheTextBehindTheLastStop) {
  EXPECT_EQ(extensionOf("well.dat"), "dat");
  EXPECT_EQ(extensionOf("well.tar.gz"), "gz");
  EXPECT_EQ(extensionOf(".hidden"), "hidden");
  EXPECT_EQ(extensionOf("data/well.S\xC3\xBC"
                        "d"),
            "S\xC3\xBC"
            "d");
}

TEST(GetFilenameExtension, IsEmptyWithoutOne) {
  EXPECT_EQ(extensionOf("well"), "");
  EXPECT_EQ(extensionOf("well."), "");
  EXPECT_EQ(extensionOf(""), "");
  EXPECT_EQ(zrStrUtils::getFilenameExtension(static_cast<const char*>(nullptr)), "");
}

TEST(GetFilenameExtension, KeptExtensionReachesOverSeparators) {
  EXPECT_EQ(extensionOf("a.b/c"), "b/c");
  EXPECT_EQ(extensionOf("a.b\\c"), "b\\c");
  EXPECT_EQ(extensionOf("./well"), "/well");
}

TEST(GetFilenameExtension, KeepsNulBytesAndReplacesWhatIsNoUtf8) {
  EXPECT_EQ(zrStrUtils::getFilenameExtension("a.b\0c"s), "b\0c"s);
  EXPECT_EQ(zrStrUtils::getFilenameExtension("a.b\xFF"s), "b\xEF\xBF\xBD");
}

TEST(AddFilenameExtension, AppendsAMissingOne) {
  EXPECT_EQ(added("well", "dat", false), "+well.dat");
  EXPECT_EQ(added("well", "dat", true), "+well.dat");
  EXPECT_EQ(added("", "dat", true), "+.dat");
}

TEST(AddFilenameExtension, LeavesANameThatHasIt) {
  EXPECT_EQ(added("well.dat", "dat", false), "well.dat");
  EXPECT_EQ(added("well.dat", "dat", true), "well.dat");
  EXPECT_EQ(added("well", "", true), "well");
  EXPECT_EQ(added("well", nullptr, true), "well");
}

TEST(AddFilenameExtension, ReplacesAnotherOneIfAskedTo) {
  EXPECT_EQ(added("well.txt", "dat", true), "+well.dat");
  EXPECT_EQ(added("well.txt", "dat", false), "+well.txt.dat");
  EXPECT_EQ(added("well.tar.gz", "dat", true), "+well.tar.dat");
  EXPECT_EQ(added("well.", "dat", true), "+well.dat");
  EXPECT_EQ(added("well.", "dat", false), "+well..dat");
}

TEST(AddFilenameExtension, ComparesExactly) {
  EXPECT_EQ(added("well.DAT", "dat", true), "+well.dat");
  EXPECT_EQ(added("well.dat", ".dat", true), "+well..dat");
  EXPECT_EQ(added("well.dat ", "dat", true), "+well.dat");
  EXPECT_EQ(added("well.tar.gz", "tar.gz", false), "+well.tar.gz.tar.gz");
}

TEST(AddFilenameExtension, ReplacesInTheLastPartOnly) {
  EXPECT_EQ(added("a.b/c", "dat", true), "+a.b/c.dat");
  EXPECT_EQ(added("a.b\\c", "dat", true), "+a.b\\c.dat");
}

TEST(AddFilenameExtension, AddsAnEmptyOneToANameWithAnother) {
  EXPECT_EQ(added("well.txt", "", true), "+well.");
  EXPECT_EQ(added("well.txt", nullptr, false), "+well.txt.");
}

TEST(AddFilenameExtension, TakesUtf8) {
  EXPECT_EQ(added("well",
                  "S\xC3\xBC"
                  "d",
                  false),
            "+well.S\xC3\xBC"
            "d");
  EXPECT_EQ(added("well.S\xC3\xBC"
                  "d",
                  "S\xC3\xBC"
                  "d",
                  false),
            "well.S\xC3\xBC"
            "d");
}

TEST(AddFilenameExtension, TellsOfNoChangeWhereTheNameComesOutTheSame) {
  // The name ends with the replacement character, which is also what the lone byte turns into.
  QString name = QString::fromUtf8("well.\xEF\xBF\xBD");
  EXPECT_FALSE(zrStrUtils::addFilenameExtension(name, "\xFF", true));
  EXPECT_EQ(name, QString::fromUtf8("well.\xEF\xBF\xBD"));
}

TEST(AddFilenameExtension, ReplacesBytesThatAreNoUtf8OnTheWay) {
  std::string name = "w\xFFll.dat";
  EXPECT_FALSE(zrStrUtils::addFilenameExtension(name, "dat", true));
  EXPECT_EQ(name, "w\xEF\xBF\xBDll.dat");
}

TEST(AddDefaultFilenameExtension, AppendsOnlyWhereThereIsNone) {
  EXPECT_EQ(addedByDefault("well", "dat"), "+well.dat");
  EXPECT_EQ(addedByDefault("well.txt", "dat"), "well.txt");
  EXPECT_EQ(addedByDefault("a.b/c", "dat"), "a.b/c");
  EXPECT_EQ(addedByDefault("", "dat"), "+.dat");
  EXPECT_EQ(addedByDefault("well", ""), "+well.");
  EXPECT_EQ(addedByDefault("well", nullptr), "+well.");
}

TEST(AddDefaultFilenameExtension, KeptStopAtTheEndIsNoExtension) {
  EXPECT_EQ(addedByDefault("well.", "dat"), "+well..dat");
}

TEST(RemoveFilenameExtension, RemovesTheLastOne) {
  EXPECT_EQ(removed("well.dat", nullptr), "well");
  EXPECT_EQ(removed("well.tar.gz", nullptr), "well.tar");
  EXPECT_EQ(removed("well.", nullptr), "well");
  EXPECT_EQ(removed(".hidden", nullptr), "");
  EXPECT_EQ(removed("well", nullptr), "well");
  EXPECT_EQ(removed("", nullptr), "");
}

TEST(RemoveFilenameExtension, RemovesOnlyTheOneThatIsGiven) {
  EXPECT_EQ(removed("well.dat", "dat"), "well");
  EXPECT_EQ(removed("well.dat", "DAT"), "well.dat");
  EXPECT_EQ(removed("well.dat", ".dat"), "well.dat");
  EXPECT_EQ(removed("well.tar.gz", "tar.gz"), "well.tar.gz");
  EXPECT_EQ(removed("well.dat", ""), "well.dat");
  EXPECT_EQ(removed("well.", ""), "well");
  EXPECT_EQ(removed("well", ""), "well");
}

TEST(RemoveFilenameExtension, StopsAtTheSeparatorOfThePlatform) {
  EXPECT_EQ(removed("a.b/c", nullptr), "a.b/c");
  EXPECT_EQ(removed("a.b/c", "b/c"), "a.b/c");
  EXPECT_EQ(removed("a.b/c.d", nullptr), "a.b/c");
}

TEST(RemoveFilenameExtension, KeptBackslashEndsTheExtensionOnEveryPlatform) {
  EXPECT_EQ(removed("a.b\\c", nullptr), "a.b\\c");
  EXPECT_EQ(removed("a.b\\c", "b\\c"), "a.b\\c");
  EXPECT_EQ(removed("a.b\\c.d", nullptr), "a.b\\c");
}

TEST(StripFilename, LeavesTheNameUpToItsFirstStop) {
  EXPECT_EQ(stripped("data/well.dat"), "well");
  EXPECT_EQ(stripped("/data/well.tar.gz"), "well");
  EXPECT_EQ(stripped("well"), "well");
  EXPECT_EQ(stripped(".hidden"), "");
  EXPECT_EQ(stripped("data/"), "");
  EXPECT_EQ(stripped(""), "");
  EXPECT_EQ(stripped("S\xC3\xBC"
                     "d/\xC3\x96l.dat"),
            "\xC3\x96l");
}

TEST(StripFilenameFromChar, TakesOffFoldersAndAnExtension) {
  EXPECT_EQ(strippedInPlace("C:\\data\\well.dat"), "well");
  EXPECT_EQ(strippedInPlace("well.dat"), "well");
  EXPECT_EQ(strippedInPlace("data\\well"), "well");
  EXPECT_EQ(strippedInPlace("a.b\\well"), "well");
  EXPECT_EQ(strippedInPlace("data/well.dat"), "data/well");
}

TEST(StripFilenameFromChar, KeptShortNamesKeepTheirFolders) {
  EXPECT_EQ(strippedInPlace("a.bc"), "a.bc");
  EXPECT_EQ(strippedInPlace("a\\bc"), "a\\bc");
  EXPECT_EQ(strippedInPlace("ab.c"), "ab.c");
  EXPECT_EQ(strippedInPlace(""), "");
  EXPECT_EQ(strippedInPlace("ab.cd"), "ab");
  EXPECT_EQ(strippedInPlace("a\\bcd"), "bcd");
}

TEST(StripFilenameFromChar, KeptOnlyExtensionsOfTwoToFourCharactersGo) {
  EXPECT_EQ(strippedInPlace("well.c"), "well.c");
  EXPECT_EQ(strippedInPlace("well.gz"), "well");
  EXPECT_EQ(strippedInPlace("well.dat"), "well");
  EXPECT_EQ(strippedInPlace("well.json"), "well");
  EXPECT_EQ(strippedInPlace("well.store"), "well.store");
  EXPECT_EQ(strippedInPlace("well."), "well.");
}

TEST(StripFilenameFromChar, TriesTheShortestExtensionFirst) {
  EXPECT_EQ(strippedInPlace("well.a.gz"), "well.a");
  EXPECT_EQ(strippedInPlace("well..gz"), "well.");
  EXPECT_EQ(strippedInPlace("well.d.c"), "well");
  EXPECT_EQ(strippedInPlace("well.ab."), "well");
}

TEST(StripFilenameFromChar, LeavesWhatWouldBecomeEmpty) {
  EXPECT_EQ(strippedInPlace(".json"), ".json");
  EXPECT_EQ(strippedInPlace("data\\.gz"), "data\\.gz");
  EXPECT_EQ(strippedInPlace("data\\"), "data\\");
  // The stop of a folder counts as that of an extension: the name would end before it starts.
  EXPECT_EQ(strippedInPlace("a.b\\c"), "a.b\\c");
  EXPECT_EQ(strippedInPlace("well.a\\b"), "well.a\\b");
}

TEST(StripFilenameFromChar, LeavesANullPointer) {
  char* const nothing = nullptr;
  zrStrUtils::stripFilenameFromChar(nothing);
  zrStrUtils::getDirectoryFromChar(nothing);
  EXPECT_EQ(nothing, nullptr);
}

TEST(GetDirectory, LeavesThePathOfTheFolder) {
  EXPECT_EQ(directoryOf("data/wells/well.dat"), "data/wells");
  EXPECT_EQ(directoryOf("/data/well.dat"), "/data");
  EXPECT_EQ(directoryOf("/well.dat"), "/");
  EXPECT_EQ(directoryOf("data/"), "data");
  EXPECT_EQ(directoryOf("well.dat"), ".");
  EXPECT_EQ(directoryOf(""), ".");
}

TEST(GetDirectoryFromChar, CutsBehindTheLastBackslash) {
  EXPECT_EQ(directoryInPlace("C:\\data\\well.dat"), "C:\\data\\");
  EXPECT_EQ(directoryInPlace("\\well"), "\\");
  EXPECT_EQ(directoryInPlace("data\\"), "data\\");
  EXPECT_EQ(directoryInPlace("data/well.dat"), "data/well.dat");
  EXPECT_EQ(directoryInPlace(""), "");
}

TEST(MakeValidFilename, ReplacesWhatFileSystemsRefuse) {
  EXPECT_EQ(valid("a b:c"), "a_b_c");
  EXPECT_EQ(valid(" :%/\\*<>?|\""), "___________");
  EXPECT_EQ(valid(""), "");
}

TEST(MakeValidFilename, KnowsItsCharactersByTheirCodes) {
  const std::string refused = " :%/\\*<>?|\"";
  for (int code = 1; code < 128; ++code) {
    const std::string name(1, static_cast<char>(code));
    const bool isRefused = refused.find(name) != std::string::npos;
    EXPECT_EQ(valid(name), isRefused ? "_" : name) << code;
  }
}

TEST(MakeValidFilename, LeavesOtherCharactersOfUtf8) {
  EXPECT_EQ(valid("S\xC3\xBC"
                  "d \xE2\x82\xAC"),
            "S\xC3\xBC"
            "d_\xE2\x82\xAC");
  EXPECT_EQ(valid("a\0b c"s), "a\0b_c"s);
  EXPECT_EQ(valid("a\xFF b"), "a\xEF\xBF\xBD_b");
}

/// The rules of stripFilenameFromChar, step by step.
std::string strippedByTheRules(const std::string& text) {
  const int n = static_cast<int>(text.size());
  if (n <= 4) return text;
  int start = 0;
  for (int i = 0; i < n; ++i) {
    if (text[static_cast<std::size_t>(i)] == '\\') start = i + 1;
  }
  int end = n;
  if (text[static_cast<std::size_t>(n - 3)] == '.') {
    end = n - 3;
  } else if (text[static_cast<std::size_t>(n - 4)] == '.') {
    end = n - 4;
  } else if (text[static_cast<std::size_t>(n - 5)] == '.') {
    end = n - 5;
  }
  std::string cut;
  for (int i = start; i < end; ++i) cut += text[static_cast<std::size_t>(i)];
  return cut.empty() ? text : cut;
}

TEST(StripFilenameFromChar, FollowsItsRulesOnRandomNames) {
  std::mt19937 random(5);
  std::uniform_int_distribution<int> letter(0, 3);
  std::uniform_int_distribution<int> length(0, 12);
  for (int i = 0; i < 10000; ++i) {
    std::string name;
    for (int k = length(random); k > 0; --k) name += "ab.\\"[letter(random)];
    ASSERT_EQ(strippedInPlace(name), strippedByTheRules(name)) << name;
  }
}

}  // namespace
