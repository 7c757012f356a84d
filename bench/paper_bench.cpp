// How long the printed sheet and the pictures take, from the puzzle in memory
// to the bytes of a file.
//
// Beside the time stand the sheet's pages and the file's size, which do not
// change unless the drawing does.

#include <benchmark/benchmark.h>

#include "draw/qt_pages.h"
#include "draw/qt_picture_file.h"
#include "draw/qt_session.h"
#include "files/sheet.h"
#include "grid/drawing.h"
#include "grid/slots.h"
#include "tests/quiet_host.h"

namespace {

// A lattice with a letter in every white cell.
State Lattice(int n) {
  State state;
  QuietHost host;
  state.GridSize = n;
  ForEachCell(n, [&](Pos p) {
    const bool black = p.row % 2 == 0 && p.col % 2 == 0;
    state.Grid[p] = black ? kBlackSquare
                          : static_cast<char>('A' + (7 * p.row + p.col) % 26);
  });
  BuildSlotList(state, host);
  return state;
}

void SheetPdf(benchmark::State& run) {
  const DrawingSession session;
  const State state = Lattice(static_cast<int>(run.range(0)));
  std::size_t bytes = 0;
  for (auto _ : run) {
    bytes = PagesAsPdf(kA4, "Lattice", [&](Canvas& canvas) {
              DrawSheet(state, SheetMode::Full, canvas);
            }).size();
  }
  run.counters["bytes"] = static_cast<double>(bytes);
  run.counters["lines"] = static_cast<double>(ClueLines(state).size());
}
BENCHMARK(SheetPdf)->Arg(15)->Arg(51)->Unit(benchmark::kMillisecond);

void PicturePng(benchmark::State& run) {
  const DrawingSession session;
  const State state = Lattice(static_cast<int>(run.range(0)));
  std::size_t bytes = 0;
  for (auto _ : run)
    bytes = PictureFile(PaintOf(state, true), "", {PictureKind::Png, 1}).size();
  run.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(PicturePng)->Arg(15)->Arg(51)->Unit(benchmark::kMillisecond);

}  // namespace
