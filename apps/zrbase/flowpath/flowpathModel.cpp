#include "flowpath/flowpathModel.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "common/textFormat.h"

namespace {

// The height that tells the library to measure it from the point.
constexpr double kHeightOfPoint = 3.4028234663852886e+38;
// Both lists of a path at a height are only filled in a mode other than 0; a slip needs both.
constexpr int kModeWithSlips = 1;
constexpr short kMergedType = 0;
constexpr short kRootType = 1;
constexpr short kRetiredType = 5;

bool isFinite(const gdfVertex& v) {
  return std::isfinite(v.x()) && std::isfinite(v.y()) && std::isfinite(v.z());
}

bool isUsable(const zrFlowPath& path) {
  const auto finite = [](double value) { return std::isfinite(value); };
  const VertexLine& line = path.getFlowLine();
  const std::vector<double>& slips = path.getSlipValues();
  return path.valid() && std::all_of(line.begin(), line.end(), isFinite) &&
         std::all_of(slips.begin(), slips.end(), finite);
}

zre::side sideOfHeight(double height) {
  if (height == 0.0) {
    return zre::sideOn;
  }
  return height > 0.0 ? zre::sideLeft : zre::sideRight;
}

/// The work on one template.
class TemplateWork {
 public:
  TemplateWork(const InputLine& line, const FlowpathRequest& request)
      : request_(request), set_(request.sideTolerance) {
    model_.source = line;
  }

  TemplateModel run() {
    const auto start = std::chrono::steady_clock::now();
    buildSkeleton();
    for (const double height : request_.heights) {
      addHeightPath(height);
    }
    for (std::size_t i = 0; i < request_.points.size(); ++i) {
      addPointPath(i);
    }
    addMoved();
    const std::chrono::duration<double, std::milli> spent =
        std::chrono::steady_clock::now() - start;
    model_.milliseconds = spent.count();
    return std::move(model_);
  }

 private:
  const VertexLine& line() const { return model_.source.vertices; }

  void note(const std::string& text) { model_.notes.push_back(text); }

  // The open bisectors are pushed out before any path is made: the domain of a point is found where
  // probes from it meet the bisectors, and an open one is no longer than 1 until then.
  void buildSkeleton() {
    const Extent& bounds = request_.bounds;
    set_.setFlowPathMode(kModeWithSlips);
    set_.generateBisectors(line(), gdfVertex(bounds.minX, bounds.minY),
                           gdfVertex(bounds.maxX, bounds.maxY));
    set_.expandBisectors();
    recordChain(zre::sideLeft, set_.getLeftBisectors());
    recordChain(zre::sideRight, set_.getRightBisectors());
  }

  void recordChain(zre::side side, const std::vector<zr2DBisector>& chain) {
    std::size_t notFinite = 0;
    for (std::size_t i = 0; i < chain.size(); ++i) {
      const zr2DBisector& bisector = chain[i];
      if (bisector.getType() == kRetiredType) {
        continue;
      }
      model_.roots += bisector.getType() == kRootType ? 1 : 0;
      model_.merged += bisector.getType() == kMergedType ? 1 : 0;
      if (!isFinite(bisector.getBase()) || !isFinite(bisector.getTop())) {
        ++notFinite;
        continue;
      }
      model_.bisectors.push_back(recordOf(bisector, side, static_cast<int>(i)));
    }
    if (notFinite > 0) {
      note(textFormat::counted(notFinite, "bisector", "bisectors") + " not finite, not written");
    }
  }

  static BisectorRecord recordOf(const zr2DBisector& bisector, zre::side side, int index) {
    BisectorRecord record;
    record.root = bisector.getType() == kRootType;
    record.side = side;
    record.index = index;
    record.leftDomain = bisector.getLeftDomain();
    record.rightDomain = bisector.getRightDomain();
    record.topConnect = bisector.getTopConnect();
    for (int i = 0; i < bisector.getNoBaseConnections(); ++i) {
      record.baseConnections.push_back(bisector.getBaseConnection(i));
    }
    record.base = bisector.getBase();
    record.top = bisector.getTop();
    return record;
  }

