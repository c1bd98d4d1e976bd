// Moves a point of the hanging wall along a fault by slip: a skeleton is built for the fault's
// trace, a flow path is laid through the point, and the point goes along it.

#include <zrBase/zrBase.h>

#include <iostream>

int main() {
  const VertexLine fault = {
      {0, 0}, {1000, 0}, {1800, 600}, {3000, 600}};  // x east, y north, metres

  zr2DBisectorSet skeleton;
  skeleton.generateBisectors(fault, gdfVertex(-5000, -5000), gdfVertex(8000, 5000));
  skeleton.expandBisectors();

  const gdfVertex point(500, 200);  // left of the fault, as seen along its direction
  zrFlowPath path;
  const double height = skeleton.calculateH(point);
  if (!skeleton.generateFlowPath(point, path, false, height)) return 1;

  std::cout << "height above the fault: " << path.getH() << '\n';
  for (const double slip : {-250.0, 0.0, 750.0, 1500.0}) {
    const gdfVertex moved = path.getVertex(slip);
    std::cout << "slip " << slip << ": " << moved.x() << ' ' << moved.y() << '\n';
  }
}
