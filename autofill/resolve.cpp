// Search, second half: from a conflict to a nogood.

#include <algorithm>
#include <bit>
#include <cassert>

#include "autofill/search.h"

namespace autofill {

// False when the conflict holds at level 0: there is no fill.
bool Search::LearnAndJump() {
  if (store_.Level() == 0) {
    if (failedEntry_ >= 0) chooser_.Bump(failedEntry_);
    return false;
  }
  ExplainConflict();
  if (!FindLevel()) return false;
  for (Literal literal : literals_) Mark(literal);
  Assert(ResolveEvents());
  chooser_.Decay();
  return true;
}

void Search::ExplainConflict() {
  literals_.clear();
  if (failedEntry_ >= 0) {
    chooser_.Bump(failedEntry_);
    int now = static_cast<int>(store_.Events().size());
    explainer_.Explain({failedEntry_, -1, 0, now, marked_.data()}, literals_);
  } else if (failedFill_ >= 0) {
    ExplainLikeness();
  } else {
    int ref = nogoods_.Violated();
    for (int i = 0; i < nogoods_.SizeOf(ref); ++i) {
      literals_.push_back(nogoods_.At(ref, i));
    }
  }
}

// All entries with the words of the earlier fill.
void Search::ExplainLikeness() {
  const Board& board = store_.GetBoard();
  const std::vector<int>& fill = settings_.earlier[failedFill_];
  for (int e = 0; e < board.EntryCount(); ++e) {
    if (!store_.Ours(e) || store_.WordOf(e) != fill[e]) continue;
    const Entry& entry = board.Entries()[e];
    for (int k = 0; k < entry.length; ++k) {
      uint32_t letter = store_.LettersAt(entry.first + k);
      literals_.push_back(
          {board.CellOf(entry.first + k), kAllLetters & ~letter});
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
  int cell = literal.cell;
  uint32_t rest = literal.lost & ~marked_[cell];
  for (; rest; rest &= rest - 1) {
    int event = store_.GoneAt(cell, std::countr_zero(rest));
    uint32_t bit = rest & -rest;
    if (event < store_.FirstEventOf(1)) continue;
    marked_[cell] |= bit;
    if (event >= start_) {
      outstanding_ += !pending_[event];
      pending_[event] = 1;
    } else {
      if (!learntLost_[cell]) learntCells_.push_back(cell);
      learntLost_[cell] |= bit;
    }
  }
}

// Replaces the literals of the last level by their reasons, latest first,
// until those of a single event are left.
Literal Search::ResolveEvents() {
  for (int i = static_cast<int>(store_.Events().size()) - 1;; --i) {
    assert(i >= start_);
    if (!pending_[i]) continue;
    const Event& event = store_.Events()[i];
    uint32_t gone = event.before & ~event.after;
    uint32_t lost = marked_[event.cell] & gone;
    marked_[event.cell] &= ~gone;
    pending_[i] = 0;
    if (--outstanding_ == 0) {
      lost |= learntLost_[event.cell];
      learntLost_[event.cell] = marked_[event.cell] = 0;
      return {event.cell, lost};
    }
    Expand(i, lost);
  }
}

void Search::Expand(int i, uint32_t lost) {
  const Event& event = store_.Events()[i];
  if (event.reason >= kNogood) {
    int ref = event.reason - kNogood;
    for (int k = 0; k < nogoods_.SizeOf(ref); ++k) {
      Literal literal = nogoods_.At(ref, k);
      if (literal.cell != event.cell) Mark(literal);
    }
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
  explainer_.Explain({event.reason, position, lost, i, marked_.data()}, literals_);
  for (Literal literal : literals_) Mark(literal);
}

void Search::Assert(Literal denied) {
  learnt_.clear();
  for (int cell : learntCells_) {
    if (learntLost_[cell]) learnt_.push_back({cell, learntLost_[cell]});
    learntLost_[cell] = marked_[cell] = 0;
  }
  learntCells_.clear();
  std::sort(learnt_.begin(), learnt_.end(), [&](Literal a, Literal b) {
    return a.Since(store_) > b.Since(store_);
  });
  int spread = 0, last = 0, jump = 0;
  for (Literal literal : learnt_) {
    int level = store_.LevelOfEvent(literal.Since(store_));
    if (!spread) jump = level;
    if (level != last) ++spread, last = level;
  }
  store_.BackTo(jump);
  visited_ = store_.Events().size();
  int reason = kDecision;
  if (!learnt_.empty()) {
    learnt_.insert(learnt_.begin(), denied);
    reason = kNogood + nogoods_.Add(store_, learnt_, spread);
  }
  store_.Narrow(denied.cell, denied.lost, reason);
}

}  // namespace autofill
