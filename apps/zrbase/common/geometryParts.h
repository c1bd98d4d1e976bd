#ifndef ZRBASE_APPS_COMMON_GEOMETRYPARTS_H
#define ZRBASE_APPS_COMMON_GEOMETRYPARTS_H

#include <ogr_geometry.h>
#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <functional>

/// @file
/// Geometries of OGR taken apart into vertices.

/// Whether the geometry is of the kind or of one below it (a line string is a curve), with or
/// without z.
bool isOfKind(const OGRGeometry& geometry, OGRwkbGeometryType kind);

/// Calls `visit` on the geometry, or on each part of a collection, however deep.
void forEachSimplePart(const OGRGeometry& geometry,
                       const std::function<void(const OGRGeometry&)>& visit);

/// The vertices of a curve, arcs as chords; z 0 where it has none.
VertexLine verticesOf(const OGRGeometry& curve);

/// The rings of a polygon, the outer one first; none for an empty polygon.
VertexLineList ringVerticesOf(const OGRGeometry& polygon);

/// Whether no coordinate is a NaN or infinite.
bool isFinite(const gdfVertex& v);

/// Takes out each vertex that repeats the one before it exactly. @return how many
std::size_t dropRepeated(VertexLine& vertices);

#endif  // ZRBASE_APPS_COMMON_GEOMETRYPARTS_H
