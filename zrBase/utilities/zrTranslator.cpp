#include <zrBase/utilities/zrTranslator.h>

namespace zrBase {

namespace {

struct Text {
  QString* member;
  const char* source;
};

/// In the order in which they are asked for. Translators get them from here, by lupdate.
constexpr Text texts[] = {
    {&zrTranslator::WELL_STRING, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well")},
    {&zrTranslator::WELLS_STRING, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Wells")},
    {&zrTranslator::CREATE_WELL_STRING, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Create Well")},
    {&zrTranslator::NAME_OF_NEW_WELL_SET,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Name of New Well Set")},
    {&zrTranslator::WELL_SET_NAME, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Set Name")},
    {&zrTranslator::WELL_NAME, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Name")},
    {&zrTranslator::FROM_WELL, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "From Well")},
    {&zrTranslator::WELL_TO_WELL, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well to Well")},
    {&zrTranslator::IMPORT_FROM_WELLS,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Import From Wells")},
    {&zrTranslator::WELL_SET, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Set")},
    {&zrTranslator::WELL_SET_PARAMETERS,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Set Parameters")},
    {&zrTranslator::FRAC_GEN_WELL_TEXT_1,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator",
                       "This well does not seem to have any valid orientation attributes")},
    {&zrTranslator::FRAC_GEN_WELL_TEXT_2,
     QT_TRANSLATE_NOOP(
         "zrBase::zrTranslator",
         "Notes: \n1.)  Selecting well(s) may affect Overall Connectivity. \n2.) Changes "
         "in the object list will require recalculation of the connectivity analysis.")},
    {&zrTranslator::USE_SELECTED_WELLS,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Use Selected Wells")},
    {&zrTranslator::SELECT_WELL, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Select Well")},
    {&zrTranslator::GEO_CELL_WELL_TEXT_1,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator",
                       "Enter Point below or select point or well with Left Mouse Button to build "
                       "Arbitrary Section, or select Row, Column or Layer Sections.")},
    {&zrTranslator::WELL_IMPORT_FORMAT_OPT,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Import: Format Options")},
    {&zrTranslator::WELL_IMPORT_TYPE_OPTIONS,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Import: Type Options")},
    // Kept on purpose (KeptSlipsOfTheTextsStand): the closing bracket is missing here, a name has
    // SURFCAES in it, and "send" stands for "sent" further below. Translations are found by the
    // text and applications by the name.
    {&zrTranslator::COMPLETE_WELLS,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Complete Wells (with or without data")},
    {&zrTranslator::WELL_POSITIONS_ONLY,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Positions Only")},
    {&zrTranslator::INSERT_REPLACE_ONTO_WELLS,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Insert / Replace Data onto Existing Wells")},
    {&zrTranslator::INSERT_REPLACE_WELLS,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Insert / Replace Well Surveys")},
    {&zrTranslator::INSERT_ALONG_WELL,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Insert Data Along Existing Wells")},
    {&zrTranslator::WELL_IMPORT_NOTE_1,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator",
                       "Note: 1. The file names must be identical to the existing wells in "
                       "the model.  ")},
    {&zrTranslator::WELL_IMPORT_NOTE_2,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator",
                       "           2. Or the 'Well Names' must be present in the file. Choose the "
                       "Attribute: Well Name in this case")},
    {&zrTranslator::WELL_CURVE_CALCULATION,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Curve Calculation Method:")},
    {&zrTranslator::WELL_DIP_MARKER, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well/Dip Marker")},
    {&zrTranslator::WELL_MARKER, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Marker")},
    {&zrTranslator::WELL_MARKER_TOOL,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Marker Tool")},
    {&zrTranslator::WELL_MARKERS, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Markers")},
    {&zrTranslator::SCAT_FOR_WELLS_SURFCAES,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "SCAT for Wells/Surfaces")},
    {&zrTranslator::WELL_NAME_FONT_SIZE,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Name Font Size")},
    {&zrTranslator::WELL_NAME_COLOUR,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Name Colour")},
    {&zrTranslator::SHOW_WELL_TRACK, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Show Well Track")},
    {&zrTranslator::WELL_TICK_INTERVAL,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Tick Interval")},
    {&zrTranslator::SELECTED_WELL, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Selected Well")},
    {&zrTranslator::PREVIOUS_WELL_MARKER,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Previous Well Marker")},
    {&zrTranslator::NEXT_WELL_MARKER,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Next Well Marker")},
    {&zrTranslator::CREATE_SECTION_TEXT_1,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator",
                       "Objects to be selected can be Lines,Wells,SegyImages,VertexClouds")},
    {&zrTranslator::CREATE_SECTION_TEXT_2,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator",
                       "Select Lines, Section Traces, Wells or SegyImages")},
    {&zrTranslator::CREATE_WELL_SEND_DATA,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Create Well and send data to model")},
    {&zrTranslator::FIELD_WELL_DIP_DATA,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Field/Well Dip Data")},
    {&zrTranslator::SCAT_DEPTH_PLOT_TEXT,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator",
                       "The interpreted planes will be send back as markers on the well ")},
    {&zrTranslator::CREATE_NEW_WELL_CURVE_ATT,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Create New Well Curve Attribute")},
    {&zrTranslator::EXTEND_WELL_OPTIONS,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Extend Well Options")},
    {&zrTranslator::INSERT_WELL_TEXT_1,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator",
                       "The well data being inserted overlaps the existing well. Do you wish to?")},
    {&zrTranslator::CREATE_SIDE_TRACK_WELL,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Create a Side Track Well")},
    {&zrTranslator::DISCARD_DATA_ABOVE_WELL,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator",
                       "Discard new data above end of existing well track")},
    {&zrTranslator::DISCARD_WELL_BELOW_DATA,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator",
                       "Discard existing well track below start of new data")},
    {&zrTranslator::FIRST_LINE_IS_WELL_POS,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "First line is well position")},
    {&zrTranslator::VERTICAL_WELL_DEFINED_AS,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Vertical Well / drill hole defined as:")},
    {&zrTranslator::WELL_LIST_NAME, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well List Name")},
    {&zrTranslator::SELECT_WELL_LIST_MEMBERS,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Select Well List Members")},
    {&zrTranslator::SHOW_WELL_NAME, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Show Well Name")},
    {&zrTranslator::WELL_SYMBOL_SIZE,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Symbol Size")},
    {&zrTranslator::WORKFLOW_TEXT_1,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator",
                       "3) Select output simulated wells to save to model.")},
    {&zrTranslator::OUTPUT_WELLS, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Output Wells")},
    {&zrTranslator::FOR_ANY_WELL, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "For Any Well")},
    {&zrTranslator::FOR_ALL_WELLS, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "For All Wells")},
    {&zrTranslator::WORKFLOW_WELL_SELECT_1,
     QT_TRANSLATE_NOOP(
         "zrBase::zrTranslator",
         "In order to Analyze the accuracy of the flow simulation well data is used to "
         "compare the difference between Actual and Simulated. The smaller the "
         "difference the more accurate the flow.")},
    {&zrTranslator::WORKFLOW_WELL_SELECT_2,
     QT_TRANSLATE_NOOP(
         "zrBase::zrTranslator",
         "1)Collect or Add selected wells from the model.\n\n\n2)Select wells by "
         "clicking on them.\n\n\n3)Position the selected well by picking its location on "
         "the Surface.\n\n\n4)Delete any selected well.\n\n\n5)Create virtual "
         "wells.\n\n\n6)Edit sand fraction, thickness and sorting index values.")},
    {&zrTranslator::HorizontalSection,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Horizontal Section")},
    {&zrTranslator::CreateHorizontalSection,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Create Horizontal/Inclined Section")},
    {&zrTranslator::LOG, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Log")},
    {&zrTranslator::WELL_LOG, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Log")},
    {&zrTranslator::WELL_CURVES, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Curves")},
    {&zrTranslator::WELL_MARKER_DATA,
     QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Well Marker Data")},
    {&zrTranslator::HEAD, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Head")},
    {&zrTranslator::HEADS, QT_TRANSLATE_NOOP("zrBase::zrTranslator", "Heads")},
};

}  // namespace

zrTranslator::zrTranslator() {
  for (const Text& text : texts) *text.member = tr(text.source);
}

zrTranslator::~zrTranslator() = default;

QString zrTranslator::WELL_STRING;
QString zrTranslator::WELLS_STRING;
QString zrTranslator::CREATE_WELL_STRING;
QString zrTranslator::NAME_OF_NEW_WELL_SET;
QString zrTranslator::WELL_SET_NAME;
QString zrTranslator::WELL_NAME;
QString zrTranslator::FROM_WELL;
QString zrTranslator::WELL_TO_WELL;
QString zrTranslator::IMPORT_FROM_WELLS;
QString zrTranslator::WELL_SET;
QString zrTranslator::WELL_SET_PARAMETERS;
QString zrTranslator::FRAC_GEN_WELL_TEXT_1;
QString zrTranslator::FRAC_GEN_WELL_TEXT_2;
QString zrTranslator::USE_SELECTED_WELLS;
QString zrTranslator::SELECT_WELL;
QString zrTranslator::GEO_CELL_WELL_TEXT_1;
QString zrTranslator::WELL_IMPORT_FORMAT_OPT;
QString zrTranslator::WELL_IMPORT_TYPE_OPTIONS;
QString zrTranslator::COMPLETE_WELLS;
QString zrTranslator::WELL_POSITIONS_ONLY;
QString zrTranslator::INSERT_REPLACE_ONTO_WELLS;
QString zrTranslator::INSERT_REPLACE_WELLS;
QString zrTranslator::INSERT_ALONG_WELL;
QString zrTranslator::WELL_IMPORT_NOTE_1;
QString zrTranslator::WELL_IMPORT_NOTE_2;
QString zrTranslator::WELL_CURVE_CALCULATION;
QString zrTranslator::WELL_DIP_MARKER;
QString zrTranslator::WELL_MARKER;
QString zrTranslator::WELL_MARKER_TOOL;
QString zrTranslator::WELL_MARKERS;
QString zrTranslator::SCAT_FOR_WELLS_SURFCAES;
QString zrTranslator::WELL_NAME_FONT_SIZE;
QString zrTranslator::WELL_NAME_COLOUR;
QString zrTranslator::SHOW_WELL_TRACK;
QString zrTranslator::WELL_TICK_INTERVAL;
QString zrTranslator::SELECTED_WELL;
QString zrTranslator::PREVIOUS_WELL_MARKER;
QString zrTranslator::NEXT_WELL_MARKER;
QString zrTranslator::CREATE_SECTION_TEXT_1;
QString zrTranslator::CREATE_SECTION_TEXT_2;
QString zrTranslator::CREATE_WELL_SEND_DATA;
QString zrTranslator::FIELD_WELL_DIP_DATA;
QString zrTranslator::SCAT_DEPTH_PLOT_TEXT;
QString zrTranslator::CREATE_NEW_WELL_CURVE_ATT;
QString zrTranslator::EXTEND_WELL_OPTIONS;
QString zrTranslator::INSERT_WELL_TEXT_1;
QString zrTranslator::CREATE_SIDE_TRACK_WELL;
QString zrTranslator::DISCARD_DATA_ABOVE_WELL;
QString zrTranslator::DISCARD_WELL_BELOW_DATA;
QString zrTranslator::FIRST_LINE_IS_WELL_POS;
QString zrTranslator::VERTICAL_WELL_DEFINED_AS;
QString zrTranslator::WELL_LIST_NAME;
QString zrTranslator::SELECT_WELL_LIST_MEMBERS;
QString zrTranslator::SHOW_WELL_NAME;
QString zrTranslator::WELL_SYMBOL_SIZE;
QString zrTranslator::WORKFLOW_TEXT_1;
QString zrTranslator::OUTPUT_WELLS;
QString zrTranslator::FOR_ANY_WELL;
QString zrTranslator::FOR_ALL_WELLS;
QString zrTranslator::WORKFLOW_WELL_SELECT_1;
QString zrTranslator::WORKFLOW_WELL_SELECT_2;
QString zrTranslator::HorizontalSection;
QString zrTranslator::CreateHorizontalSection;
QString zrTranslator::LOG;
QString zrTranslator::WELL_LOG;
QString zrTranslator::WELL_CURVES;
QString zrTranslator::WELL_MARKER_DATA;
QString zrTranslator::HEAD;
QString zrTranslator::HEADS;

}  // namespace zrBase
