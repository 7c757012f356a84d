// The slot census: how hard each slot is to fill.

#pragma once

#include "dictionary/word_table.h"
#include "grid/state.h"

// Lists in List3, for every slot of the slot table, the words of its length
// to each of its crossings, fewest first.  Tells of a slot without any
// crossing and returns false.
[[nodiscard]] bool TakeCensus(State& state, const WordTable& words, Host& host);
