// Slot numbering.
//
// A slot is a run of white cells that takes one word.  Everything here is
// derived from the black squares, and stale from the moment one changes
// until BuildSlotList runs again.

#pragma once

#include <string_view>
#include <vector>

#include "grid/state.h"
#include "puzzle/numbering.h"

// The white runs of one grid line, given as its cell texts.
// Kept: a line of black squares only counts as one full run.
std::vector<Run> SplitLine(std::string_view line);

// The slots of at least a length, ascending.
std::vector<Slot> FindSlots(const State& state, int shortest);

// Lists the slots of three cells or more in List2, numbers their first cells
// in reading order, finds their crossings and counts them in Label1.
void BuildSlotList(State& state, Host& host);

// Sets the width of the difficulty gauge.
void DifficultyGauge(State& state, Host& host);
