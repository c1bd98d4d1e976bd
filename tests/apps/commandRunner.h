#ifndef ZRBASE_TESTS_APPS_COMMANDRUNNER_H
#define ZRBASE_TESTS_APPS_COMMANDRUNNER_H

#include <map>
#include <string>
#include <vector>

/// What a run of the command left behind.
struct CommandResult {
  int status = -1;
  std::string out;
  std::string err;
};

/// Runs `zrbase` with these arguments as a child process. `environment` goes before it,
/// "LC_ALL=de_DE.UTF-8".
CommandResult runZrbase(const std::vector<std::string>& arguments,
                        const std::string& environment = "");

/// A folder of its own for one test, removed with all it holds.
class TestFolder {
 public:
  TestFolder();
  ~TestFolder();
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  std::string path(const std::string& name) const;
  /// Writes the file and gives its path.
  std::string file(const std::string& name, const std::string& content) const;
  /// The names in the folder, sorted; hidden ones too.
  std::vector<std::string> names() const;

 private:
  std::string folder_;
};

/// A GeoJSON collection of lines in a metric system, one text per line: "[0,0],[10,0]".
std::string metricLines(const std::vector<std::string>& lines);

std::string readFile(const std::string& path);

/// Runs a job that has to fail, and holds every promise about a failure but the reason: status 2,
/// nothing on the standard output, one line of error after the job's name, nothing left in
/// `outputs`. @return the line of error
std::string refusalOf(const std::vector<std::string>& arguments, const TestFolder& outputs);

/// A feature as GDAL reads it back.
struct ReadFeature {
  std::map<std::string, std::string> fields;            ///< those that are set
  std::vector<std::vector<double>> vertices;            ///< x, y; of a polygon its outer ring
  std::vector<std::vector<std::vector<double>>> holes;  ///< of a polygon

  double number(const std::string& field) const;
};

/// A layer as GDAL reads it back.
struct ReadLayer {
  std::string crs;  ///< "EPSG:32611", empty if none
  std::vector<ReadFeature> features;
};

/// Layers by name. The single layer of a GeoJSON file is taken apart by its property `layer`.
std::map<std::string, ReadLayer> readLayers(const std::string& path);

/// Writes a vector file anew in another of GDAL's formats.
void copyVectorFile(const std::string& from, const std::string& to, const std::string& driver);

/// Numbers of a JSON list or a list as GDAL writes it: "[1,2.5]", "(2:1,2.5)", "POINT (1 2)".
std::vector<double> numbersIn(const std::string& text);

#endif  // ZRBASE_TESTS_APPS_COMMANDRUNNER_H
