// The step-by-step fill.
//
// The slot with the fewest words is always filled next, with the word that
// leaves the slots around it the most choices; a slot that no word fits
// makes the fill take back the words placed last.
//
//   Solve           checks the grid, picks the start slot
//     RunMainLoop   fill, back out, ask, until complete or stopped
//       SolveSlot   tries every candidate of a slot, keeps the best
//       Backtrack   takes back placements until one can be replaced

#pragma once

#include <optional>
#include <vector>

#include "dictionary/word_table.h"
#include "grid/state.h"
#include "solver/matcher.h"

enum class StartLocation { Random, Specified, Resume };

enum class FillOutcome {
  Completed,
  Stopped,  // the user chose Abort
  Halted,   // the user pressed Halt
  Refused,  // a check failed or no start was named
};

struct FillReport {
  FillOutcome outcome = FillOutcome::Refused;
  int slotsSolved = 0;
  int candidatesTried = 0;
  int backtracks = 0;
};

class Fill {
 public:
  Fill(State& state, const WordTable& words, Host& host);

  FillReport Solve(StartLocation start);

 private:
  enum class BacktrackResult {
    Unchanged,  // no placement was left, or the step limit was reached
    Refilled,
    Halted,
  };

  // Run control (fill.cpp).
  bool Prepare(StartLocation start);
  bool LengthsFit();
  bool ClearForRun();
  void ClearLetters();
  void DropWhatIsNoSlot();
  void StartAtRandom();
  bool StartWhereSpecified();
  FillOutcome RunMainLoop();
  bool TriesAreUp();
  std::optional<FillOutcome> FillUntilFailure(CountRow& failed);
  std::optional<FillOutcome> BackOut(const CountRow& failed);
  FillOutcome End(FillOutcome outcome);

  // One slot (solve_slot.cpp).
  void SolveSlot(Pos first, Direction direction);
  std::optional<int> BestCandidate(Pos first, Direction direction);
  void Place(const Candidate& best, const Mask& mask, Pos first,
             Direction direction);
  void GiveUp(const Mask& mask, Pos first, Direction direction);
  int CountAround(Pos first, Direction direction);

  // Backing out (backtrack.cpp).
  BacktrackResult Backtrack(const Slot& failed);
  void TakeBack(const Placement& last);
  std::optional<BacktrackResult> Retry(const Placement& last);

  State& state_;
  const WordTable& words_;
  Host& host_;
  std::optional<Matcher> matcher_;        // made when the checks have passed
  std::vector<std::vector<int>> around_;  // by slot: those around it

  int tries_ = 0;
  int triesLimit_ = 0;  // -1: the user does not want to be asked again
  // Kept: one variable holds in turn the start key, the answer of the tries
  // dialog, the failed slot of a count and the result of backtracking; what
  // is not 0 after backtracking counts as its failure.
  int result_ = 0;
  FillReport report_;
};
