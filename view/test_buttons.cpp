#include "view/test_buttons.h"

#include <algorithm>

#include "grid/drawing.h"
#include "grid/masks.h"
#include "solver/matcher.h"
#include "solver/solution_record.h"

namespace {

Pos Current(const State& state) {
  return {state.CurrentRow, state.CurrentCol};
}

bool IsInGrid(const State& state, Pos p) {
  return std::min(p.row, p.col) >= 1 &&
         std::max(p.row, p.col) <= state.GridSize;
}

}  // namespace

void FindIntersection(App& app, Direction direction) {
  State& state = app.state;
  ClearHighlights(state);
  const Pos cell = Current(state);
  const int slot =
      IsInGrid(state, cell) ? state.SlotCells.IndexAt(cell, direction) : -1;
  UpdateCrossingMasks(state, slot < 0 ? std::vector<int>()
                                      : SlotsAround(state.SlotCells, slot));
}

void FitToEnd(App& app, Direction direction) {
  State& state = app.state;
  auto& rows = state.List3.Refill<Candidate>();
  const Pos cell = Current(state);
  if (!IsInGrid(state, cell) || state.IsBlack(cell)) return;
  const Mask mask = GetSlotMask(state, cell, direction);
  if (mask.Size() > LongestWordLength) return;
  Matcher(state, app.words).FindMatches(mask, rows);
}

void FindWordLengths(App& app) {
  auto& rows = app.state.List3.Refill<LengthRow>();
  for (int length = 0; length <= LongestWordLength; ++length)
    rows.push_back({app.words.WordCount(length), length});
  std::ranges::sort(rows);
}
