// The inner loops over bitsets and word rows.
//
// Each is compiled twice, for any x86-64 and for AVX2, and the loader picks;
// elsewhere there is one plain version.  Nothing here allocates.

#pragma once

#include <cstdint>

namespace autofill {

// set &= the union of `count` bitsets; `blocks` long.  Returns the size.
int KeepUnion(uint64_t* set, const uint64_t* const* bitsets, int count,
              int blocks);
// set &= ~the union of `count` bitsets.  Returns the size.
int DropUnion(uint64_t* set, const uint64_t* const* bitsets, int count,
              int blocks);
// out = a & b.  Returns the size.
int Intersect(const uint64_t* a, const uint64_t* b, int blocks, uint64_t* out);
int IntersectionSize(const uint64_t* a, const uint64_t* b, int blocks);
int Size(const uint64_t* set, int blocks);
// The first block in which a and b meet, or -1.
int FirstMeeting(const uint64_t* a, const uint64_t* b, int blocks);

// The rows of the words of one length, and what a word must still fit.
struct RowFilter {
  const uint32_t* rows;
  int lanes;
  const uint32_t* allowed;   // letter sets by position
  const uint8_t* positions;  // the positions to check
  int positionCount;
  const int16_t* usedBy;  // by word, -1 for free
};

// Moves the words of list[0..count) that fit and are free to the front, the
// others behind them; `united` (lanes long) gets the union of the rows that
// stay.  Returns how many stay.
int FilterList(const RowFilter& filter, int* list, int count, uint32_t* united);

// Words of one length: a list of so many, or else a bitset of so many blocks.
struct WordView {
  int size;
  const int* list;
  const uint64_t* bits;
  int blocks;
};

// Values by letter take so much room.
constexpr int kLetterStride = 32;

// How much a word counts: the prior of its score, times a weight for its
// letter at each of `count` places, by i * kLetterStride + letter for the i-th.
struct Weighing {
  const uint8_t* letters;  // by word * length + place
  int length;
  const uint8_t* scores;  // by word
  const float* priors;    // by score
  const uint8_t* places;
  int count;
  const float* weights;
};

// Adds what each word counts to the sums of its letters, laid out like the
// weights.
void AddWeights(const Weighing& weighing, const WordView& words, float* sums);

// Appends to `out` the words of whose rows no letter is in `dead` (`lanes`
// long).  Returns how many.
int CollectAlive(const WordView& words, const uint32_t* rows, int lanes,
                 const uint32_t* dead, int* out);

}  // namespace autofill
