#include <zrBase/utilities/zrTranslator.h>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QIODevice>
#include <QLibraryInfo>
#include <QMetaObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTranslator>
#include <QVariant>
#include <QXmlStreamReader>

#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

#include "utilities/support/temporaryFolder.h"

using zrBase::zrTranslator;

namespace {

struct Expected {
  const char* name;
  const QString* member;
  const char* text;
};

#define ZR_TEXT(name, text) \
  { #name, &zrTranslator::name, text }

/// Names and texts in their order, typed apart from those of the library.
const std::vector<Expected> expectedTexts = {
    ZR_TEXT(WELL_STRING, "Well"),
    ZR_TEXT(WELLS_STRING, "Wells"),
    ZR_TEXT(CREATE_WELL_STRING, "Create Well"),
    ZR_TEXT(NAME_OF_NEW_WELL_SET, "Name of New Well Set"),
    ZR_TEXT(WELL_SET_NAME, "Well Set Name"),
    ZR_TEXT(WELL_NAME, "Well Name"),
    ZR_TEXT(FROM_WELL, "From Well"),
    ZR_TEXT(WELL_TO_WELL, "Well to Well"),
    ZR_TEXT(IMPORT_FROM_WELLS, "Import From Wells"),
    ZR_TEXT(WELL_SET, "Well Set"),
    ZR_TEXT(WELL_SET_PARAMETERS, "Well Set Parameters"),
    ZR_TEXT(FRAC_GEN_WELL_TEXT_1,
            "This well does not seem to have any valid orientation attributes"),
    ZR_TEXT(FRAC_GEN_WELL_TEXT_2,
            "Notes: \n"
            "1.)  Selecting well(s) may affect Overall Connectivity. \n"
            "2.) Changes in the object list will require recalculation of the connectivity "
            "analysis."),
    ZR_TEXT(USE_SELECTED_WELLS, "Use Selected Wells"),
    ZR_TEXT(SELECT_WELL, "Select Well"),
    ZR_TEXT(GEO_CELL_WELL_TEXT_1,
            "Enter Point below or select point or well with Left Mouse Button"
            " to build Arbitrary Section,"
            " or select Row, Column or Layer Sections."),
    ZR_TEXT(WELL_IMPORT_FORMAT_OPT, "Well Import: Format Options"),
    ZR_TEXT(WELL_IMPORT_TYPE_OPTIONS, "Well Import: Type Options"),
    ZR_TEXT(COMPLETE_WELLS, "Complete Wells (with or without data"),
    ZR_TEXT(WELL_POSITIONS_ONLY, "Well Positions Only"),
    ZR_TEXT(INSERT_REPLACE_ONTO_WELLS, "Insert / Replace Data onto Existing Wells"),
    ZR_TEXT(INSERT_REPLACE_WELLS, "Insert / Replace Well Surveys"),
    ZR_TEXT(INSERT_ALONG_WELL, "Insert Data Along Existing Wells"),
    ZR_TEXT(WELL_IMPORT_NOTE_1,
            "Note: 1. The file names must be identical to the existing wells in the model."
            "  "),
    ZR_TEXT(WELL_IMPORT_NOTE_2,
            "           "
            "2. Or the 'Well Names' must be present in the file. "
            "Choose the Attribute: Well Name in this case"),
    ZR_TEXT(WELL_CURVE_CALCULATION, "Well Curve Calculation Method:"),
    ZR_TEXT(WELL_DIP_MARKER, "Well/Dip Marker"),
    ZR_TEXT(WELL_MARKER, "Well Marker"),
    ZR_TEXT(WELL_MARKER_TOOL, "Well Marker Tool"),
    ZR_TEXT(WELL_MARKERS, "Well Markers"),
    ZR_TEXT(SCAT_FOR_WELLS_SURFCAES, "SCAT for Wells/Surfaces"),
    ZR_TEXT(WELL_NAME_FONT_SIZE, "Well Name Font Size"),
    ZR_TEXT(WELL_NAME_COLOUR, "Well Name Colour"),
    ZR_TEXT(SHOW_WELL_TRACK, "Show Well Track"),
    ZR_TEXT(WELL_TICK_INTERVAL, "Well Tick Interval"),
    ZR_TEXT(SELECTED_WELL, "Selected Well"),
    ZR_TEXT(PREVIOUS_WELL_MARKER, "Previous Well Marker"),
    ZR_TEXT(NEXT_WELL_MARKER, "Next Well Marker"),
    ZR_TEXT(CREATE_SECTION_TEXT_1,
            "Objects to be selected can be Lines,Wells,SegyImages,VertexClouds"),
    ZR_TEXT(CREATE_SECTION_TEXT_2, "Select Lines, Section Traces, Wells or SegyImages"),
    ZR_TEXT(CREATE_WELL_SEND_DATA, "Create Well and send data to model"),
    ZR_TEXT(FIELD_WELL_DIP_DATA, "Field/Well Dip Data"),
    ZR_TEXT(SCAT_DEPTH_PLOT_TEXT,
            "The interpreted planes will be send back as markers on the well "),
    ZR_TEXT(CREATE_NEW_WELL_CURVE_ATT, "Create New Well Curve Attribute"),
    ZR_TEXT(EXTEND_WELL_OPTIONS, "Extend Well Options"),
    ZR_TEXT(INSERT_WELL_TEXT_1,
            "The well data being inserted overlaps the existing well. Do you wish to?"),
    ZR_TEXT(CREATE_SIDE_TRACK_WELL, "Create a Side Track Well"),
    ZR_TEXT(DISCARD_DATA_ABOVE_WELL, "Discard new data above end of existing well track"),
    ZR_TEXT(DISCARD_WELL_BELOW_DATA, "Discard existing well track below start of new data"),
    ZR_TEXT(FIRST_LINE_IS_WELL_POS, "First line is well position"),
    ZR_TEXT(VERTICAL_WELL_DEFINED_AS, "Vertical Well / drill hole defined as:"),
    ZR_TEXT(WELL_LIST_NAME, "Well List Name"),
    ZR_TEXT(SELECT_WELL_LIST_MEMBERS, "Select Well List Members"),
    ZR_TEXT(SHOW_WELL_NAME, "Show Well Name"),
    ZR_TEXT(WELL_SYMBOL_SIZE, "Well Symbol Size"),
    ZR_TEXT(WORKFLOW_TEXT_1, "3) Select output simulated wells to save to model."),
    ZR_TEXT(OUTPUT_WELLS, "Output Wells"),
    ZR_TEXT(FOR_ANY_WELL, "For Any Well"),
    ZR_TEXT(FOR_ALL_WELLS, "For All Wells"),
    ZR_TEXT(WORKFLOW_WELL_SELECT_1,
            "In order to Analyze the accuracy of the flow simulation"
            " well data is used to compare the difference between Actual and Simulated."
            " The smaller the difference the more accurate the flow."),
    ZR_TEXT(WORKFLOW_WELL_SELECT_2,
            "1)Collect or Add selected wells from the model.\n\n\n"
            "2)Select wells by clicking on them.\n\n\n"
            "3)Position the selected well by picking its location on the Surface.\n\n\n"
            "4)Delete any selected well.\n\n\n"
            "5)Create virtual wells.\n\n\n"
            "6)Edit sand fraction, thickness and sorting index values."),
    ZR_TEXT(HorizontalSection, "Horizontal Section"),
    ZR_TEXT(CreateHorizontalSection, "Create Horizontal/Inclined Section"),
    ZR_TEXT(LOG, "Log"),
    ZR_TEXT(WELL_LOG, "Well Log"),
    ZR_TEXT(WELL_CURVES, "Well Curves"),
    ZR_TEXT(WELL_MARKER_DATA, "Well Marker Data"),
    ZR_TEXT(HEAD, "Head"),
    ZR_TEXT(HEADS, "Heads"),
};

#undef ZR_TEXT

std::size_t emptyTexts() {
  std::size_t count = 0;
  for (const Expected& expected : expectedTexts) count += expected.member->isEmpty() ? 1 : 0;
  return count;
}

/// Counted before main, so before any test makes an object.
const std::size_t emptyTextsAtTheStart = emptyTexts();

/// An application, without which no translator can be installed.
struct Application {
  int argumentCount = 1;
  char name[6] = "tests";
  char* arguments[2] = {name, nullptr};
  QCoreApplication application{argumentCount, arguments};
};

/// A language in which each text is the English one behind a prefix. Keeps what it is asked for.
class PrefixTranslator : public QTranslator {
 public:
  explicit PrefixTranslator(const QString& prefix) : prefix_(prefix) {}
  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char* comment,
                    int n) const override {
    if (std::string(context) != "zrBase::zrTranslator") return QString();
    sources.push_back(source);
    hasCommentOrNumber = hasCommentOrNumber || comment != nullptr || n != -1;
    return prefix_ + source;
  }

  mutable std::vector<std::string> sources;
  mutable bool hasCommentOrNumber = false;

 private:
  QString prefix_;
};

/// Runs a translation tool of Qt.
void runTool(const QString& name, const QStringList& arguments) {
  const QString program = QLibraryInfo::location(QLibraryInfo::BinariesPath) + '/' + name;
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
}

/// Compiles a translation source.
QString compiled(const TemporaryFolder& folder, const std::string& name, const std::string& text) {
  const QString source = QString::fromStdString(folder.write(name + ".ts", text));
  const QString target = QString::fromStdString((folder.path() / (name + ".qm")).string());
  runTool("lrelease", {"-silent", source, "-qm", target});
  return target;
}

std::string translation(const std::string& language, const std::string& messages) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE TS>\n"
         "<TS version=\"2.1\" language=\"" +
         language + "\">\n<context><name>zrBase::zrTranslator</name>\n" + messages +
         "</context>\n</TS>\n";
}

