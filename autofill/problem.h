// What is to be filled: entries over cells, some of which hold letters.
//
// Made from a document, whose blocks, holes, bars and sizes end here.  A cell
// may stand for several letters, all of them given; an entry's word then is
// longer than its cells.  Stale as soon as the document changes.

#pragma once

#include <set>
#include <string>
#include <vector>

#include "puzzle/numbering.h"

namespace autofill {

// The letters A-Z of each cell of a document, "" where there are none.
using Letters = std::vector<std::string>;

struct Problem {
  Letters letters;
  // Those of three cells or more that words can fill or have filled.
  std::vector<Entry> entries;
  // Entries with empty cells that no word can fill, as a cell of theirs holds
  // something else than letters A-Z, or as they are too long.
  struct Unfillable {
    std::string entry;  // "17A"
    std::string why;    // "it holds \"2\", which is no letter A-Z"
  };
  std::vector<Unfillable> unfillable;
  std::set<std::string> rejected;  // words that may not be used
};

// Entries of fewer than three cells are left out: they stay as they are.
Problem ProblemOf(const Document& document);

// Puts the letters of a fill into the empty cells of the document.
void PutLetters(const Letters& letters, Document& document);

// The letters of an entry, "?" for an empty cell.
std::string MaskOf(const Letters& letters, const Entry& entry);
bool IsComplete(const Letters& letters, const Entry& entry);

}  // namespace autofill
