#include "grid/masks.h"

#include <algorithm>

#include "grid/drawing.h"
#include "grid/slots.h"

namespace {

char MaskLetter(char cell) {
  return cell == kEmptyCell || cell == kNoCell ? kAnyLetter : cell;
}

}  // namespace

Mask SlotMask(const State& state, const Slot& slot) {
  Mask mask;
  for (int k = 1; k <= slot.length; ++k)
    mask.Append(MaskLetter(state.Grid[slot.CellAt(k)]));
  return mask;
}

std::vector<SlotRow> OpenMasks(const State& state,
                               const std::vector<Slot>& slots) {
  std::vector<SlotRow> rows;
  for (const Slot& slot : slots) {
    const Mask mask = SlotMask(state, slot);
    if (IsOpen(mask)) rows.push_back({slot, mask});
  }
  return rows;
}

void BuildMaskList(State& state) {
  state.List4.As<Slot>() = FindSlots(state, 2);
  state.List2.As<SlotRow>() = OpenMasks(state, state.List4.As<Slot>());
}

void RefreshMaskList(State& state) {
  state.List2.As<SlotRow>() = OpenMasks(state, FindSlots(state, 2));
}

std::string SlotWord(const State& state, const Slot* slot) {
  std::string word;
  for (int k = 1; slot && k <= slot->length; ++k) {
    const char cell = state.Grid[slot->CellAt(k)];
    if (cell == kEmptyCell || cell == kNoCell) return "";
    word += cell;
  }
  return word;
}

Mask GetSlotMask(const State& state, Pos first, Direction direction) {
  const int n = state.GridSize;
  Mask mask;
  for (Pos p = first; p.row <= n && p.col <= n && !state.IsBlack(p);
       p = Along(p, direction, 1))
    mask.Append(MaskLetter(state.Grid[p]));
  return mask;
}

void WriteSlot(State& state, Pos first, Direction direction,
               std::string_view text) {
  for (char c : text) {
    state.Grid[first] = c;
    first = Along(first, direction, 1);
  }
}

void DrawSlot(State& state, Pos first, Direction direction,
              std::string_view text) {
  for (char c : text) {
    DrawCellText(state, first, c);
    first = Along(first, direction, 1);
  }
}

std::string CellsOfMask(const Mask& mask) {
  std::string cells(mask.View());
  std::ranges::replace(cells, kAnyLetter, kEmptyCell);
  return cells;
}
