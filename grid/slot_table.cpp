#include "grid/slot_table.h"

#include <cassert>

#include "base/text.h"

void SlotTable::Clear() {
  slots_.clear();
  crossings_.clear();
  for (auto& row : starts_)
    for (auto& cell : row) cell.fill(-1);
}

void SlotTable::Add(const Slot& slot) {
  assert(slots_.empty() || slots_.back() < slot);
  starts_[slot.first.row][slot.first.col][slot.direction == Direction::Across] =
      static_cast<short>(slots_.size());
  slots_.push_back(slot);
}

void SlotTable::BuildCrossings() {
  // The slots through each cell.  Two of one direction never share a cell.
  std::array<std::array<std::array<short, 2>, MaxGridSize + 1>, MaxGridSize + 1>
      through;
  for (auto& row : through)
    for (auto& cell : row) cell.fill(-1);
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    const Slot& slot = slots_[i];
    for (int k = 1; k <= slot.length; ++k) {
      const Pos cell = slot.CellAt(k);
      through[cell.row][cell.col][slot.direction == Direction::Across] =
          static_cast<short>(i);
    }
  }
  crossings_.assign(slots_.size(), {});
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    const Slot& slot = slots_[i];
    for (int k = 1; k <= slot.length; ++k) {
      const Pos cell = slot.CellAt(k);
      const int other =
          through[cell.row][cell.col][slot.direction == Direction::Down];
      if (other >= 0) crossings_[i].push_back(other);
    }
  }
}

std::string SlotTable::CellsText(const Slot& slot) {
  std::string text =
      Padded(slot.length, 2) + static_cast<char>(slot.direction) + " ";
  for (int k = 1; k <= slot.length; ++k) text += slot.CellAt(k).Text() + " ";
  return text;
}

std::string SlotTable::CrossingCellsText(int i) const {
  std::string text;
  for (int crossing : crossings_[i]) {
    const Slot& slot = slots_[crossing];
    for (int k = 1; k <= slot.length; ++k) text += slot.CellAt(k).Text() + " ";
  }
  return text;
}
