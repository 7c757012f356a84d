#include "grid/drawing.h"

namespace {

int PictureSize(const State& state) {
  return state.GridSize * CellSize + 100;
}

}  // namespace

void FitGridView(State& state) {
  constexpr int kCellsInView = 21;
  state.PictureSize = PictureSize(state);
  if (state.GridSize < kCellsInView + 2) {
    state.HScroll1.Enabled = state.VScroll1.Enabled = false;
    return;
  }
  const int beyond = (state.GridSize - kCellsInView) * CellSize;
  state.VScroll1 = {beyond, CellSize, 5 * CellSize, 0, true};
  state.HScroll1 = state.VScroll1;
}

void DrawGridLines(State& state, Picture& picture) {
  state.PictureSize = PictureSize(state);
  picture.Clear();
  state.HScroll1.Value = state.VScroll1.Value = 0;
  picture.GridLines(state.GridSize);
}

void DrawCell(const State& state, Picture& picture, Pos cell, Colour colour) {
  picture.FillCell(cell, colour);
  DrawCellText(state, picture, cell, state.Grid[cell]);
}

void DrawCellText(const State& state, Picture& picture, Pos cell, char letter) {
  // A cell that has just become black may still have its number.
  const int number =
      state.IsBlack(cell) ? 0 : state.CellNumbers[cell.row][cell.col];
  picture.CellText(cell, number, letter);
}

void RedrawAllCells(const State& state, Picture& picture) {
  ForEachCell(state.GridSize,
              [&](Pos p) { DrawCellText(state, picture, p, state.Grid[p]); });
}

void ClearHighlights(const State& state, Picture& picture) {
  ForEachCell(state.GridSize, [&](Pos p) {
    if (!state.IsBlack(p)) DrawCell(state, picture, p, ColourBackground);
  });
}