std::string message(const std::string& source, const std::string& translated) {
  return "<message><source>" + source + "</source><translation>" + translated +
         "</translation></message>\n";
}

TEST(Translator, HasEmptyTextsUntilAnObjectIsMade) {
  EXPECT_EQ(expectedTexts.size(), 69U);
  EXPECT_EQ(emptyTextsAtTheStart, 69U);
}

TEST(Translator, FillsEachText) {
  const zrTranslator translator;
  for (const Expected& expected : expectedTexts) {
    EXPECT_EQ(*expected.member, QString(expected.text)) << expected.name;
  }
  EXPECT_EQ(zrTranslator::WELL_STRING, "Well");
  EXPECT_EQ(zrTranslator::LOG, "Log");
  EXPECT_EQ(zrTranslator::HEADS, "Heads");
}

TEST(Translator, KeptSlipsOfTheTextsStand) {
  const zrTranslator translator;
  EXPECT_EQ(zrTranslator::COMPLETE_WELLS, "Complete Wells (with or without data");
  EXPECT_EQ(zrTranslator::SCAT_FOR_WELLS_SURFCAES, "SCAT for Wells/Surfaces");
  EXPECT_EQ(zrTranslator::SCAT_DEPTH_PLOT_TEXT,
            "The interpreted planes will be send back as markers on the well ");
}

