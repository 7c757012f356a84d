#include "dictionary/word_table.h"

#include <cmath>

bool WordTable::Add(std::string_view word) {
  Length& length = lengths_[word.size()];
  if (length.count == WordsPerLengthLimit) return false;
  ++length.count;
  length.letters += word;
  length.scores.push_back(0);
  return true;
}

void WordTable::ScoreWords() {
  for (int n = 3; n <= LongestWordLength; ++n) {
    Length& length = lengths_[n];
    for (int j = 1; j <= length.count; ++j)
      for (char c : WordAt(n, j)) length.scores[j - 1] += LetterCount[c - 'A'];
  }
}

void WordTable::BuildIndex() {
  for (int n = 1; n <= LongestWordLength; ++n)
    lengths_[n].index = WordIndex(n, lengths_[n].letters, lengths_[n].scores);
}

int FindWordIndex(const WordTable& words, std::string_view word) {
  const int length = static_cast<int>(word.size());
  int low = 0;
  int high = words.WordCount(length);
  while (low <= high) {
    // The middle rounds to the nearest number, halves to the even one, which
    // decides what is found when the words are not sorted.
    const int middle = static_cast<int>(std::nearbyint((low + high) / 2.0));
    const std::string_view found = words.WordAt(length, middle);
    if (found == word) return middle;
    if (found < word)
      low = middle + 1;
    else
      high = middle - 1;
  }
  return -1;
}
