#include <zrBase/utilities/qtParents.h>

#include <QObject>
#include <QString>

#include <iostream>

namespace zrStrUtils {

namespace {

void printName(const char* indent, const QObject& object) {
  const QString name = object.objectName();
  std::cerr << indent << (name.isEmpty() ? "no name" : name.toStdString()) << std::endl;
}

}  // namespace

void printQtParents(QWidget* w) {
  if (w == nullptr) {
    std::cerr << "printQtParents null" << std::endl;
    return;
  }
  // A QObject is the first base of every class that has meta-object members, so it stands at the
  // start of a QWidget; the class itself is unknown here.
  const QObject* object = reinterpret_cast<const QObject*>(w);
  std::cerr << std::endl;
  printName("", *object);
  while ((object = object->parent()) != nullptr) printName("    ", *object);
}

}  // namespace zrStrUtils
