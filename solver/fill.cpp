#include "solver/fill.h"

#include <algorithm>

#include "grid/drawing.h"
#include "grid/events.h"
#include "grid/masks.h"
#include "grid/new_grid.h"
#include "grid/slot_lengths.h"
#include "grid/slots.h"
#include "solver/census.h"
#include "solver/solution_record.h"

namespace {

// Only Halt stays usable.
void KeepSolutionFrame(State& state) {
  DisableFrames(state);
  state.frames.SolutionFrame = true;
}

}  // namespace

Fill::Fill(State& state, const WordTable& words, Host& host)
    : state_(state), words_(words), host_(host) {}

FillReport Fill::Solve(StartLocation start) {
  if (Prepare(start))
    report_.outcome = RunMainLoop();
  else
    EnableFrames(state_);
  return report_;
}

bool Fill::Prepare(StartLocation start) {
  if (state_.BlackSquareCount == 0) {
    host_.Tell("Place black sqaures first");
    return false;
  }
  if (!LengthsFit()) return false;
  state_.haltRequested = false;
  if (start == StartLocation::Resume)
    DropWhatIsNoSlot();
  else if (!ClearForRun())
    return false;
  matcher_.emplace(state_, words_);
  around_.clear();
  const int slots = static_cast<int>(state_.SlotCells.Slots().size());
  for (int i = 0; i < slots; ++i)
    around_.push_back(SlotsAround(state_.SlotCells, i));
  if (start == StartLocation::Random) StartAtRandom();
  if (start == StartLocation::Specified) return StartWhereSpecified();
  return true;
}

bool Fill::LengthsFit() {
  Host& host = host_;
  host.Pointer(PointerShape::Hourglass);
  auto& runs = state_.List2.Refill<SlotRow>();
  for (const Slot& slot : FindSlots(state_, 2)) runs.push_back({slot, {}});
  DifficultyGauge(state_, host);
  state_.logEnabled = false;
  KeepSolutionFrame(state_);
  BuildSlotList(state_, host);
  RedrawAllCells(state_);
  if (CheckSlotLengths(state_) == 0) return true;
  host.Pointer(PointerShape::Normal);
  host.Tell("Words at cells highlighted are of length <3 OR >20" +
            std::string(kLineBreak) + "Fix this problem and restart");
  return false;
}

// Empties the grid and takes the census.
bool Fill::ClearForRun() {
  ClearLetters();
  host_.Pointer(PointerShape::Hourglass);
  ShowSolutionProgress(state_);
  const bool sound = TakeCensus(state_, words_, host_);
  host_.Pointer(PointerShape::Normal);
  return sound;
}

// Empties the grid; the frames, which that enables, stay disabled.
void Fill::ClearLetters() {
  ClearWords(state_, host_);
  KeepSolutionFrame(state_);
}

// Forgets what the stopped fill holds of slots that are no more since black
// squares were set by hand.
void Fill::DropWhatIsNoSlot() {
  const auto isGone = [&](Pos first, Direction direction, int length) {
    const Slot* slot = state_.SlotCells.At(first, direction);
    return !slot || slot->length != length;
  };
  std::erase_if(state_.List6, [&](const Placement& row) {
    return isGone(row.first, row.direction, row.word.Size());
  });
  std::erase_if(state_.List5.As<CountRow>(), [&](const CountRow& row) {
    return isGone(row.slot.first, row.slot.direction, row.slot.length);
  });
}

void Fill::StartAtRandom() {
  const auto& census = state_.List3.Read<CensusRow>();
  if (census.empty()) return;
  result_ = census.front().key;
  // Kept: the draw goes one entry beyond those that tie with the first.
  int count = 1;
  for (const CensusRow& row : census) count += row.key == result_;
  const int drawn = count == 1 ? 1 : RandomUpTo(host_, count);
  const int last = static_cast<int>(census.size());
  const CensusRow& chosen = census[std::min(drawn, last) - 1];
  state_.List5.Refill<CountRow>().push_back({chosen.key, chosen.slot, {}});
}

