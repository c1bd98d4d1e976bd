#ifndef ZRBASE_CLUSTERING_KMSERVICES_H
#define ZRBASE_CLUSTERING_KMSERVICES_H

#include <zrBase/export.h>

#include <iosfwd>
#include <string>

/// How much the clustering code tells about its work; used by its numeric order.
///
/// Each level includes those below it. Values between the enumerators are legal.
enum StatLev : int {
  KM_STAT_SILENT = 0,   ///< nothing but warnings and errors
  KM_STAT_STAGES = 5,   ///< from here on: the stage and run lines of a search
  KM_STAT_SWAPS = 6,    ///< from here on: one line for each swap of a center
  KM_STAT_CENTERS = 7,  ///< from here on: all centers, after each change to them
};

/// Levels of kmError.
enum KMerr : int {
  KMwarn = 0,   ///< the report is written, work goes on
  KMabort = 1,  ///< the report is written, the process ends with status 1
};

/// How much is told; KM_STAT_SILENT until a caller sets it.
extern ZRBASE_EXPORT StatLev kmStatLev;
/// Where the clustering code writes; std::cout until a caller changes it. Never null.
extern ZRBASE_EXPORT std::ostream* kmOut;
/// Where errors go as well; std::cerr until a caller changes it. Never null.
extern ZRBASE_EXPORT std::ostream* kmErr;
/// std::cin until a caller changes it. The library never reads from it.
extern ZRBASE_EXPORT std::istream* kmIn;

/// Reports a warning or an error, on kmErr first and then the same line on kmOut.
///
/// The line of a warning is `rabriol: WARNING----->` + msg + `<-------------WARNING`, that of an
/// error `rabriol: ERROR------->` + msg + `<-------------ERROR`.
/// @param level  KMabort ends the process with exit(1) after the report; any other value, KMwarn or
/// not, counts as a warning
ZRBASE_EXPORT void kmError(const std::string& msg, int level);

/// Writes one point to kmOut: its coordinates, each in a field of width 8, a blank between them.
///
/// The figures are those of the C locale, with the precision that kmOut has.
/// @param p  `dim` coordinates
/// @param fancy  true puts "[ " before and " ]" after
ZRBASE_EXPORT void kmPrintPt(const double* p, int dim, bool fancy);

/// Writes a titled list of points to kmOut: a line `  (title:`, one line per point with its index
/// and kmPrintPt, and a last line `  )`.
/// @param pts  n rows of at least `dim` coordinates
ZRBASE_EXPORT void kmPrintPts(const std::string& title, double** pts, int n, int dim, bool fancy);

#endif  // ZRBASE_CLUSTERING_KMSERVICES_H
