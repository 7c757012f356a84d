// Masks and slot words: the letters of slots, read from and written to the
// grid.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "grid/state.h"

inline bool IsOpen(const Mask& mask) {
  return mask.View().find(kAnyLetter) != std::string_view::npos;
}
inline bool IsUntouched(const Mask& mask) {
  return mask.View().find_first_not_of(kAnyLetter) == std::string_view::npos;
}

Mask SlotMask(const State& state, const Slot& slot);

// The open slots among some, each with its mask.
std::vector<SlotRow> OpenMasks(const State& state,
                               const std::vector<Slot>& slots);

// Lists every slot of two cells or more in List4, and those of them that
// have an empty cell in List2, with their masks.
void BuildMaskList(State& state);

// Lists the open slots of two cells or more in List2, with their masks.
void RefreshMaskList(State& state);

// A slot's word, or "" when a cell is empty or the slot is none.
std::string SlotWord(const State& state, const Slot* slot);

// The mask from a cell to the end of its run.  The cell need not be the
// first of a slot.
Mask GetSlotMask(const State& state, Pos first, Direction direction);

// Stores a text into cells as it stands, its k-th character in the k-th.
void WriteSlot(State& state, Pos first, Direction direction,
               std::string_view text);

// Prints a text into cells of the picture; the grid is not changed.
void DrawSlot(State& state, Pos first, Direction direction,
              std::string_view text);

// A mask as cells hold it: a blank for each "?".
std::string CellsOfMask(const Mask& mask);
