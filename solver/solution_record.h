// The small services around a fill: its log, its progress bar, the mark on
// the slot being solved and the masks around it.

#pragma once

#include <string>
#include <vector>

#include "grid/events.h"

// Logs the text that `makeText` makes, when the log is on, and shows it.
template <class MakeText>
void LogLine(State& state, Host& host, MakeText makeText) {
  if (!state.logEnabled) return;
  ShowLogLine(state, host, makeText());
}

// A cell as log lines name it: " 3 5".
inline std::string RowAndColumn(Pos p) {
  return Str(p.row) + Str(p.col);
}

// Shows in WordProg how many of the slots' cells hold a letter; a cell counts
// once for each slot that it belongs to.
void ShowSolutionProgress(State& state);

// Highlights the slot that starts at a cell.
void MarkSlotCells(State& state, Pos first, Direction direction);

// The slots that start at a cell of a slot that crosses the i-th of the slot
// table, less itself: places in the table, ascending.
std::vector<int> SlotsAround(const SlotTable& slots, int i);

// Lists some slots of the slot table in List2, lettered ones too, each with
// its mask.
void UpdateCrossingMasks(State& state, const std::vector<int>& slots);
