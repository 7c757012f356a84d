#include "base/pos.h"

#include "base/text.h"

std::string Pos::Text() const {
  return Padded(row, 2) + "," + Padded(col, 2);
}
