// Puzzles as the classic window loads and saves them (files/kdp.h).
//
// A cell is a byte (ISO 8859-1); the title is whatever bytes the file has,
// here as in State::Text5, and shown as UTF-8 where that is valid.

#pragma once

#include <string>
#include <vector>

#include "grid/state.h"
#include "puzzle/document.h"

struct Puzzle {
  std::string title;
  int size = 0;
  std::vector<std::string> cells;  // size rows of size cells, as in CellGrid
};

// The text of a puzzle file for the grid as it is.
std::string PuzzleText(const State& state);
// Its grid lines alone, each ended by a line feed.
std::string GridText(const State& state);

// Makes a puzzle the state's puzzle, numbered and drawn.
void ShowPuzzle(State& state, Host& host, const Puzzle& puzzle);

// Reads a puzzle and makes it the state's, with its file's name.  Tells of a
// file that is no puzzle; the state is then as it was:
//   error loading: /home/me/a.kdp
//   /home/me/a.kdp: the file is empty
bool OpenPuzzle(State& state, Host& host, const std::string& path);

// The commands, the last two with the text of the file; each returns whether
// it loaded or saved.
bool LoadPuzzle(State& state, Host& host);
bool SavePuzzleAs(State& state, Host& host, const std::string& text);
bool UpdatePuzzle(State& state, Host& host, const std::string& text);

// Saves the puzzle where it was opened or saved before.
bool SaveInItsFile(State& state, Host& host, const std::string& text);

// From here on the puzzle belongs to a file, "" for none, and the window's
// caption tells it.
void NameFile(State& state, const std::string& path);
