// The two layouts of black squares: scattered at random, and a lattice that
// is split into word lengths.
//
// Both replace the grid, are symmetric under a half turn, and leave the
// margin of the grid black.  They go on until the number of black squares in
// Text2 is reached (0 leaves the choice to them) or Halt is pressed, also
// when no further square can be placed.

#pragma once

#include "grid/state.h"

void RandomBlackSquares(State& state, Host& host);

// Asks whether to split when the lattice is done.
void TwoByTwoLayout(State& state, Host& host);
