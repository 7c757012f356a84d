// Whatever the bytes, a puzzle file is read or refused; one that is read has
// the size that it says and can be shown, checked and written again.

#include "files/puzzle_file.h"
#include "tests/fuzz/fuzz_file.h"
#include "tests/quiet_host.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data,
                                      std::size_t size) {
  const FuzzFile file(data, size);
  QuietDesk desk;
  if (!OpenPuzzle(desk.state, desk.host, file.Path())) return 0;
  const std::string text = PuzzleText(desk.state);
  const FuzzFile again(reinterpret_cast<const std::uint8_t*>(text.data()),
                       text.size());
  if (!OpenPuzzle(desk.state, desk.host, again.Path())) std::abort();
  if (PuzzleText(desk.state) != text) std::abort();
  return 0;
}
