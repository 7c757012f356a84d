// Resetting the grid: Draw, Clear, the size box and the black-square count.

#pragma once

#include <string_view>

#include "grid/state.h"

// An empty grid of the size in Text3, or of 13 when that is out of range.
// The slot table is left as it was.
void NewGrid(State& state, Host& host);

// Numbers and draws the grid that stands in State::Grid; the fill of another
// one cannot be resumed.
void ShowGrid(State& state, Host& host);

// Takes all letters out; black squares stay.
void ClearWords(State& state, Host& host);

// Counts the black squares into BlackSquareCount, Text2 and Label2.
void CountBlackSquares(State& state);

// The user typed into the size box; the grid has that size at once.
void EditGridSize(State& state, std::string_view text);
// The user left the size box: the size becomes odd.
void LeaveGridSize(State& state);

// The user typed into the box of the black-square count.
void EditBlackSquareCount(State& state, std::string_view text);

// A share as Label2 shows it: " = 16%".
std::string ShareText(int percent);
