// Drawing the grid picture: the largest grid from scratch, one cell, and a
// repaint that changes nothing, at scale factors 1 and 2.

#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include "draw/qt_picture.h"

namespace {

void NeedFonts() {
  static int argc = 1;
  static char name[] = "kelda_bench";
  static char* argv[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QGuiApplication application(argc, argv);
}

void PaintAll(Paint& paint) {
  for (int row = 1; row <= MaxGridSize; ++row) {
    for (int col = 1; col <= MaxGridSize; ++col) {
      const bool black = (row * 7 + col * 3) % 9 == 0;
      CellPaint& cell = paint[{row, col}];
      cell = {black ? ColourBlackSquare : ColourBackground, true};
      cell.number = (row + col) % 3 == 0 ? row * col % 400 : 0;
      if (!black) cell.text = static_cast<char>('A' + row * col % 26);
    }
  }
}

Paint LargestGrid() {
  Paint paint(MaxGridSize, MaxGridSize);
  PaintAll(paint);
  return paint;
}

void LargestGridFromScratch(benchmark::State& state) {
  NeedFonts();
  const Paint paint = LargestGrid(), nothing;
  PictureImage picture;
  picture.SetScale(static_cast<double>(state.range(0)));
  for (auto _ : state) {
    picture.Update(nothing);
    picture.Update(paint);
  }
}
BENCHMARK(LargestGridFromScratch)
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond);

void LargestGridUnchanged(benchmark::State& state) {
  NeedFonts();
  Paint paint = LargestGrid();
  PictureImage picture;
  for (auto _ : state) {
    PaintAll(paint);
    picture.Update(paint);
  }
}
BENCHMARK(LargestGridUnchanged)->Unit(benchmark::kMillisecond);

void OneCell(benchmark::State& state) {
  NeedFonts();
  Paint paint = LargestGrid();
  PictureImage picture;
  char letter = 'A';
  for (auto _ : state) {
    paint[{9, 9}].text = letter;
    picture.Update(paint);
    letter = letter == 'Z' ? 'A' : static_cast<char>(letter + 1);
  }
}
BENCHMARK(OneCell)->Unit(benchmark::kMillisecond);

}  // namespace
