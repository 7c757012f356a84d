#include "files/sheet.h"

#include <cmath>

#include "base/utf8.h"
#include "files/title_lines.h"
#include "grid/drawing.h"
#include "grid/events.h"

namespace {

constexpr int kTitleLeft = 750;
constexpr int kGridTop = 500;
constexpr int kNumberLeft = 50, kNumberTop = 40;    // in its cell
constexpr int kLetterLeft = 150, kLetterTop = 120;  // in its cell
constexpr int kLineWidth = 15;
constexpr int kAcrossLeft = 250;
constexpr int kDownLeft = 5500;
constexpr int kHeadingPitch = 322;  // a line of 14 points
constexpr int kListPitch = 227;     // a line of 10 points, fixed pitch
constexpr int kLeastListLines = 3;  // below the grid, or on a page of its own

constexpr double kNumberPoints = 6;
constexpr double kLetterPoints = 14;
constexpr TextStyle kHeadingStyle{14, true, false};
constexpr TextStyle kListStyle{10, false, true};

// The grid on its page, drawn smaller where it has to be.
class GridPlace {
 public:
  GridPlace(int n, const Canvas& canvas)
      : side_(GridMargin + n * CellSize + kLineWidth / 2) {
    scale_ = std::min({1.0, double(canvas.Width()) / side_,
                       double(canvas.Height() - kGridTop) / side_});
  }

  double Scale() const { return scale_; }
  int Side() const { return Scaled(side_); }
  int Scaled(int twips) const {
    return static_cast<int>(std::lround(twips * scale_));
  }
  void MoveTo(int top) { top_ = top; }

  // Positions on the page of what is right and down of a cell's corner.
  int X(Pos cell, int right) const {
    return Scaled((cell.col - 1) * CellSize + right);
  }
  int Y(Pos cell, int down) const {
    return top_ + Scaled((cell.row - 1) * CellSize + down);
  }
  Box BoxOf(Pos cell) const {
    constexpr int kFar = GridMargin + CellSize;
    return {X(cell, GridMargin), Y(cell, GridMargin), X(cell, kFar),
            Y(cell, kFar)};
  }

 private:
  int side_;
  double scale_ = 1;
  int top_ = kGridTop;
};

void DrawOutlines(int n, const GridPlace& place, Canvas& canvas,
                  const CellDrawn& cellDrawn) {
  const int width = std::max(1, place.Scaled(kLineWidth));
  ForEachCell(n, [&](Pos p) {
    canvas.Outline(place.BoxOf(p), ColourBlackSquare, width);
    if (cellDrawn) cellDrawn();
  });
}

void DrawContents(const Paint& paint, SheetMode mode, const GridPlace& place,
                  Canvas& canvas) {
  const TextStyle numberStyle{kNumberPoints * place.Scale(), false, false};
  // Fixed pitch, so that every letter stands in the middle of its cell.
  const TextStyle letterStyle{kLetterPoints * place.Scale(), true, true};
  ForEachCell(paint.width, [&](Pos p) {
    const CellPaint& cell = paint[p];
    if (mode == SheetMode::Full && cell.number > 0)
      canvas.Text(place.X(p, kNumberLeft), place.Y(p, kNumberTop),
                  std::to_string(cell.number), numberStyle);
    if (cell.fill != ColourBackground)
      canvas.Fill(place.BoxOf(p), cell.fill);
    else if (!cell.text.empty())
      canvas.Text(place.X(p, kLetterLeft), place.Y(p, kLetterTop), cell.text,
                  letterStyle);
  });
}

// Draws the lists from a height on, and on further pages below the title.
class ListPages {
 public:
  ListPages(Canvas& canvas, const TitleLines& title, int top)
      : canvas_(canvas), title_(title), top_(top) {}

