// Paint on a canvas, for pictures of the grid that are files.
//
// A canvas cannot be drawn over, so all comes in one order: cells, each filled
// at most once, circles with their gaps for numbers, bars, texts.

#pragma once

#include "base/canvas.h"
#include "puzzle/paint.h"

void DrawPaint(const Paint& paint, Canvas& canvas);
