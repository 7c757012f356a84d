#include "layout/split.h"

#include <algorithm>

#include "grid/new_grid.h"
#include "layout/black_pair.h"

namespace {

constexpr int kMostTries = 53;

// The offsets 0, 1, -1, 2, -2, ... from a centre line outward.
int OffsetTable(int m) {
  return m % 2 == 1 ? (m + 1) / 2 : -m / 2;
}

// How far after the middle a Down slot may be split.
int DownReach(const Slot& slot) {
  return slot.length / 2;
}

Pos FromMiddle(const Slot& slot, int offset) {
  return Along(slot.first, slot.direction, slot.length / 2 + offset);
}

// Whether the search in a slot ends at a cell.
bool EndsSearch(const State& state, Pos cell) {
  const auto& blocked = state.List3.Read<Pos>();
  const int n = state.GridSize;
  return std::min(cell.row, cell.col) < 1 || std::max(cell.row, cell.col) > n ||
         std::ranges::find(blocked, cell) != blocked.end();
}

std::optional<Pos> SplitSlot(State& state, Host& host, const Slot& slot) {
  for (int m = 0; m < kMostTries; ++m) {
    // Kept: Down slots draw a new offset for every try, always after the
    // middle.
    const int offset = slot.direction == Direction::Across
                           ? OffsetTable(m)
                           : RandomUpTo(host, DownReach(slot));
    const Pos cell = FromMiddle(slot, offset);
    if (EndsSearch(state, cell)) return std::nullopt;
    if (TryPlaceBlack(state, cell)) return cell;
  }
  return std::nullopt;
}

bool CanSplit(State& state, const Slot& slot) {
  if (slot.direction == Direction::Across) {
    for (int m = 0; m < kMostTries; ++m) {
      const Pos cell = FromMiddle(slot, OffsetTable(m));
      if (EndsSearch(state, cell)) return false;
      if (CanPlaceBlack(state, cell)) return true;
    }
    return false;
  }
  for (int offset = 1; offset <= DownReach(slot); ++offset) {
    const Pos cell = FromMiddle(slot, offset);
    if (!EndsSearch(state, cell) && CanPlaceBlack(state, cell)) return true;
  }
  return false;
}

}  // namespace

std::optional<Pos> SplitLongestSlot(State& state, Host& host) {
  const auto& rows = state.List2.Read<SlotRow>();
  for (auto row = rows.rbegin(); row != rows.rend(); ++row)
    if (const auto cell = SplitSlot(state, host, row->slot)) return cell;
  return std::nullopt;
}

bool CanSplitSlot(State& state) {
  return std::ranges::any_of(
      state.List2.Read<SlotRow>(),
      [&](const SlotRow& row) { return CanSplit(state, row.slot); });
}

void SplitMaxLine(State& state, Host& host) {
  const Pos cell = SplitLongestSlot(state, host).value_or(Pos{-1, -1});
  host.Tell("Split Line placed at" + Str(cell.row) + Str(cell.col));
  CountBlackSquares(state);
}
