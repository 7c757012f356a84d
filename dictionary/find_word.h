// Find Word.

#pragma once

#include <string>
#include <string_view>

#include "dictionary/word_table.h"

// Looks a word up, whatever its case, and says where it stands among those
// of its length: "HOUSE is word# 1861 of  4211 5-letter words", or
// "HUOSE not found".
std::string FindWordMessage(const WordTable& words, std::string_view text);
