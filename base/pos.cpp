#include "base/pos.h"

#include "base/text.h"

std::string Pos::Text() const {
  return Padded(row, 2) + "," + Padded(col, 2);
}

std::string CellName(Pos p) {
  return "row " + std::to_string(p.row) + ", column " + std::to_string(p.col);
}
