#include "grid/new_grid.h"

#include <algorithm>
#include <cmath>

#include "grid/drawing.h"
#include "grid/events.h"
#include "grid/masks.h"
#include "grid/slots.h"

namespace {

constexpr int kSmallestGridSize = 5;

int SizeInRange(int typed) {
  return std::clamp(typed, 0, MaxGridSize);
}

// The share of a number of black squares, in whole percent.
int Percent(double count, int gridSize) {
  constexpr double kMost = 1e6;
  const int cells = gridSize * gridSize;
  if (cells == 0) return 0;
  return static_cast<int>(
      std::floor(std::clamp(100 * count / cells, -kMost, kMost)));
}

}  // namespace

void NewGrid(State& state, Host& host) {
  host.Pointer(PointerShape::Hourglass);
  const int size = ValToInt(state.Text3);
  state.GridSize = SizeInRange(size);
  if (size < kSmallestGridSize || size > MaxGridSize) {
    state.GridSize = DefaultGridSize;
    state.Text3 = std::to_string(DefaultGridSize);
    FitGridView(state);
  }
  state.Label1 = "";
  state.WordProg.Value = 0;
  state.fillFailed = false;
  DrawGridLines(state);
  state.Grid = CellGrid();
  state.gridIsNew = true;
  ForEachCell(state.GridSize, [&](Pos p) {
    state.Grid[p] = kEmptyCell;
    state.CellNumbers[p.row][p.col] = 0;
    DrawCellText(state, p, kEmptyCell);
  });
  ClearLists(state);
  EnableFrames(state);
  host.Pointer(PointerShape::Normal);
}

void ShowGrid(State& state, Host& host) {
  ClearLists(state);
  state.Text3 = Str(state.GridSize);
  BuildSlotList(state, host);
  DrawGridLines(state);
  RunEvents(state, host);
  ForEachCell(state.GridSize, [&](Pos p) {
    DrawCellText(state, p, state.Grid[p]);
    if (state.IsBlack(p)) DrawCell(state, p, ColourBlackSquare);
  });
  CountBlackSquares(state);
  BuildMaskList(state);
  state.WordProg.Value = state.ProgBar.Value = 0;
  state.WordProg.Caption = state.ProgBar.Caption = "";
  DifficultyGauge(state, host);
  EnableFrames(state);
}

void ClearWords(State& state, Host& host) {
  host.Pointer(PointerShape::Hourglass);
  state.Label1 = "";
  state.Text2 = "";
  ForEachCell(state.GridSize, [&](Pos p) {
    state.CellNumbers[p.row][p.col] = 0;
    const bool black = state.IsBlack(p);
    if (!black) state.Grid[p] = kEmptyCell;
    DrawCell(state, p, black ? ColourBlackSquare : ColourBackground);
  });
  ClearLists(state);
  CountBlackSquares(state);
  BuildSlotList(state, host);
  RedrawAllCells(state);
  EnableFrames(state);
  state.WordProg.Value = state.ProgBar.Value = 0;
  state.WordProg.Caption = state.ProgBar.Caption = "";
  state.fillFailed = false;
  host.Pointer(PointerShape::Normal);
}

void CountBlackSquares(State& state) {
  int count = 0;
  ForEachCell(state.GridSize, [&](Pos p) { count += state.IsBlack(p); });
  state.Text2 = Str(count);
  state.Label2 = ShareText(Percent(count, state.GridSize));
  state.BlackSquareCount = count;
}

void EditGridSize(State& state, std::string_view text) {
  state.Text3 = text;
  state.GridSize = SizeInRange(ValToInt(text));
  state.Label2 = "";
  state.Text2 = "";
}

void LeaveGridSize(State& state) {
  const int half = static_cast<int>(std::floor(ValToInt(state.Text3) / 2.0));
  const int odd = half * 2 + 1;
  state.GridSize = SizeInRange(odd);
  state.Text3 = std::to_string(odd);
}

void EditBlackSquareCount(State& state, std::string_view text) {
  state.Text2 = text;
  state.Label2 = ShareText(Percent(Val(text), state.GridSize));
}

std::string ShareText(int percent) {
  return " =" + Str(percent) + "%";
}
