#ifndef ZRBASE_UTILITIES_ZRUNITS_H
#define ZRBASE_UTILITIES_ZRUNITS_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/utilities/unitConstants.h>

#include <cstdint>
#include <string>

/// The units in which a model's x, y and z are held, and the way from them to metres and back.
///
/// One unit code (GDF_UNIT_*) and one ratio for each axis, and a z direction. A ratio is the metres
/// in one unit; that of z is negative where z is a depth, so that z times its ratio is always an
/// elevation in metres, positive up. Only GDF_Z_DEPTH makes a depth: every other direction counts
/// as elevation. Codes and directions are stored as they come, none is rejected.
///
/// | Code | Unit        | Ratio              | Text       | Short | XML        |
/// |------|-------------|--------------------|------------|-------|------------|
/// | 0    | inches      | 0.025399999961392  | Inches     | in    | inches     |
/// | 1    | metres      | 1.0                | Metres     | m     | metres     |
/// | 2    | feet        | 0.304799999536704  | Feet       | ft    | feet       |
/// | 3    | miles       | 1609.2693916961698 | Miles      | miles | miles      |
/// | 5    | kilometres  | 1000.0             | Kilometres | km    | kilometres |
/// | 6    | seconds     | 1000.0             | Seconds    | secs  | seconds    |
/// | 7    | millisecs   | 1.0                | Millisecs  | msecs | millisecs  |
/// | 8    | custom      | 1.0, or supplied   |            |       |            |
/// | 9    | decimetres  | 0.1                | Decimetres | dm    | decimetres |
/// | else |             | 1.0                |            |       |            |
///
/// A trivially copyable record: copies and assignments take all of it, supplied ratios included. A
/// supplied ratio stays until a setter stores a code of its axis, and that of z also no longer than
/// until setXYUnits(int) or setZDirection. Words are null-terminated, never null pointers.
class ZRBASE_EXPORT zrUnits {
 public:
  /// Metres on all three axes, z up.
  zrUnits() = default;
  /// As setUnits(int, int, int, int).
  zrUnits(int x, int y, int z, int direction);

  /// Copies another record, supplied ratios included.
  void setUnits(const zrUnits& other) { *this = other; }
  /// Stores three codes and the z direction; each ratio is that of its code, z's negated in depth.
  void setUnits(int x, int y, int z, int direction);
  /// The same with words: each code is textToUnit of its word, so a word that is not known gives
  /// metres. A word that begins with "ELEVATION_" or "DEPTH_" stores its flagged code, which has
  /// the ratio 1.0 and no text; it has no say in the direction.
  void setUnits(const char* x, const char* y, const char* z, int direction);
  /// This record itself.
  zrUnits& getUnits() { return *this; }

  /// Whether the three codes and the direction agree. The ratios are not compared: two custom units
  /// are equal whatever ratios they were given.
  bool equal(const zrUnits& other) const;

  /// Metres in one unit of a code; 1.0 for a code that is not in the table. Stores nothing, despite
  /// its name.
  double setRatio(int code);

  /// Stores the code of x and its ratio.
  void setXUnits(int code);
  /// Stores the code of y and its ratio.
  void setYUnits(int code);
  /// Stores the code of x and of y and their ratios. Also gives z the ratio of its code and its
  /// direction again: a ratio supplied to setZUnits is lost. The form with a ratio leaves z alone.
  void setXYUnits(int code);
  /// Stores the code of x and of y; both ratios are `ratio` for GDF_UNIT_CUSTOM, which is taken as
  /// it is, and those of the code otherwise. z stays.
  void setXYUnits(int code, double ratio);
  /// Stores the code of z and its ratio, negated in depth.
  void setZUnits(int code);
  /// As setZUnits(int); then for GDF_UNIT_CUSTOM the ratio is `ratio` with the sign that it comes
  /// with, in depth too: a caller who wants depth supplies a negative one.
  void setZUnits(int code, double ratio);
  /// Stores the direction and gives z the ratio of its code with that sign. A supplied ratio is
  /// lost: it becomes 1.0 or -1.0.
  void setZDirection(int direction);

