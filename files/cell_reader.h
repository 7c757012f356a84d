// What the readers of .ipuz and .jpz do alike with cells: bars, which a file
// tells on any side of a cell, and what was odd of cells.

#pragma once

#include <map>
#include <string>
#include <vector>

#include "files/format.h"

enum class Side { Top, Left, Right, Bottom };
// A bar on a side of a cell; none at the edge of the grid.
void SetBar(Document& document, Pos cell, Side side);

// What was odd of cells, told in the end, like with like: "3 cells with a
// style that is not there, first at row 2, column 5".
class OddCells {
 public:
  void Note(const std::string& what, int cell) { cells_[what].push_back(cell); }
  void TellIn(Reading& reading) const;

 private:
  std::map<std::string, std::vector<int>> cells_;  // by what was odd
};
