// A literal says that a cell has a letter, or that it has lost it.
//
// A nogood is a set of literals that can't all hold: Dechter 1990,
// "Enhancement schemes for constraint processing: backjumping, learning,
// and cutset decomposition"; literals for both = and != as in Katsirelos and
// Bacchus 2005, "Generalized nogoods in CSPs".

#pragma once

#include <bit>
#include <cstdint>

#include "autofill/store.h"

namespace autofill {

struct Literal {
  int code;  // cell * 64 + (lost ? 32 : 0) + letter

  static Literal Has(int cell, int letter) { return {cell * 64 + letter}; }
  static Literal Lost(int cell, int letter) {
    return {cell * 64 + 32 + letter};
  }
  int Cell() const { return code / 64; }
  int Letter() const { return code & 31; }
  bool IsLost() const { return code & 32; }

  bool Holds(const Store& store) const {
    uint32_t letters = store.LettersOf(Cell()), bit = 1u << Letter();
    return IsLost() ? !(letters & bit) : letters == bit;
  }
  bool CannotHold(const Store& store) const {
    uint32_t letters = store.LettersOf(Cell()), bit = 1u << Letter();
    return IsLost() ? letters == bit : !(letters & bit);
  }
  // The event that made it hold.
  int Since(const Store& store) const {
    return IsLost() ? store.GoneAt(Cell(), Letter())
                    : store.FixedAt(Cell());
  }
  // What the cell may have when the literal does not hold.
  uint32_t Negation() const {
    uint32_t bit = 1u << Letter();
    return IsLost() ? bit : kAllLetters & ~bit;
  }
};

}  // namespace autofill
