// The grid picture, as operations draw it.

#pragma once

#include "base/colour.h"
#include "base/pos.h"

inline constexpr int CellSize = 420;   // twips, the side of a cell
inline constexpr int GridMargin = 32;  // twips, of every cell box

// The grid picture and its miniature in the overview: a surface that stays
// as it was drawn.
class Picture {
 public:
  virtual ~Picture() = default;

  virtual void Clear() = 0;
  // The outlines of all cells of an n x n grid, which takes a square of
  // n * CellSize + 100 twips.
  virtual void GridLines(int n) = 0;
  // Fills a cell's box and draws its outline; its texts are gone.
  virtual void FillCell(Pos cell, Colour colour) = 0;
  // A cell's clue number (0 for none) and letter, in place of those that
  // were there.
  virtual void CellText(Pos cell, int number, char letter) = 0;
};
