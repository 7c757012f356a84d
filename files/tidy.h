// The normal form that documents are read into and written from: a file of
// any format comes back equal to the tidy document.
//
// - Only white cells have letters, circles and given letters; holes have no
//   shade; letters hold no blanks and are at most 32 characters.
// - Bars are only between two white cells.
// - Texts are UTF-8 without control characters; only notes have lines.
// - A clue has a text; clues and pins are at cells of the grid.

#pragma once

#include <string>
#include <vector>

#include "puzzle/document.h"

inline constexpr int kLongestSolution = 32;  // of a cell, in characters

// Makes a document tidy; tells, a plain sentence each, what was lost of what
// a user could see.
std::vector<std::string> Tidy(Document& document);

// Throws FormatError unless both are 3 to 51, before anything is made of
// them: "the grid is 60 x 5 cells; 3 to 51 a side can be read".
void CheckSides(long width, long height);
