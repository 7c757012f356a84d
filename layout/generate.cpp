#include "layout/generate.h"

#include "grid/drawing.h"
#include "grid/events.h"
#include "grid/masks.h"
#include "grid/new_grid.h"
#include "grid/slots.h"
#include "layout/black_pair.h"
#include "layout/check_grid.h"
#include "layout/split.h"

namespace {

// The default share of black squares, in percent.
int DensityPercent(int gridSize) {
  switch (gridSize) {
    case 9:
      return 15;
    case 11:
      return 17;
    case 13:
      return 20;
    case 15:
      return 24;
    case 17:
      return 26;
    case 19:
      return 28;
    default:
      return gridSize < 9 ? 10 : 30;
  }
}

// Makes what lies around the grid black, so that its edges count as black
// squares do.
void BlackenMargin(State& state) {
  const int n = state.GridSize;
  for (int row = -2; row <= n + 2; ++row)
    for (int col = -2; col <= n + 2; ++col)
      if (row < 1 || row > n || col < 1 || col > n)
        state.Grid[{row, col}] = kBlackSquare;
}

void StartLayout(State& state, Host& host) {
  state.Caption = "New Puzzle";
  NewGrid(state, host);
  host.Pointer(PointerShape::Hourglass);
  state.ProgBar.Value = 0;
  state.ProgBar.Caption = "Setting Black Squares";
  DisableFrames(state);
  state.haltRequested = false;
  BlackenMargin(state);
  FitGridView(state);
}

// Sets the number of black squares wanted: that of Text2, or else the
// default.
void SetTarget(State& state, Host& host, int defaultTarget, int percent) {
  state.BlackTarget = ValToInt(state.Text2);
  if (state.BlackTarget == 0) {
    state.BlackTarget = defaultTarget;
    state.Text2 = Str(defaultTarget);
    state.Label2 = ShareText(percent);
  }
  if (state.BlackTarget < 1) state.BlackTarget = 5;
  if (state.GridSize * state.GridSize >= 2 * state.BlackTarget) return;
  host.Pointer(PointerShape::Normal);
  host.Tell("Black squares will occupy more than 50% of the grid!");
  host.Pointer(PointerShape::Hourglass);
}

bool TargetReached(State& state) {
  CountBlackSquares(state);
  return state.BlackSquareCount >= state.BlackTarget;
}

// The pass counter of the splitting loops, 0..100 over and over.
void CountPass(State& state) {
  state.ProgBar.Value = state.ProgBar.Value < 100 ? state.ProgBar.Value + 1 : 0;
}

// Tries a square in every second row and column from the first; whether the
// target was reached.
bool ScatterOverLines(State& state, Host& host, int first) {
  const int n = state.GridSize;
  for (int i = first; i <= n; i += 2) {
    // A refusal is passed over.
    (void)TryPlaceBlack(state, {i, RandomUpTo(host, n)});
    if (TargetReached(state)) return true;
    (void)TryPlaceBlack(state, {RandomUpTo(host, n), i});
    if (TargetReached(state)) return true;
    state.ProgBar.Value = i;
  }
  Poll(state, host);
  return state.haltRequested;
}

// Looks for input after a pass; where no pass can place a square any more,
// only Halt ends the task.
void PollAfterPass(State& state, Host& host, bool placed) {
  if (!placed && !CanSplitSlot(state))
    AwaitHalt(state, host, "no further black square can be placed");
  else
    Poll(state, host);
}

// Splits slots until the target is reached.
void SplitToTarget(State& state, Host& host) {
  state.ProgBar.Value = 0;
  state.ProgBar.Max = 100;
  host.Pointer(PointerShape::Hourglass);
  while (!state.haltRequested) {
    BuildMaskList(state);
    if (TargetReached(state)) return;
    const bool placed = SplitLongestSlot(state, host).has_value();
    CountPass(state);
    PollAfterPass(state, host, placed);
  }
}

void FinishLayout(State& state, Host& host) {
  CountBlackSquares(state);
  BuildSlotList(state, host);
  RedrawAllCells(state);
  EnableFrames(state);
  state.haltRequested = false;
  state.ProgBar.Value = 0;
  state.ProgBar.Caption = "";
  DifficultyGauge(state, host);
  host.Pointer(PointerShape::Normal);
  host.Tell(Str(state.BlackSquareCount) + " Squares and" + state.Label1 +
            " Clues");
}

// Places a square at every even row and column; false when halted.
bool PlaceLattice(State& state, Host& host) {
  for (int row = 2; row <= state.GridSize; row += 2) {
    for (int col = 2; col <= state.GridSize; col += 2) {
      // A mirror that is already there is passed over.
      (void)TryPlaceBlack(state, {row, col});
      Poll(state, host);
      if (state.haltRequested) return false;
    }
  }
  return true;
}

// Splits once and takes the split back, for good, when it divides the grid
// or shuts cells in.  Without a split there is nothing to check.
void SplitSoundly(State& state, Host& host) {
  const auto cell = SplitLongestSlot(state, host);
  if (cell && CheckGrid(state, host, true) > kUncrossed) {
    state.List3.As<Pos>().push_back(*cell);
    RemoveBlackPair(state, *cell);
  }
  // The check empties the ring around the grid and enables the frames.
  BlackenMargin(state);
  DisableFrames(state);
  CountPass(state);
  PollAfterPass(state, host, cell.has_value());
}

int LongestOpenSlot(const State& state) {
  const auto& rows = state.List2.Read<SlotRow>();
  return rows.empty() ? 0 : rows.back().slot.length;
}

void SplitToWordLengths(State& state, Host& host) {
  state.List3.Refill<Pos>();
  state.ProgBar.Value = 0;
  state.ProgBar.Caption = "Splitting to word lengths";
  CountBlackSquares(state);
  while (!state.haltRequested) {
    BuildMaskList(state);
    if (LongestOpenSlot(state) <= LongestWordLength) return;
    SplitSoundly(state, host);
  }
}

void SplitSoundlyToTarget(State& state, Host& host) {
  state.List3.Refill<Pos>();
  state.ProgBar.Value = 0;
  state.ProgBar.Caption = "Plce remaining black squares";
  while (!state.haltRequested) {
    BuildMaskList(state);
    if (TargetReached(state)) return;
    SplitSoundly(state, host);
  }
}

}  // namespace

void RandomBlackSquares(State& state, Host& host) {
  StartLayout(state, host);
  const int n = state.GridSize;
  const int percent = DensityPercent(n);
  SetTarget(state, host, n * RoundedQuotient(n * percent, 100) - 1, percent);
  state.ProgBar.Max = n / 2 + 1;
  const bool done =
      ScatterOverLines(state, host, 2) || ScatterOverLines(state, host, 1);
  if (!done) SplitToTarget(state, host);
  FinishLayout(state, host);
}

void TwoByTwoLayout(State& state, Host& host) {
  constexpr int kPercent = 30;
  StartLayout(state, host);
  const int n = state.GridSize;
  SetTarget(state, host, n * n * kPercent / 100 - 1, kPercent);
  if (PlaceLattice(state, host) &&
      host.AskYesNo("2x2 Squares done, split remaining?")) {
    SplitToWordLengths(state, host);
    SplitSoundlyToTarget(state, host);
  }
  FinishLayout(state, host);
}
