// Packed word lists: a scrambled header line, then front-coded words.
//
// Line 1 has two fields separated by a tab, each a run of hexadecimal pairs,
// a pair being one scrambled character: a number, and the first word.  Every
// further line is one word: a character whose code is 64 + k, k being how
// many leading characters it shares with the word before, and the rest.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dictionary/word_table.h"

inline constexpr std::string_view kPackedKey = "QUILT";

// "HOUSE" and "BLD" give "HOLD".  The line must begin with "@" or above.
std::string ExpandFrontCoded(std::string_view previous, std::string_view line);

// What a run of hexadecimal pairs stands for under a key.
std::string UnscrambleHexField(std::string_view field, std::string_view key);

struct PackedHeader {
  std::string word;
  double value = 0;
};
// The line must have a second field.
PackedHeader SplitPackedHeader(std::string_view line);

// Adds the words of a packed file, of every length up to 20 and in any
// letters, to the table, counts them in TotalWords and keeps the header's
// number in PackedHeaderValue.  Scores are left at 0 and no index is made.
// Returns the words in file order.  Throws FileError, with the line, for a
// file that is not in this form or has too many words of a length; the table
// then holds the words before that line.
std::vector<std::string> ReadPackedDictionary(WordTable& words,
                                              const std::string& path);
