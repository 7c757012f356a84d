// Whatever the bytes, a puzzle file is read or refused; one that is read has
// the size that it says and can be shown, checked and written again.

#include "files/puzzle_file.h"
#include "tests/fuzz/fuzz_file.h"
#include "tests/quiet_host.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data,
                                      std::size_t size) {
  const FuzzFile file(data, size);
  try {
    const Puzzle puzzle = ReadPuzzle(file.Path());
    if (puzzle.cells.size() != static_cast<std::size_t>(puzzle.size))
      std::abort();
    QuietDesk desk;
    ShowPuzzle(desk.state, desk.host, puzzle);
    const std::string text = PuzzleText(desk.state);
    const FuzzFile again(reinterpret_cast<const std::uint8_t*>(text.data()),
                         text.size());
    if (ReadPuzzle(again.Path()).cells != puzzle.cells) std::abort();
  } catch (const FileError&) {
  }
  return 0;
}
