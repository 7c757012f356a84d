// What to try next: the entry, its word, and which letter of it first.
//
// The entry with the fewest words for its weight comes first, dom/wdeg
// (Boussemart et al. 2004, "Boosting systematic search by weighting
// constraints"); the entries that explain conflicts gain weight, newer
// conflicts count more.  The word is the best by score, weighed against how
// many words it leaves the crossings; a word that an entry had before comes
// first (Pipatsrisawat and Darwiche 2007, "A lightweight component caching
// scheme for satisfiability solvers").

#pragma once

#include <random>
#include <vector>

#include "autofill/literals.h"

namespace autofill {

class Chooser {
 public:
  // Words of earlier fills, by entry, are tried last.
  Chooser(const Store& store, uint64_t seed,
          const std::vector<std::vector<int>>& earlier);

  // The next letter to try; false when every entry is done.
  bool Next(Literal& literal);
  void Bump(int entry);
  void Decay() { increment_ *= 1 / 0.9; }
  // Remembers the words of the finished entries.
  void KeepWords();
  double Weight(int entry) const { return weights_[entry]; }

 private:
  int NextEntry() const;
  int BestWord(int entry);
  bool Fits(int entry, int word) const;
  void CountCrossings(int entry);
  int NextPosition(int entry) const;

  const Store& store_;
  const std::vector<std::vector<int>>& earlier_;
  std::mt19937_64 random_;
  double increment_ = 1;
  std::vector<double> weights_;
  std::vector<int> kept_;  // by entry, a word or -1
  std::vector<int> candidates_;
  float support_[kLongestWord][kLetters];  // logarithms
  int entry_ = -1, word_ = -1;             // what is being tried
};

}  // namespace autofill
