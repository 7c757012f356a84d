#include "files/draw_paint.h"

#include <algorithm>

namespace {

constexpr int kLineWidth = 15;
constexpr int kBarReach = 20;  // of a bar beyond its line, to every side
constexpr int kCircleInset = 15;
constexpr TextStyle kNumberStyle{6, false, true};
// As a letter of 20 points in Courier New at (85, 60) looks: the fonts that
// stand for it have larger capitals, which would run into the clue number.
constexpr TextStyle kLetterStyle{17.3, true, true};
constexpr int kLetterLeft = 101, kLetterTop = 92;
constexpr int kLetterMiddle = 275;  // of its line, down from the cell's top

template <class Visit>
void ForEachCell(const Paint& paint, Visit visit) {
  for (int row = 1; row <= paint.height; ++row)
    for (int col = 1; col <= paint.width; ++col)
      visit(Pos{row, col}, paint[{row, col}]);
}

Box BoxOf(Pos cell) {
  const int left = (cell.col - 1) * CellSize + GridMargin;
  const int top = (cell.row - 1) * CellSize + GridMargin;
  return {left, top, left + CellSize, top + CellSize};
}

Box Grown(const Box& box, int by) {
  return {box.left - by, box.top - by, box.right + by, box.bottom + by};
}

// Bars end where the lines of the grid do.
void DrawBars(const Paint& paint, Pos p, Canvas& canvas) {
  constexpr int kHalfLine = kLineWidth / 2;
  constexpr int kFirst = GridMargin - kHalfLine;
  const int right = GridMargin + paint.width * CellSize + kHalfLine;
  const int bottom = GridMargin + paint.height * CellSize + kHalfLine;
  const auto draw = [&](const Box& edge) {
    const Box bar = Grown(edge, kHalfLine + kBarReach);
    canvas.Fill({std::max(bar.left, kFirst), std::max(bar.top, kFirst),
                 std::min(bar.right, right), std::min(bar.bottom, bottom)},
                ColourBlackSquare);
  };
  const Box box = BoxOf(p);
  if (paint[p].barRight) draw({box.right, box.top, box.right, box.bottom});
  if (paint[p].barBelow) draw({box.left, box.bottom, box.right, box.bottom});
}

// A circle parts before the number.
void DrawCircle(const Paint& paint, Pos p, Canvas& canvas) {
  canvas.Circle(Grown(BoxOf(p), -kCircleInset), ColourBlackSquare, kLineWidth);
  if (paint[p].number > 0)
    canvas.Fill(Grown(NumberBox(paint, p), kLineWidth / 2), paint[p].fill);
}

// A letter stands where it always did; more than one is made to fit.
void DrawText(Pos p, const CellPaint& cell, Canvas& canvas) {
  const std::string& text = cell.text;
  const int x = (p.col - 1) * CellSize, y = (p.row - 1) * CellSize;
  const int letter = canvas.TextWidth("M", kLetterStyle);
  const int width = canvas.TextWidth(text, kLetterStyle);
  if (width <= letter) {
    canvas.Text(x + kLetterLeft, y + kLetterTop, text, kLetterStyle);
    return;
  }
  const int room = CellSize - kLineWidth - 2 * TextInset(cell);
  constexpr double kLineHeight = 1.13 * 20;  // twips to a point
  TextStyle style = kLetterStyle;
  style.points *= std::min(1.0, double(room) / width);
  const int fitted = canvas.TextWidth(text, style);
  canvas.Text(x + GridMargin + (CellSize - fitted) / 2,
              y + kLetterMiddle - int(style.points * kLineHeight / 2), text,
              style);
}

}  // namespace

void DrawPaint(const Paint& paint, Canvas& canvas) {
  ForEachCell(paint, [&](Pos p, const CellPaint& cell) {
    if (cell.outlined) canvas.Outline(BoxOf(p), ColourBlackSquare, kLineWidth);
  });
  ForEachCell(paint, [&](Pos p, const CellPaint& cell) {
    if (cell.fill == ColourBackground) return;
    canvas.Fill(BoxOf(p), cell.fill);
    canvas.Outline(BoxOf(p), ColourBlackSquare, kLineWidth);
  });
  ForEachCell(paint, [&](Pos p, const CellPaint& cell) {
    if (cell.circled) DrawCircle(paint, p, canvas);
  });
  ForEachCell(paint,
              [&](Pos p, const CellPaint&) { DrawBars(paint, p, canvas); });
  ForEachCell(paint, [&](Pos p, const CellPaint& cell) {
    const Box number = NumberBox(paint, p);
    if (cell.number > 0)
      canvas.Text(number.left, number.top, std::to_string(cell.number),
                  kNumberStyle);
    if (!cell.text.empty()) DrawText(p, cell, canvas);
  });
}
