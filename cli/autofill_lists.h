// The word lists that the commands autofill and suggest take.

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "dictionary/word_list.h"

// Adds the option -w LIST[:MIN].
void AddListOption(CLI::App& command, std::vector<std::string>& lists);

// Loads the lists: each a file, or 1, 2 or 3 for a level, with the least
// score behind a colon.  A report of each list of one's own goes to standard
// error.  Throws FileError when one can't be read or no word is left.
WordList LoadLists(const std::vector<std::string>& lists);
