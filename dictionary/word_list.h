// Word lists for makers: the words of each length, best score first.
//
// A WordList is made once, from one or several lists, and is read-only after
// that: any number of searches share it.  Words of a length are numbered
// from 0 in falling order of score, so "score at least m" is a prefix.

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "dictionary/letter_index.h"

constexpr int kShortestWord = 3;
constexpr int kLongestWord = 51;
constexpr int kLetters = 26;
constexpr int kBestScore = 100;
constexpr int kPlainScore = 50;
constexpr int kMostWords = 2'000'000;  // of all lists together
constexpr int64_t kMostBytes = 1'000'000'000;
constexpr uint32_t kAllLetters = (1u << kLetters) - 1;

// The words of one length.
struct LengthTable {
  int length = 0;
  int count = 0;
  int blocks = 0;                 // 64-bit blocks of a bitset over the words
  int lanes = 0;                  // length, rounded up to a multiple of four
  std::vector<uint8_t> scores;    // by word
  std::vector<uint8_t> letters;   // count x length, 0..25
  std::vector<uint32_t> rows;     // count x lanes, each letter as one bit
  LetterIndex index;              // of the letters 0..25
  std::vector<int> supportCount;  // length x 26

  const uint8_t* Letters(int word) const {
    return &letters[static_cast<size_t>(word) * length];
  }
  const uint32_t* Row(int word) const {
    return &rows[static_cast<size_t>(word) * lanes];
  }
  const uint64_t* Support(int position, int letter) const {
    return index.WordsWith(position, letter);
  }
  // How many words score at least `score`: those are words 0..n-1.
  int CountFrom(int score) const;
  // The number of a word of upper-case letters, or -1.
  int Find(std::string_view word) const;
  std::string Text(int word) const;
};

// Whether a word has the letters of a mask ("C?T").
bool FitsMask(std::string_view word, std::string_view mask);

class WordList {
 public:
  WordList();
  const LengthTable& OfLength(int length) const { return tables_[length]; }
  int Count() const;
  // The score of a word, or -1 when it isn't in the list.
  int ScoreOf(std::string_view word) const;
  // The least score that keeps a word from being used which would fit a mask:
  // `minimum`, or that of the list which left the word out; 0 when there is
  // no such word.  Reads all words of the length.
  int LeastScoreAsked(std::string_view mask, int minimum) const;
  // The scores that occur, rising.
  std::vector<int> Scores() const;

 private:
  friend class WordListBuilder;
  // Words that score less than their list's minimum, one after another.
  struct LeftOut {
    std::string letters;
    std::vector<uint8_t> minimums;
  };
  std::array<LengthTable, kLongestWord + 1> tables_;
  std::array<LeftOut, kLongestWord + 1> leftOut_;
};

// Fills a WordList.  Where a word comes again, the first call decides.
class WordListBuilder {
 public:
  WordListBuilder();
  // A word of 3 to 51 upper-case letters; one that scores less than
  // `minimum` is known but left out, also when a later list has it.
  // Within one list (numbered from 0) the best score of a word counts.
  // Says whether the word is new.
  bool Add(std::string_view word, int score, int minimum, int list = 0);
  int Words() const { return static_cast<int>(entries_.size()); }
  // What the words and the list made of them take.
  int64_t Bytes() const { return bytes_; }
  WordList Build();

 private:
  struct Entry {
    uint32_t start;  // in text_
    uint8_t length;
    uint8_t score;
    uint8_t list;
    uint8_t minimum;

    bool Wanted() const { return score >= minimum; }
  };

  size_t FindPlace(std::string_view word) const;
  void Grow();

  std::vector<char> text_;
  std::vector<Entry> entries_;
  std::vector<uint32_t> places_;  // open addressing: entry + 1, or 0
  int64_t bytes_ = 0;
};
