#include "files/canvas_picture.h"

#include "grid/drawing.h"

namespace {

constexpr int kLineWidth = 15;
constexpr TextStyle kNumberStyle{6, false, true};
// As a letter of 20 points in Courier New at (85, 60) looks: the fonts that
// stand for it have larger capitals, which would run into the clue number.
constexpr TextStyle kLetterStyle{17.3, true, true};
constexpr int kLetterLeft = 101, kLetterTop = 92;

Box BoxOf(Pos cell) {
  const int left = (cell.col - 1) * CellSize + GridMargin;
  const int top = (cell.row - 1) * CellSize + GridMargin;
  return {left, top, left + CellSize, top + CellSize};
}

}  // namespace

void CanvasPicture::GridLines(int n) {
  ForEachCell(n, [&](Pos p) {
    canvas_.Outline(BoxOf(p), ColourBlackSquare, kLineWidth);
  });
}

void CanvasPicture::FillCell(Pos cell, Colour colour) {
  canvas_.Fill(BoxOf(cell), colour);
  canvas_.Outline(BoxOf(cell), ColourBlackSquare, kLineWidth);
}

void CanvasPicture::CellText(Pos cell, int number, char letter) {
  const int x = (cell.col - 1) * CellSize, y = (cell.row - 1) * CellSize;
  if (number > 0)
    canvas_.Text(x + 50, y + 40, std::to_string(number), kNumberStyle);
  if (letter != kEmptyCell && letter != kBlackSquare && letter != kNoCell)
    canvas_.Text(x + kLetterLeft, y + kLetterTop, std::string_view(&letter, 1),
                 kLetterStyle);
}

void DrawPuzzle(const State& state, Picture& picture, bool letters) {
  picture.Clear();
  picture.GridLines(state.GridSize);
  ForEachCell(state.GridSize, [&](Pos p) {
    if (state.IsBlack(p)) picture.FillCell(p, ColourBlackSquare);
  });
  ForEachCell(state.GridSize, [&](Pos p) {
    DrawCellText(state, picture, p, letters ? state.Grid[p] : kEmptyCell);
  });
}
