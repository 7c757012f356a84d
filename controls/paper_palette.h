// The colours of pages: dark on white whatever the desktop's colours, as
// pages choose colours of their own for that ground, that of links too.

#pragma once

#include <QPalette>

inline QPalette PaperPalette() {
  QPalette palette;
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  return palette;
}
