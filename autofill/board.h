// The grid as the search sees it: entries, their cells and crossings.
//
// Made from rows of text, with which it is stale when they change.  Entries
// are the runs of three or more white cells; cells of shorter runs only are
// kept as they are.  Positions of all entries are numbered in one row, each
// entry's first at a multiple of four, so that vectors of letter sets load
// aligned.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace autofill {

// One row a string: '#' is a block, '.', ' ' or '?' an empty cell, a letter
// a given letter that stays.  Rows are equally long, at most 51.
using Rows = std::vector<std::string>;

constexpr int kLargestSide = 51;

struct Entry {
  std::string name;  // "17A"
  bool across = true;
  int row = 0, column = 0;  // of the first cell, from 0
  int length = 0;
  int first = 0;       // its first position
  bool given = false;  // all letters were given: it isn't ours to fill
};

struct Cell {
  int row = 0, column = 0;
  int positions[2] = {-1, -1};  // across, down
  char given = 0;
};

class Board {
 public:
  // Throws std::invalid_argument when the rows aren't a grid.
  explicit Board(const Rows& rows);

  const std::vector<Entry>& Entries() const { return entries_; }
  const std::vector<Cell>& Cells() const { return cells_; }
  const Rows& Text() const { return rows_; }
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
  void AddRuns(bool across, const std::vector<std::vector<int>>& numbers);
  std::vector<std::vector<int>> Number() const;
  bool White(int row, int column) const;
  bool BlocksOnly(int line, bool across) const;
  int RunFrom(int row, int column, bool across) const;

  Rows rows_;
  int height_ = 0, width_ = 0;
  std::vector<Entry> entries_;
  std::vector<Cell> cells_;
  std::vector<int> cellOf_, entryOf_, crossing_;
};

}  // namespace autofill
