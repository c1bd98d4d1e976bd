#include <zrBase/geometry/gdfTuple_4.h>

#include <zrBase/geometry/gdfTransMatrix.h>

#include <iomanip>
#include <istream>
#include <ostream>

gdfTuple_4 gdfTuple_4::operator*(gdfTransMatrix matrix) const { return matrix.preMult(*this); }

gdfTuple_4& gdfTuple_4::operator*=(gdfTransMatrix matrix) { return *this = matrix.preMult(*this); }

std::istream& operator>>(std::istream& stream, gdfTuple_4& tuple) {
  return stream >> tuple.a() >> tuple.b() >> tuple.c() >> tuple.d();
}

std::ostream& operator<<(std::ostream& stream, const gdfTuple_4& tuple) {
  // Kept on purpose (KeptTuple4OutputLeavesFormatOnStream): the flag and the precision outlive this
  // call, as they do for a vertex. Reports that write a tuple first print the numbers after it in
  // the same format.
  stream << std::fixed << std::setprecision(3);
  stream << '[' << std::setw(12) << tuple.a() << ", " << std::setw(12) << tuple.b() << ", ";
  return stream << std::setw(12) << tuple.c() << ", " << std::setw(12) << tuple.d() << ']';
}
