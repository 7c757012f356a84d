#include "grid/drawing.h"

#include "base/utf8.h"

namespace {

// A cell's letter as it is painted.
std::string TextOf(char letter) {
  if (letter == kEmptyCell || letter == kBlackSquare || letter == kNoCell)
    return "";
  return FromLatin1(std::string_view(&letter, 1));
}

// A cell that has just become black may still have its number.
int NumberOf(const State& state, Pos cell) {
  return state.IsBlack(cell) ? 0 : state.CellNumbers[cell.row][cell.col];
}

}  // namespace

void FitGridView(State& state) {
  constexpr int kCellsInView = 21;
  state.PictureSize = PictureSide(state.GridSize);
  if (state.GridSize < kCellsInView + 2) {
    state.HScroll1.Enabled = state.VScroll1.Enabled = false;
    return;
  }
  const int beyond = (state.GridSize - kCellsInView) * CellSize;
  state.VScroll1 = {beyond, CellSize, 5 * CellSize, 0, true};
  state.HScroll1 = state.VScroll1;
}

void DrawGridLines(State& state) {
  state.PictureSize = PictureSide(state.GridSize);
  state.HScroll1.Value = state.VScroll1.Value = 0;
  state.paint = Paint(state.GridSize, state.GridSize);
}

void DrawCell(State& state, Pos cell, Colour colour) {
  if (!Paint::Holds(cell)) return;
  state.paint[cell] = {colour, true};
  DrawCellText(state, cell, state.Grid[cell]);
}

void DrawCellText(State& state, Pos cell, char letter) {
  if (!Paint::Holds(cell)) return;
  state.paint[cell].number = NumberOf(state, cell);
  state.paint[cell].text = TextOf(letter);
}

void RedrawAllCells(State& state) {
  ForEachCell(state.GridSize,
              [&](Pos p) { DrawCellText(state, p, state.Grid[p]); });
}

void ClearHighlights(State& state) {
  ForEachCell(state.GridSize, [&](Pos p) {
    if (!state.IsBlack(p)) DrawCell(state, p, ColourBackground);
  });
}

Paint PaintOf(const State& state, bool letters) {
  Paint paint(state.GridSize, state.GridSize);
  ForEachCell(state.GridSize, [&](Pos p) {
    CellPaint& cell = paint[p];
    if (state.IsBlack(p)) cell.fill = ColourBlackSquare;
    cell.number = NumberOf(state, p);
    if (letters) cell.text = TextOf(state.Grid[p]);
  });
  return paint;
}
