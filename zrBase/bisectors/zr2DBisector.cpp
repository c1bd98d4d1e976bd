#include <zrBase/bisectors/zr2DBisector.h>

#include <algorithm>

zr2DBisector::zr2DBisector(const zr2DBisector& other) {
  copyFields(other);
  copyConnections(other);
}

zr2DBisector::zr2DBisector(zr2DBisector&& other) noexcept {
  copyFields(other);
  noBaseConnections_ = other.noBaseConnections_;
  connections_ = other.connections_;
  other.noBaseConnections_ = 0;
}

zr2DBisector& zr2DBisector::operator=(const zr2DBisector& other) {
  if (this == &other) return *this;
  free();
  copyFields(other);
  copyConnections(other);
  return *this;
}

zr2DBisector& zr2DBisector::operator=(zr2DBisector&& other) noexcept {
  if (this == &other) return *this;
  free();
  copyFields(other);
  noBaseConnections_ = other.noBaseConnections_;
  connections_ = other.connections_;
  other.noBaseConnections_ = 0;
  return *this;
}

void zr2DBisector::lengthenArray(int connection) {
  const std::int32_t count = noBaseConnections_ + 1;
  std::int32_t* longer = new std::int32_t[static_cast<std::size_t>(count)];
  for (int i = 0; i < noBaseConnections_; ++i) longer[i] = getBaseConnection(i);
  longer[noBaseConnections_] = connection;
  free();
  connections_.array = longer;
  noBaseConnections_ = count;
}

void zr2DBisector::copyConnections(const zr2DBisector& other) {
  if (other.noBaseConnections_ > connectionsInRecord) {
    connections_.array = new std::int32_t[static_cast<std::size_t>(other.noBaseConnections_)];
    std::copy_n(other.connections_.array, other.noBaseConnections_, connections_.array);
  } else {
    connections_ = other.connections_;
  }
  noBaseConnections_ = other.noBaseConnections_;
}

void zr2DBisector::copyFields(const zr2DBisector& other) {
  base_ = other.base_;
  type_ = other.type_;
  top_ = other.top_;
  topConnect_ = other.topConnect_;
  leftDomain_ = other.leftDomain_;
  rightDomain_ = other.rightDomain_;
  normal_ = other.normal_;
  realNormal_ = other.realNormal_;
  realTop_ = other.realTop_;
}
