// Placing black squares in pairs that a half turn takes into each other.

#pragma once

#include "grid/state.h"

// Whether a black square may come to a cell and its mirror: both must be
// empty, no run of two white cells may arise beside it, and no cell of the
// grid may have black on all four sides.  What lies beyond the grid counts
// as the margin holds it.
bool CanPlaceBlack(State& state, Pos cell);

// Places the pair and draws it, if it may come there.
[[nodiscard]] bool TryPlaceBlack(State& state, Pos cell);

// Takes a pair back.
void RemoveBlackPair(State& state, Pos cell);
