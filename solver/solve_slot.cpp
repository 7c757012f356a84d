// Filling one slot, with a look-ahead of one step over all its candidates.

#include <algorithm>

#include "grid/drawing.h"
#include "grid/events.h"
#include "grid/masks.h"
#include "solver/fill.h"
#include "solver/solution_record.h"

void Fill::SolveSlot(Pos first, Direction direction) {
  const Mask mask = GetSlotMask(state_, first, direction);
  auto& matches = state_.List3.As<Candidate>();
  matcher_->FindMatches(mask, matches);
  if (matches.empty()) {
    state_.fillFailed = true;
    return;
  }
  // The look-ahead overwrites the third list, so the candidates are kept in
  // the fourth.  A list of one length never overflows: it has at most
  // WordsPerLengthLimit words.
  state_.List4.As<Candidate>() = matches;
  const auto& candidates = state_.List4.As<Candidate>();
  const int n = static_cast<int>(candidates.size());
  state_.ProgBar.Value = 0;
  state_.ProgBar.Max = n + n / 2;
  state_.ProgBar.Caption =
      (state_.redoMode ? "Redo " : "Solve ") +
      std::to_string(state_.CellNumbers[first.row][first.col]) +
      static_cast<char>(direction) + ":" + Str(n) + " options";
  MarkSlotCells(state_, first, direction);
  const std::optional<int> best = BestCandidate(first, direction);
  if (state_.haltRequested) {
    host_.Pointer(PointerShape::Normal);
    return;
  }
  if (best)
    Place(candidates[*best], mask, first, direction);
  else
    GiveUp(mask, first, direction);
}

// The candidate that leaves the slots around the most choices for the worst
// of them, as a place in the mask table.  Nothing when none leaves every slot a
// word, or when Halt was pressed.
// Kept: a candidate after which nothing around is open is taken, but does
// not count as the best so far; ties go to the first.
std::optional<int> Fill::BestCandidate(Pos first, Direction direction) {
  std::optional<int> best;
  int bestMinimum = 0;
  const auto& candidates = state_.List4.Read<Candidate>();
  const int n = static_cast<int>(candidates.size());
  for (int j = 0; j < n; ++j) {
    Poll(state_, host_);
    if (state_.haltRequested) return std::nullopt;
    const std::string_view word = candidates[j].word.View();
    state_.ProgBar.Value = n - j;
    ++report_.candidatesTried;
    if (state_.redoMode) {
      LogLine(state_, host_, [&] {
        return "Solve" + RowAndColumn(first) + ", try> " + std::string(word);
      });
    }
    WriteSlot(state_, first, direction, word);
    const int failedSlot = CountAround(first, direction);
    if (failedSlot != kAllMasksFillable) {
      LogLine(state_, host_, [&] {
        return "Tried:" + std::string(word) +
               ", mask failed:" + Str(failedSlot);
      });
      WriteSlot(state_, first, direction, std::string(word.size(), kEmptyCell));
      continue;
    }
    const auto& counts = state_.List5.Read<CountRow>();
    if (counts.empty()) {
      best = j;
    } else if (counts.front().count > bestMinimum) {
      best = j;
      bestMinimum = counts.front().count;
    }
  }
  return best;
}

// Counts the words for the slots around a slot; the failed slot.
int Fill::CountAround(Pos first, Direction direction) {
  static const std::vector<int> nothing;
  const int slot = state_.SlotCells.IndexAt(first, direction);
  UpdateCrossingMasks(state_, slot < 0 ? nothing : around_[slot]);
  return matcher_->CountMaskMatches();
}

void Fill::Place(const Candidate& best, const Mask& mask, Pos first,
                 Direction direction) {
  const std::string_view word = best.word.View();
  WriteSlot(state_, first, direction, word);
  DrawSlot(state_, first, direction, word);
  state_.fillFailed = false;
  ++report_.slotsSolved;
  matcher_->UseWord(best.word, false);
  if (!state_.redoMode)
    state_.List6.push_back({best.word, mask, first, direction});
  CountAround(first, direction);
  ClearHighlights(state_);
  LogLine(state_, host_, [&] {
    return "found:" + RowAndColumn(first) + " " + std::string(word);
  });
  state_.ProgBar.Value = 0;
  state_.ProgBar.Caption = "";
  state_.redoMode = false;
  state_.haltRequested = false;
  RunEvents(state_, host_);
}

void Fill::GiveUp(const Mask& mask, Pos first, Direction direction) {
  const std::string cells = CellsOfMask(mask);
  WriteSlot(state_, first, direction, cells);
  DrawSlot(state_, first, direction, cells);
  state_.fillFailed = true;
  ClearHighlights(state_);
  state_.ProgBar.Value = 0;
  state_.haltRequested = false;
  RunEvents(state_, host_);
}
