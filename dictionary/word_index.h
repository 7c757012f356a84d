// The words of one length that fit a mask, for the step-by-step fill.
//
// A word's bit is its rank: its place among all words of the length in the
// order of their candidate rows (by the text of the score, then the word).
// So the set bits of an intersection are the candidates in order.

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "dictionary/letter_index.h"
#include "dictionary/word.h"

// Orders scores as texts of six digits or more that a letter follows are
// ordered: one of seven digits comes before most of six.
std::uint64_t ScoreOrder(int score);

using Bits = std::vector<std::uint64_t>;

class WordIndex {
 public:
  WordIndex() { codes_.fill(-1); }  // of no words
  // The letters of all words one after another, and their scores.
  WordIndex(int length, std::string_view letters,
            const std::vector<int>& scores);

  std::size_t Blocks() const { return (byRank_.size() + 63) / 64; }

  // The position (from 1) in the word table of the word of a rank.
  int PositionOf(int rank) const { return byRank_[rank] + 1; }

  // Puts the words that fit a mask into `matches`, less those in `excluded`.
  void Match(const Mask& mask, const Bits& excluded, Bits& matches) const;
  // How many they are.
  int Count(const Mask& mask, const Bits& excluded) const;

 private:
  struct Rows {
    std::array<const std::uint64_t*, LongestWordLength> rows;
    int count = 0;
  };
  // The bitsets of a mask's letters; nothing when a letter is in no word.
  std::optional<Rows> RowsOf(const Mask& mask) const;
  // The words of a block that are in all rows and not excluded.
  static std::uint64_t Intersect(const Rows& rows, const Bits& excluded,
                                 std::size_t block);

  std::array<short, 256> codes_;  // by letter, -1 when it does not occur
  std::vector<int> byRank_;
  Bits all_;  // with a bit for every word
  LetterIndex index_;
};
