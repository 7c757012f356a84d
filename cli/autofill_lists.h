// What the commands autofill and suggest share: word lists from the command
// line, and puzzles as the rows that the engine takes.

#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

#include "autofill/autofill.h"
#include "files/puzzle_file.h"

// Adds the option -w LIST[:MIN].
void AddListOption(CLI::App& command, std::vector<std::string>& lists);

// Loads the lists: each a file, or 1, 2 or 3 for a level, with the least
// score behind a colon.  A report of each list of one's own goes to standard
// error.  Throws FileError when one can't be read or no word is left.
WordList LoadLists(const std::vector<std::string>& lists);

// A puzzle file, or only the rows of a grid, which then have no title.
Puzzle ReadPuzzleOrGrid(const std::string& path);
autofill::Rows RowsOf(const Puzzle& puzzle);
// The text of a puzzle file.
std::string PuzzleText(const std::string& title, const autofill::Rows& rows);
