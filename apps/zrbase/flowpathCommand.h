#ifndef ZRBASE_APPS_FLOWPATHCOMMAND_H
#define ZRBASE_APPS_FLOWPATHCOMMAND_H

#include <string>
#include <vector>

namespace CLI {
class App;
}

/// The options of `zrbase flowpath` as typed; numbers are read by the command, which names the bad
/// one.
struct FlowpathOptions {
  std::string faults;
  std::string layer;
  std::string where = "all";
  std::string points;
  std::vector<std::string> heights;
  std::vector<std::string> slips;
  std::string bounds;
  std::string sideTolerance = "0";
  std::string crs;
  std::string output;
  std::string picture;
  bool skipBad = false;
};

/// Adds `zrbase flowpath` with its help to the application; `options` is filled when the command
/// line is parsed.
CLI::App* addFlowpathCommand(CLI::App& application, FlowpathOptions& options);

/// Reads the fault traces, makes bisectors, paths and moved places, and writes them, the picture
/// and the summary.
///
/// Nothing appears under the output's names before everything is made.
/// @throws CommandError for what the user can mend
void runFlowpathCommand(const FlowpathOptions& options, int& argumentCount, char** arguments);

#endif  // ZRBASE_APPS_FLOWPATHCOMMAND_H
