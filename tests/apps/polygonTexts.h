#ifndef ZRBASE_TESTS_APPS_POLYGONTEXTS_H
#define ZRBASE_TESTS_APPS_POLYGONTEXTS_H

#include <ogr_geometry.h>

#include <memory>
#include <string>
#include <vector>

/// @file
/// Geometries in well-known text, as input of the command and for GEOS.

/// A table of geometries, named n1, n2 and so on.
std::string table(const std::vector<std::string>& geometries);

/// "x y,x y,..." of a closed square.
std::string square(double x, double y, double size);

/// The polygon of one ring.
std::string polygon(const std::string& ring);

/// The geometry that the text is.
std::unique_ptr<OGRGeometry> geometryOf(const std::string& text);

#endif  // ZRBASE_TESTS_APPS_POLYGONTEXTS_H
