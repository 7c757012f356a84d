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

void DrawAll(QtPicture& picture) {
  for (int row = 1; row <= MaxGridSize; ++row) {
    for (int col = 1; col <= MaxGridSize; ++col) {
      const bool black = (row * 7 + col * 3) % 9 == 0;
      picture.FillCell({row, col},
                       black ? ColourBlackSquare : ColourBackground);
      const int number = (row + col) % 3 == 0 ? row * col % 400 : 0;
      const char letter = static_cast<char>('A' + row * col % 26);
      picture.CellText({row, col}, number, black ? '.' : letter);
    }
  }
  picture.Update();
}

void LargestGridFromScratch(benchmark::State& state) {
  NeedFonts();
  QtPicture picture;
  picture.SetScale(static_cast<double>(state.range(0)));
  for (auto _ : state) {
    picture.GridLines(0);
    picture.Update();
    picture.GridLines(MaxGridSize);
    DrawAll(picture);
  }
}
BENCHMARK(LargestGridFromScratch)
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond);

void LargestGridUnchanged(benchmark::State& state) {
  NeedFonts();
  QtPicture picture;
  picture.GridLines(MaxGridSize);
  DrawAll(picture);
  for (auto _ : state) DrawAll(picture);
}
BENCHMARK(LargestGridUnchanged)->Unit(benchmark::kMillisecond);

void OneCell(benchmark::State& state) {
  NeedFonts();
  QtPicture picture;
  picture.GridLines(MaxGridSize);
  DrawAll(picture);
  char letter = 'A';
  for (auto _ : state) {
    picture.CellText({9, 9}, 12, letter);
    picture.Update();
    letter = letter == 'Z' ? 'A' : static_cast<char>(letter + 1);
  }
}
BENCHMARK(OneCell)->Unit(benchmark::kMillisecond);

}  // namespace