bool Fill::StartWhereSpecified() {
  const std::string answer = UpperCase(Trimmed(host_.AskText(
      "Enter clue number to start a solution" + std::string(kLineBreak) +
          "For example: 22A or 11D etc ",
      "Specify where to start a solution", "")));
  if (answer.empty()) return false;
  auto& start = state_.List5.Refill<CountRow>();
  for (const CensusRow& row : state_.List3.Read<CensusRow>()) {
    const Pos p = row.slot.first;
    const std::string label = std::to_string(state_.CellNumbers[p.row][p.col]) +
                              static_cast<char>(row.slot.direction);
    if (label == answer) start.assign(1, {row.key, row.slot, {}});
  }
  if (!start.empty()) return true;
  host_.Tell("No such clue: " + answer);
  return false;
}

FillOutcome Fill::RunMainLoop() {
  state_.redoMode = false;
  triesLimit_ = 4 * state_.GridSize;
  int pacer = 0;
  while (true) {
    ++tries_;
    pacer += 2;
    if (pacer >= state_.GridSize) {
      pacer = 0;
      ShowSolutionProgress(state_);
    }
    if (TriesAreUp()) return End(FillOutcome::Stopped);
    host_.Pointer(PointerShape::Hourglass);
    CountRow failed;
    if (const auto outcome = FillUntilFailure(failed)) return End(*outcome);
    if (const auto outcome = BackOut(failed)) return End(*outcome);
  }
}

// Asks from time to time whether to go on; true when the user does not.
bool Fill::TriesAreUp() {
  if (triesLimit_ <= 0 || tries_ < triesLimit_) return false;
  const std::string lineBreak(kLineBreak);
  host_.Pointer(PointerShape::Normal);
  const TriesAnswer answer =
      host_.AskTries("Tried" + Str(tries_) + " times" + lineBreak +
                     "Abort = stop solution" + lineBreak + "Retry = continue" +
                     lineBreak + "Ignore = continue with unlimited tries");
  result_ = static_cast<int>(answer);
  if (answer == TriesAnswer::Abort) return true;
  if (answer == TriesAnswer::Ignore) triesLimit_ = -1;
  tries_ = 0;
  return false;
}

// Fills slot after slot; ends with an outcome, or with the row of the slot
// that could not be filled.
std::optional<FillOutcome> Fill::FillUntilFailure(CountRow& failed) {
  do {
    if (state_.List5.As<CountRow>().empty()) {
      RefreshMaskList(state_);
      result_ = matcher_->CountMaskMatches();
      if (state_.List5.As<CountRow>().empty()) return FillOutcome::Completed;
    }
    failed = state_.List5.As<CountRow>().front();
    SolveSlot(failed.slot.first, failed.slot.direction);
    Poll(state_, host_);
    if (state_.haltRequested) return FillOutcome::Halted;
  } while (!state_.fillFailed);
  return std::nullopt;
}

// Takes placements back after a slot failed; ends with an outcome when the
// run is over.
std::optional<FillOutcome> Fill::BackOut(const CountRow& failed) {
  state_.redoMode = true;
  ++report_.backtracks;
  switch (Backtrack(failed.slot)) {
    case BacktrackResult::Unchanged:
      break;
    case BacktrackResult::Refilled:
      result_ = 0;
      break;
    case BacktrackResult::Halted:
      return FillOutcome::Halted;
  }
  if (result_ != 0) {
    // Start again on an empty grid from the slot that failed.
    ClearLetters();
    matcher_->ForgetUsedWords();
    state_.List5.As<CountRow>().push_back(failed);
    return std::nullopt;
  }
  RefreshMaskList(state_);
  if (state_.List2.Read<SlotRow>().empty()) return FillOutcome::Completed;
  auto& counts = state_.List5.As<CountRow>();
  if (counts.empty()) {
    const SlotRow next = state_.List2.Read<SlotRow>().front();
    result_ = matcher_->CountMaskMatches();
    counts.insert(counts.begin(), {0, next.slot, *next.mask});
    std::ranges::sort(counts);
  }
  LogLine(state_, host_, [&] {
    return "backtrack worked, continue with:" + counts.front().Text();
  });
  return std::nullopt;
}

FillOutcome Fill::End(FillOutcome outcome) {
  if (outcome == FillOutcome::Halted) {
    state_.haltRequested = false;
    state_.ProgBar.Caption = "";
    state_.ProgBar.Value = 0;
  }
  EnableFrames(state_);
  host_.Pointer(PointerShape::Normal);
  if (outcome == FillOutcome::Completed) {
    ShowSolutionProgress(state_);
    host_.Tell("Solution completed");
  }
  return outcome;
}
