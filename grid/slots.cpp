#include "grid/slots.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "grid/events.h"

std::vector<Run> SplitLine(std::string_view line) {
  const int size = static_cast<int>(line.size());
  std::vector<Run> runs = FindRuns(
      size, [&](int k) { return line[k - 1] != kBlackSquare; },
      [](int) { return false; });
  if (runs.empty()) runs.push_back({1, size});
  return runs;
}

std::vector<Slot> FindSlots(const State& state, int shortest) {
  const int n = state.GridSize;
  std::vector<Slot> slots;
  for (Direction direction : {Direction::Across, Direction::Down}) {
    for (int i = 1; i <= n; ++i) {
      const Pos first = direction == Direction::Across ? Pos{i, 1} : Pos{1, i};
      std::string line;
      for (int k = 0; k < n; ++k) {
        const char cell = state.Grid[Along(first, direction, k)];
        // Before the first Draw, cells count as empty.
        line += cell == kNoCell ? kEmptyCell : cell;
      }
      for (const Run& run : SplitLine(line))
        if (run.length >= shortest)
          slots.push_back(
              {run.length, direction, Along(first, direction, run.start - 1)});
    }
  }
  std::ranges::sort(slots);
  return slots;
}

namespace {

// Numbers the cells where a slot starts; both directions share a number.
void NumberCells(State& state) {
  int counter = 0;
  ForEachCell(state.GridSize, [&](Pos p) {
    const bool starts = state.SlotCells.At(p, Direction::Across) ||
                        state.SlotCells.At(p, Direction::Down);
    state.CellNumbers[p.row][p.col] = starts ? ++counter : 0;
  });
}

}  // namespace

void BuildSlotList(State& state, Host& host) {
  state.SlotCells.Clear();
  auto& rows = state.List2.Refill<SlotRow>();
  for (const Slot& slot : FindSlots(state, 3)) {
    rows.push_back({slot, {}});
    state.SlotCells.Add(slot);
  }
  NumberCells(state);
  state.SlotCells.BuildCrossings();
  state.ClueCount = static_cast<int>(rows.size());
  state.Label1 = Str(state.ClueCount) + " Clues";
  RunEvents(state, host);
}

void DifficultyGauge(State& state, Host& host) {
  constexpr int kTwipsPerGrade = 30;
  const float n = static_cast<float>(state.GridSize);
  const float cells = n * n;
  float total = 0, lengths = 0, longSlots = 0;
  for (const Slot& slot : state.SlotCells.Slots()) {
    if (std::max(slot.first.row, slot.first.col) > state.GridSize) continue;
    total += SlotTable::CellsText(slot).size();
    lengths += slot.length;
    if (slot.length > 9) ++longSlots;
  }
  const float clues = state.ClueCount / n;
  const float blacks = static_cast<float>(Val(state.Text2)) / n;
  const float text = 1.2f * total / cells;
  const float length = lengths / cells + longSlots;
  // Kept: without black squares the division fails and is passed over, so
  // the grade is the lowest.
  const float grade =
      blacks == 0 || n == 0 ? 0 : std::floor(clues * text * length / blacks);
  state.GaugeWidth =
      static_cast<int>(std::clamp(grade, 3.0f, 45.0f)) * kTwipsPerGrade;
  RunEvents(state, host);
}
