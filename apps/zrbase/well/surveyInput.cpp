#include "well/surveyInput.h"

#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "common/commandError.h"
#include "common/textFormat.h"
#include "common/vectorInput.h"
#include "common/vectorSource.h"
#include "well/surveyColumns.h"

namespace {

constexpr double kDeepest = 1e9;  // far beyond any well, and sums of squares stay finite

std::vector<std::string> columnNames(OGRLayer& layer) {
  std::vector<std::string> names;
  OGRFeatureDefn& definition = *layer.GetLayerDefn();
  names.reserve(static_cast<std::size_t>(definition.GetFieldCount()));
  for (int i = 0; i < definition.GetFieldCount(); ++i) {
    names.push_back(textFormat::oneLine(definition.GetFieldDefn(i)->GetNameRef()));
  }
  return names;
}

struct SurveyTable {
  OGRLayer* layer = nullptr;
  SurveyColumns columns;
};

// The first layer with the columns of a survey; the complaint is about the first one.
SurveyTable findTable(VectorSource& source, const SurveyOptions& options) {
  if (!options.layer.empty()) {
    OGRLayer& layer = source.layerNamed(options.layer);
    return {&layer, findSurveyColumns(columnNames(layer), options.file)};
  }
  std::string complaint = options.file + ": no table in it";
  bool first = true;
  for (OGRLayer* const layer : source.layers()) {
    try {
      return {layer, findSurveyColumns(columnNames(*layer), options.file)};
    } catch (const CommandError& error) {
      complaint = first ? error.what() : complaint;
      first = false;
    }
  }
  throw CommandError(complaint);
}

LengthUnit unitOf(const SurveyOptions& options, std::optional<LengthUnit> stated) {
  if (options.units.empty()) {
    return stated.value_or(LengthUnit::metre);
  }
  const bool metres = options.units == "m";
  if (stated && metres != (*stated == LengthUnit::metre)) {
    throw CommandError(options.file + ": its measured depths are in " + unitName(*stated) +
                       ", which --units " + options.units + " contradicts");
  }
  return stated.value_or(metres ? LengthUnit::metre : LengthUnit::foot);
}

std::string textOf(const OGRFeature& row, int column) {
  const OGRFieldType type = row.GetFieldDefnRef(column)->GetType();
  if (!row.IsFieldSetAndNotNull(column)) {
    return "";
  }
  // As text a real number would lose digits.
  return type == OFTReal ? textFormat::shortest(row.GetFieldAsDouble(column))
                         : textFormat::oneLine(row.GetFieldAsString(column));
}

/// Reads row after row.
class SurveyReader {
 public:
  SurveyReader(const SurveyOptions& options, const SurveyColumns& columns, BadFeatures& bad)
      : columns_(columns), bad_(bad) {
    survey_.file = options.file;
    stated_ = columns.unit[static_cast<std::size_t>(SurveyColumn::measuredDepth)];
  }

  void read(const OGRFeature& row) {
    const bool first = std::exchange(first_, false);
    if (first && isRowOfUnits(row)) {
      takeUnits(row);
      return;
    }
    SurveyStation station;
    station.row = row.GetFID();
    std::string reason = readCell(row, SurveyColumn::measuredDepth, station.measuredDepth);
    reason =
        reason.empty() ? readCell(row, SurveyColumn::inclination, station.inclination) : reason;
    reason = reason.empty() ? readCell(row, SurveyColumn::azimuth, station.azimuth) : reason;
    reason = reason.empty() ? reasonAgainst(station) : reason;
    if (!reason.empty()) {
      bad_.report("row " + std::to_string(station.row), reason);
      return;
    }
    station.own = ownPlace(row);
    survey_.stations.push_back(station);
  }

  std::optional<LengthUnit> statedUnit() const { return stated_; }
  Survey take() { return std::move(survey_); }

 private:
  bool isRowOfUnits(const OGRFeature& row) const {
    return unitWord(textOf(row, columns_.of(SurveyColumn::measuredDepth))).known &&
           unitWord(textOf(row, columns_.of(SurveyColumn::inclination))).known;
  }