  /// Code of x.
  int getXUnits() const { return xUnits_; }
  /// Code of x: as getXUnits().
  int getXYUnits() const { return xUnits_; }
  /// Code of y.
  int getYUnits() const { return yUnits_; }
  /// Code of z.
  int getZUnits() const { return zUnits_; }
  /// Metres in one unit of x.
  double getXRatio() const { return xRatio_; }
  /// Metres in one unit of y.
  double getYRatio() const { return yRatio_; }
  /// Metres of elevation in one unit of z: negative in depth.
  double getZRatio() const { return zRatio_; }
  /// The direction as it was set.
  int getZDirection() const { return zDirection_; }

  /// Whether the direction is GDF_Z_DEPTH.
  bool inDepth() const { return zDirection_ == GDF_Z_DEPTH; }
  /// Whether it is anything else.
  bool inElevation() const { return !inDepth(); }
  /// Whether z is in seconds or milliseconds.
  bool inTime() const { return zUnits_ == GDF_UNIT_SECONDS || zUnits_ == GDF_UNIT_MILLISECONDS; }
  /// "positive" for GDF_Z_ELEVATION itself, "negative" for all else: also for an unknown direction,
  /// which inElevation() takes for elevation.
  void getZDirectionXmlText(std::string& text) const;
  /// "time" if inTime(), else "elevation", also for a depth.
  void getZTypeXmlText(std::string& text) const;

  /// Label of a code, such as "Metres". For a code without a text `text` keeps what it held.
  void getTextUnits(int code, std::string& text) const;
  /// Short label of a code, such as "m". For a code without a text `text` keeps what it held.
  void getShortTextUnits(int code, std::string& text) const;
  /// Attribute value of a code, such as "metres". For a code without a text `text` keeps what it
  /// held.
  void getXmlTextUnits(int code, std::string& text) const;
  /// getTextUnits of x.
  void getXTextUnits(std::string& text) const { getTextUnits(xUnits_, text); }
  /// getTextUnits of z.
  void getZTextUnits(std::string& text) const { getTextUnits(zUnits_, text); }
  /// getShortTextUnits of x.
  void getXShortTextUnits(std::string& text) const { getShortTextUnits(xUnits_, text); }
  /// getShortTextUnits of z.
  void getZShortTextUnits(std::string& text) const { getShortTextUnits(zUnits_, text); }
  /// getXmlTextUnits of x.
  void getXmlXTextUnits(std::string& text) const { getXmlTextUnits(xUnits_, text); }
  /// getXmlTextUnits of z.
  void getXmlZTextUnits(std::string& text) const { getXmlTextUnits(zUnits_, text); }

  /// Code of a word, compared whole and in its case.
  ///
  /// | Words                               | Code | ELEVATION_... | DEPTH_... |
  /// |-------------------------------------|------|---------------|-----------|
  /// | METRES, METRE, M                    | 1    | 0x41          | 0x81      |
  /// | DECIMETRES, DECIMETRE, DM           | 9    | 0x49          | 0x89      |
  /// | KILOMETRES, KILOMETRE, KILO, KM     | 5    | 0x45          | 0x85      |
  /// | INCHES, INCH, IN                    | 0    | 0x40          | 0x80      |
  /// | FEET, FOOT, FT                      | 2    | 0x42          | 0x82      |
  /// | MILES, MILE, ML                     | 3    | 0x43          | 0x83      |
  /// | SECONDS, SECOND, SEC                | 6    |               |           |
  /// | MILLISECONDS, MILLISECOND, MSEC     | 7    |               |           |
  ///
  /// The flags go with the first word of a row alone, as in "DEPTH_FEET".
  /// @param code  written for every word of the table, the metres included; else untouched
  /// @return true for the words of the table, but false for those of the metres, flagged or not:
  ///         callers take false for metres
  bool isTextUnit(const char* word, int& code) const;
  /// The code of isTextUnit where that is true, flags included ("DEPTH_FEET" gives 0x82), else
  /// GDF_UNIT_METRES ("DEPTH_METRES" gives 1).
  int textToUnit(const char* word) const;

