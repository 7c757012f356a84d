// Puzzles of Across Lite (*.puz), versions 1.2 to 2.0.
//
// A header of 52 bytes, the solution and a player's letters with a byte a
// cell, texts that end with NUL, then named sections for rebus and circles.
// Numbers are not stored: clues go to the entries in the order of numbers,
// across before down.  Texts are ISO 8859-1, from version 2.0 on UTF-8.

#pragma once

#include "files/format.h"

// Written as version 1.3, or 2.0 where a text has letters beyond ISO 8859-1.
extern const Format kPuzFormat;

// The two halves of the format (puz_read.cpp, puz_write.cpp).
// A locked puzzle is read without letters.
Reading DecodePuz(std::string_view bytes);
std::string EncodePuz(const Document& document);