TEST(Translator, KeepsTheTextsWhenTheObjectGoes) {
  delete new zrTranslator;
  EXPECT_EQ(zrTranslator::HEAD, "Head");
}

TEST(Translator, WritesOverWhatATextHeld) {
  { const zrTranslator translator; }
  zrTranslator::HEAD = "something else";
  const zrTranslator again;
  EXPECT_EQ(zrTranslator::HEAD, "Head");
}

TEST(Translator, AsksForEachTextInItsOrder) {
  const Application application;
  PrefixTranslator language("de:");
  ASSERT_TRUE(QCoreApplication::installTranslator(&language));
  { const zrTranslator translator; }
  QCoreApplication::removeTranslator(&language);
  ASSERT_EQ(language.sources.size(), expectedTexts.size());
  for (std::size_t i = 0; i < expectedTexts.size(); ++i) {
    EXPECT_EQ(language.sources[i], expectedTexts[i].text);
    EXPECT_EQ(*expectedTexts[i].member, "de:" + QString(expectedTexts[i].text));
  }
  EXPECT_FALSE(language.hasCommentOrNumber);
}

TEST(Translator, ChangesTheLanguageWithAnotherObjectOnly) {
  const Application application;
  PrefixTranslator german("de:");
  PrefixTranslator french("fr:");
  const zrTranslator english;
  EXPECT_EQ(zrTranslator::HEADS, "Heads");
  QCoreApplication::installTranslator(&german);
  EXPECT_EQ(zrTranslator::HEADS, "Heads");
  const zrTranslator second;
  EXPECT_EQ(zrTranslator::HEADS, "de:Heads");
  QCoreApplication::removeTranslator(&german);
  QCoreApplication::installTranslator(&french);
  EXPECT_EQ(zrTranslator::HEADS, "de:Heads");
  const zrTranslator third;
  EXPECT_EQ(zrTranslator::HEADS, "fr:Heads");
  EXPECT_EQ(zrTranslator::WELL_STRING, "fr:Well");
  QCoreApplication::removeTranslator(&french);
  const zrTranslator last;
  EXPECT_EQ(zrTranslator::HEADS, "Heads");
}

