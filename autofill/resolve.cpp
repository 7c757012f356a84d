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
  for (const Literal literal : literals_) Mark(literal);
  Assert(ResolveEvents());
  chooser_.Decay();
  return true;
}

void Search::ExplainConflict() {
  literals_.clear();
  if (failedEntry_ >= 0) {
    chooser_.Bump(failedEntry_);
    const int now = static_cast<int>(store_.Events().size());
    explainer_.Explain({failedEntry_, now, nullptr, marked_.data()}, literals_);
  } else if (failedFill_ >= 0) {
    ExplainLikeness();
  } else {
    const int ref = nogoods_.Violated();
    for (int i = 0; i < nogoods_.SizeOf(ref); ++i)
      literals_.push_back(nogoods_.At(ref, i));
  }
}

// All entries with the words of the earlier fill.
void Search::ExplainLikeness() {
  const Board& board = store_.GetBoard();
  const std::vector<int>& fill = settings_.earlier[failedFill_];
  for (int e = 0; e < board.EntryCount(); ++e) {
    if (!store_.Ours(e) || store_.WordOf(e) != fill[e]) continue;
    const BoardEntry& entry = board.Entries()[e];
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
  for (const Literal literal : literals_)
    last = std::max(last, literal.Since(store_));
  level_ = last < 0 ? 0 : store_.LevelOfEvent(last);
  if (level_ == 0) return false;
  chooser_.KeepWords();
  store_.BackTo(level_);
  start_ = store_.FirstEventOf(level_);
  return true;
}

void Search::Mark(Literal literal) {
  const int cell = literal.cell;
  uint32_t rest = literal.lost & ~marked_[cell];
  for (; rest; rest &= rest - 1) {
    const int event = store_.GoneAt(cell, std::countr_zero(rest));
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
    if (outstanding_ == 1) {
      uint32_t lost = Unmark(i) | learntLost_[event.cell];
      learntLost_[event.cell] = marked_[event.cell] = 0;
      return {event.cell, lost};
    }
    if (event.reason >= kNogood)
      ExpandNogood(i);
    else
      i = ExpandRevision(i);
  }
}

// Takes the letters that the event removed out of the conflict.
uint32_t Search::Unmark(int i) {
  const Event& event = store_.Events()[i];
  uint32_t lost = marked_[event.cell] & event.before & ~event.after;
  marked_[event.cell] &= ~lost;
  pending_[i] = 0;
  --outstanding_;
  return lost;
}

void Search::ExpandNogood(int i) {
  const Event& event = store_.Events()[i];
  Unmark(i);
  const int ref = event.reason - kNogood;
  for (int k = 0; k < nogoods_.SizeOf(ref); ++k) {
    const Literal literal = nogoods_.At(ref, k);
    if (literal.cell != event.cell) Mark(literal);
  }
}

// One question about all that the revision narrowed, whose last event this
// is, but for a literal that is the only one left.  Returns the first event
// that was asked about.
int Search::ExpandRevision(int last) {
  const std::vector<Event>& events = store_.Events();
  const Board& board = store_.GetBoard();
  int entry = events[last].reason, revision = events[last].revision;
  assert(entry >= 0);
  uint32_t asked[kLongestWord] = {};
  int i = last;
  for (; i >= start_; --i) {
    if (events[i].reason != entry || events[i].revision != revision) break;
    if (!pending_[i]) continue;
    if (outstanding_ == 1) break;
    const BoardCell& cell = board.Cells()[events[i].cell];
    const int position = cell.positions[board.Entries()[entry].across ? 0 : 1];
    asked[position - board.Entries()[entry].first] = Unmark(i);
  }
  chooser_.Bump(entry);
  literals_.clear();
  explainer_.Explain({entry, i + 1, asked, marked_.data()}, literals_);
  for (const Literal literal : literals_) Mark(literal);
  return i + 1;
}

void Search::Assert(Literal denied) {
  dated_.clear();
  for (const int cell : learntCells_) {
    const Literal literal{cell, learntLost_[cell]};
    if (literal.lost) dated_.push_back({literal.Since(store_), literal});
    learntLost_[cell] = marked_[cell] = 0;
  }
  learntCells_.clear();
  std::sort(dated_.begin(), dated_.end(),
            [](const Dated& a, const Dated& b) { return a.since > b.since; });
  learnt_.assign(1, denied);
  int spread = 0, last = 0, jump = 0;
  for (const Dated& dated : dated_) {
    learnt_.push_back(dated.literal);
    const int level = store_.LevelOfEvent(dated.since);
    if (!spread) jump = level;
    if (level != last) ++spread, last = level;
  }
  store_.BackTo(jump);
  visited_ = store_.Events().size();
  int reason = kDecision;
  if (!dated_.empty()) reason = kNogood + nogoods_.Add(store_, learnt_, spread);
  store_.Narrow(denied.cell, denied.lost, reason);
}

}  // namespace autofill
