// The dictionary in memory: words by length, in the order of their file,
// each with a score.
//
// A table is filled once by a reader and then only read.  The word index is
// made by BuildIndex.  Words of each length are expected in ascending order of
// character codes; FindWordIndex misses words otherwise.

#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "dictionary/word.h"
#include "dictionary/word_index.h"

inline constexpr int WordsPerLengthLimit = 32767;

class WordTable {
 public:
  std::array<int, 26> LetterCount{};  // of A..Z in the file
  int TotalWords = 0;
  int PackedHeaderValue = 0;

  // How many words of a length are held, length 0..20.
  int WordCount(int length) const { return lengths_[length].count; }
  // The j-th word of a length, j = 1..WordCount(length); position 0 holds "".
  std::string_view WordAt(int length, int j) const {
    return j == 0 ? std::string_view()
                  : std::string_view(lengths_[length].letters)
                        .substr(std::size_t(j - 1) * length, length);
  }
  // The score of the same word.
  int WordScore(int length, int j) const {
    return lengths_[length].scores[j - 1];
  }

  // Adds a word of at most LongestWordLength characters; false, and nothing
  // added, when the table holds as many of its length as it can.
  [[nodiscard]] bool Add(std::string_view word);

  // Gives every word of three letters or more its score, the sum of
  // LetterCount over its letters.
  void ScoreWords();
  // Makes the index of all words.
  void BuildIndex();

  const WordIndex& Index(int length) const { return lengths_[length].index; }

 private:
  struct Length {
    int count = 0;
    std::string letters;      // of all words, one after another
    std::vector<int> scores;  // of each
    WordIndex index;
  };

  std::array<Length, LongestWordLength + 1> lengths_;
};

// The position of a word among those of its length, 0..WordCount, or -1.
// The length must be 0..20.
int FindWordIndex(const WordTable& words, std::string_view word);
