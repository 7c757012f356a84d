#include "autofill/beliefs.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace autofill {

namespace {

// How many may tell for one choice, by entry.
constexpr float kTells = 0.2f;
constexpr float kTellsAtRoot = 2;
// The change that calls for telling again: larger sets take more time.
constexpr float kTolerance = 0.2f;
constexpr float kTolerancePerWord = 0.0004f;
constexpr float kLeast = 0.01f;  // no letter counts less: messages can err
constexpr float kScorePrior = 0.02f;

// A point counts for a factor of e to the kScorePrior: less than where entries
// are chosen, as who needs beliefs wants a fill first of all.
const float* Priors() {
  static const auto priors = [] {
    std::array<float, kBestScore + 1> values;
    for (int score = 0; score <= kBestScore; ++score)
      values[score] =
          std::exp(kScorePrior * static_cast<float>(score - kBestScore));
    return values;
  }();
  return priors.data();
}

}  // namespace

Beliefs::Beliefs(const Store& store)
    : store_(store),
      partner_(store.GetBoard().PositionCount(), -1),
      messages_(
          static_cast<size_t>(store.GetBoard().PositionCount()) * kLetterStride,
          1.0f),
      rootMessages_(messages_) {
  const Board& board = store.GetBoard();
  for (int p = 0; p < board.PositionCount(); ++p) {
    const int crossing = board.CellOf(p) < 0 ? -1 : board.Crossing(p);
    if (crossing >= 0 && store.Ours(board.EntryOf(crossing)))
      partner_[p] = crossing;
  }
}

// As if each entry had told once, before it was told anything.
void Beliefs::BeginWithCounts() {
  const Board& board = store_.GetBoard();
  told_.assign(board.EntryCount(), {});
  for (int e = 0; e < board.EntryCount(); ++e) {
    if (store_.Done(e)) continue;
    const float size = static_cast<float>(store_.SizeOf(e));
    told_[e].size = store_.SizeOf(e);
    for (int i = 0; i < board.Entries()[e].length; ++i) {
      const int position = board.Entries()[e].first + i;
      if (partner_[position] < 0) continue;
      int counts[kLetters];
      float values[kLetters];
      store_.CountLetters(e, position, counts);
      for (int letter = 0; letter < kLetters; ++letter)
        values[letter] = static_cast<float>(counts[letter]) * kLetters / size;
      SetMessage(position, values);
    }
  }
}

void Beliefs::Rewind() {
  messages_ = rootMessages_;
  told_ = rootTold_;
  tells_ = 0;
}

// What has changed since the entry told, in tolerances.
float Beliefs::News(int entry) const {
  const float size = static_cast<float>(store_.SizeOf(entry));
  const float then = static_cast<float>(told_[entry].size);
  const float change = std::abs(size - then) / std::min(size, then);
  return (told_[entry].change + change) /
         (kTolerance + kTolerancePerWord * size);
}

int Beliefs::MostToTell() const {
  int most = -1;
  float mostNews = 1;
  for (int e = 0; e < store_.GetBoard().EntryCount(); ++e) {
    if (store_.Done(e)) continue;
    const float news = News(e);
    if (news > mostNews) most = e, mostNews = news;
  }
  return most;
}

bool Beliefs::Settle(int64_t words) {
  if (told_.empty()) BeginWithCounts();
  int64_t end = wordsRead_ + words;
  const float each = store_.Level() == 0 ? kTellsAtRoot : kTells;
  auto most = static_cast<int>(
      std::ceil(each * static_cast<float>(store_.GetBoard().EntryCount())));
  for (; tells_ < most; ++tells_) {
    if (wordsRead_ >= end) return false;
    const int entry = MostToTell();
    if (entry < 0) break;
    Tell(entry);
  }
  tells_ = 0;
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
  const int first = store_.GetBoard().Entries()[entry].first;
  uint8_t places[kLongestWord];
  alignas(64) float weights[kLongestWord * kLetterStride];
  alignas(64) float sums[kLongestWord * kLetterStride];
  int count = 0;
  for (int p = 0; p < table.length; ++p) {
    const int partner = partner_[first + p];
    if (partner < 0 || std::has_single_bit(store_.LettersAt(first + p)))
      continue;
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
  float total = 0;
  for (int letter = 0; letter < kLetters; ++letter)
    total += sums[letter] /= weights[letter];
  if (!(total > 0 && total < 1e35f)) return;  // out of range: says nothing new
  for (int letter = 0; letter < kLetters; ++letter)
    sums[letter] *= kLetters / total;
  SetMessage(position, sums);
}

void Beliefs::SetMessage(int position, const float* values) {
  float* message = &messages_[position * kLetterStride];
  float change = 0;
  for (int letter = 0; letter < kLetters; ++letter) {
    change += std::abs(values[letter] - message[letter]);
    message[letter] = values[letter];
  }
  const int other = store_.GetBoard().EntryOf(partner_[position]);
  told_[other].change += change / kLetters;
}

Beliefs::Guess Beliefs::Likeliest(int position) const {
  const float* own = &messages_[position * kLetterStride];
  const float* other = &messages_[partner_[position] * kLetterStride];
  uint32_t letters = store_.LettersAt(position);
  Guess best{std::countr_zero(letters), 0};
  float total = 0;
  for (uint32_t rest = letters; rest; rest &= rest - 1) {
    const int letter = std::countr_zero(rest);
    const float chance = (own[letter] + kLeast) * (other[letter] + kLeast);
    total += chance;
    if (chance > best.chance) best = {letter, chance};
  }
  best.chance /= total;
  return best;
}

}  // namespace autofill
