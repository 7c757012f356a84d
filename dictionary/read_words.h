// Reading a plain word list into a word table.

#pragma once

#include <functional>
#include <string>

#include "base/host.h"
#include "base/text_file.h"
#include "dictionary/word_table.h"

// The words of 3..20 letters A-Z of a file, one a line in any case, scored
// and indexed; other lines are passed over.  Calls `onWord` after each word.
// Throws FileError for a file that cannot be read; ends the program when a
// length has too many words.
WordTable ReadWords(const std::string& path, Opens what, Host& host,
                    const std::function<void()>& onWord);
