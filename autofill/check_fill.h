// An independent check of a fill, made from the rows of text alone.

#pragma once

#include <string>

#include "autofill/board.h"
#include "dictionary/word_list.h"

namespace autofill {

// What is wrong with `filled` as a fill of `problem`, or "": given letters
// and blocks are kept, every entry that wasn't complete is a word of the
// list that scores at least `minimum`, no word comes twice, and with
// `shared` > 0 no two entries of which one is ours share a run of so many
// letters.
std::string FindFault(const Rows& problem, const Rows& filled,
                      const WordList& words, int minimum, int shared);

}  // namespace autofill
