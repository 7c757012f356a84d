// What to try next.
//
// By entries: the entry, its word, and which letter of it first.
// The entry with the fewest words for its weight comes first, dom/wdeg
// (Boussemart et al. 2004, "Boosting systematic search by weighting
// constraints"); the entries that explain conflicts gain weight, newer
// conflicts count more.  The word is the best by score, weighed against how
// many words it leaves the crossings; a word that an entry had before comes
// first (Pipatsrisawat and Darwiche 2007, "A lightweight component caching
// scheme for satisfiability solvers").
//
// By beliefs: the letter that a cell has most surely of all, the surer the
// more weight its entries have (decimation: Braunstein, Mezard and Zecchina
// 2005, "Survey propagation: an algorithm for satisfiability").  That mostly
// takes far fewer fails, but the words of all entries have to be read for the
// first choice.  Some noise makes restarts differ.

#pragma once

#include <random>
#include <vector>

#include "autofill/beliefs.h"
#include "autofill/literals.h"

namespace autofill {

// What each entry had to do with conflicts, newer ones more.
class Weights {
 public:
  explicit Weights(int entries) : values_(entries, 1.0) {}
  void Bump(int entry);
  void Decay() { increment_ *= 1 / 0.9; }
  double operator[](int entry) const { return values_[entry]; }

 private:
  std::vector<double> values_;
  double increment_ = 1;
};

class Chooser {
 public:
  // Words of earlier fills, by entry, are tried last.
  Chooser(const Store& store, uint64_t seed,
          const std::vector<std::vector<int>>& earlier);

  // To be told at level 0 only.
  void UseBeliefs(bool use) { useBeliefs_ = use; }
  bool UsesBeliefs() const { return useBeliefs_; }
  // Does a slice of the work that the next choice needs; says whether that
  // was the last.
  bool Prepare();
  // The next letter to try; false when every entry is done.
  bool Next(Literal& literal);
  void Bump(int entry);
  void Decay();
  // Remembers the words of the finished entries.
  void KeepWords();
  double Weight(int entry) const { return weights_[entry]; }
  int64_t Work() const { return beliefs_.WordsRead() / kWordsOfRevision; }
  // After going back to level 0.
  void Rewind() { beliefs_.Rewind(); }

 private:
  // So many take about as long as the revision of an entry.
  static constexpr int kWordsOfRevision = 256;

  bool SurestLetter(Literal& literal);
  int NextEntry() const;
  int BestWord(int entry);
  bool Fits(int entry, int word) const;
  void CountCrossings(int entry);
  int NextPosition(int entry) const;

  const Store& store_;
  const std::vector<std::vector<int>>& earlier_;
  std::mt19937_64 random_;
  Weights weights_, beliefWeights_;  // these only of conflicts by beliefs
  std::vector<int> kept_;            // by entry, a word or -1
  std::vector<int> candidates_;
  Beliefs beliefs_;
  bool useBeliefs_ = false;
  std::vector<float> urgency_;             // by entry
  float support_[kLongestWord][kLetters];  // logarithms
  int entry_ = -1, word_ = -1;             // what is being tried
};

}  // namespace autofill
