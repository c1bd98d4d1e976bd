#include "survey/surveyCommand.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

#include "survey/segyFile.h"
#include "survey/surveyFitJob.h"
#include "survey/surveyMapJob.h"
#include "survey/textHeader.h"

namespace {

const char* const kFooter =
    "A survey grid maps inline and crossline numbers to x and y. Three corners fix it: the first\n"
    "two that share an inline (or a crossline) are met exactly, the third decides the spacing of\n"
    "the other lines. It may be off by 5 lines; the grid stays at right angles.\n\n"
    "Each job has its own help: zrbase survey fit --help";

const char* const kFitFooter =
    "FILE.sgy is read once, header by header, in either byte order and whatever the order of its\n"
    "traces. Coordinates are scaled by the scalar at byte 71. Traces whose inline, crossline, x\n"
    "and y are all 0 are left out. The corners are the ends of the longest run of one line and "
    "the\n"
    "line furthest from it, or those of all traces by least squares where all runs are short; the\n"
    "grid is then extended to the lowest and highest numbers.\n\n"
    "--corners is a table with columns inline, crossline, x and y, or points with columns inline\n"
    "and crossline, three in number and in any order.\n\n"
    "Printed are the corners, line numbers with their steps, the size of a bin, the rotation, and\n"
    "by how much the third corner is missed. Azimuths are clockwise from the north of the grid.\n\n"
    "Output: .gpkg, .geojson and .json get the layer outline, a polygon through the outermost bin\n"
    "centres, and with --grid the layer bins. .csv gets the three corners, for --corners.\n\n"
    "Examples:\n"
    "  zrbase survey fit --corners corners.csv\n"
    "      what three corners say about the grid\n"
    "  zrbase survey fit stack.sgy -o corners.csv\n"
    "      the corners of a seismic volume\n"
    "  zrbase survey fit stack.sgy --crs EPSG:23031 --grid --every 10 -o grid.gpkg\n"
    "      outline and each tenth bin, both ways\n"
    "  zrbase survey fit old.sgy --inline-byte 9 --crossline-byte 21 --x-byte 73 --y-byte 77 "
    "--units "
    "ft\n"
    "      geometry in other places of the trace headers, coordinates in feet";

const char* const kMapFooter =
    "The points are written with fields fid, name, inline, crossline, x and y, at x and y: as\n"
    ".gpkg, .geojson, .json or .csv. Numbers between the lines and beyond them are mapped as "
    "well.\n"
    "--crs names the system of x and y, which a table of corners does not state.\n\n";

const char* const kToWorldExamples =
    "POINTS needs columns inline and crossline; geometries it may have are passed over.\n\n"
    "Example:\n"
    "  zrbase survey to-world picks.csv --corners corners.csv --crs EPSG:23031 -o picks.gpkg";

const char* const kToSurveyExamples =
    "POINTS has points, or columns x and y. Points that state a system are projected to that of\n"
    "--crs; others are in the system of the corners.\n\n"
    "Example:\n"
    "  zrbase survey to-survey wells.geojson --corners corners.csv --crs EPSG:23031 -o wells.csv";

const char* const kHeaderFooter =
    "Prints 40 lines of 80 characters. Whether the header is EBCDIC or ASCII is seen from its\n"
    "blanks, letters and digits, unless --encoding tells it.\n\n"
    "Example:\n"
    "  zrbase survey header stack.sgy";

struct HeaderOptions {
  std::string file;
  std::string encoding = "guess";
};

struct SurveyOptionSet {
  FitOptions fit;
  MapOptions toWorld;
  MapOptions toSurvey;
  HeaderOptions header;
};

void addCornerOptions(CLI::App& command, CornersOptions& options, bool required) {
  command.add_option("--corners", options.file, "table with the three corners")
      ->type_name("FILE")
      ->required(required);
  command.add_option("--columns", options.columns, "names of the columns of --corners")
      ->type_name("INLINE,CROSSLINE,X,Y");
  command
      .add_option("--units", options.units,
                  "unit of x and y that come in: m (default), ft or usft; results are in metres")
      ->type_name("UNIT");
}

CLI::App* addFit(CLI::App& survey, FitOptions& options) {
  CLI::App* const command =
      survey.add_subcommand("fit", "Grid of three corners, or of the traces of a SEG-Y file");
  command->footer(kFitFooter);
  command->add_option("FILE.sgy", options.segy, "SEG-Y file with the survey")->type_name("FILE");
  addCornerOptions(*command, options.corners, false);
  command
      ->add_option("--inline-byte", options.bytes.inlineNumber,
                   "byte of the inline in a trace header (189)")
      ->type_name("BYTE");
  command
      ->add_option("--crossline-byte", options.bytes.crosslineNumber, "byte of the crossline (193)")
      ->type_name("BYTE");
  command->add_option("--x-byte", options.bytes.x, "byte of x (181)")->type_name("BYTE");
  command->add_option("--y-byte", options.bytes.y, "byte of y (185)")->type_name("BYTE");
  command
      ->add_option("--steps", options.steps,
                   "steps of the numbers; those of the traces, or 1,1 otherwise")
      ->type_name("INLINE,CROSSLINE");
  command->add_option("--crs", options.crs, "metric system of x and y, for the output")
      ->type_name("EPSG:N");
  command->add_option("-o,--output", options.output, "output: .gpkg, .geojson, .json or .csv")
      ->type_name("FILE");
  command->add_flag("--grid", options.grid, "write the bins too, as polygons");
  command->add_flag("--centres", options.centres, "bins as points in their middles");
  command->add_option("--every", options.every, "bins of each N-th inline and crossline only (1)")
      ->type_name("N");
  return command;
}

CLI::App* addMap(CLI::App& survey, MapOptions& options, bool toWorld) {
  options.toWorld = toWorld;
  CLI::App* const command =
      toWorld ? survey.add_subcommand("to-world", "Inline and crossline numbers to x and y")
              : survey.add_subcommand("to-survey", "x and y to inline and crossline numbers");
  command->footer(std::string(kMapFooter) + (toWorld ? kToWorldExamples : kToSurveyExamples));
  command->add_option("POINTS", options.points.file, "points to map: any vector file, or a table")
      ->type_name("FILE")
      ->required();
  addCornerOptions(*command, options.corners, true);
  command
      ->add_option("--layer", options.points.layer,
                   "layer of POINTS; the first that fits otherwise")
      ->type_name("NAME");
  command
      ->add_option("--where", options.points.where,
                   "feature id, or several joined by commas, or all (default)")
      ->type_name("FID");
  command->add_option("--crs", options.crs, "metric system of x and y")->type_name("EPSG:N");
  command->add_option("-o,--output", options.output, "output: .gpkg, .geojson, .json or .csv")
      ->type_name("FILE")
      ->required();
  command->add_flag("--skip-bad", options.points.skipBad, "leave bad features out and go on");
  return command;
}

CLI::App* addHeader(CLI::App& survey, HeaderOptions& options) {
  CLI::App* const command = survey.add_subcommand("header", "Text header of a SEG-Y file");
  command->footer(kHeaderFooter);
  command->add_option("FILE.sgy", options.file, "SEG-Y file")->type_name("FILE")->required();
  command->add_option("--encoding", options.encoding, "ebcdic, ascii or guess (default)")
      ->type_name("CODE");
  return command;
}

void runHeader(const HeaderOptions& options) {
  const HeaderEncoding encoding = headerEncoding(options.encoding);
  std::cout << textOfHeader(SegyFile(options.file).textHeader(), encoding) << std::flush;
}

}  // namespace

Command addSurveyCommand(CLI::App& application) {
  CLI::App* const survey =
      application.add_subcommand("survey", "Grids of seismic surveys: fit, map, text headers");
  survey->footer(kFooter);
  survey->require_subcommand(0, 1);
  const auto options = std::make_shared<SurveyOptionSet>();
  CLI::App* const fit = addFit(*survey, options->fit);
  CLI::App* const toWorld = addMap(*survey, options->toWorld, true);
  CLI::App* const toSurvey = addMap(*survey, options->toSurvey, false);
  CLI::App* const header = addHeader(*survey, options->header);
  return {survey, [=] {
            if (fit->parsed()) {
              runSurveyFit(options->fit);
            } else if (toWorld->parsed()) {
              runSurveyMap(options->toWorld);
            } else if (toSurvey->parsed()) {
              runSurveyMap(options->toSurvey);
            } else if (header->parsed()) {
              runHeader(options->header);
            } else {
              std::cout << survey->help("zrbase");
            }
          }};
}
