#include "dictionary/find_word.h"

std::string FindWordMessage(const WordTable& words, std::string_view text) {
  const std::string word = UpperCase(text);
  const int length = static_cast<int>(word.size());
  // No word is longer than the table's lengths.
  const int index =
      length > LongestWordLength ? -1 : FindWordIndex(words, word);
  if (index < 0) return word + " not found";
  return word + " is word#" + Str(index) + " of " +
         Str(words.WordCount(length)) + Str(length) + "-letter words";
}
