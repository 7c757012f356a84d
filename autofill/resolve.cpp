// Search, second half: from a conflict to a nogood.

#include <algorithm>
#include <bit>
#include <cassert>

#include "autofill/search.h"

namespace autofill {

// False when the conflict holds at level 0: there is no fill.
bool Search::LearnAndJump() {
  ExplainConflict();
  if (!FindLevel()) return false;
  learnt_.clear();
  for (Literal literal : literals_) Mark(literal);
  Literal denied = ResolveEvents();
  Shorten();
  Assert(denied);
  chooser_.Decay();
  return true;
}

void Search::ExplainConflict() {
  literals_.clear();
  if (failedEntry_ >= 0) {
    chooser_.Bump(failedEntry_);
    int now = static_cast<int>(store_.Events().size());
    explainer_.Explain({failedEntry_, -1, 0, now}, literals_);
  } else {
    int ref = nogoods_.Violated();
    for (int i = 0; i < nogoods_.SizeOf(ref); ++i) {
      literals_.push_back(nogoods_.At(ref, i));
    }
  }
}

// A conflict may be older than it was found: the last level with a part.
bool Search::FindLevel() {
  int last = -1;
  for (Literal literal : literals_) {
    last = std::max(last, literal.Since(store_));
  }
  level_ = last < 0 ? 0 : store_.LevelOfEvent(last);
  if (level_ == 0) return false;
  chooser_.KeepWords();
  store_.BackTo(level_);
  start_ = store_.FirstEventOf(level_);
  return true;
}

void Search::Mark(Literal literal) {
  int event = literal.Since(store_), cell = literal.Cell();
  if (event < store_.FirstEventOf(1)) return;
  bool now = event >= start_;
  uint32_t bit = 1u << literal.Letter();
  uint32_t& marked = literal.IsLost() ? (now ? lost_ : learntLost_)[cell]
                                      : (now ? has_ : learntHas_)[cell];
  if (marked & bit) return;
  marked |= bit;
  if (!now) {
    learnt_.push_back(literal);
  } else if (!pending_[event]) {
    pending_[event] = 1;
    ++outstanding_;
  }
}

// Replaces the literals of the last level by their reasons, latest first,
// until a single one is left.
Literal Search::ResolveEvents() {
  for (int i = static_cast<int>(store_.Events().size()) - 1;; --i) {
    assert(i >= start_);
    if (!pending_[i]) continue;
    const Event& event = store_.Events()[i];
    uint32_t gone = event.before & ~event.after;
    uint32_t lost = lost_[event.cell] & gone;
    bool has = has_[event.cell];
    if (std::has_single_bit(event.after)) has_[event.cell] = 0;
    else has = false;
    lost_[event.cell] &= ~gone;
    pending_[i] = 0;
    if (--outstanding_ == 0) {
      if (!has && std::has_single_bit(lost)) {
        return Literal::Lost(event.cell, std::countr_zero(lost));
      }
      if (std::has_single_bit(event.after)) {
        return Literal::Has(event.cell, std::countr_zero(event.after));
      }
    }
    Expand(i, lost, has);
  }
}

void Search::Expand(int i, uint32_t lost, bool has) {
  const Event& event = store_.Events()[i];
  if (event.reason >= kNogood) {
    ExpandNogood(i, has);
    return;
  }
  assert(event.reason >= 0);
  const Cell& cell = store_.GetBoard().Cells()[event.cell];
  int position = cell.positions[0];
  if (position < 0 || store_.GetBoard().EntryOf(position) != event.reason) {
    position = cell.positions[1];
  }
  chooser_.Bump(event.reason);
  literals_.clear();
  explainer_.Explain(
      {event.reason, position, has ? kAllLetters & ~event.after : lost, i},
      literals_);
  for (Literal literal : literals_) Mark(literal);
}

// The denied literal is the one that can't hold.  Where it denied one letter
// and so fixed the cell, the letters that went before count too.
void Search::ExpandNogood(int i, bool has) {
  const Event& event = store_.Events()[i];
  int ref = event.reason - kNogood;
  for (int k = 0; k < nogoods_.SizeOf(ref); ++k) {
    Literal literal = nogoods_.At(ref, k);
    if (!literal.CannotHold(store_)) {
      Mark(literal);
    } else if (has && !literal.IsLost()) {
      for (uint32_t rest = kAllLetters & ~event.before; rest;
           rest &= rest - 1) {
        Mark(Literal::Lost(event.cell, std::countr_zero(rest)));
      }
    }
  }
}

// A cell that has a letter has lost the others.
void Search::Shorten() {
  auto end = std::remove_if(
      learnt_.begin(), learnt_.end(), [&](Literal literal) {
        return literal.IsLost() && learntHas_[literal.Cell()];
      });
  for (Literal literal : learnt_) {
    learntLost_[literal.Cell()] = learntHas_[literal.Cell()] = 0;
  }
  learnt_.erase(end, learnt_.end());
}

void Search::Assert(Literal denied) {
  int spread = 0, jump = 0;
  auto level = [&](Literal l) {
    return store_.LevelOfEvent(l.Since(store_));
  };
  std::sort(learnt_.begin(), learnt_.end(), [&](Literal a, Literal b) {
    return a.Since(store_) > b.Since(store_);
  });
  if (!learnt_.empty()) jump = level(learnt_[0]);
  int last = -1;
  for (Literal literal : learnt_) {
    if (int l = level(literal); l != last) ++spread, last = l;
  }
  store_.BackTo(jump);
  visited_ = std::min(visited_, store_.Events().size());
  if (learnt_.empty()) {
    store_.Narrow(denied.Cell(), denied.Negation(), kDecision);
    return;
  }
  learnt_.insert(learnt_.begin(), denied);
  int ref = nogoods_.Add(learnt_, spread);
  store_.Narrow(denied.Cell(), denied.Negation(), kNogood + ref);
}

}  // namespace autofill
