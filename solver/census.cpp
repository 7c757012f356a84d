#include "solver/census.h"

#include <algorithm>

namespace {

// A slot's row, or nothing when it has no crossing.
std::optional<CensusRow> Row(const SlotTable& slots, int i,
                             const WordTable& words) {
  const Slot& slot = slots.Slots()[i];
  const int crossings = static_cast<int>(slots.Crossings(i).size());
  if (crossings == 0) return std::nullopt;
  const int count =
      slot.length > LongestWordLength ? 0 : words.WordCount(slot.length);
  return CensusRow{RoundedQuotient(count, crossings), slot};
}

}  // namespace

bool TakeCensus(State& state, const WordTable& words, Host& host) {
  auto& census = state.List3.Refill<CensusRow>();
  bool complete = true;
  ForEachCell(state.GridSize, [&](Pos p) {
    for (Direction direction : kDirections) {
      const int i = state.SlotCells.IndexAt(p, direction);
      if (i < 0 || !complete) continue;
      if (const auto row = Row(state.SlotCells, i, words))
        census.push_back(*row);
      else
        complete = false;
    }
  });
  std::ranges::sort(census);
  if (!complete) host.Tell("Error in Grid Layout, check grid first");
  return complete;
}
