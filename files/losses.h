// What a format cannot hold of a document, in words.
//
// A format says what it holds by a function that makes the document as it
// would come back.  Everything that differs is a loss; so what is told can
// never disagree with what is written.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "files/format.h"
#include "puzzle/numbering.h"

// The losses of a document of which `kept` comes back, of the same size:
// "3 bars, first between row 2, column 5 and row 2, column 6",
// "2 clues, first 17A", "the title \"A\", kept as \"B\"".
std::vector<Loss> LossesBetween(const Document& document, const Document& kept);

// "1 bar, between ..." or "3 bars, first between ...".
std::string Counted(std::size_t count, std::string_view one,
                    std::string_view many, std::string_view first);
