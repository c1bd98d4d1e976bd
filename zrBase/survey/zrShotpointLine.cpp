#include <zrBase/survey/zrShotpointLine.h>

#include <algorithm>
#include <utility>

void zrShotpointLine::copy(const zrShotpointLine& other) {
  // Kept on purpose (KeptShotpointCopyKeepsOwnType): the type is not taken over, as it is by
  // operator=. Callers refill lines whose type they have set.
  name_ = other.name_;
  points_ = other.points_;
}

void zrShotpointLine::addPoint(double shotpoint, double x, double y) {
  // Kept on purpose (KeptFirstPositionOfShotpointStays): emplace, not an assignment, so that the
  // header of a trace that is read again cannot move a shotpoint.
  points_.emplace(shotpoint, gdfVertex(x, y));
}

bool zrShotpointLine::getLine(VertexLine& line, std::vector<double>& shotpoints) const {
  for (const auto& [shotpoint, position] : points_) {
    line.push_back(position);
    shotpoints.push_back(shotpoint);
  }
  // Kept on purpose (KeptShotpointsJoinEarlierContent): appended, so that several lines can be
  // gathered; the result speaks of the whole list, not of this line. That is valid().
  return line.size() > 1;
}

void zrShotpointCollection::addPoint(double shotpoint, const std::string& name, double x,
                                     double y) {
  // Each name occurs once, so the search may start at the back, where the line of the last points
  // mostly is.
  const auto found =
      std::find_if(lines_.rbegin(), lines_.rend(),
                   [&name](const zrShotpointLine& line) { return line.getName() == name; });
  if (found != lines_.rend()) {
    found->addPoint(shotpoint, x, y);
    return;
  }
  zrShotpointLine line(name);
  line.addPoint(shotpoint, x, y);
  line.setLineType(lineType_);
  lines_.push_back(std::move(line));
}

bool zrShotpointCollection::calculateShotpoints() const {
  // Kept on purpose (KeptCalculateShotpointsDoesNothing): the shotpoints are complete as they come;
  // the name is there for callers that treat all collections of points alike.
  return false;
}
