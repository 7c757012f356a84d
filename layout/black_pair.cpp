#include "layout/black_pair.h"

#include "grid/drawing.h"

namespace {

constexpr Pos kSteps[] = {{0, -1}, {0, 1}, {-1, 0}, {1, 0}};

Pos Step(Pos p, Pos step, int count) {
  return {p.row + count * step.row, p.col + count * step.col};
}

// Whether a square here would leave two white cells between it and another.
bool ClosesRunOfTwo(const State& state, Pos cell) {
  for (Pos step : kSteps) {
    if (state.Grid[Step(cell, step, 1)] == kEmptyCell &&
        state.Grid[Step(cell, step, 2)] == kEmptyCell &&
        state.IsBlack(Step(cell, step, 3)))
      return true;
  }
  return false;
}

bool IsBoxedIn(const State& state, Pos cell) {
  for (Pos step : kSteps)
    if (!state.IsBlack(Step(cell, step, 1))) return false;
  return true;
}

bool AnyCellBoxedIn(const State& state) {
  for (int row = 1; row <= state.GridSize; ++row)
    for (int col = 1; col <= state.GridSize; ++col)
      if (IsBoxedIn(state, {row, col})) return true;
  return false;
}

void SetPair(State& state, Pos cell, char content) {
  state.Grid[cell] = content;
  state.Grid[Mirror(cell, state.GridSize)] = content;
}

void DrawPair(State& state, Pos cell, Colour colour) {
  DrawCell(state, cell, colour);
  DrawCell(state, Mirror(cell, state.GridSize), colour);
}

}  // namespace

bool CanPlaceBlack(State& state, Pos cell) {
  if (state.Grid[cell] != kEmptyCell ||
      state.Grid[Mirror(cell, state.GridSize)] != kEmptyCell ||
      ClosesRunOfTwo(state, cell))
    return false;
  SetPair(state, cell, kBlackSquare);
  const bool boxes = AnyCellBoxedIn(state);
  SetPair(state, cell, kEmptyCell);
  return !boxes;
}

bool TryPlaceBlack(State& state, Pos cell) {
  if (!CanPlaceBlack(state, cell)) return false;
  SetPair(state, cell, kBlackSquare);
  DrawPair(state, cell, ColourBlackSquare);
  return true;
}

void RemoveBlackPair(State& state, Pos cell) {
  SetPair(state, cell, kEmptyCell);
  DrawPair(state, cell, ColourBackground);
}
