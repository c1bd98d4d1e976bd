#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <string>

#include "commandError.h"
#include "flowpathCommand.h"
#include "textFormat.h"

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
  FlowpathOptions flowpathOptions;
  const CLI::App* const flowpath = addFlowpathCommand(application, flowpathOptions);
  std::string command = "zrbase";
  try {
    application.parse(argumentCount, arguments);
    if (flowpath->parsed()) {
      command = "zrbase flowpath";
      runFlowpathCommand(flowpathOptions, argumentCount, arguments);
      return 0;
    }
    std::cout << application.help();
    return 0;
  } catch (const CLI::Success& information) {  // --help and --version
    return application.exit(information);
  } catch (const CLI::ParseError& error) {
    return fail(flowpath->parsed() ? "zrbase flowpath" : "zrbase", error.what());
  } catch (const std::exception& error) {
    return fail(command, error.what());
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
