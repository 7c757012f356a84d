// The numbered slots of the grid: what BuildSlotList derives from the black
// squares, stale from the moment one changes until it runs again.

#pragma once

#include <array>
#include <string>
#include <vector>

#include "grid/slot.h"

class SlotTable {
 public:
  SlotTable() { Clear(); }

  void Clear();
  // Slots come in ascending order.
  void Add(const Slot& slot);

  // Finds, for every slot, the other slots that share a cell with it, in the
  // order of its cells.
  void BuildCrossings();

  const std::vector<Slot>& Slots() const { return slots_; }

  // The slot that starts at a cell, as its place in Slots(), or -1.
  int IndexAt(Pos first, Direction direction) const {
    return starts_[first.row][first.col][direction == Direction::Across];
  }
  // The same slot, or nullptr.
  const Slot* At(Pos first, Direction direction) const {
    const int index = IndexAt(first, direction);
    return index < 0 ? nullptr : &slots_[index];
  }

  // The slots that cross the i-th of Slots(), as places in it.
  const std::vector<int>& Crossings(int i) const { return crossings_[i]; }

  // A slot's cells: "04A 02,05 02,06 02,07 02,08 ".
  static std::string CellsText(const Slot& slot);
  // The cells of every slot that crosses the i-th: "01,01 02,01 01,02 ".
  std::string CrossingCellsText(int i) const;

 private:
  std::vector<Slot> slots_;
  std::vector<std::vector<int>> crossings_;
  // By row, column and direction (1 across): a place in slots_, or -1.
  std::array<std::array<std::array<short, 2>, MaxGridSize + 1>, MaxGridSize + 1>
      starts_;
};
