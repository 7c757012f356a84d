// The colours of pages: dark on white whatever the desktop's colours, as
// pages choose colours of their own for that ground.

#pragma once

#include <QPalette>

inline QPalette PaperPalette() {
  QPalette palette;
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  palette.setColor(QPalette::Link, QColor(35, 90, 151));
  palette.setColor(QPalette::LinkVisited, QColor(35, 90, 151));
  return palette;
}
