// Groups of cells of one kind that hang together.
//
// A cell goes by its index in a flat copy of the grid with a ring of cells
// around it: (N + 2) * row + column.

#pragma once

#include <vector>

#include "grid/state.h"

class ChainFinder {
 public:
  explicit ChainFinder(const State& state);

  // The group of the cells of one kind that a cell belongs to, in the order
  // found, or nothing when an earlier call has found it.  Black squares that
  // touch at a corner hang together, other cells do not.
  CellGroup GroupAt(Pos seed);

  CellKey KeyOf(Pos p) const { return {flat_.width * p.row + p.col, digits_}; }
  Pos CellOf(CellKey key) const {
    return {key.index / flat_.width, key.index % flat_.width};
  }

  bool IsOnRing(Pos p) const {
    return p.row == 1 || p.row == n_ || p.col == 1 || p.col == n_;
  }
  // Whether all of some cells lie along one edge of the grid.
  bool ChainOnOneEdge(const std::vector<CellKey>& cells) const;

 private:
  struct FlatGrid {
    int width = 0;
    std::vector<char> cells;
  };

  // Adds the neighbours of a cell that are of its kind and not yet found.
  void GrowChain(CellGroup& group, CellKey key);

  int n_;
  int digits_;
  FlatGrid flat_;
  std::vector<bool> found_;
};
