// The step-by-step fill written plainly: lists of strings, linear scans of
// the dictionary and of the lists.  It gives up where the real one backs
// out.  The benchmark holds the real one against it; both must fill a grid
// with the same words.

#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "dictionary/word_table.h"
#include "grid/masks.h"
#include "grid/slots.h"
#include "solver/solution_record.h"

class PlainFill {
 public:
  PlainFill(State& state, const WordTable& words)
      : state_(state), lists_(LongestWordLength + 1) {
    for (int n = 3; n <= LongestWordLength; ++n)
      for (int j = 1; j <= words.WordCount(n); ++j)
        lists_[n].push_back({std::string(words.WordAt(n, j)),
                             Padded(words.WordScore(n, j), 6)});
  }

  // Fills from a slot on; false when a slot has no candidate.
  bool Run(const Slot& start) {
    counts_ = {"00000" + start.Text()};
    while (true) {
      if (counts_.empty()) {
        RefreshMasks();
        CountMasks();
        if (counts_.empty()) return true;
      }
      if (!SolveSlot(SlotOf(counts_.front().substr(5)))) return false;
    }
  }

 private:
  struct ScoredWord {
    std::string word, score;
  };

  static Slot SlotOf(const std::string& text) {
    return {std::stoi(text.substr(0, 2)),
            Direction(text[2]),
            {std::stoi(text.substr(4, 2)), std::stoi(text.substr(7, 2))}};
  }
  static void InsertSorted(std::vector<std::string>& list,
                           const std::string& text) {
    list.insert(std::ranges::upper_bound(list, text), text);
  }
  std::string MaskOf(const Slot& slot) const {
    return std::string(SlotMask(state_, slot).View());
  }

  void RefreshMasks() {
    masks_.clear();
    for (const Slot& slot : FindSlots(state_, 2))
      if (MaskOf(slot).find('?') != std::string::npos)
        InsertSorted(masks_, slot.Text() + "=" + MaskOf(slot));
  }

  void MasksAround(const Slot& slot) {
    masks_.clear();
    const int i = state_.SlotCells.IndexAt(slot.first, slot.direction);
    for (int around : SlotsAround(state_.SlotCells, i)) {
      const Slot& other = state_.SlotCells.Slots()[around];
      InsertSorted(masks_, other.Text() + "=" + MaskOf(other));
    }
  }

  void FindMatches(const std::string& mask) {
    matches_.clear();
    for (const ScoredWord& candidate : lists_[mask.size()]) {
      std::size_t i = 0;
      while (i < mask.size() &&
             (mask[i] == '?' || mask[i] == candidate.word[i]))
        ++i;
      if (i == mask.size() &&
          std::ranges::find(used_, candidate.word) == used_.end())
        InsertSorted(matches_, candidate.score + candidate.word);
    }
  }

  // Whether every mask that was counted now has a word.
  bool CountMasks() {
    counts_.clear();
    bool fillable = true;
    for (const std::string& row : masks_) {
      const std::string mask = row.substr(10);
      if (mask.find('?') == std::string::npos) {
        const auto known =
            std::ranges::find(lists_[mask.size()], mask, &ScoredWord::word);
        if (known == lists_[mask.size()].end())
          InsertSorted(counts_, "00000" + row);
        continue;
      }
      if (mask == std::string(mask.size(), '?')) continue;
      const auto cached = std::ranges::find(cachedMasks_, mask);
      std::size_t count = 0;
      if (cached != cachedMasks_.end()) {
        count = cachedCounts_[cached - cachedMasks_.begin()];
      } else {
        FindMatches(mask);
        count = matches_.size();
        fillable = fillable && count > 0;
        cachedMasks_.push_back(mask);
        cachedCounts_.push_back(count);
      }
      InsertSorted(counts_, Padded(static_cast<long>(count), 5) + row);
    }
    return fillable;
  }

  bool SolveSlot(const Slot& slot) {
    FindMatches(MaskOf(slot));
    const std::vector<std::string> candidates = matches_;
    std::string best;
    int bestMinimum = 0;
    for (const std::string& candidate : candidates) {
      const std::string word = candidate.substr(6);
      WriteSlot(state_, slot.first, slot.direction, word);
      MasksAround(slot);
      if (!CountMasks()) {
        WriteSlot(state_, slot.first, slot.direction,
                  std::string(word.size(), ' '));
        continue;
      }
      const int minimum =
          counts_.empty() ? 0 : std::stoi(counts_.front().substr(0, 5));
      if (!counts_.empty() && minimum <= bestMinimum) continue;
      best = word;
      bestMinimum = std::max(bestMinimum, minimum);
    }
    if (best.empty()) return false;
    WriteSlot(state_, slot.first, slot.direction, best);
    used_.insert(used_.begin(), best);
    MasksAround(slot);
    CountMasks();
    return true;
  }

  State& state_;
  std::vector<std::vector<ScoredWord>> lists_;
  std::vector<std::string> used_, masks_, matches_, counts_, cachedMasks_;
  std::vector<std::size_t> cachedCounts_;
};