  /// One x value in metres.
  /// @{
  double u2m(double x) const { return x * xRatio_; }
  double convertX(double x) const { return x * xRatio_; }
  /// @}
  /// One x value in metres in the units of x.
  /// @{
  double m2u(double x) const { return x / xRatio_; }
  double rconvertX(double x) const { return x / xRatio_; }
  /// @}
  /// One y value in metres.
  double convertY(double y) const { return y * yRatio_; }
  /// One y value in metres in the units of y.
  double rconvertY(double y) const { return y / yRatio_; }
  /// One z value as an elevation in metres, positive up.
  /// @{
  double u2mZ(double z) const { return z * zRatio_; }
  double convertZ(double z) const { return z * zRatio_; }
  /// @}
  /// An elevation in metres, positive up, in the units and the direction of z.
  /// @{
  double m2uZ(double z) const { return z / zRatio_; }
  double rconvertZ(double z) const { return z / zRatio_; }
  /// @}

  /// All three coordinates in metres, z positive up, in place.
  /// @{
  void u2m(double& x, double& y, double& z) const { convert(x, y, z); }
  void u2m(gdfVertex& vertex) const { convert(vertex); }
  void convert(double& x, double& y, double& z) const {
    const gdfVertex metres(convertX(x), convertY(y), convertZ(z));
    x = metres.x();
    y = metres.y();
    z = metres.z();
  }
  void convert(gdfVertex& vertex) const { convert(vertex.x(), vertex.y(), vertex.z()); }
  /// @}
  /// All three coordinates, in metres with z positive up, in the units of their axes, in place.
  /// @{
  void m2u(double& x, double& y, double& z) const { rconvert(x, y, z); }
  void m2u(gdfVertex& vertex) const { rconvert(vertex); }
  void rconvert(double& x, double& y, double& z) const {
    const gdfVertex units(rconvertX(x), rconvertY(y), rconvertZ(z));
    x = units.x();
    y = units.y();
    z = units.z();
  }
  void rconvert(gdfVertex& vertex) const { rconvert(vertex.x(), vertex.y(), vertex.z()); }
  /// @}

  /// A measured depth times the absolute value of the code of z: the code itself, not a ratio.
  ///
  /// With z in metres (code 1) nothing changes, in feet (code 2) the value doubles, in inches (code
  /// 0) it vanishes. A zero comes out positive.
  double u2mMd(double measuredDepth) const;
  /// A measured depth divided by the absolute value of the code of z; see u2mMd. With z in inches
  /// an infinity, or a NaN for 0. A zero comes out positive.
  double m2uMd(double measuredDepth) const;

  /// A value from one unit to another by way of metres; custom and unlisted codes count as metres.
  /// Reads no member of the record and no supplied ratio. Equal codes give the value itself.
  ///
  /// Two factors out of metres are crossed: to kilometres times 10.0, to decimetres times 0.001. To
  /// seconds it is times 0.001. Into metres all factors are those of the class's table.
  double unitSwap(int from, int to, double value) const;

  /// Interval of a map scale, such as the spacing of grid lines, from one unit to another: by a
  /// table of convenient whole factors, not by ratios, and then cut down to a convenient number.
  ///
  /// | from, to  | 0       | 1, 7   | 2      | 3       | 5, 6    |
  /// |-----------|---------|--------|--------|---------|---------|
  /// | **0**     |         | / 50   | / 10   | / 50000 | / 25000 |
  /// | **1, 7**  | * 50    |        | * 5    | / 2000  | / 1000  |
  /// | **2**     | * 10    | / 5    |        | / 5000  | / 2500  |
  /// | **3**     | * 50000 | * 2000 | * 5000 |         | * 2     |
  /// | **5, 6**  | * 25000 | * 1000 | * 2500 | * 0.5   |         |
  ///
  /// Any other code changes nothing. The size of the result, its decimals cut off, then decides:
  /// above 1000 the result goes down to a multiple of 100, above 100 of 25, above 50 of 10, above
  /// 10 of 1, above 1 of 0.5; up to 1 it stays. Down is toward zero, the limits are strict, and it
  /// happens also where `from` equals `to`. The quotients saturate at the limits of int.
  static double convertScale(double value, int from, int to);

 private:
  void rebuildZRatio();

  std::int32_t xUnits_ = GDF_UNIT_METRES;
  std::int32_t yUnits_ = GDF_UNIT_METRES;
  std::int32_t zUnits_ = GDF_UNIT_METRES;
  double xRatio_ = 1.0;
  double yRatio_ = 1.0;
  double zRatio_ = 1.0;
  std::int32_t zDirection_ = GDF_Z_ELEVATION;
};

#endif  // ZRBASE_UTILITIES_ZRUNITS_H
