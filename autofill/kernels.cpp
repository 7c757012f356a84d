#include "autofill/kernels.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "dictionary/word_list.h"

// The thread sanitizer cannot start where the loader picks, so its build has,
// and tests, the plain version.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_THREAD__)
#define KELDA_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define KELDA_CLONES
#endif

namespace autofill {
namespace {

using Vector = uint32_t __attribute__((vector_size(16), may_alias));

template <bool kKeep>
[[gnu::always_inline]] inline int Narrow(uint64_t* set,
                                         const uint64_t* const* bitsets,
                                         int count, int blocks) {
  int size = 0;
  for (int b = 0; b < blocks; ++b) {
    uint64_t united = 0;
    for (int i = 0; i < count; ++i) united |= bitsets[i][b];
    set[b] &= kKeep ? united : ~united;
    size += std::popcount(set[b]);
  }
  return size;
}

// kVectors is the row length in vectors, so that the union stays in
// registers; 0 means any length.
template <int kVectors>
[[gnu::always_inline]] inline int Filter(const RowFilter& filter, int* list,
                                         int count, uint32_t* united) {
  const int vectors = kVectors ? kVectors : filter.lanes / 4;
  Vector sum[kVectors ? kVectors : 13] = {};
  int kept = 0;
  while (kept < count) {
    const int word = list[kept];
    const uint32_t* row =
        filter.rows + static_cast<int64_t>(word) * filter.lanes;
    bool fits = filter.usedBy[word] < 0;
    for (int i = 0; i < filter.positionCount; ++i) {
      const int p = filter.positions[i];
      fits &= (row[p] & filter.allowed[p]) != 0;
    }
    if (fits) {
      for (int v = 0; v < vectors; ++v) {
        Vector lanes;
        __builtin_memcpy(&lanes, row + 4 * v, sizeof lanes);
        sum[v] |= lanes;
      }
      ++kept;
    } else {
      std::swap(list[kept], list[--count]);
    }
  }
  for (int v = 0; v < vectors; ++v)
    __builtin_memcpy(united + 4 * v, &sum[v], sizeof sum[v]);
  return kept;
}

// Calls `each` with the numbers of the words.
template <typename Each>
[[gnu::always_inline]] inline void ForEach(const uint64_t* set, int blocks,
                                           Each each) {
  for (int b = 0; b < blocks; ++b)
    for (uint64_t block = set[b]; block; block &= block - 1)
      each(b * 64 + std::countr_zero(block));
}

template <typename Each>
[[gnu::always_inline]] inline void ForEach(const int* list, int count,
                                           Each each) {
  for (int i = 0; i < count; ++i) each(list[i]);
}

template <int kVectors, typename Set>
[[gnu::always_inline]] inline int Collect(const Set* set, int size,
                                          const uint32_t* rows, int lanes,
                                          const uint32_t* dead, int* out) {
  int vectors = kVectors ? kVectors : lanes / 4, alive = 0;
  Vector gone[kVectors ? kVectors : 13];
  for (int v = 0; v < vectors; ++v)
    __builtin_memcpy(&gone[v], dead + 4 * v, sizeof gone[v]);
  ForEach(
      set, size, [&](int word) __attribute__((always_inline)) {
        const uint32_t* row = rows + static_cast<int64_t>(word) * lanes;
        Vector met = {};
        for (int v = 0; v < vectors; ++v) {
          Vector letters;
          __builtin_memcpy(&letters, row + 4 * v, sizeof letters);
          met |= letters & gone[v];
        }
        out[alive] = word;
        alive += !(met[0] | met[1] | met[2] | met[3]);
      });
  return alive;
}

template <typename Set>
[[gnu::always_inline]] inline int CollectByLanes(const Set* set, int size,
                                                 const uint32_t* rows,
                                                 int lanes,
                                                 const uint32_t* dead,
                                                 int* out) {
  switch (lanes) {
    case 4:
      return Collect<1>(set, size, rows, lanes, dead, out);
    case 8:
      return Collect<2>(set, size, rows, lanes, dead, out);
    case 12:
      return Collect<3>(set, size, rows, lanes, dead, out);
    default:
      return Collect<0>(set, size, rows, lanes, dead, out);
  }
}

// Every other word has sums of its own: neighbours often share letters, and an
// addition would wait for the one before.
template <int kPlaces, typename Set>
[[gnu::always_inline]] inline void Weigh(const Weighing& weighing,
                                         const Set* set, int size,
                                         float* sums) {
  int places = kPlaces ? kPlaces : weighing.count;
  constexpr int kMost = kPlaces ? kPlaces : kLongestWord;
  float others[kMost * kLetterStride];
  std::fill_n(others, places * kLetterStride, 0.0f);
  float *now = sums, *next = others;
  // Copied, as the sums might else be thought to overlap with them.
  uint8_t place[kMost];
  std::copy_n(weighing.places, places, place);
  ForEach(
      set, size, [&](int word) __attribute__((always_inline)) {
        const uint8_t* letters =
            weighing.letters + static_cast<int64_t>(word) * weighing.length;
        float value = weighing.priors[weighing.scores[word]];
        int slot[kMost];
        for (int i = 0; i < places; ++i) {
          slot[i] = i * kLetterStride + letters[place[i]];
          value *= weighing.weights[slot[i]];
        }
        for (int i = 0; i < places; ++i) now[slot[i]] += value;
        std::swap(now, next);
      });
  for (int i = 0; i < places * kLetterStride; ++i) sums[i] += others[i];
}

template <typename Set>
[[gnu::always_inline]] inline void WeighByPlaces(const Weighing& weighing,
                                                 const Set* set, int size,
                                                 float* sums) {
  switch (weighing.count) {
    case 2:
      return Weigh<2>(weighing, set, size, sums);
    case 3:
      return Weigh<3>(weighing, set, size, sums);
    case 4:
      return Weigh<4>(weighing, set, size, sums);
    case 5:
      return Weigh<5>(weighing, set, size, sums);
    case 6:
      return Weigh<6>(weighing, set, size, sums);
    case 7:
      return Weigh<7>(weighing, set, size, sums);
    case 8:
      return Weigh<8>(weighing, set, size, sums);
    case 9:
      return Weigh<9>(weighing, set, size, sums);
    case 10:
      return Weigh<10>(weighing, set, size, sums);
    default:
      return Weigh<0>(weighing, set, size, sums);
  }
}

}  // namespace

KELDA_CLONES
void AddWeights(const Weighing& weighing, const WordView& words, float* sums) {
  if (words.list)
    WeighByPlaces(weighing, words.list, words.size, sums);
  else
    WeighByPlaces(weighing, words.bits, words.blocks, sums);
}

KELDA_CLONES
int CollectAlive(const WordView& words, const uint32_t* rows, int lanes,
                 const uint32_t* dead, int* out) {
  return words.list
             ? CollectByLanes(words.list, words.size, rows, lanes, dead, out)
             : CollectByLanes(words.bits, words.blocks, rows, lanes, dead, out);
}

KELDA_CLONES
int KeepUnion(uint64_t* set, const uint64_t* const* bitsets, int count,
              int blocks) {
  return Narrow<true>(set, bitsets, count, blocks);
}

KELDA_CLONES
int DropUnion(uint64_t* set, const uint64_t* const* bitsets, int count,
              int blocks) {
  return Narrow<false>(set, bitsets, count, blocks);
}

KELDA_CLONES
int Intersect(const uint64_t* a, const uint64_t* b, int blocks, uint64_t* out) {
  int size = 0;
  for (int i = 0; i < blocks; ++i) {
    out[i] = a[i] & b[i];
    size += std::popcount(out[i]);
  }
  return size;
}

KELDA_CLONES
int IntersectionSize(const uint64_t* a, const uint64_t* b, int blocks) {
  int size = 0;
  for (int i = 0; i < blocks; ++i) size += std::popcount(a[i] & b[i]);
  return size;
}

KELDA_CLONES
int Size(const uint64_t* set, int blocks) {
  int size = 0;
  for (int i = 0; i < blocks; ++i) size += std::popcount(set[i]);
  return size;
}

int FirstMeeting(const uint64_t* a, const uint64_t* b, int blocks) {
  for (int i = 0; i < blocks; ++i)
    if (a[i] & b[i]) return i;
  return -1;
}

KELDA_CLONES
int FilterList(const RowFilter& filter, int* list, int count,
               uint32_t* united) {
  switch (filter.lanes) {
    case 4:
      return Filter<1>(filter, list, count, united);
    case 8:
      return Filter<2>(filter, list, count, united);
    case 12:
      return Filter<3>(filter, list, count, united);
    case 16:
      return Filter<4>(filter, list, count, united);
    default:
      return Filter<0>(filter, list, count, united);
  }
}

}  // namespace autofill
