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
