// Backing out of a dead end: the words placed last are taken back one at a
// time until one of their slots takes another word.

#include "grid/events.h"
#include "grid/masks.h"
#include "solver/fill.h"
#include "solver/solution_record.h"

namespace {

constexpr int kMostSteps = 100;

}  // namespace

Fill::BacktrackResult Fill::Backtrack(const Slot& failed) {
  for (int step = 1; step <= kMostSteps; ++step) {
    LogLine(state_, host_, [&] {
      return "no solution:" + RowAndColumn(failed.first) + " " +
             static_cast<char>(failed.direction);
    });
    if (state_.List6.empty()) break;
    const Placement last = state_.List6.back();
    LogLine(state_, host_, [&] { return "last valid word: " + last.Text(); });
    Poll(state_, host_);
    TakeBack(last);
    // Kept: the newest placement is taken back without a retry, its word
    // stays used, and the retry happens one placement further back.
    const auto& used = state_.List1.Read<UsedWord>();
    if (!used.empty() && used.back().word == last.word) {
      state_.List6.pop_back();
      continue;
    }
    if (const auto result = Retry(last)) return *result;
  }
  return BacktrackResult::Unchanged;
}

// Empties the cells that a placement alone had filled.
void Fill::TakeBack(const Placement& last) {
  const std::string cells = CellsOfMask(last.mask);
  WriteSlot(state_, last.first, last.direction, cells);
  DrawSlot(state_, last.first, last.direction, cells);
}

// Fills the slot of a placement with another word; nothing when backing out
// has to go on.
std::optional<Fill::BacktrackResult> Fill::Retry(const Placement& last) {
  matcher_->UseWord(last.word, true);
  state_.redoMode = true;
  auto& matches = state_.List3.As<Candidate>();
  matcher_->FindMatches(last.mask, matches);
  if (matches.empty()) {
    LogLine(state_, host_, [&] {
      return "no alternatives for mask, go back one step: " +
             std::string(last.mask.View());
    });
    state_.List6.pop_back();
    return std::nullopt;
  }
  LogLine(state_, host_, [&] {
    return Str(static_cast<long>(matches.size())) +
           " options for retry:" + RowAndColumn(last.first) +
           static_cast<char>(last.direction) + " " +
           std::string(last.mask.View());
  });
  SolveSlot(last.first, last.direction);
  LogLine(state_, host_, [&] {
    return "tried:" + RowAndColumn(last.first) +
           " with:" + state_.List1.Read<UsedWord>().back().Text();
  });
  Poll(state_, host_);
  // The run ends here as it does at every other poll.
  if (state_.haltRequested) return BacktrackResult::Halted;
  if (state_.fillFailed) return std::nullopt;
  return BacktrackResult::Refilled;
}
