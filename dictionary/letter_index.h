// The words of one length by position and letter, as bitsets: what both
// fills search in.
//
// A word's bit is its number, a letter is a code from 0: which word has which
// number, and which letter which code, is up to the owner.  (The supports of
// Lecoutre and Vion 2008, "Enforcing arc consistency using bitwise
// operations".)

#pragma once

#include <cstdint>
#include <vector>

class LetterIndex {
 public:
  LetterIndex() = default;  // of no words
  LetterIndex(int length, int letters, int words)
      : letters_(letters),
        blocks_((words + 63) / 64),
        bits_(static_cast<std::size_t>(length) * letters * blocks_) {}

  // How many blocks of 64 words a bitset has.
  int Blocks() const { return blocks_; }
  // The words with a letter at a position (from 0).
  const std::uint64_t* WordsWith(int position, int letter) const {
    return &bits_[PlaceOf(position, letter)];
  }
  void Add(int word, int position, int letter) {
    bits_[PlaceOf(position, letter) + static_cast<std::size_t>(word / 64)] |=
        std::uint64_t{1} << (word % 64);
  }

 private:
  std::size_t PlaceOf(int position, int letter) const {
    return static_cast<std::size_t>(position * letters_ + letter) * blocks_;
  }

  int letters_ = 0, blocks_ = 0;
  std::vector<std::uint64_t> bits_;  // by position, letter and block
};
