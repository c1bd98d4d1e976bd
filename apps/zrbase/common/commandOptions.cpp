#include "common/commandOptions.h"

#include <CLI/CLI.hpp>

void addInputOptions(CLI::App& command, const std::string& name, const std::string& holds,
                     InputOptions& options) {
  command.add_option(name, options.file, "vector file with the " + holds)
      ->type_name("FILE")
      ->required();
  command
      .add_option("--layer", options.layer,
                  "layer of " + name + "; the first one with " + holds + " otherwise")
      ->type_name("NAME");
  command
      .add_option("--where", options.where,
                  "feature id, or several joined by commas, or all (default)")
      ->type_name("FID");
  command.add_option("--crs", options.crs, "metric system to work in")->type_name("EPSG:N");
  command.add_flag("--skip-bad", options.skipBad, "leave bad features out and go on");
}

void addOutputOption(CLI::App& command, std::string& output) {
  command.add_option("-o,--output", output, "output: .geojson, .json or .gpkg")
      ->type_name("FILE")
      ->required();
}
