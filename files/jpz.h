// Puzzles as XML (*.jpz), zipped or bare, of any namespace.
//
// Cells name their number, bars, circle and colour; words name their cells
// and clues their word.  Clue texts are XHTML; where older files hold tags as
// text, those go too (files/markup.h).  Written zipped.

#pragma once

#include "files/format.h"

extern const Format kJpzFormat;

// The two halves of the format (jpz_read.cpp, jpz_write.cpp).
Reading DecodeJpz(std::string_view bytes);
std::string EncodeJpz(const Document& document);
