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

// What every format holds: the kinds of the cells, letters, title, and the
// clues; all else is as in a new document.
Document WithoutExtras(const Document& document);

// Makes each clue what a reader makes of it: only those of entries, with the
// text that `stored` makes of the text (those without one go), written for
// the answer in the grid.
void KeepClues(Document& document, std::string (*stored)(std::string_view));

// The answer that a clue in a file was written for: the entry's letters, or
// "" while one is missing.
std::string WrittenAnswer(const Document& document, const Entry& entry);

// Line ends as documents have them: "\n".
std::string WithPlainLineEnds(std::string_view text);
// A text on one line: line breaks are blanks, none at its ends.
std::string OnOneLine(std::string_view text);
