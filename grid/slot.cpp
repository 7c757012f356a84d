#include "grid/slot.h"

#include "base/text.h"

std::string Slot::Text() const {
  return Padded(length, 2) + static_cast<char>(direction) + " " + first.Text();
}
