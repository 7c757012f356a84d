// The slots that no word of the dictionary can serve.

#pragma once

#include "grid/state.h"

// Paints every cell of the open slots shorter than 3 or longer than 20 and
// returns how many such slots there are.  Rebuilds the mask list.
int CheckSlotLengths(State& state);
