#include "autofill/beliefs.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <random>
#include <utility>

namespace autofill {

constexpr int kPasses = 3;
constexpr int kRootPasses = 6;
// The change that calls for telling again: larger sets take more time.
constexpr float kTolerance = 0.2f;
constexpr float kTolerancePerWord = 0.0002f;
constexpr float kLeast = 1e-4f;  // no letter counts less: messages can err
constexpr float kScorePrior = 0.05f;

// A point counts for a factor of e to the kScorePrior: less than where entries
// are chosen, as who needs beliefs wants a fill first of all.
static const float* Priors() {
  static const auto priors = [] {
    std::array<float, kBestScore + 1> values;
    for (int score = 0; score <= kBestScore; ++score) {
      values[score] =
          std::exp(kScorePrior * static_cast<float>(score - kBestScore));
    }
    return values;
  }();
  return priors.data();
}

Beliefs::Beliefs(const Store& store, uint64_t seed)
    : store_(store),
      partner_(store.GetBoard().PositionCount(), -1),
      messages_(static_cast<size_t>(store.GetBoard().PositionCount()) *
                kLetterStride),
      told_(store.GetBoard().EntryCount()) {
  const Board& board = store.GetBoard();
  for (int p = 0; p < board.PositionCount(); ++p) {
    int crossing = board.CellOf(p) < 0 ? -1 : board.Crossing(p);
    if (crossing >= 0 && store.Ours(board.EntryOf(crossing))) {
      partner_[p] = crossing;
    }
  }
  std::minstd_rand random(static_cast<unsigned>(seed));
  std::uniform_real_distribution<float> about(0.5f, 1.5f);
  for (float& message : messages_) message = about(random);
  rootMessages_ = messages_;
  rootTold_ = told_;
}

void Beliefs::Rewind() {
  messages_ = rootMessages_;
  told_ = rootTold_;
  pass_ = next_ = 0;
  changed_ = false;
}

bool Beliefs::ToldEnough(int entry) const {
  int size = store_.SizeOf(entry);
  if (told_[entry].size == 0) return false;
  float ratio =
      static_cast<float>(size) / static_cast<float>(told_[entry].size);
  return told_[entry].change + std::abs(std::log(ratio)) <=
         kTolerance + kTolerancePerWord * static_cast<float>(size);
}

bool Beliefs::Settle(int64_t words) {
  int64_t end = wordsRead_ + words;
  int passes = store_.Level() == 0 ? kRootPasses : kPasses;
  for (; pass_ < passes; ++pass_) {
    for (; next_ < store_.GetBoard().EntryCount(); ++next_) {
      if (wordsRead_ >= end) return false;
      if (store_.Done(next_) || ToldEnough(next_)) continue;
      Tell(next_);
      changed_ = true;
    }
    next_ = 0;
    if (!std::exchange(changed_, false)) break;
  }
  pass_ = 0;
  if (store_.Level() == 0) {
    rootMessages_ = messages_;
    rootTold_ = told_;
  }
  return true;
}

// The sum over the words with a letter has that letter's own weight in every
// product; without it, it is what the other cells say.
void Beliefs::Tell(int entry) {
  const LengthTable& table = store_.TableOf(entry);
  int first = store_.GetBoard().Entries()[entry].first;
  uint8_t places[kLongestWord];
  alignas(64) float weights[kLongestWord * kLetterStride];
  alignas(64) float sums[kLongestWord * kLetterStride];
  int count = 0;
  for (int p = 0; p < table.length; ++p) {
    int partner = partner_[first + p];
    if (partner < 0 || std::has_single_bit(store_.LettersAt(first + p))) {
      continue;
    }
    for (int letter = 0; letter < kLetters; ++letter) {
      weights[count * kLetterStride + letter] =
          std::max(messages_[partner * kLetterStride + letter], kLeast);
    }
    places[count++] = static_cast<uint8_t>(p);
  }
  std::fill_n(sums, count * kLetterStride, 0.0f);
  AddWeights({table.letters.data(), table.length, table.scores.data(), Priors(),
              places, count, weights},
             store_.WordsOf(entry), sums);
  for (int i = 0; i < count; ++i) {
    Send(first + places[i], weights + i * kLetterStride,
         sums + i * kLetterStride);
  }
  wordsRead_ += store_.SizeOf(entry);
  told_[entry] = {store_.SizeOf(entry), 0};
}

void Beliefs::Send(int position, const float* weights, float* sums) {
  float total = 0, change = 0;
  for (int letter = 0; letter < kLetters; ++letter) {
    total += sums[letter] /= weights[letter];
  }
  if (!(total > 0 && total < 1e35f)) return;  // out of range: says nothing new
  float* message = &messages_[position * kLetterStride];
  for (int letter = 0; letter < kLetters; ++letter) {
    float value = sums[letter] * (kLetters / total);
    change += std::abs(value - message[letter]);
    message[letter] = value;
  }
  int other = store_.GetBoard().EntryOf(partner_[position]);
  told_[other].change += change / kLetters;
}

Beliefs::Guess Beliefs::Likeliest(int position) const {
  const float* own = &messages_[position * kLetterStride];
  const float* other = &messages_[partner_[position] * kLetterStride];
  uint32_t letters = store_.LettersAt(position);
  Guess best{std::countr_zero(letters), 0};
  float total = 0;
  for (uint32_t rest = letters; rest; rest &= rest - 1) {
    int letter = std::countr_zero(rest);
    float chance = (own[letter] + kLeast) * (other[letter] + kLeast);
    total += chance;
    if (chance > best.chance) best = {letter, chance};
  }
  best.chance /= total;
  return best;
}

}  // namespace autofill
