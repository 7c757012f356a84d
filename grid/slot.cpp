#include "grid/slot.h"

std::string Pos::Text() const {
  return Padded(row, 2) + "," + Padded(col, 2);
}

std::string Slot::Text() const {
  return Padded(length, 2) + static_cast<char>(direction) + " " + first.Text();
}
