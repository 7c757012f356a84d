// Slots: where words stand.
//
// A slot is a run of white cells of one grid line that takes one word.

#pragma once

#include "base/pos.h"

// Slots sort as their texts do: by length, direction, row, column.
struct Slot {
  int length = 0;
  Direction direction = Direction::Across;
  Pos first;

  // The slot's k-th cell, k = 1..length.
  Pos CellAt(int k) const { return Along(first, direction, k - 1); }
  std::string Text() const;  // "05A 03,07"
  auto operator<=>(const Slot&) const = default;
};
