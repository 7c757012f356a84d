// Choosing the dictionary: levels and the user's own files.

#pragma once

#include <string>

#include "base/text_file.h"
#include "dictionary/word_table.h"
#include "grid/state.h"

// Replaces the dictionary with the words of 3..20 letters A-Z of a file, one
// a line in any case; other lines are passed over.  Shows progress, and
// lists how often each letter and each length occurs in List2 and List3.
// Throws FileError for a file that cannot be read, with the words and the
// lists unchanged; ends the program when a length has too many words.
void ReadDictionary(State& state, WordTable& words, Host& host,
                    const std::string& path, Opens what = Opens::Anything);

// The dictionary choice: reads level 0..2, or for 3 a file that the user
// chooses, and says how many words it has.  A list that cannot be opened
// ends the program; throws FileError for one that cannot be read.
void ChooseDictionary(State& state, WordTable& words, Host& host, int option);

// The dictionary that the program starts with, likewise but without a message.
void ReadDefaultDictionary(State& state, WordTable& words, Host& host);

// A word count as Label9 shows it: "45,678 Words", ",812 Words".
std::string WordCountText(int totalWords);