TEST(Translator, TakesCompiledTranslations) {
  const TemporaryFolder folder;
  const Application application;
  QTranslator german;
  QTranslator finnish;
  ASSERT_TRUE(german.load(
      compiled(folder, "german",
               translation("de_DE", message("Well", "Bohrung") + message("Log", "Messkurve") +
                                        message("Complete Wells (with or without data",
                                                "Ganze Bohrungen (mit oder ohne Daten)")))));
  ASSERT_TRUE(
      finnish.load(compiled(folder, "finnish", translation("fi_FI", message("Well", "Kaivo")))));
  QCoreApplication::installTranslator(&german);
  const zrTranslator first;
  EXPECT_EQ(zrTranslator::WELL_STRING, "Bohrung");
  EXPECT_EQ(zrTranslator::LOG, "Messkurve");
  EXPECT_EQ(zrTranslator::COMPLETE_WELLS, "Ganze Bohrungen (mit oder ohne Daten)");
  EXPECT_EQ(zrTranslator::HEADS, "Heads");
  QCoreApplication::removeTranslator(&german);
  QCoreApplication::installTranslator(&finnish);
  const zrTranslator second;
  EXPECT_EQ(zrTranslator::WELL_STRING, "Kaivo");
  EXPECT_EQ(zrTranslator::LOG, "Log");
  QCoreApplication::removeTranslator(&finnish);
  const zrTranslator third;
  EXPECT_EQ(zrTranslator::WELL_STRING, "Well");
}

TEST(Translator, HasItsTextsFoundByTheToolsOfQt) {
  const TemporaryFolder folder;
  const QString found = QString::fromStdString((folder.path() / "found.ts").string());
  runTool("lupdate",
          {"-silent", ZRBASE_SOURCE_DIR "/zrBase/utilities/zrTranslator.cpp", "-ts", found});
  QFile file(found);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  QXmlStreamReader xml(&file);
  QStringList contexts;
  QStringList sources;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    if (xml.name() == "name") contexts += xml.readElementText();
    if (xml.name() == "source") sources += xml.readElementText();
  }
  EXPECT_EQ(contexts, QStringList("zrBase::zrTranslator"));
  EXPECT_EQ(sources.size(), 69);
  for (const Expected& expected : expectedTexts) {
    EXPECT_TRUE(sources.contains(expected.text)) << expected.name;
  }
}

