// The program as one value: its state, its dictionary and its way to the
// outside.

#pragma once

#include <string>

#include "dictionary/word_table.h"
#include "grid/state.h"

struct App {
  State state;
  WordTable words;
  Host& host;
  Picture& picture;
  bool taskRuns = false;  // a command has started and not ended
  std::string savedText{};  // the puzzle as last loaded, saved or begun

  Ports ports() { return {host, picture}; }
};

// The program's start: constants, the size of the view, the lines of an empty
// grid, the default dictionary.
void StartUp(App& app);
