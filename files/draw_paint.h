// Paint on a canvas, for pictures of the grid that are files.
//
// A canvas cannot be drawn over: each cell is filled at most once, bars come
// after all cells and texts last.

#pragma once

#include "base/canvas.h"
#include "puzzle/paint.h"

// The length of a picture's side that is n cells long, in twips.
constexpr int PictureSide(int n) {
  return n * CellSize + 100;
}

void DrawPaint(const Paint& paint, Canvas& canvas);
