// The one family of the program's own texts. All controls and the printed glossary are set in it.
#pragma once

#include <QFont>

inline QFont Arial(double points, bool bold = false) {
  QFont font(QStringLiteral("Arial"));
  font.setPointSizeF(points);
  font.setBold(bold);
  return font;
}
