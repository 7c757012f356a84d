#include "autofill/kernels.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <set>

#include "autofill/testing.h"

namespace autofill {
namespace {

using Bits = std::vector<uint64_t>;

Bits RandomBits(std::mt19937_64& random, int blocks) {
  Bits bits(blocks);
  for (uint64_t& block : bits) block = random() & random();
  return bits;
}

int Count(const Bits& bits) {
  int count = 0;
  for (uint64_t block : bits) count += std::popcount(block);
  return count;
}

RC_GTEST_PROP(Kernels, BitsetsAsBlockByBlock, (unsigned seed)) {
  std::mt19937_64 random(seed);
  const int blocks = 1 + static_cast<int>(random() % 70);
  Bits set = RandomBits(random, blocks), united(blocks);
  std::vector<Bits> others;
  std::vector<const uint64_t*> pointers;
  for (int i = random() % 5; i >= 0; --i)
    others.push_back(RandomBits(random, blocks));
  for (const Bits& other : others) {
    pointers.push_back(other.data());
    for (int b = 0; b < blocks; ++b) united[b] |= other[b];
  }
  Bits kept = set, dropped = set, both(blocks), wanted(blocks), rest(blocks);
  for (int b = 0; b < blocks; ++b) {
    wanted[b] = set[b] & united[b];
    rest[b] = set[b] & ~united[b];
  }
  const int count = static_cast<int>(pointers.size());
  RC_ASSERT(KeepUnion(kept.data(), pointers.data(), count, blocks) ==
            Count(wanted));
  RC_ASSERT(kept == wanted);
  RC_ASSERT(DropUnion(dropped.data(), pointers.data(), count, blocks) ==
            Count(rest));
  RC_ASSERT(dropped == rest);
  RC_ASSERT(Intersect(set.data(), united.data(), blocks, both.data()) ==
            Count(wanted));
  RC_ASSERT(both == wanted);
  RC_ASSERT(IntersectionSize(set.data(), united.data(), blocks) ==
            Count(wanted));
  RC_ASSERT(Size(set.data(), blocks) == Count(set));
  auto meets = std::find_if(wanted.begin(), wanted.end(),
                            [](uint64_t block) { return block != 0; });
  RC_ASSERT(FirstMeeting(set.data(), united.data(), blocks) ==
            (meets == wanted.end() ? -1 : meets - wanted.begin()));
}

// Words of one length, with what is asked of them.
struct Words {
  int length, lanes, count;
  std::vector<uint32_t> rows, mask;
  std::vector<int> list;

  Words(std::mt19937_64& random, int length)
      : length(length),
        lanes((length + 3) / 4 * 4),
        count(1 + static_cast<int>(random() % 100)),
        rows(static_cast<size_t>(count) * lanes),
        mask(lanes) {
    for (int word = 0; word < count; ++word) {
      for (int p = 0; p < length; ++p)
        rows[word * lanes + p] = 1u << random() % kLetters;
      if (random() % 2) list.push_back(word);
    }
    for (int p = 0; p < length; ++p)
      if (random() % length < 2) mask[p] = random() & kAllLetters;
  }
  bool Meets(int word) const {
    bool meets = false;
    for (int p = 0; p < length; ++p) meets |= rows[word * lanes + p] & mask[p];
    return meets;
  }
};

void CheckCollectAlive(const Words& words) {
  Bits bits(2);
  std::vector<int> wanted, out(words.count);
  for (const int word : words.list) {
    bits[word / 64] |= uint64_t{1} << word % 64;
    if (!words.Meets(word)) wanted.push_back(word);
  }
  const int size = static_cast<int>(words.list.size());
  for (const WordView view : {WordView{size, words.list.data(), nullptr, 0},
                              WordView{size, nullptr, bits.data(), 2}}) {
    const int found = CollectAlive(view, words.rows.data(), words.lanes,
                                   words.mask.data(), out.data());
    EXPECT_EQ(std::vector(out.begin(), out.begin() + found), wanted);
  }
}

void CheckFilterList(std::mt19937_64& random, const Words& words) {
  std::vector<uint32_t> allowed(words.lanes), union_(words.lanes),
      united(words.lanes);
  std::vector<uint8_t> positions;
  for (int p = 0; p < words.length; ++p) {
    allowed[p] = kAllLetters & ~words.mask[p];
    if (words.mask[p]) positions.push_back(static_cast<uint8_t>(p));
  }
  std::vector<int16_t> usedBy(words.count, -1);
  for (int16_t& user : usedBy) user = random() % 8 ? -1 : 3;
  std::set<int> wanted;
  for (const int word : words.list) {
    if (words.Meets(word) || usedBy[word] >= 0) continue;
    wanted.insert(word);
    for (int p = 0; p < words.lanes; ++p)
      union_[p] |= words.rows[word * words.lanes + p];
  }
  std::vector<int> list = words.list;
  const int kept = FilterList(
      {words.rows.data(), words.lanes, allowed.data(), positions.data(),
       static_cast<int>(positions.size()), usedBy.data()},
      list.data(), static_cast<int>(list.size()), united.data());
  EXPECT_EQ(std::set(list.begin(), list.begin() + kept), wanted);
  EXPECT_EQ(united, union_);
  // The others are still there, behind.
  std::sort(list.begin(), list.end());
  EXPECT_EQ(list, words.list);
}

void CheckAddWeights(std::mt19937_64& random, const Words& words) {
  std::vector<uint8_t> letters, scores(words.count), places;
  for (int word = 0; word < words.count; ++word) {
    for (int p = 0; p < words.length; ++p) {
      letters.push_back(static_cast<uint8_t>(
          std::countr_zero(words.rows[word * words.lanes + p])));
    }
    scores[word] = random() % 2;
  }
  for (int p = 0; p < words.length; ++p)
    if (random() % 3) places.push_back(static_cast<uint8_t>(p));
  std::vector<float> weights(places.size() * kLetterStride);
  for (float& weight : weights) weight = static_cast<float>(random() % 3);
  const float priors[] = {1, 0.5f};
  std::vector<float> wanted(weights.size());
  Bits bits(2);
  for (int word : words.list) {
    bits[word / 64] |= uint64_t{1} << word % 64;
    auto slot = [&](size_t i) {
      return i * kLetterStride + letters[word * words.length + places[i]];
    };
    float value = priors[scores[word]];
    for (size_t i = 0; i < places.size(); ++i) value *= weights[slot(i)];
    for (size_t i = 0; i < places.size(); ++i) wanted[slot(i)] += value;
  }
  const int size = static_cast<int>(words.list.size());
  for (const WordView view : {WordView{size, words.list.data(), nullptr, 0},
                              WordView{size, nullptr, bits.data(), 2}}) {
    std::vector<float> sums(weights.size());
    AddWeights({letters.data(), words.length, scores.data(), priors,
                places.data(), static_cast<int>(places.size()), weights.data()},
               view, sums.data());
    for (size_t i = 0; i < sums.size(); ++i)
      EXPECT_NEAR(sums[i], wanted[i], 1e-5f * wanted[i]);
  }
}

// The loops are unrolled for some lengths and numbers of places: each is tried.
TEST(Kernels, OfEachLengthDoAsWordByWord) {
  std::mt19937_64 random(1);
  for (int length = 1; length <= kLongestWord; ++length) {
    SCOPED_TRACE(length);
    for (int i = 0; i < 8; ++i) {
      const Words words(random, length);
      CheckCollectAlive(words);
      CheckFilterList(random, words);
      CheckAddWeights(random, words);
    }
  }
}

}  // namespace
}  // namespace autofill
