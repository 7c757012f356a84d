// Find Word.

#pragma once

#include "dictionary/word_table.h"
#include "grid/state.h"

struct FoundWord {
  bool found = false;
  std::string message;  // "HOUSE is word# 1861 of 4211 5-letter words"
};

// Looks a word up, whatever its case.
FoundWord FindWord(const WordTable& words, std::string_view text);
