// Paint on a canvas, for pictures of the grid that are files.
//
// A canvas cannot be drawn over: each cell is filled at most once, bars come
// after all cells and texts last.

#pragma once

#include "base/canvas.h"
#include "puzzle/paint.h"

void DrawPaint(const Paint& paint, Canvas& canvas);
