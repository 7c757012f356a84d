#include "autofill/chooser.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace autofill {

constexpr int kCandidates = 256;
constexpr double kUncrossed = 1e300;  // such a cell comes last
constexpr float kWordNoise = 0.5;
constexpr float kLetterNoise = 0.2f;
constexpr float kScoreWeight = 0.3f;  // a point against a factor of e^0.3
constexpr int kSliceOfWords = 1 << 14;
constexpr double kUrgency = 0.3;  // the power of an entry's weight

Chooser::Chooser(const Store& store, uint64_t seed,
                 const std::vector<std::vector<int>>& earlier)
    : store_(store),
      earlier_(earlier),
      random_(seed),
      weights_(store.GetBoard().EntryCount()),
      beliefWeights_(store.GetBoard().EntryCount()),
      kept_(store.GetBoard().EntryCount(), -1),
      candidates_(kCandidates),
      beliefs_(store),
      urgency_(store.GetBoard().EntryCount()) {}

void Weights::Bump(int entry) {
  values_[entry] += increment_;
  if (values_[entry] < 1e100) return;
  for (double& value : values_) value *= 1e-100;
  increment_ *= 1e-100;
}

void Chooser::Bump(int entry) {
  weights_.Bump(entry);
  if (useBeliefs_) beliefWeights_.Bump(entry);
}

void Chooser::Decay() {
  weights_.Decay();
  if (useBeliefs_) beliefWeights_.Decay();
}

void Chooser::KeepWords() {
  for (int e = 0; e < store_.GetBoard().EntryCount(); ++e)
    if (store_.Done(e)) kept_[e] = store_.WordOf(e);
}

bool Chooser::Fits(int entry, int word) const {
  const LengthTable& table = store_.TableOf(entry);
  const uint32_t* row = table.Row(word);
  const int first = store_.GetBoard().Entries()[entry].first;
  for (int p = 0; p < table.length; ++p)
    if (!(row[p] & store_.LettersAt(first + p))) return false;
  return store_.Has(entry, word);
}

bool Chooser::Prepare() {
  return !useBeliefs_ || beliefs_.Settle(kSliceOfWords);
}

bool Chooser::Next(Literal& literal) {
  if (useBeliefs_ && SurestLetter(literal)) return true;
  if (entry_ < 0 || store_.Done(entry_) || !Fits(entry_, word_)) {
    entry_ = NextEntry();
    if (entry_ < 0) return false;
    word_ = kept_[entry_];
    if (word_ < 0 || !Fits(entry_, word_)) word_ = BestWord(entry_);
  }
  const int position = NextPosition(entry_);
  const int offset = position - store_.GetBoard().Entries()[entry_].first;
  literal = {store_.GetBoard().CellOf(position),
             kAllLetters & ~store_.TableOf(entry_).Row(word_)[offset]};
  return true;
}

// Only of cells that two of our entries cross.
bool Chooser::SurestLetter(Literal& literal) {
  const Board& board = store_.GetBoard();
  for (int e = 0; e < board.EntryCount(); ++e)
    urgency_[e] = static_cast<float>(std::pow(beliefWeights_[e], kUrgency));
  std::uniform_real_distribution<float> noise(1, 1 + kLetterNoise);
  float bestValue = 0;
  for (int p = 0; p < board.PositionCount(); ++p) {
    const int partner = beliefs_.Partner(p);
    if (partner < p || std::has_single_bit(store_.LettersAt(p))) continue;
    if (!store_.Ours(board.EntryOf(p))) continue;
    const Beliefs::Guess guess = beliefs_.Likeliest(p);
    float value =
        guess.chance *
        (urgency_[board.EntryOf(p)] + urgency_[board.EntryOf(partner)]) *
        noise(random_);
    if (value <= bestValue) continue;
    bestValue = value;
    literal = {board.CellOf(p), kAllLetters & ~(1u << guess.letter)};
  }
  return bestValue > 0;
}

int Chooser::NextEntry() const {
  int best = -1;
  double bestValue = 0;
  for (int e = 0; e < store_.GetBoard().EntryCount(); ++e) {
    if (store_.Done(e)) continue;
    const double value = std::sqrt(store_.SizeOf(e)) / weights_[e];
    if (best < 0 || value < bestValue) best = e, bestValue = value;
  }
  return best;
}

void Chooser::CountCrossings(int entry) {
  const Board& board = store_.GetBoard();
  const int first = board.Entries()[entry].first;
  for (int p = 0; p < board.Entries()[entry].length; ++p) {
    const int crossing = board.Crossing(first + p);
    if (crossing < 0 || std::has_single_bit(store_.LettersAt(first + p))) {
      std::fill_n(support_[p], kLetters, 0.0f);
      continue;
    }
    int counts[kLetters];
    store_.CountLetters(board.EntryOf(crossing), crossing, counts);
    for (int letter = 0; letter < kLetters; ++letter)
      support_[p][letter] = std::log(static_cast<float>(counts[letter]) + 0.1f);
  }
}

int Chooser::BestWord(int entry) {
  const int count = store_.CopyWords(entry, kCandidates, candidates_.data());
  if (count == 1) return candidates_[0];
  CountCrossings(entry);
  const LengthTable& table = store_.TableOf(entry);
  std::uniform_real_distribution<float> chance(0, 1);
  int best = -1;
  float bestValue = 0;
  for (int i = 0; i < count; ++i) {
    const int word = candidates_[i];
    const uint8_t* letters = table.Letters(word);
    float value =
        kScoreWeight * table.scores[word] + kWordNoise * chance(random_);
    for (const auto& fill : earlier_) value -= fill[entry] == word ? 1e3f : 0;
    for (int p = 0; p < table.length; ++p) value += support_[p][letters[p]];
    if (best < 0 || value > bestValue) best = word, bestValue = value;
  }
  return best;
}

// The cell whose crossing is the most constrained.
int Chooser::NextPosition(int entry) const {
  const Board& board = store_.GetBoard();
  int first = board.Entries()[entry].first, best = -1;
  double bestSize = 0;
  for (int p = 0; p < board.Entries()[entry].length; ++p) {
    if (std::has_single_bit(store_.LettersAt(first + p))) continue;
    const int crossing = board.Crossing(first + p);
    double size = kUncrossed;
    if (crossing >= 0) {
      const int other = board.EntryOf(crossing);
      size = store_.SizeOf(other) / weights_[other];
    }
    if (best < 0 || size < bestSize) best = first + p, bestSize = size;
  }
  return best;
}

}  // namespace autofill
