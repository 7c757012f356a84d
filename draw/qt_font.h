// The fonts of paper and pictures.
//
// Sizes are in twips: a font of 14 points is 280 units high, whatever the
// device, and is measured without hinting, so a text is as wide on paper as
// it is in a picture.

#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <QStringList>
#include <map>
#include <string_view>

#include "base/canvas.h"

// The families of a text, best first.
QStringList FontFamilies(const TextStyle& style);

// UTF-8 for Qt.
inline QString FromText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Fonts in twips with their measures, each made once.
class FontBook {
 public:
  struct Entry {
    QFont font;
    QFontMetricsF metrics;
  };

  const Entry& Of(const TextStyle& style) const;
  int Height(const TextStyle& style) const {
    return Of(style).font.pixelSize();
  }
  int TextWidth(std::string_view text, const TextStyle& style) const;

 private:
  mutable std::map<int, Entry> entries_;
};

// A canvas of a size in twips, with these fonts.
class SizedCanvas : public Canvas {
 public:
  SizedCanvas(int width, int height) : width_(width), height_(height) {}

  int Width() const override { return width_; }
  int Height() const override { return height_; }
  int TextWidth(std::string_view text, const TextStyle& style) const override {
    return fonts_.TextWidth(text, style);
  }

 protected:
  FontBook fonts_;

 private:
  const int width_, height_;
};
