#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "cluster/clusterCommand.h"
#include "colour/colourCommand.h"
#include "column/columnCommand.h"
#include "common/command.h"
#include "common/textFormat.h"
#include "flowpath/flowpathCommand.h"
#include "fuse/fuseCommand.h"
#include "plane/planeCommand.h"
#include "polygons/polygonsCommand.h"
#include "split/splitCommand.h"
#include "survey/surveyCommand.h"
#include "well/wellCommand.h"

namespace {

constexpr int kBadInput = 2;

int fail(const std::string& command, const std::string& reason) {
  std::cerr << command << ": " << textFormat::oneLine(reason) << '\n';
  return kBadInput;
}

int run(int argumentCount, char** arguments) {
  CLI::App application(
      "Geometry of structural geology at the command line.\n"
      "Each job has its own help: zrbase JOB --help",
      "zrbase");
  application.set_version_flag("--version", "zrbase " ZRBASE_VERSION);
  application.require_subcommand(0, 1);
  const std::vector<Command> commands = {
      addFlowpathCommand(application), addPlaneCommand(application),
      addSplitCommand(application),    addFuseCommand(application),
      addPolygonsCommand(application), addSurveyCommand(application),
      addWellCommand(application),     addClusterCommand(application),
      addColourCommand(application),   addColumnCommand(application)};
  std::string name = "zrbase";
  try {
    application.parse(argumentCount, arguments);
    for (const Command& command : commands) {
      if (command.parser->parsed()) {
        name = "zrbase " + command.parser->get_name();
        command.run();
        return 0;
      }
    }
    std::cout << application.help();
    return 0;
  } catch (const CLI::Success& information) {  // --help and --version
    return application.exit(information);
  } catch (const CLI::ParseError& error) {
    for (const Command& command : commands) {
      name = command.parser->parsed() ? "zrbase " + command.parser->get_name() : name;
    }
    return fail(name, error.what());
  } catch (const std::exception& error) {
    return fail(name, error.what());
  }
}

}  // namespace

int main(int argumentCount, char** arguments) {
  try {
    return run(argumentCount, arguments);
  } catch (...) {
    return fail("zrbase", "ended by an unknown error");
  }
}