  void takeUnits(const OGRFeature& row) {
    const std::string depth = textOf(row, columns_.of(SurveyColumn::measuredDepth));
    const std::string angle = textOf(row, columns_.of(SurveyColumn::inclination));
    const std::optional<LengthUnit> unit = unitWord(depth).length;
    if (!unit || !unitWord(angle).degrees) {
      throw CommandError(survey_.file + ": row " + std::to_string(row.GetFID()) + ": the units '" +
                         depth + "' and '" + angle + "' are not m or ft and degrees");
    }
    stated_ = stated_.value_or(*unit);
  }

  // Reads the number of a cell; returns the reason if it holds none.
  std::string readCell(const OGRFeature& row, SurveyColumn column, double& value) const {
    const std::string text = textOf(row, columns_.of(column));
    const std::string title = columnTitle(column);
    if (text.empty()) {
      return title + " is empty";
    }
    const std::optional<double> number = textFormat::number(text);
    if (!number) {
      return title + " '" + text + "' is not a number";
    }
    value = *number;
    return std::isfinite(value) ? "" : title + " '" + text + "' is not finite";
  }

  std::string reasonAgainst(const SurveyStation& station) const {
    const std::string depth = "measured depth " + textFormat::shortest(station.measuredDepth);
    if (station.measuredDepth < 0.0) {
      return depth + " is below 0";
    }
    if (station.measuredDepth > kDeepest) {
      return depth + " is out of reach";
    }
    if (!survey_.stations.empty() &&
        station.measuredDepth <= survey_.stations.back().measuredDepth) {
      const SurveyStation& before = survey_.stations.back();
      return depth + " is out of order: row " + std::to_string(before.row) + " is at " +
             textFormat::shortest(before.measuredDepth) + " already";
    }
    if (station.inclination < 0.0 || station.inclination > 180.0) {
      return "inclination " + textFormat::shortest(station.inclination) + " is outside 0 to 180";
    }
    // A little over is somebody's way of counting on, but -999.25 is no azimuth at all.
    if (station.azimuth < -360.0 || station.azimuth > 720.0) {
      return "azimuth " + textFormat::shortest(station.azimuth) + " is outside -360 to 720";
    }
    return "";
  }

  std::optional<WellOffset> ownPlace(const OGRFeature& row) const {
    WellOffset own;
    const bool complete = columns_.hasPlaces() &&
                          readCell(row, SurveyColumn::trueVerticalDepth, own.tvd).empty() &&
                          readCell(row, SurveyColumn::north, own.north).empty() &&
                          readCell(row, SurveyColumn::east, own.east).empty();
    return complete ? std::make_optional(own) : std::nullopt;
  }

  const SurveyColumns& columns_;
  BadFeatures& bad_;
  Survey survey_;
  std::optional<LengthUnit> stated_;
  bool first_ = true;
};

// Places in another unit than the measured depths are not used.
void dropForeignPlaces(Survey& survey, const SurveyColumns& columns) {
  for (const SurveyColumn column :
       {SurveyColumn::trueVerticalDepth, SurveyColumn::north, SurveyColumn::east}) {
    const std::optional<LengthUnit> unit = columns.unit[static_cast<std::size_t>(column)];
    if (unit && *unit != survey.unit) {
      for (SurveyStation& station : survey.stations) {
        station.own.reset();
      }
    }
  }
}

}  // namespace

bool Survey::hasOwnPlaces() const {
  return std::all_of(stations.begin(), stations.end(),
                     [](const SurveyStation& station) { return station.own.has_value(); });
}

Survey readSurvey(const SurveyOptions& options) {
  VectorSource source(options.file);
  const SurveyTable table = findTable(source, options);
  BadFeatures bad(options.file, options.skipBad);
  SurveyReader reader(options, table.columns, bad);
  source.forEachFeature(*table.layer, [&reader](OGRFeature& row) { reader.read(row); });
  Survey survey = reader.take();
  survey.unit = unitOf(options, reader.statedUnit());
  survey.leftOut = bad.leftOut();
  if (survey.stations.size() < 2) {
    const std::size_t left = survey.leftOut.size();
    throw CommandError(options.file + ": a survey of " +
                       (survey.stations.empty() ? "no station" : "one station") +
                       (left > 0 ? ", " + std::to_string(left) + " left out" : ""));
  }
  dropForeignPlaces(survey, table.columns);
  return survey;
}
