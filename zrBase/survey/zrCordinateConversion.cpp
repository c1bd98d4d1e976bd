#include <zrBase/survey/zrCordinateConversion.h>

#include <zrBase/tools3d/planeFit.h>
#include <zrBase/utilities/angles.h>

#include <cstddef>

namespace {

void convert(const gdfTransMatrix& matrix, gdfVertex& vertex) {
  if (!matrix.isIdentity()) vertex *= matrix;
}

void convert(const gdfTransMatrix& matrix, VertexLine& vertices) {
  if (matrix.isIdentity()) return;
  for (gdfVertex& v : vertices) v *= matrix;
}

void convert(const gdfTransMatrix& matrix, VertexLine& vertices, const std::vector<int>& indices) {
  if (matrix.isIdentity()) return;
  // Kept on purpose (KeptVertexListedTwiceTurnsTwice): no look at what was turned before. Callers
  // hand in lists of single vertices.
  for (const int index : indices) vertices[static_cast<std::size_t>(index)] *= matrix;
}

}  // namespace

void zrCordinateConversion::setLocalCoordinates(const gdfVertex& normal, bool force) {
  toLocal_.setToIdentity();
  toModel_.setToIdentity();
  // Kept on purpose (KeptNearlyLevelPlaneKeepsOldNormal): the frame is reset, the normal is not, so
  // that it may be of a plane set earlier. Written so that a NaN is left alone too.
  if (!force && !(-0.9 < normal.z() && normal.z() < 0.9)) return;
  normal_ = normal;
  // Kept on purpose (KeptVerticalNormalTurnsAboutZ): normals that are vertical or zero make a zero
  // axis, which rotate takes for z: a half turn for one that points down, a quarter turn for none.
  // Both are frames that callers undo by the way back, and both are set.
  const gdfVertex axis = normal_ ^ Z_AXIS;
  const double angle = zrUtils::acos(normal_ * Z_AXIS);
  toLocal_.rotate(axis, angle);
  toModel_.rotate(axis, -angle);
}

void zrCordinateConversion::setLocalCoordinates(const VertexLine& vertices, bool force) {
  setLocalCoordinates(zr3DTools::calcAverageNormal(vertices), force);
}

void zrCordinateConversion::setLocalCoordinates(const VertexLine& vertices,
                                                const std::vector<int>& indices, bool force) {
  setLocalCoordinates(zr3DTools::calcAverageNormal(vertices, indices), force);
}

void zrCordinateConversion::convertToLocalCoordinates(gdfVertex& vertex) const {
  convert(toLocal_, vertex);
}

void zrCordinateConversion::convertToLocalCoordinates(VertexLine& vertices) const {
  convert(toLocal_, vertices);
}

void zrCordinateConversion::convertToLocalCoordinates(VertexLine& vertices,
                                                      const std::vector<int>& indices) const {
  convert(toLocal_, vertices, indices);
}

void zrCordinateConversion::convertToModelCoordinates(gdfVertex& vertex) const {
  convert(toModel_, vertex);
}

void zrCordinateConversion::convertToModelCoordinates(VertexLine& vertices) const {
  convert(toModel_, vertices);
}

void zrCordinateConversion::convertToModelCoordinates(VertexLine& vertices,
                                                      const std::vector<int>& indices) const {
  convert(toModel_, vertices, indices);
}
