// How likely each letter of each cell is, were a fill drawn at random.
//
// Each entry tells each of its cells how much its words count for every
// letter there, given what the crossings say of its other cells: the sums
// and products of belief propagation (Pearl 1982, "Reverend Bayes on
// inference engines"; on constraints: Pesant 2019, "From support propagation
// to belief propagation in constraint programming").  An entry tells again
// once what it was told, or its words, have changed enough, and the one that
// has most to tell comes first (Elidan, McGraw and Koller 2006, "Residual
// belief propagation").  Only so many tell for one choice: what is left waits
// for the next.

#pragma once

#include <vector>

#include "autofill/store.h"

namespace autofill {

class Beliefs {
 public:
  explicit Beliefs(const Store& store);

  // Goes on reading, for about so many words; says whether the messages
  // follow the words enough for the next choice.
  bool Settle(int64_t words);
  // Back to the messages of level 0.
  void Rewind();

  struct Guess {
    int letter;
    float chance;  // among the letters that the cell has
  };
  // The likeliest letter of the cell of a position that our entries cross.
  Guess Likeliest(int position) const;
  // The position of the same cell in a crossing that is ours, or -1.
  int Partner(int position) const { return partner_[position]; }

  int64_t WordsRead() const { return wordsRead_; }

 private:
  struct Told {
    int size = 0;      // of the words when the entry told last
    float change = 0;  // of what it was told since, summed
  };

  void BeginWithCounts();
  int MostToTell() const;
  float News(int entry) const;
  void Tell(int entry);
  void Send(int position, const float* weights, float* sums);
  void SetMessage(int position, const float* values);

  const Store& store_;
  std::vector<int> partner_;
  // By position * kLetterStride + letter.
  std::vector<float> messages_, rootMessages_;
  std::vector<Told> told_, rootTold_;  // empty until the first call of Settle
  int64_t wordsRead_ = 0;
  int tells_ = 0;  // for the next choice
};

}  // namespace autofill
