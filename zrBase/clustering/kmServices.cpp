#include <zrBase/clustering/kmServices.h>

#include <zrBase/clustering/internal/plainNumbers.h>

#include <cstdlib>
#include <iomanip>
#include <iostream>

StatLev kmStatLev = KM_STAT_SILENT;
std::ostream* kmOut = &std::cout;
std::ostream* kmErr = &std::cerr;
std::istream* kmIn = &std::cin;

namespace {

// What this clustering code calls itself. Nothing reads it.
[[maybe_unused]] constexpr char nameOfClustering[] = "Rabriol";
[[maybe_unused]] constexpr char titleOfClustering[] =
    "Rabriol (k-means clustering by local search)";
[[maybe_unused]] constexpr char versionOfClustering[] = "1.7";
[[maybe_unused]] constexpr char dateOfClustering[] = "August 10, 2005";
[[maybe_unused]] constexpr char disclaimerOfClustering[] = "(Use at your own risk)";
[[maybe_unused]] constexpr char authorOfClustering[] = "The authors of zrBase";

void writeReport(const std::string& report) {
  // Kept on purpose (KeptReportGoesToBothStreams): the line goes to kmErr and again to kmOut, also
  // where both are one stream. Logs of the output alone are to show it too.
  *kmErr << report << std::endl;
  *kmOut << report << std::endl;
}

}  // namespace

void kmError(const std::string& msg, int level) {
  if (level == KMabort) {
    writeReport("rabriol: ERROR------->" + msg + "<-------------ERROR");
    std::exit(1);
  }
  writeReport("rabriol: WARNING----->" + msg + "<-------------WARNING");
}

void kmPrintPt(const double* p, int dim, bool fancy) {
  const PlainNumbers plainNumbers(*kmOut);
  if (fancy) *kmOut << "[ ";
  for (int d = 0; d < dim; ++d) {
    if (d > 0) *kmOut << " ";
    *kmOut << std::setw(8) << p[d];
  }
  if (fancy) *kmOut << " ]";
}

void kmPrintPts(const std::string& title, double** pts, int n, int dim, bool fancy) {
  const PlainNumbers plainNumbers(*kmOut);
  *kmOut << "  (" << title << ":\n";
  for (int i = 0; i < n; ++i) {
    *kmOut << "    " << i << "\t";
    kmPrintPt(pts[i], dim, fancy);
    *kmOut << "\n";
  }
  *kmOut << "  )" << std::endl;
}
