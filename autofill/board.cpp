#include "autofill/board.h"

#include <algorithm>

namespace autofill {

Board::Board(const Problem& problem)
    : letters_(problem.letters), rejected_(problem.rejected) {
  std::vector<int> cellAt(letters_.size(), -1);
  for (const Entry& entry : problem.entries) AddEntry(entry, cellAt);
  crossing_.assign(cellOf_.size(), -1);
  for (const BoardCell& cell : cells_) {
    const auto [a, d] = cell.positions;
    if (a >= 0 && d >= 0) crossing_[a] = d, crossing_[d] = a;
  }
}

// One for an empty cell of the grid, else one for each letter.
void Board::AddCells(int place) {
  if (letters_[place].empty()) cells_.push_back({.place = place});
  for (const char letter : letters_[place])
    cells_.push_back({.place = place, .given = letter});
}

void Board::AddEntry(const Entry& entry, std::vector<int>& cellAt) {
  const bool across = entry.direction == Direction::Across;
  const int first = PositionCount();
  for (const int place : entry.cells) {
    if (cellAt[place] < 0) {
      cellAt[place] = CellCount();
      AddCells(place);
    }
    for (int cell = cellAt[place];
         cell < CellCount() && cells_[cell].place == place; ++cell) {
      cells_[cell].positions[across ? 0 : 1] = PositionCount();
      cellOf_.push_back(cell);
    }
  }
  entries_.push_back({entry.Name(), across, PositionCount() - first, first,
                      IsComplete(letters_, entry)});
  cellOf_.resize((cellOf_.size() + 3) / 4 * 4, -1);
  entryOf_.resize(cellOf_.size(), EntryCount() - 1);
}

int Board::Find(const std::string& name) const {
  const auto found = std::ranges::find(entries_, name, &BoardEntry::name);
  return found == entries_.end() ? -1
                                 : static_cast<int>(found - entries_.begin());
}

std::string Board::Mask(int entry) const {
  const BoardEntry& e = entries_[entry];
  std::string mask(e.length, '?');
  for (int p = 0; p < e.length; ++p) {
    const char given = cells_[cellOf_[e.first + p]].given;
    if (given) mask[p] = given;
  }
  return mask;
}

}  // namespace autofill
