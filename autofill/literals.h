// A literal says that a cell has lost certain letters.
//
// A nogood is a set of literals that can't all hold (Dechter 1990,
// "Enhancement schemes for constraint processing: backjumping, learning,
// and cutset decomposition").  Sets of letters in the literals, instead of
// single ones, make it short, a cell occurs once, and denying it keeps a
// whole set: the signed clauses of Beckert, Haehnle and Manya 2000, "The SAT
// problem of signed CNF formulas".

#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>

#include "autofill/store.h"

namespace autofill {

struct Literal {
  int cell;
  uint32_t lost;

  bool Holds(const Store& store) const {
    return !(store.LettersOf(cell) & lost);
  }
  bool CannotHold(const Store& store) const {
    return !(store.LettersOf(cell) & ~lost);
  }
  // The event that made it hold.
  int Since(const Store& store) const {
    int since = -1;
    for (uint32_t rest = lost; rest; rest &= rest - 1)
      since = std::max(since, store.GoneAt(cell, std::countr_zero(rest)));
    return since;
  }
};

}  // namespace autofill
