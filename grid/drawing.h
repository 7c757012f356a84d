// Drawing the grid: the only way to the grid picture, which the overview
// mirrors.

#pragma once

#include "grid/state.h"

// Sizes the grid picture and sets up the scroll bars.
void FitGridView(State& state);

// Sizes the pictures, clears the grid picture, goes back to its top left and
// draws every cell's outline.
void DrawGridLines(State& state, Picture& picture);

// Fills a cell with a colour, outlines it and prints its texts again.
void DrawCell(const State& state, Picture& picture, Pos cell, Colour colour);

// Prints a cell's clue number and a letter.
void DrawCellText(const State& state, Picture& picture, Pos cell, char letter);

// Prints every cell's clue number and letter.
void RedrawAllCells(const State& state, Picture& picture);

// Paints every white cell in the background colour: no highlights.
void ClearHighlights(const State& state, Picture& picture);
