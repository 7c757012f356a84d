// The printed sheet: the grid, then the ACROSS and DOWN lists with a writing
// line for each clue.
//
// Everything is placed in twips from the top left of what can be printed on.
// What fits one page stands where it always stood; lists that are longer go
// on over further pages, a grid that is wider or taller than the page is
// drawn smaller, and so is a title, or it is broken into lines.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/printer.h"
#include "grid/state.h"

enum class SheetMode {
  GridOnly = 0,  // with the letters that the grid holds, without numbers
  Full = 1,      // with clue numbers and the lists
};

// The lines of the two lists, 120 characters each: the k-th line holds the
// k-th Across entry from position 1 and the k-th Down entry from position 45.
// An entry is "  7. " and 35 underscores.
std::vector<std::string> ClueLines(const State& state);

// Called for each cell that is outlined.
using CellDrawn = std::function<void()>;

// Draws the sheet, beginning on the canvas's first page.
void DrawSheet(const State& state, SheetMode mode, Canvas& canvas,
               const CellDrawn& cellDrawn = {});

// Prints the sheet on the default printer and says "Printing completed", or
// why nothing was printed; returns whether it was.
bool PrintPuzzle(State& state, Host& host, Printer& printer, SheetMode mode);
