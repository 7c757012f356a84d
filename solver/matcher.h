// Candidate matching: which words fit a mask, and how many fit each slot of
// the mask list.
//
// A matcher belongs to one run or one command.  It reads the used words of
// the state when it is made and must be told of every change of them; the
// dictionary must not change while it lives.

#pragma once

#include <array>
#include <vector>

#include "dictionary/word_table.h"
#include "grid/state.h"

// What CountMaskMatches returns when no slot failed.
inline constexpr int kAllMasksFillable = -99;

class Matcher {
 public:
  Matcher(State& state, const WordTable& words);

  // The words that fit a mask, in the order of their rows, less those that
  // are used.  A word that backtracking took out may be used again, but not
  // in redo mode.
  void FindMatches(const Mask& mask, std::vector<Candidate>& matches) {
    FindMatches(mask, state_.redoMode, matches);
  }
  // As the mode was when a mask was matched.
  void FindMatches(const Mask& mask, bool redoMode,
                   std::vector<Candidate>& matches);

  // Counts the words for every slot of the mask list into List5; untouched
  // slots are left out, and lettered ones whose word is known.  Returns the
  // place in the mask list of the last slot whose mask was counted now and
  // has no word, or kAllMasksFillable.
  // Kept: neither a count of 0 that was known before nor a lettered slot
  // whose word is unknown makes a slot fail.
  int CountMaskMatches();

  // Puts a word on the list of used words.
  void UseWord(const Word& word, bool takenBack);
  // The list of used words was cleared.
  void ForgetUsedWords();

 private:
  // The words of a length that may not be used now.
  const Bits& Excluded(int length, bool redoMode) const {
    return (redoMode ? used_ : usedAndNotTakenBack_)[length];
  }
  int CountMatches(const Mask& mask);
  void Exclude(const UsedWord& used);

  using BitsByLength = std::array<Bits, LongestWordLength + 1>;

  State& state_;
  const WordTable& words_;
  BitsByLength used_;
  BitsByLength usedAndNotTakenBack_;
  Bits matches_;
};

// Tells the user whether every slot of the grid can still be filled.
void CheckAllMasks(State& state, const WordTable& words, Host& host);
