#include "puzzle/paint.h"

#include "puzzle/numbering.h"

namespace {

CellPaint PaintOfWhite(const Cell& cell, int number, bool letters) {
  CellPaint paint;
  paint.outlined = true;
  paint.fill = cell.shade.value_or(ColourBackground);
  paint.number = number;
  if (letters || cell.given) paint.text = cell.solution;
  paint.circled = cell.circled;
  paint.barRight = cell.barRight;
  paint.barBelow = cell.barBelow;
  return paint;
}

}  // namespace

Paint::Paint(int width, int height) : Paint() {
  this->width = width;
  this->height = height;
  for (int row = 1; row <= height; ++row)
    for (int col = 1; col <= width; ++col) (*this)[{row, col}].outlined = true;
}

Box NumberBox(const Paint& paint, Pos p) {
  constexpr int kDigit = 72, kHeight = 115;  // of 6 points, fixed pitch
  constexpr int kBarReach = 14;
  const bool afterBar = p.col > 1 && paint[{p.row, p.col - 1}].barRight;
  const int left = (p.col - 1) * CellSize + 50 + (afterBar ? kBarReach : 0);
  const int top = (p.row - 1) * CellSize + 40;
  const auto digits = std::to_string(paint[p].number).size();
  return {left, top, left + static_cast<int>(digits) * kDigit, top + kHeight};
}

Paint PaintOf(const Document& document, bool letters) {
  const Numbering numbering = NumberEntries(document);
  Paint paint(document.width, document.height);
  for (std::size_t i = 0; i < document.cells.size(); ++i) {
    const Cell& cell = document.cells[i];
    CellPaint& painted = paint[document.PosOf(static_cast<int>(i))];
    if (cell.kind == Cell::Kind::White)
      painted = PaintOfWhite(cell, numbering.numbers[i], letters);
    else if (cell.kind == Cell::Kind::Block)
      painted.fill = ColourBlackSquare;
    else
      painted = {};
  }
  return paint;
}
