#ifndef ZRBASE_TOOLS3D_ENDSPECIFIER_H
#define ZRBASE_TOOLS3D_ENDSPECIFIER_H

namespace zr3DTools {

/// The end of a line from which a signed distance along it is measured.
enum EndSpecifier : int {
  FirstEnd = 0,  ///< from the first vertex
  LastEnd = 1    ///< from the last vertex
};

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_ENDSPECIFIER_H
