// Drawing the grid: the only way to the state's paint, which the grid picture
// and the overview show.

#pragma once

#include "grid/state.h"

// Sizes the grid picture and sets up the scroll bars.
void FitGridView(State& state);

// Sizes the picture, clears the paint, goes back to its top left and draws
// every cell's outline.
void DrawGridLines(State& state);

// Fills a cell with a colour, outlines it and prints its texts again.
void DrawCell(State& state, Pos cell, Colour colour);

// Prints a cell's clue number and a letter.
void DrawCellText(State& state, Pos cell, char letter);

// Prints every cell's clue number and letter.
void RedrawAllCells(State& state);

// Paints every white cell in the background colour: no highlights.
void ClearHighlights(State& state);

// The puzzle without highlights, with its letters or as it is given to solve.
Paint PaintOf(const State& state, bool letters);
