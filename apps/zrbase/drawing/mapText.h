#ifndef ZRBASE_APPS_DRAWING_MAPTEXT_H
#define ZRBASE_APPS_DRAWING_MAPTEXT_H

#include <QColor>
#include <QPointF>
#include <QString>

#include "drawing/mapStyle.h"

class QPainter;

/// Writes single lines of text; each place is on the base line.
class MapText {
 public:
  explicit MapText(QPainter& painter) : painter_(painter) {}

  /// @param room  widest the text may be, it is shortened with an ellipsis; 0 for any
  void startingAt(const QPointF& place, const QString& text, int pixels,
                  const QColor& colour = mapStyle::ink(), bool bold = false,
                  double room = 0.0) const;
  void centred(const QPointF& place, const QString& text, int pixels,
               const QColor& colour = mapStyle::ink()) const;
  void endingAt(const QPointF& place, const QString& text, int pixels,
                const QColor& colour = mapStyle::ink()) const;

 private:
  QPainter& painter_;
};

#endif  // ZRBASE_APPS_DRAWING_MAPTEXT_H
