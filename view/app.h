// The program as one value: its state, its dictionary and its way to the
// outside.

#pragma once

#include <string>

#include "base/clipboard.h"
#include "base/printer.h"
#include "dictionary/word_table.h"
#include "files/publisher.h"
#include "grid/state.h"

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
  bool taskRuns = false;    // a command has started and not ended
  std::string savedText{};  // the puzzle as last loaded, saved or begun
  Outlets outlets{};
};

// The program's start: constants, the size of the view, the lines of an empty
// grid, the default dictionary.
void StartUp(App& app);
