// Words and masks, as texts that are held in place.

#pragma once

#include "base/pos.h"
#include "base/text.h"

inline constexpr int LongestWordLength = 20;
inline constexpr char kAnyLetter = '?';

// The letters of a slot, "?" for an empty cell: "AB?D?".
using Mask = ShortText<MaxGridSize>;

using Word = ShortText<LongestWordLength>;
