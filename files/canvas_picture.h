// The grid picture as a drawing on a canvas, for pictures of the grid that
// are files.
//
// A canvas cannot be drawn over: each cell is to be filled at most once, and
// its texts come last.

#pragma once

#include "base/canvas.h"
#include "grid/state.h"

// The side of the picture of an n x n grid, in twips.
constexpr int PictureSide(int n) {
  return n * CellSize + 100;
}

class CanvasPicture : public Picture {
 public:
  explicit CanvasPicture(Canvas& canvas) : canvas_(canvas) {}

  void Clear() override {}
  void GridLines(int n) override;
  void FillCell(Pos cell, Colour colour) override;
  void CellText(Pos cell, int number, char letter) override;

 private:
  Canvas& canvas_;
};

// Draws the puzzle without highlights, with its letters or as it is given to
// solve.
void DrawPuzzle(const State& state, Picture& picture, bool letters);
