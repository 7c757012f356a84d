// Editing the grid by hand: what a click on the grid picture does.

#pragma once

#include "view/app.h"

enum class MouseButton { Left, Other };

// The shift keys that were down, as a set of bits.
enum ShiftState { kNoShift = 0, kShift = 1, kCtrl = 2, kAlt = 4 };

struct Click {
  MouseButton button = MouseButton::Left;
  int shiftState = kNoShift;
  Pos cell;  // which need not be in the grid
};

// The cell at a place of the grid picture, in twips.
// Kept: the place of a cell reaches GridMargin further up and left than its
// box.
Pos CellAt(int x, int y);

// The row of the command table that a click with these shift keys does.
std::string_view ControlOfClick(int shiftState);

// A mouse button was released at a cell.
//   plain   shows the word of the slot that starts there (left button across,
//           other buttons down) in Text4
//   Shift   makes the cell and its mirror black, or empties both
//   Ctrl    asks for another word for a slot that is full
void ClickCell(App& app, const Click& click);

// The test button: puts the letter of Text1 into the cell at row 0, column 0.
// Kept: that cell is outside the grid, so nothing can be seen of it.
void FillCurrentCell(App& app);
