// Puzzle files (*.kdp): a title line, then a line per grid row, each ended
// by CR LF; the title and the grid and nothing else, for ever.
//
// In the file "#" is a black square and "." an empty cell; every other
// character is the cell's letter.  The size is the length of the first grid
// line.  Letters are ISO 8859-1; a title that is no valid UTF-8 is too.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "files/format.h"

extern const Format kKdpFormat;

struct KdpText {
  std::string title;              // its bytes
  int size = 0;                   // odd
  std::vector<std::string> rows;  // size rows of size cells, as in the file
};

// An even size, which older programs refused with these words.
class EvenGridSize : public FormatError {
 public:
  EvenGridSize() : FormatError("line 2: Grid size must be an odd number") {}
};

// Reads a puzzle file.  Cells that a short or missing line leaves out are
// empty; lines after the last row are passed over.  Throws FormatError,
// EvenGridSize for an even size.
KdpText ParseKdp(std::string_view bytes);
// The text of a file.
std::string TextOfKdp(std::string_view title,
                      const std::vector<std::string>& rows);
