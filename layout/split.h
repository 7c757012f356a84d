// Splitting long slots.

#pragma once

#include <optional>

#include "grid/state.h"

// Places one pair of black squares in the longest slot of the mask list
// where that can be done, and returns the cell.  Cells blocked in List3 end
// the search in their slot.
std::optional<Pos> SplitLongestSlot(State& state, Host& host);

// Whether SplitLongestSlot could place a pair, with the right draws.
bool CanSplitSlot(State& state);

// The command: splits once and tells where.
void SplitMaxLine(State& state, Host& host);
