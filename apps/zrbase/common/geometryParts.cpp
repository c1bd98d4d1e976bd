#include "common/geometryParts.h"

#include <algorithm>
#include <cmath>
#include <memory>

bool isOfKind(const OGRGeometry& geometry, OGRwkbGeometryType kind) {
  return OGR_GT_IsSubClassOf(wkbFlatten(geometry.getGeometryType()), kind) == TRUE;
}

void forEachSimplePart(const OGRGeometry& geometry,
                       const std::function<void(const OGRGeometry&)>& visit) {
  if (!isOfKind(geometry, wkbGeometryCollection)) {
    visit(geometry);
    return;
  }
  for (const OGRGeometry* const part : *geometry.toGeometryCollection()) {
    forEachSimplePart(*part, visit);
  }
}

VertexLine verticesOf(const OGRGeometry& curve) {
  const std::unique_ptr<OGRGeometry> chords(curve.getLinearGeometry());
  VertexLine vertices;
  for (const OGRPoint& point : *chords->toLineString()) {
    vertices.emplace_back(point.getX(), point.getY(), point.Is3D() ? point.getZ() : 0.0);
  }
  return vertices;
}

VertexLineList ringVerticesOf(const OGRGeometry& polygon) {
  const OGRCurvePolygon& rings = *polygon.toCurvePolygon();
  VertexLineList vertices;
  if (rings.getExteriorRingCurve() != nullptr) {
    vertices.push_back(verticesOf(*rings.getExteriorRingCurve()));
  }
  for (int i = 0; i < rings.getNumInteriorRings(); ++i) {
    vertices.push_back(verticesOf(*rings.getInteriorRingCurve(i)));
  }
  return vertices;
}

bool isFinite(const gdfVertex& v) {
  return std::isfinite(v.x()) && std::isfinite(v.y()) && std::isfinite(v.z());
}

std::size_t dropRepeated(VertexLine& vertices) {
  const std::size_t before = vertices.size();
  vertices.erase(std::unique(vertices.begin(), vertices.end()), vertices.end());
  return before - vertices.size();
}
