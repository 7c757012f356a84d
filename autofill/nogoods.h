// The nogoods that a search has learnt.
//
// Two literals of each that don't hold yet are watched (Moskewicz et al.
// 2001, "Chaff"), each through one letter that its cell still has: when all
// but one hold, the cell of the last keeps only its letters.  The memory is
// taken at once; when it is full, the half of the nogoods that spans the
// most levels goes (Audemard and Simon 2009, "Predicting learnt clauses
// quality in modern SAT solvers").

#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "autofill/literals.h"

namespace autofill {

class Nogoods {
 public:
  Nogoods(int cells, int capacity);

  // The first literal is the one to deny now, the second one of the latest
  // others.  At least two literals.  Returns the reference.
  int Add(const Store& store, const std::vector<Literal>& literals, int spread);
  bool Full(int literals) const {
    return top_ + 2 * literals + kHeader > capacity_;
  }
  // Drops the worse half, and the literals and nogoods that level 0 has
  // decided; only there, where no reason refers to them, and propagated.
  void Reduce(const Store& store);

  // Denies what the event calls for; says whether none is violated, else
  // Violated() has the reference.
  bool Visit(Store& store, const Event& event);
  int Violated() const { return violated_; }

  int Count() const { return count_; }
  int SizeOf(int ref) const { return memory_[ref]; }
  Literal At(int ref, int i) const {
    const int* at = &memory_[ref + kHeader + 2 * i];
    return {at[0], static_cast<uint32_t>(at[1])};
  }

 private:
  // A nogood is: size, spread, the next in the watch lists of literals 0
  // and 1, then cell and letters of each literal.
  static constexpr int kHeader = 4;

  bool VisitLetter(Store& store, int cell, int letter);
  int FindFree(const Store& store, int ref) const;
  void Put(int ref, int i, Literal literal);
  void Link(const Store& store, int ref, int watch);
  int Simplify(const Store& store, int from, int to);

  int capacity_;
  std::unique_ptr<int[]> memory_;  // untouched pages cost nothing
  std::vector<int> heads_;  // by cell * 32 + letter: ref * 2 + watch, or -1
  int top_ = 0;
  int count_ = 0;
  int violated_ = -1;
};

}  // namespace autofill
