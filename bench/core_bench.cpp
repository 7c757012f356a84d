// The core's speed, with the real word lists: loading, the step-by-step fill,
// numbering, the check.
//
// The counters of a fill are its fingerprint: they must not change when it
// becomes faster.

#include <benchmark/benchmark.h>

#include <fstream>
#include <string>
#include <vector>

#include "bench/plain_fill.h"
#include "dictionary/levels.h"
#include "files/puzzle_file.h"
#include "grid/choose_dictionary.h"
#include "grid/slots.h"
#include "layout/check_grid.h"
#include "layout/generate.h"
#include "solver/fill.h"
#include "tests/quiet_host.h"

namespace {

void Load(WordTable& words, int level) {
  QuietDesk desk;
  ReadDictionary(desk.state, words, desk.host,
                 LevelFilePath(kLevelFiles[level - 1]));
}

const WordTable& Words(int level) {
  static std::vector<WordTable> tables(4);
  if (tables[level].TotalWords == 0) Load(tables[level], level);
  return tables[level];
}

// One of the grids in bench/grids.
void OpenGrid(QuietDesk& desk, const std::string& name) {
  std::ifstream in(std::string(KELDA_BENCH_GRIDS) + "/" + name + ".txt");
  Puzzle puzzle;
  for (std::string row; std::getline(in, row);) {
    for (char& c : row) c = c == '#' ? kBlackSquare : kEmptyCell;
    puzzle.cells.push_back(row);
  }
  puzzle.size = static_cast<int>(puzzle.cells.size());
  ShowPuzzle(desk.state, desk.host, puzzle);
}

// A 51 x 51 lattice split to word lengths.
void MakeLargeLayout(QuietDesk& desk) {
  desk.state.Text3 = "51";
  TwoByTwoLayout(desk.state, desk.host);
}

void LoadL3(benchmark::State& run) {
  for (auto _ : run) {
    WordTable words;
    Load(words, 3);
    benchmark::DoNotOptimize(words.TotalWords);
  }
}
BENCHMARK(LoadL3)->Unit(benchmark::kMillisecond);

void FillGrid(benchmark::State& run, const std::string& name) {
  const WordTable& words = Words(2);
  FillReport report;
  std::size_t grid = 0;
  for (auto _ : run) {
    run.PauseTiming();
    QuietDesk desk;
    OpenGrid(desk, name);
    run.ResumeTiming();
    report = Fill(desk.state, words, desk.host).Solve(StartLocation::Random);
    run.PauseTiming();
    grid = std::hash<std::string>()(GridText(desk.state));
    run.ResumeTiming();
  }
  run.counters["slots"] = report.slotsSolved;
  run.counters["candidates"] = report.candidatesTried;
  run.counters["grid"] = static_cast<double>(grid % 1000000);
}
BENCHMARK_CAPTURE(FillGrid, lattice15_1, "lattice15-1")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FillGrid, lattice15_2, "lattice15-2")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FillGrid, lattice21_1, "lattice21-1")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FillGrid, lattice21_3, "lattice21-3")
    ->Unit(benchmark::kMillisecond);

// The fill written plainly, from the slot where the real one starts.
void PlainFillGrid(benchmark::State& run, const std::string& name) {
  const WordTable& words = Words(2);
  QuietDesk real;
  OpenGrid(real, name);
  Fill(real.state, words, real.host).Solve(StartLocation::Random);
  const Placement first = real.state.List6.front();
  for (auto _ : run) {
    run.PauseTiming();
    QuietDesk desk;
    OpenGrid(desk, name);
    PlainFill plain(desk.state, words);
    const Slot start = *desk.state.SlotCells.At(first.first, first.direction);
    run.ResumeTiming();
    if (!plain.Run(start) || GridText(desk.state) != GridText(real.state))
      run.SkipWithError("not filled with the same words");
  }
}
BENCHMARK_CAPTURE(PlainFillGrid, lattice15_1, "lattice15-1")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PlainFillGrid, lattice15_2, "lattice15-2")
    ->Unit(benchmark::kMillisecond);

void BuildSlots51(benchmark::State& run) {
  QuietDesk desk;
  MakeLargeLayout(desk);
  for (auto _ : run) BuildSlotList(desk.state, desk.host);
  run.counters["slots"] = desk.state.ClueCount;
}
BENCHMARK(BuildSlots51)->Unit(benchmark::kMillisecond);

void CheckGrid51(benchmark::State& run) {
  QuietDesk desk;
  MakeLargeLayout(desk);
  int status = 0;
  for (auto _ : run) status = CheckGrid(desk.state, desk.host, true);
  run.counters["status"] = status;
}
BENCHMARK(CheckGrid51)->Unit(benchmark::kMillisecond);

void LatticeLayout(benchmark::State& run) {
  for (auto _ : run) {
    QuietDesk desk;
    desk.state.Text3 = std::to_string(run.range(0));
    TwoByTwoLayout(desk.state, desk.host);
    benchmark::DoNotOptimize(desk.state.BlackSquareCount);
  }
}
BENCHMARK(LatticeLayout)->Arg(15)->Arg(51)->Unit(benchmark::kMillisecond);

}  // namespace