  void addHeightPath(double height) {
    PathRecord record;
    record.side = sideOfHeight(height);
    const bool straight = line().size() == 2;
    const bool made = straight ? makeStraightPath(height, record.path)
                               : set_.generateFlowPath(height, record.path);
    if (!made || !isUsable(record.path)) {
      note("no path at height " + textFormat::shortest(height));
      return;
    }
    model_.paths.push_back(std::move(record));
  }

  void addPointPath(std::size_t pointIndex) {
    const gdfVertex& point = request_.points[pointIndex].position;
    PathRecord record;
    record.side = set_.getSide(point);
    record.pointIndex = static_cast<int>(pointIndex);
    bool made = set_.generateFlowPath(point, record.path, false, kHeightOfPoint);
    if (made && line().size() == 2 && record.path.valid()) {
      lengthen(point, record.path);
    }
    if (!made || !isUsable(record.path)) {
      note("no path through point " + std::to_string(request_.points[pointIndex].fid));
      return;
    }
    record.path.setId(static_cast<double>(pointIndex));
    model_.paths.push_back(std::move(record));
  }

  // A template of two vertices has no bisectors, so the library makes no path at a height: it is
  // the straight path through the place beside the template's start.
  bool makeStraightPath(double height, zrFlowPath& path) {
    const gdfVertex along = line()[1] - line()[0];
    const double length = along.mapLength();
    const gdfVertex left(-along.y() / length, along.x() / length, 0.0);
    const gdfVertex seed = line()[0] + left * height;
    if (!set_.generateFlowPath(seed, path, false, kHeightOfPoint) || !path.valid()) {
      return false;
    }
    path.setH(height);
    lengthen(seed, path);
    return true;
  }

  // The library's straight path is one unit long. It is drawn out, by its own extrapolation, to
  // what paths along longer templates have: the template's length and one more segment at either
  // end.
  void lengthen(const gdfVertex& seed, zrFlowPath& path) {
    const gdfVertex along = line()[1] - line()[0];
    const double length = along.length();
    const double start = -((seed - line()[0]) * along) / length;
    std::vector<double> slips = {start - length, start, 0.0, start + length, start + 2.0 * length};
    std::sort(slips.begin(), slips.end());
    slips.erase(std::unique(slips.begin(), slips.end()), slips.end());
    VertexLine vertices;
    for (const double slip : slips) {
      vertices.push_back(slip == 0.0 ? seed : path.getVertex(slip));
    }
    path.setFlow(vertices, slips);
  }

  void addMoved() {
    for (std::size_t i = 0; i < model_.paths.size(); ++i) {
      PathRecord& record = model_.paths[i];
      const bool seedsMove = request_.points.empty() || record.pointIndex >= 0;
      for (const double slip : request_.slips) {
        if (seedsMove) {
          model_.moved.push_back(
              {i, slip, record.path.getVertex(0.0), record.path.getVertex(slip)});
        }
      }
    }
  }

  const FlowpathRequest& request_;
  zr2DBisectorSet set_;
  TemplateModel model_;
};

}  // namespace

Extent defaultBounds(const std::vector<InputLine>& lines, const FlowpathRequest& request) {
  Extent bounds;
  for (const InputLine& line : lines) {
    for (const gdfVertex& vertex : line.vertices) {
      bounds.add(vertex.x(), vertex.y());
    }
  }
  for (const InputPoint& point : request.points) {
    bounds.add(point.position.x(), point.position.y());
  }
  double room = std::max(1.0, std::max(bounds.maxX - bounds.minX, bounds.maxY - bounds.minY) / 4.0);
  for (const double height : request.heights) {
    room = std::max(room, 2.0 * std::abs(height));
  }
  bounds.add(bounds.minX - room, bounds.minY - room);
  bounds.add(bounds.maxX + room, bounds.maxY + room);
  return bounds;
}

TemplateModel modelTemplate(const InputLine& line, const FlowpathRequest& request) {
  return TemplateWork(line, request).run();
}

VertexLine pathBetween(const zrFlowPath& path, double fromSlip, double toSlip) {
  VertexLine part = {path.getVertex(fromSlip)};
  for (std::size_t i = 0; i < path.getSlipValues().size(); ++i) {
    const double slip = path.getSlipValues()[i];
    if (slip > fromSlip && slip < toSlip) {
      part.push_back(path.getFlowLine()[i]);
    }
  }
  part.push_back(path.getVertex(toSlip));
  return part;
}
