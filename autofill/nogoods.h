// The nogoods that a search has learnt.
//
// Two literals of each that don't hold yet are watched (Moskewicz et al.
// 2001, "Chaff"): when all but one hold, the last is denied.  The memory is
// taken at once; when it is full, the half of the nogoods that spans the
// most levels goes (Audemard and Simon 2009, "Predicting learnt clauses
// quality in modern SAT solvers").

#pragma once

#include <vector>

#include "autofill/literals.h"

namespace autofill {

class Nogoods {
 public:
  Nogoods(int cells, int capacity);

  // The first literal is the one to deny now, the second one of the latest
  // others.  At least two literals.  Returns the reference.
  int Add(const std::vector<Literal>& literals, int spread);
  bool Full(int literals) const {
    return top_ + literals + kHeader > static_cast<int>(memory_.size());
  }
  // Drops the worse half; only at level 0, where nothing refers to them.
  void Reduce();

  // Denies what the event calls for; says whether none is violated, else
  // Violated() has the reference.
  bool Visit(Store& store, const Event& event);
  int Violated() const { return violated_; }

  int Count() const { return count_; }
  int SizeOf(int ref) const { return memory_[ref]; }
  Literal At(int ref, int i) const { return {memory_[ref + kHeader + i]}; }

 private:
  // A nogood is: size, spread, next in the watch list of literals 0 and 1,
  // literals.
  static constexpr int kHeader = 4;

  bool VisitLiteral(Store& store, int code);
  bool MoveWatch(const Store& store, int ref, int watch);
  void Link(int ref, int watch);

  std::vector<int> memory_;
  std::vector<int> heads_;  // by literal: ref * 2 + watch, or -1
  int top_ = 0;
  int count_ = 0;
  int violated_ = -1;
};

}  // namespace autofill
