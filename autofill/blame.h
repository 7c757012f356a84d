// Which entries are to blame when there is no fill.
//
// Finds a set of entries that can't be filled together and shrinks it by
// deletion until each is needed (Bakker et al. 1993, "Diagnosing and solving
// over-determined constraint satisfaction problems").  The entries that
// explained the most conflicts are looked at first.

#pragma once

#include <functional>
#include <vector>

#include "autofill/search.h"

namespace autofill {

// `order` has all entries, the likeliest first; `work` bounds each trial.
// The entries come in the board's order; empty when nothing was found
// before `stop`.
std::vector<int> FindCulprits(const Board& board, const WordList& words,
                              const Limits& limits, std::vector<int> order,
                              int64_t work, const std::function<bool()>& stop);

}  // namespace autofill
