// What is painted: how each cell of a grid looks, as a value.
//
// The window's picture, the overview, picture files, paper and tests all draw
// from it.  The classic grid's operations write one as they go; the paint of
// a document is made here, whatever its shape.

#pragma once

#include <cassert>
#include <string>
#include <vector>

#include "base/canvas.h"
#include "base/colour.h"
#include "puzzle/document.h"

inline constexpr int CellSize = 420;   // twips, the side of a cell
inline constexpr int GridMargin = 32;  // twips, of every cell box

// The length of a picture's side that is n cells long, in twips.
constexpr int PictureSide(int n) {
  return n * CellSize + 100;
}

// What a cell shows; without an outline it is a hole.
struct CellPaint {
  Colour fill = ColourBackground;
  bool outlined = false;
  int number = 0;      // 0 for none
  std::string text{};  // UTF-8: "", "A", "HEART"
  bool circled = false;
  bool barRight = false, barBelow = false;
  bool operator==(const CellPaint&) const = default;
};

// Cells beyond the width and height can be painted; a picture of that size
// shows no more than their edge.
class Paint {
 public:
  int width = 0, height = 0;  // of the grid as it was drawn last, in cells

  Paint() : cells_(kSide * kSide) {}
  // Outlined cells.
  Paint(int width, int height);

  static bool Holds(Pos p) {
    return p.row >= 1 && p.row <= MaxGridSize && p.col >= 1 &&
           p.col <= MaxGridSize;
  }
  CellPaint& operator[](Pos p) { return cells_[Index(p)]; }
  const CellPaint& operator[](Pos p) const { return cells_[Index(p)]; }
  // Leaves bare paper of the same size.
  void Clear() { cells_.assign(cells_.size(), {}); }
  bool operator==(const Paint&) const = default;

 private:
  static constexpr int kSide = MaxGridSize + 1;
  static int Index(Pos p) {
    assert(Holds(p));
    return p.row * kSide + p.col;
  }

  std::vector<CellPaint> cells_;
};

// Where a cell's clue number stands in a picture, in twips: clear of a bar at
// its left.  A circle leaves this out.
Box NumberBox(const Paint& paint, Pos p);

// How far a text of several letters stays from the lines at its left and
// right, in twips.
inline int TextInset(const CellPaint& cell) {
  return cell.circled ? 40 : 20;
}

// A document of any shape without highlights, with its letters or as it is
// given to solve.
Paint PaintOf(const Document& document, bool letters);
