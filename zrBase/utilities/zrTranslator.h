#ifndef ZRBASE_UTILITIES_ZRTRANSLATOR_H
#define ZRBASE_UTILITIES_ZRTRANSLATOR_H

#include <zrBase/export.h>

#include <QObject>
#include <QString>

namespace zrBase {

/// The texts on wells and logs that the user interfaces of the suite share, in the user's language.
///
/// All texts are empty until a first object of this class is made. Each object that is made fills
/// them all, in the language of the translators that are installed then
/// (QCoreApplication::installTranslator), or in English without one:
///
///     QCoreApplication::installTranslator(&german);
///     zrBase::zrTranslator texts;
///     button->setText(zrBase::zrTranslator::CREATE_WELL_STRING);
///
/// After a change of the language another object is to be made. The texts outlive the objects,
/// which hold nothing. The context of the translations is "zrBase::zrTranslator"; there are neither
/// comments nor plural forms. Names and texts stand as the applications know them, slips included.
class ZRBASE_EXPORT zrTranslator : public QObject {
  Q_OBJECT

 public:
  /// Fills the texts, in the order in which they stand here. The object has no parent.
  zrTranslator();
  ~zrTranslator() override;

  static QString WELL_STRING;             ///< "Well"
  static QString WELLS_STRING;            ///< "Wells"
  static QString CREATE_WELL_STRING;      ///< "Create Well"
  static QString NAME_OF_NEW_WELL_SET;    ///< "Name of New Well Set"
  static QString WELL_SET_NAME;           ///< "Well Set Name"
  static QString WELL_NAME;               ///< "Well Name"
  static QString FROM_WELL;               ///< "From Well"
  static QString WELL_TO_WELL;            ///< "Well to Well"
  static QString IMPORT_FROM_WELLS;       ///< "Import From Wells"
  static QString WELL_SET;                ///< "Well Set"
  static QString WELL_SET_PARAMETERS;     ///< "Well Set Parameters"
  static QString FRAC_GEN_WELL_TEXT_1;    ///< "This well does not seem to have any valid ..."
  static QString FRAC_GEN_WELL_TEXT_2;    ///< "Notes: ..."
  static QString USE_SELECTED_WELLS;      ///< "Use Selected Wells"
  static QString SELECT_WELL;             ///< "Select Well"
  static QString GEO_CELL_WELL_TEXT_1;    ///< "Enter Point below or select point or well with ..."
  static QString WELL_IMPORT_FORMAT_OPT;  ///< "Well Import: Format Options"
  static QString WELL_IMPORT_TYPE_OPTIONS;   ///< "Well Import: Type Options"
  static QString COMPLETE_WELLS;             ///< "Complete Wells (with or without data"
  static QString WELL_POSITIONS_ONLY;        ///< "Well Positions Only"
  static QString INSERT_REPLACE_ONTO_WELLS;  ///< "Insert / Replace Data onto Existing Wells"
  static QString INSERT_REPLACE_WELLS;       ///< "Insert / Replace Well Surveys"
  static QString INSERT_ALONG_WELL;          ///< "Insert Data Along Existing Wells"
  static QString WELL_IMPORT_NOTE_1;  ///< "Note: 1. The file names must be identical to the ..."
  static QString WELL_IMPORT_NOTE_2;  ///< "2. Or the 'Well Names' must be present in the file. ..."
  static QString WELL_CURVE_CALCULATION;   ///< "Well Curve Calculation Method:"
  static QString WELL_DIP_MARKER;          ///< "Well/Dip Marker"
  static QString WELL_MARKER;              ///< "Well Marker"
  static QString WELL_MARKER_TOOL;         ///< "Well Marker Tool"
  static QString WELL_MARKERS;             ///< "Well Markers"
  static QString SCAT_FOR_WELLS_SURFCAES;  ///< "SCAT for Wells/Surfaces"
  static QString WELL_NAME_FONT_SIZE;      ///< "Well Name Font Size"
  static QString WELL_NAME_COLOUR;         ///< "Well Name Colour"
  static QString SHOW_WELL_TRACK;          ///< "Show Well Track"
  static QString WELL_TICK_INTERVAL;       ///< "Well Tick Interval"
  static QString SELECTED_WELL;            ///< "Selected Well"
  static QString PREVIOUS_WELL_MARKER;     ///< "Previous Well Marker"
  static QString NEXT_WELL_MARKER;         ///< "Next Well Marker"
  static QString CREATE_SECTION_TEXT_1;    ///< "Objects to be selected can be ..."
  static QString CREATE_SECTION_TEXT_2;    ///< "Select Lines, Section Traces, Wells or SegyImages"
  static QString CREATE_WELL_SEND_DATA;    ///< "Create Well and send data to model"
  static QString FIELD_WELL_DIP_DATA;      ///< "Field/Well Dip Data"
  static QString SCAT_DEPTH_PLOT_TEXT;     ///< "The interpreted planes will be send back as ..."
  static QString CREATE_NEW_WELL_CURVE_ATT;  ///< "Create New Well Curve Attribute"
  static QString EXTEND_WELL_OPTIONS;        ///< "Extend Well Options"
  static QString INSERT_WELL_TEXT_1;  ///< "The well data being inserted overlaps the existing ..."
  static QString CREATE_SIDE_TRACK_WELL;   ///< "Create a Side Track Well"
  static QString DISCARD_DATA_ABOVE_WELL;  ///< "Discard new data above end of existing well track"
  static QString DISCARD_WELL_BELOW_DATA;  ///< "Discard existing well track below start of new ..."
  static QString FIRST_LINE_IS_WELL_POS;   ///< "First line is well position"
  static QString VERTICAL_WELL_DEFINED_AS;  ///< "Vertical Well / drill hole defined as:"
  static QString WELL_LIST_NAME;            ///< "Well List Name"
  static QString SELECT_WELL_LIST_MEMBERS;  ///< "Select Well List Members"
  static QString SHOW_WELL_NAME;            ///< "Show Well Name"
  static QString WELL_SYMBOL_SIZE;          ///< "Well Symbol Size"
  static QString WORKFLOW_TEXT_1;         ///< "3) Select output simulated wells to save to model."
  static QString OUTPUT_WELLS;            ///< "Output Wells"
  static QString FOR_ANY_WELL;            ///< "For Any Well"
  static QString FOR_ALL_WELLS;           ///< "For All Wells"
  static QString WORKFLOW_WELL_SELECT_1;  ///< "In order to Analyze the accuracy of the flow ..."
  static QString WORKFLOW_WELL_SELECT_2;  ///< "1)Collect or Add selected wells from the model. ..."
  static QString HorizontalSection;       ///< "Horizontal Section"
  static QString CreateHorizontalSection;  ///< "Create Horizontal/Inclined Section"
  static QString LOG;                      ///< "Log"
  static QString WELL_LOG;                 ///< "Well Log"
  static QString WELL_CURVES;              ///< "Well Curves"
  static QString WELL_MARKER_DATA;         ///< "Well Marker Data"
  static QString HEAD;                     ///< "Head"
  static QString HEADS;                    ///< "Heads"
};

}  // namespace zrBase

#endif  // ZRBASE_UTILITIES_ZRTRANSLATOR_H
