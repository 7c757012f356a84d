// A canvas that becomes an SVG file.
//
// Texts stay texts, so they are sharp at every size and can be searched and
// edited; each bears its width, so that it fits with whatever font the reader
// has.  Pages stand one below the other.

#pragma once

#include <string>

#include "draw/qt_font.h"

// Where the canvas stands on each page of a file, in twips.
struct SvgPage {
  int width = 0, height = 0;  // of the page
  int left = 0, top = 0;
  double scale = 1;       // twips per unit of the canvas
  double shownScale = 1;  // how large the picture is shown
};

class SvgCanvas : public SizedCanvas {
 public:
  using SizedCanvas::SizedCanvas;

  void Outline(const Box& box, Colour colour, int width) override;
  void Fill(const Box& box, Colour colour) override;
  void Circle(const Box& box, Colour colour, int width) override;
  void Text(int x, int y, std::string_view text,
            const TextStyle& style) override;
  void NewPage() override;

  // The whole file, with all pages drawn so far.
  std::string File(const SvgPage& page, std::string_view title);

 private:
  void EndPath();

  std::vector<std::string> pages_ = {""};
  // Boxes that are drawn alike make one path.
  std::string path_;
  std::string pathStyle_;
};
