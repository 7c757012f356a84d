// Between the classic window's state and the document: the only two functions
// that know both.
//
// The state holds less than a document: an odd square, one byte a cell, a
// title.  What it cannot hold stays in the document while the grid is edited.

#pragma once

#include <string>

#include "grid/state.h"
#include "puzzle/document.h"

// The document with the grid, as it was drawn, and the title of the state.
// Circles, shades and clues stay with the cells that stay; a grid that was
// begun anew or has another size has none, nor pins.
Document TakeGrid(const State& state, Document document);

// Makes a document that fits the state's grid and title, numbered and drawn.
// A grid that stands there already is left as it is, with its colours and the
// fill that can be resumed.  Of a document that does not fit, the title is
// taken and the cells are painted, but there is no grid.
void ShowDocument(State& state, Host& host, const Document& document);

// Why a document does not fit, what follows "...: ": "it has 3 bars", "it is
// 12 x 10 cells, no odd square"; "" when it fits.
std::string WhyNotClassic(const Document& document);
