// The grid as the search sees it: entries, their cells and crossings.
//
// Made from a problem.  A cell here is a letter: a cell of the grid that
// stands for several becomes as many, all given.  Positions of all entries
// are numbered in one row, each entry's first at a multiple of four, so that
// vectors of letter sets load aligned.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "autofill/problem.h"

namespace autofill {

struct BoardEntry {
  std::string name;  // "17A"
  bool across = true;
  int length = 0;      // in letters
  int first = 0;       // its first position
  bool given = false;  // all letters were given: it isn't ours to fill
};

struct BoardCell {
  int place = 0;                // in the problem's letters
  int positions[2] = {-1, -1};  // across, down
  char given = 0;
};

class Board {
 public:
  explicit Board(const Problem& problem);

  const std::vector<BoardEntry>& Entries() const { return entries_; }
  const std::vector<BoardCell>& Cells() const { return cells_; }
  // As they came.
  const Letters& Given() const { return letters_; }
  const std::set<std::string>& Rejected() const { return rejected_; }
  int EntryCount() const { return static_cast<int>(entries_.size()); }
  int CellCount() const { return static_cast<int>(cells_.size()); }
  int PositionCount() const { return static_cast<int>(cellOf_.size()); }
  // -1 for the padding behind an entry.
  int CellOf(int position) const { return cellOf_[position]; }
  int EntryOf(int position) const { return entryOf_[position]; }
  // The position of the same cell in the crossing entry, or -1.
  int Crossing(int position) const { return crossing_[position]; }
  // The entry of that name, or -1.
  int Find(const std::string& name) const;
  // The letters of an entry, "?" for an empty cell.
  std::string Mask(int entry) const;

 private:
  void AddEntry(const Entry& entry, std::vector<int>& cellAt);
  void AddCells(int place);

  Letters letters_;
  std::set<std::string> rejected_;
  std::vector<BoardEntry> entries_;
  std::vector<BoardCell> cells_;
  std::vector<int> cellOf_, entryOf_, crossing_;
};

}  // namespace autofill
