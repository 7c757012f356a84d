// Pages to draw on.

#pragma once

#include <functional>
#include <string_view>

#include "base/colour.h"

// A rectangle, in twips.
struct Box {
  int left = 0, top = 0, right = 0, bottom = 0;
  bool operator==(const Box&) const = default;
};

struct TextStyle {
  double points = 10;  // font size
  bool bold = false;
  bool fixedPitch = false;  // as wide as Courier New: 0.6 of the font size
};

// Pages to draw on.  Positions are twips from the top left of the part of a
// page that can be printed on.
class Canvas {
 public:
  virtual ~Canvas() = default;

  // The part of a page that can be printed on.
  virtual int Width() const = 0;
  virtual int Height() const = 0;

  virtual int TextWidth(std::string_view text,
                        const TextStyle& style) const = 0;

  // A line of a width along the edges of a box, half of it outside.
  virtual void Outline(const Box& box, Colour colour, int width) = 0;
  virtual void Fill(const Box& box, Colour colour) = 0;
  // A line of a width along the ellipse inside a box, half of it outside.
  virtual void Circle(const Box& box, Colour colour, int width) = 0;
  // A line of UTF-8 text, black, whose top left is at (x, y).
  virtual void Text(int x, int y, std::string_view text,
                    const TextStyle& style) = 0;
  // Goes on to the next page.
  virtual void NewPage() = 0;
};

using DrawPages = std::function<void(Canvas&)>;
