#ifndef ZRBASE_APPS_COMMON_COMMAND_H
#define ZRBASE_APPS_COMMON_COMMAND_H

#include <functional>

namespace CLI {
class App;
}

/// A job of the program: `zrbase flowpath`, `zrbase split`.
///
/// Each job has a function `Command addXCommand(CLI::App&)` that adds its parser, with options and
/// help; the options live as long as `run`. `main` runs the one whose parser was called.
struct Command {
  CLI::App* parser = nullptr;
  /// Does the job. @throws CommandError for what the user can mend
  std::function<void()> run;
};

#endif  // ZRBASE_APPS_COMMON_COMMAND_H