TEST(TranslatorTr, TranslatesInItsContext) {
  const Application application;
  PrefixTranslator german("de:");
  EXPECT_EQ(zrTranslator::tr("Well", nullptr, -1), "Well");
  QCoreApplication::installTranslator(&german);
  EXPECT_EQ(zrTranslator::tr("Well", nullptr, -1), "de:Well");
  EXPECT_EQ(zrTranslator::tr("anything"), "de:anything");
  EXPECT_EQ(zrTranslator::staticMetaObject.tr("Well", nullptr, -1), "de:Well");
  QCoreApplication::removeTranslator(&german);
}

TEST(TranslatorTr, IsTheSameAsTrUtf8) {
  const Application application;
  PrefixTranslator german("de:");
  QCoreApplication::installTranslator(&german);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
  EXPECT_EQ(zrTranslator::trUtf8("Well", nullptr, -1), "de:Well");
#pragma GCC diagnostic pop
  QCoreApplication::removeTranslator(&german);
}

TEST(TranslatorMetaObject, HasTheFullNameOfTheClass) {
  const zrTranslator translator;
  EXPECT_STREQ(translator.metaObject()->className(), "zrBase::zrTranslator");
  EXPECT_STREQ(zrTranslator::staticMetaObject.className(), "zrBase::zrTranslator");
  EXPECT_EQ(translator.metaObject(), &zrTranslator::staticMetaObject);
  EXPECT_EQ(zrTranslator::staticMetaObject.superClass(), &QObject::staticMetaObject);
}

TEST(TranslatorMetaObject, AddsNoMemberOfItsOwn) {
  const QMetaObject& own = zrTranslator::staticMetaObject;
  EXPECT_EQ(own.methodCount(), QObject::staticMetaObject.methodCount());
  EXPECT_EQ(own.propertyCount(), QObject::staticMetaObject.propertyCount());
  EXPECT_EQ(own.enumeratorCount(), 0);
  EXPECT_EQ(own.constructorCount(), 0);
  EXPECT_EQ(own.classInfoCount(), 0);
}

TEST(TranslatorMetaObject, AnswersForItsNameAndItsBase) {
  zrTranslator translator;
  EXPECT_EQ(translator.qt_metacast("zrBase::zrTranslator"), &translator);
  EXPECT_EQ(translator.qt_metacast("QObject"), static_cast<QObject*>(&translator));
  EXPECT_EQ(translator.qt_metacast("zrTranslator"), nullptr);
  EXPECT_EQ(translator.qt_metacast("QWidget"), nullptr);
  EXPECT_EQ(translator.qt_metacast(nullptr), nullptr);
  QObject* const object = &translator;
  EXPECT_EQ(qobject_cast<zrTranslator*>(object), &translator);
  QObject other;
  EXPECT_EQ(qobject_cast<zrTranslator*>(&other), nullptr);
  EXPECT_TRUE(translator.inherits("QObject"));
}

TEST(TranslatorMetaObject, PassesCallsOnToQObject) {
  zrTranslator translator;
  const int methods = QObject::staticMetaObject.methodCount();
  EXPECT_EQ(translator.qt_metacall(QMetaObject::InvokeMetaMethod, methods, nullptr), 0);
  EXPECT_EQ(translator.qt_metacall(QMetaObject::InvokeMetaMethod, methods + 5, nullptr), 5);
  EXPECT_TRUE(translator.setProperty("objectName", QString("texts")));
  EXPECT_EQ(translator.objectName(), "texts");
  zrTranslator::staticMetaObject.static_metacall(QMetaObject::InvokeMetaMethod, 0, nullptr);
}

TEST(TranslatorObject, HasNoParent) {
  const zrTranslator translator;
  EXPECT_EQ(translator.parent(), nullptr);
  EXPECT_TRUE(std::has_virtual_destructor<zrTranslator>::value);
}

TEST(TranslatorObject, HoldsNothingOfItsOwn) { EXPECT_EQ(sizeof(zrTranslator), sizeof(QObject)); }

}  // namespace
