// The check whether a layout of black squares can be filled.

#pragma once

#include <vector>

#include "grid/state.h"

enum CheckStatus {
  kCheckOk = 0,
  kBadLengths = 1,  // slots shorter than 3 or longer than 20
  kUncrossed = 2,   // cells missing from an Across or a Down slot
  kEnclosed = 3,    // white groups that are shut in
  kDividing = 4,    // black chains that divide the grid
};

// Checks the layout and paints the cells with problems.  The grid's letters
// are lost.  A quiet check asks nothing, does the optional step and tells
// almost nothing.  Leaves the working lists List1, List5, List9 and List10
// and an empty ring around the grid.
CheckStatus CheckGrid(State& state, Host& host, bool quiet);
