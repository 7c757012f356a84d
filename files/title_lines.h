// The title as it fits on the paper: in 14 points as long as it can, then in
// a smaller font, then in several lines.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/canvas.h"

struct TitleLines {
  std::vector<std::string> lines;  // UTF-8; none for an empty title
  TextStyle style;
  int pitch = 0;  // twips from line to line
};

// Fits a title (UTF-8 where that is valid, else ISO 8859-1) into a width in
// twips.  Lines break at blanks, and inside a word only where the word alone is
// wider.  Control characters are blanks.
TitleLines FitTitle(std::string_view title, const Canvas& canvas, int width);
