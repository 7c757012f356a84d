#include "grid/slot_lengths.h"

#include "grid/drawing.h"
#include "grid/masks.h"

int CheckSlotLengths(State& state) {
  BuildMaskList(state);
  int count = 0;
  for (const SlotRow& row : state.List2.Read<SlotRow>()) {
    const Slot& slot = row.slot;
    if (slot.length >= 3 && slot.length <= LongestWordLength) continue;
    for (int k = 1; k <= slot.length; ++k)
      DrawCell(state, slot.CellAt(k), ColourBadLength);
    ++count;
  }
  return count;
}
