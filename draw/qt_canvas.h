// A canvas that Qt paints: paper, PDF files and the pixels of pictures.

#pragma once

#include <QPainter>
#include <functional>

#include "draw/qt_font.h"

class PainterCanvas : public SizedCanvas {
 public:
  // The painter's coordinates are to be twips from the top left of the part
  // of the page that is drawn on, width x height twips.  newPage moves the
  // painter on to the next page.
  PainterCanvas(QPainter& painter, int width, int height,
                std::function<void()> newPage);

  void Outline(const Box& box, Colour colour, int width) override;
  void Fill(const Box& box, Colour colour) override;
  void Circle(const Box& box, Colour colour, int width) override;
  void Text(int x, int y, std::string_view text,
            const TextStyle& style) override;
  void NewPage() override { newPage_(); }

 private:
  QRect Pixels(const Box& box) const;

  QPainter& painter_;
  std::function<void()> newPage_;
  bool toPixels_;  // boxes have their edges between pixels
};
