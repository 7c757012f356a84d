#include "solver/matcher.h"

#include <algorithm>
#include <bit>

#include "grid/masks.h"

Matcher::Matcher(State& state, const WordTable& words)
    : state_(state), words_(words) {
  ForgetUsedWords();
  for (const UsedWord& used : state.List1.Read<UsedWord>()) Exclude(used);
}

void Matcher::ForgetUsedWords() {
  for (int n = 0; n <= LongestWordLength; ++n) {
    used_[n].assign(words_.Index(n).Blocks(), 0);
    usedAndNotTakenBack_[n] = used_[n];
  }
}

void Matcher::UseWord(const Word& word, bool takenBack) {
  state_.List1.As<UsedWord>().push_back({word, takenBack});
  Exclude({word, takenBack});
}

void Matcher::Exclude(const UsedWord& used) {
  // A word matches itself, and its doubles when the list has any.
  const int length = used.word.Size();
  const WordIndex& index = words_.Index(length);
  const Bits none(index.Blocks());
  index.Match(Mask(used.word.View()), none, matches_);
  for (std::size_t block = 0; block < matches_.size(); ++block) {
    used_[length][block] |= matches_[block];
    if (used.takenBack)
      usedAndNotTakenBack_[length][block] &= ~matches_[block];
    else
      usedAndNotTakenBack_[length][block] |= matches_[block];
  }
}

void Matcher::FindMatches(const Mask& mask, bool redoMode,
                          std::vector<Candidate>& matches) {
  matches.clear();
  const int length = mask.Size();
  if (length > LongestWordLength) return;
  const WordIndex& index = words_.Index(length);
  index.Match(mask, Excluded(length, redoMode), matches_);
  for (std::size_t block = 0; block < matches_.size(); ++block) {
    for (std::uint64_t bits = matches_[block]; bits != 0; bits &= bits - 1) {
      const int rank = static_cast<int>(block) * 64 + std::countr_zero(bits);
      const int j = index.PositionOf(rank);
      matches.push_back(
          {words_.WordScore(length, j), Word(words_.WordAt(length, j))});
    }
  }
}

int Matcher::CountMatches(const Mask& mask) {
  const int length = mask.Size();
  state_.List3.Refill<MatchedMask>().push_back({mask, state_.redoMode});
  if (length > LongestWordLength) return 0;
  return words_.Index(length).Count(mask, Excluded(length, state_.redoMode));
}

int Matcher::CountMaskMatches() {
  int failedSlot = kAllMasksFillable;
  auto& counts = state_.List5.Refill<CountRow>();
  const auto& rows = state_.List2.Read<SlotRow>();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Mask mask =
        rows[i].mask ? *rows[i].mask : SlotMask(state_, rows[i].slot);
    if (!IsOpen(mask)) {
      const bool known = mask.Size() <= LongestWordLength &&
                         FindWordIndex(words_, mask.View()) >= 0;
      if (!known) counts.push_back({0, rows[i].slot, mask});
      continue;
    }
    if (IsUntouched(mask)) continue;
    std::optional<int> count = state_.List7.Find(mask);
    if (!count) {
      count = CountMatches(mask);
      if (count == 0) failedSlot = static_cast<int>(i);
      state_.List7.Add(mask, *count);
    }
    counts.push_back({*count, rows[i].slot, mask});
  }
  std::ranges::sort(counts);
  return failedSlot;
}

void CheckAllMasks(State& state, const WordTable& words, Host& host) {
  const int failedSlot = Matcher(state, words).CountMaskMatches();
  if (failedSlot == kAllMasksFillable) {
    host.Tell("All masks can be filled");
    return;
  }
  host.Tell("cannot find match to mask:" +
            state.List2.Read<SlotRow>()[failedSlot].Text());
}
