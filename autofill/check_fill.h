// An independent check of a fill, made from the problem's entries alone.

#pragma once

#include <string>

#include "autofill/problem.h"
#include "dictionary/word_list.h"

namespace autofill {

// What is wrong with `filled` as a fill of `problem`, or "": letters that
// were there are kept, cells of no entry stay empty, every entry that wasn't
// complete is a word of the list that scores at least `minimum` and isn't
// rejected, no word comes twice, and with `shared` > 0 no two entries of
// which one is ours share a run of so many letters.
std::string FindFault(const Problem& problem, const Letters& filled,
                      const WordList& words, int minimum, int shared);

}  // namespace autofill