  void Draw(const std::vector<std::string>& lines) {
    const int least = std::min<int>(kLeastListLines, lines.size());
    if (top_ + kHeadingPitch + least * kListPitch > canvas_.Height())
      GoToNextPage();
    DrawHeadings();
    for (const std::string& line : lines) {
      if (top_ + kListPitch > canvas_.Height()) {
        GoToNextPage();
        DrawHeadings();
      }
      const auto end = line.find_last_not_of(' ') + 1;
      canvas_.Text(0, top_, std::string_view(line).substr(0, end), kListStyle);
      top_ += kListPitch;
    }
  }

 private:
  void GoToNextPage() {
    canvas_.NewPage();
    if (!title_.lines.empty())
      canvas_.Text(kTitleLeft, 0, title_.lines[0], title_.style);
    top_ = kGridTop;
  }
  void DrawHeadings() {
    canvas_.Text(kAcrossLeft, top_, "ACROSS", kHeadingStyle);
    canvas_.Text(kDownLeft, top_, "DOWN", kHeadingStyle);
    top_ += kHeadingPitch;
  }

  Canvas& canvas_;
  const TitleLines& title_;
  int top_;
};

// Draws the title and returns the top of the grid below it.
int DrawTitle(const TitleLines& title, Canvas& canvas) {
  int top = 0, last = 0;
  for (const std::string& line : title.lines) {
    if (top + title.pitch > canvas.Height()) {
      canvas.NewPage();
      top = 0;
    }
    canvas.Text(kTitleLeft, top, line, title.style);
    last = top;
    top += title.pitch;
  }
  return last + kGridTop;
}

}  // namespace

std::vector<std::string> ClueLines(const State& state) {
  constexpr std::size_t kColumns = 120;
  constexpr int kAcrossAt = 0, kDownAt = 44;
  std::vector<std::string> lines;
  std::size_t across = 0, down = 0;
  const auto write = [&](std::size_t line, int column, int number) {
    if (line == lines.size()) lines.emplace_back(kColumns, ' ');
    std::string entry = std::to_string(number);
    if (entry.size() < 3) entry.insert(0, 3 - entry.size(), ' ');
    entry += ". " + std::string(35, '_');
    lines[line].replace(column, entry.size(), entry);
  };
  ForEachCell(state.GridSize, [&](Pos p) {
    const int number = state.CellNumbers[p.row][p.col];
    if (state.SlotCells.At(p, Direction::Across))
      write(across++, kAcrossAt, number);
    if (state.SlotCells.At(p, Direction::Down)) write(down++, kDownAt, number);
  });
  return lines;
}

void DrawSheet(const State& state, SheetMode mode, Canvas& canvas,
               const CellDrawn& cellDrawn) {
  const TitleLines title =
      FitTitle(state.Text5, canvas, canvas.Width() - kTitleLeft);
  const int n = state.GridSize;
  GridPlace place(n, canvas);
  int top = DrawTitle(title, canvas);
  if (top + place.Side() > canvas.Height()) {
    canvas.NewPage();
    top = kGridTop;
  }
  place.MoveTo(top);
  DrawOutlines(n, place, canvas, cellDrawn);
  DrawContents(PaintOf(state, true), mode, place, canvas);
  if (mode == SheetMode::GridOnly) return;
  const int listTop = top + place.Scaled(n * CellSize) + CellSize;
  ListPages(canvas, title, listTop).Draw(ClueLines(state));
}

bool PrintPuzzle(State& state, Host& host, Printer& printer, SheetMode mode) {
  host.Pointer(PointerShape::Hourglass);
  const int n = state.GridSize;
  state.ProgBar = {0, static_cast<double>(n * n), "Printing..."};
  std::string failure;
  try {
    // What the user edits meanwhile does not reach the paper.
    const State sheet = state;
    DrawSheet(sheet, mode, printer.Begin(FromUnknown(sheet.Text5)), [&] {
      ++state.ProgBar.Value;
      Poll(state, host);
    });
    printer.Send();
    while (!printer.Settled()) RunEvents(state, host);
  } catch (const PrintError& error) {
    failure = error.what();
  }
  state.ProgBar.Value = 0;
  state.ProgBar.Caption = "";
  host.Pointer(PointerShape::Normal);
  host.Tell(failure.empty() ? "Printing completed" : failure);
  return failure.empty();
}
