#include "solver/solution_record.h"

#include <algorithm>

#include "grid/drawing.h"
#include "grid/masks.h"

void ShowSolutionProgress(State& state) {
  int cells = 0, lettered = 0;
  for (const Slot& slot : state.SlotCells.Slots()) {
    cells += slot.length;
    for (int k = 1; k <= slot.length; ++k) {
      const char cell = state.Grid[slot.CellAt(k)];
      lettered += cell != kEmptyCell && cell != kBlackSquare;
    }
  }
  state.WordProg.Caption = "Solution";
  state.WordProg.Max = cells;
  state.WordProg.Value = lettered;
}

void MarkSlotCells(State& state, Pos first, Direction direction) {
  const Slot* slot = state.SlotCells.At(first, direction);
  for (int k = 1; slot && k <= slot->length; ++k)
    DrawCell(state, slot->CellAt(k), ColourGreen);
}

std::vector<int> SlotsAround(const SlotTable& slots, int i) {
  std::vector<int> around;
  for (int crossing : slots.Crossings(i)) {
    const Slot& slot = slots.Slots()[crossing];
    for (int k = 1; k <= slot.length; ++k) {
      for (Direction direction : kDirections) {
        const int start = slots.IndexAt(slot.CellAt(k), direction);
        if (start >= 0 && start != i) around.push_back(start);
      }
    }
  }
  std::ranges::sort(around);
  return around;
}

void UpdateCrossingMasks(State& state, const std::vector<int>& slots) {
  auto& rows = state.List2.Refill<SlotRow>();
  for (int i : slots) {
    const Slot& slot = state.SlotCells.Slots()[i];
    rows.push_back({slot, SlotMask(state, slot)});
  }
}
