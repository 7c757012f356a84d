#include "layout/chains.h"

#include <algorithm>
#include <string>

ChainFinder::ChainFinder(const State& state) : n_(state.GridSize) {
  flat_.width = n_ + 2;
  for (int row = 0; row <= n_ + 1; ++row)
    for (int col = 0; col <= n_ + 1; ++col)
      flat_.cells.push_back(state.Grid[{row, col}]);
  found_.resize(flat_.cells.size());
  const int largest = flat_.width * n_ + n_;
  digits_ = std::max<int>(3, std::to_string(largest).size());
}

CellGroup ChainFinder::GroupAt(Pos seed) {
  CellGroup group;
  const CellKey key = KeyOf(seed);
  if (found_[key.index]) return group;
  found_[key.index] = true;
  group.cells.push_back(key);
  for (std::size_t i = 0; i < group.cells.size(); ++i)
    GrowChain(group, group.cells[i]);
  return group;
}

void ChainFinder::GrowChain(CellGroup& group, CellKey key) {
  const int w = flat_.width;
  const int steps[] = {-1, 1, w, -w, w + 1, w - 1, -(w + 1), -(w - 1)};
  const char kind = flat_.cells[key.index];
  const int count = kind == kBlackSquare ? 8 : 4;
  for (int i = 0; i < count; ++i) {
    const int neighbour = key.index + steps[i];
    if (flat_.cells[neighbour] != kind || found_[neighbour]) continue;
    found_[neighbour] = true;
    group.cells.push_back({neighbour, digits_});
  }
}

bool ChainFinder::ChainOnOneEdge(const std::vector<CellKey>& cells) const {
  const auto all = [&](auto onEdge) {
    return std::ranges::all_of(
        cells, [&](CellKey key) { return onEdge(CellOf(key)); });
  };
  return all([](Pos p) { return p.row == 1; }) ||
         all([this](Pos p) { return p.row == n_; }) ||
         all([](Pos p) { return p.col == 1; }) ||
         all([this](Pos p) { return p.col == n_; });
}
