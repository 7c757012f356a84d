// The program as one value: its state, its document, its dictionary and its
// way to the outside.

#pragma once

#include <string>
#include <string_view>

#include "base/clipboard.h"
#include "base/printer.h"
#include "dictionary/word_table.h"
#include "files/publisher.h"
#include "grid/bridge.h"
#include "puzzle/history.h"

// What only some programs can do; a command that needs what is not there
// does nothing.
struct Outlets {
  Printer* printer = nullptr;
  BitmapClipboard* clipboard = nullptr;
  Publisher* publisher = nullptr;
};

struct App {
  State state;
  WordTable words;
  Host& host;
  // The document and how it came to be.  The state shows it, and is ahead of
  // it only while a command runs.
  History history{TakeGrid(State(), {})};
  bool taskRuns = false;           // a command has started and not ended
  bool mayLeave = false;           // what MayLeavePuzzle found last
  std::string_view lastControl{};  // that did something
  Outlets outlets{};
};

// The program's start: constants, the size of the view, the lines of an empty
// grid, the default dictionary.
void StartUp(App& app);

// Why the classic window cannot edit the grid, a sentence: "This window cannot
// edit the grid: it has 3 bars."; "" when it can.
std::string WhyGridIsFixed(const App& app);

// The document with what the state has been given since.
Document LiveDocument(const App& app);
