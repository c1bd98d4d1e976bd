#ifndef ZRBASE_SURVEY_ZRCORDINATECONVERSION_H
#define ZRBASE_SURVEY_ZRCORDINATECONVERSION_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfTransMatrix.h>
#include <zrBase/geometry/gdfVertex.h>

#include <vector>

/// A local frame in which a plane is level, and the way back: two rotations about the model's
/// origin.
///
///     model                               local
///        z  /  plane, normal n              z = n
///        | /                                |
///        |/____ x                           |_______ x   plane: z is constant
///
/// In the local frame the plane can be worked on in two dimensions. Nothing is shifted: the z of
/// the plane there is its distance from the model's origin, along n. A plane within about 26
/// degrees of level is left as it is unless the caller insists. A value: copies are independent.
class ZRBASE_EXPORT zrCordinateConversion {
 public:
  /// Sets the frame in which a unit normal points up.
  ///
  /// Without `force` a normal whose z is not strictly between -0.9 and 0.9, a NaN too, makes the
  /// frame the model's own: the conversions then change nothing. getNormal() keeps what an earlier
  /// setting stored in that case, for which the frame is no longer set.
  ///
  /// A vertical normal has no axis to turn about, and gdfTransMatrix::rotate takes z for it: with
  /// `force` one that points up gives the model's own frame, one that points down a half turn
  /// about z, in which the plane stays upside down. A zero normal gives a quarter turn about z.
  /// @param normal  of unit length, which is not tested
  /// @param force  whether a plane that is close to level is turned too
  void setLocalCoordinates(const gdfVertex& normal, bool force);
  /// Sets the frame from the normal that zr3DTools::calcAverageNormal gives for the vertices: of
  /// the two of a plane it is the one that this function happens to give. A zero normal, as for no
  /// vertices, is taken as it is.
  void setLocalCoordinates(const VertexLine& vertices, bool force);
  /// The same for the vertices of a list of indices.
  /// @param indices  each from 0 to the number of vertices - 1, which is not tested
  void setLocalCoordinates(const VertexLine& vertices, const std::vector<int>& indices, bool force);

  /// Takes a vertex from the model into the local frame, in place.
  void convertToLocalCoordinates(gdfVertex& vertex) const;
  /// Takes all vertices from the model into the local frame, in place.
  void convertToLocalCoordinates(VertexLine& vertices) const;
  /// Takes the vertices of a list of indices from the model into the local frame, in place and in
  /// the order of the list: a vertex that is listed twice is turned twice.
  /// @param indices  each from 0 to the number of vertices - 1, which is not tested
  void convertToLocalCoordinates(VertexLine& vertices, const std::vector<int>& indices) const;

  /// Takes a vertex from the local frame back into the model, in place.
  void convertToModelCoordinates(gdfVertex& vertex) const;
  /// Takes all vertices from the local frame back into the model, in place.
  void convertToModelCoordinates(VertexLine& vertices) const;
  /// As convertToLocalCoordinates with indices, back into the model.
  void convertToModelCoordinates(VertexLine& vertices, const std::vector<int>& indices) const;

  /// Normal of the last setting that was not left alone as too close to level; at first (0, 0, 0).
  const gdfVertex& getNormal() const { return normal_; }

 private:
  gdfTransMatrix toLocal_;
  gdfTransMatrix toModel_;
  gdfVertex normal_;
};

#endif  // ZRBASE_SURVEY_ZRCORDINATECONVERSION_H
