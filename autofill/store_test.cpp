#include "autofill/store.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <bit>

#include "autofill/testing.h"

namespace autofill {
namespace {

// Arc consistency in the plainest way: each entry's words are filtered by
// the cells' letters and the letters by the words until nothing changes; with
// `used`, a word that is the only one of an entry goes from the others.
class NaiveSets {
 public:
  std::vector<uint32_t> letters;  // by cell
  bool failed = false;

  NaiveSets(const Board& board, const std::vector<std::string>& words,
            bool used)
      : letters(board.CellCount(), kAllLetters), board_(board), words_(words) {
    for (int c = 0; c < board.CellCount(); ++c)
      if (board.Cells()[c].given)
        letters[c] = 1u << (board.Cells()[c].given - 'A');
    only_.resize(board.EntryCount());
    for (int e = 0; e < board.EntryCount(); ++e)
      if (used && board.Entries()[e].given) only_[e] = board.Mask(e);
    for (bool changed = true; changed && !failed;) {
      changed = false;
      for (int e = 0; e < board.EntryCount(); ++e)
        if (!board.Entries()[e].given) changed |= Revise(e, used);
    }
  }

 private:
  bool Fits(int e, const std::string& word) const {
    const BoardEntry& entry = board_.Entries()[e];
    if (static_cast<int>(word.size()) != entry.length) return false;
    for (int k = 0; k < entry.length; ++k)
      if (!(letters[board_.CellOf(entry.first + k)] >> (word[k] - 'A') & 1))
        return false;
    for (int other = 0; other < board_.EntryCount(); ++other)
      if (other != e && only_[other] == word) return false;
    return true;
  }
  bool Revise(int e, bool used) {
    const BoardEntry& entry = board_.Entries()[e];
    std::vector<uint32_t> seen(entry.length);
    std::vector<std::string> fitting;
    for (const std::string& word : words_) {
      if (!Fits(e, word)) continue;
      fitting.push_back(word);
      for (int k = 0; k < entry.length; ++k) seen[k] |= 1u << (word[k] - 'A');
    }
    bool changed = false;
    for (int k = 0; k < entry.length; ++k) {
      uint32_t& cell = letters[board_.CellOf(entry.first + k)];
      changed |= (cell & seen[k]) != cell;
      cell &= seen[k];
      failed |= !cell;
    }
    if (used && fitting.size() == 1 && only_[e].empty()) {
      only_[e] = fitting[0];
      changed = true;
    }
    return changed;
  }

  const Board& board_;
  const std::vector<std::string>& words_;
  std::vector<std::string> only_;  // by entry
};

// Lists look at once at what other entries use, so they know all that the
// naive sets know; bitsets may know less.
RC_GTEST_PROP(Store, NarrowsAsPlainArcConsistencyDoes, (unsigned seed)) {
  std::mt19937 random(seed);
  const bool lists = random() % 2;
  const auto words = RandomWords(random, lists ? 60 : 3000, 8);
  const WordList list = ListOf(words);
  const Board board(ProblemOf(RandomShape(random, 8)));
  Store store(board, list, {});
  const bool settled = PropagateAll(store);
  const NaiveSets least(board, words, true), most(board, words, false);
  if (lists) RC_ASSERT(settled == !least.failed);
  if (!settled) {
    RC_ASSERT(least.failed);
    return;
  }
  RC_ASSERT(!most.failed);
  for (int c = 0; c < board.CellCount(); ++c) {
    RC_ASSERT((store.LettersOf(c) & ~most.letters[c]) == 0u);
    if (lists) RC_ASSERT(store.LettersOf(c) == least.letters[c]);
    if (!least.failed)
      RC_ASSERT((least.letters[c] & ~store.LettersOf(c)) == 0u);
  }
}

RC_GTEST_PROP(Store, GoesBackToExactlyWhatItWas, (unsigned seed)) {
  std::mt19937 random(seed);
  auto words = RandomWords(random, 2000, 9);
  const WordList list = ListOf(words);
  Board board(ProblemOf(RandomShape(random, 9)));
  Store store(board, list, {});
  if (board.CellCount() == 0 || !PropagateAll(store)) return;
  auto snapshot = [&] {
    std::vector<int> all;
    for (int p = 0; p < board.PositionCount(); ++p)
      all.push_back(static_cast<int>(store.LettersAt(p)));
    for (int e = 0; e < board.EntryCount(); ++e) {
      all.push_back(store.SizeOf(e));
      all.push_back(store.WordOf(e));
      if (store.Done(e)) continue;
      std::vector<int> set(store.SizeOf(e));
      store.CopyWords(e, store.SizeOf(e), set.data());
      std::sort(set.begin(), set.end());
      all.insert(all.end(), set.begin(), set.end());
    }
    return all;
  };
  std::vector<std::vector<int>> before;
  for (int step = 0; step < 30; ++step) {
    bool dead = false;
    if (store.Level() < 6) {
      before.push_back(snapshot());
      store.Push();
      const int cell = static_cast<int>(random() % board.CellCount());
      uint32_t letters = store.LettersOf(cell);
      store.Narrow(cell, letters & -letters, kDecision);
      dead = !PropagateAll(store);
    }
    if (dead || random() % 4 == 0) {
      const int level = static_cast<int>(random() % store.Level());
      store.BackTo(level);
      RC_ASSERT(snapshot() == before[level]);
      before.resize(level);
    }
    if (store.Level() == 6) {
      store.BackTo(0);
      RC_ASSERT(snapshot() == before[0]);
      before.clear();
    }
  }
}

TEST(Store, AWordInUseIsGoneElsewhere) {
  const WordList list = ListOf({"CAT", "DOG"});
  const Board board(ProblemOf({"CA.", "###", "..."}));
  Store store(board, list, {});
  ASSERT_TRUE(PropagateAll(store));
  EXPECT_EQ(list.OfLength(3).Text(store.WordOf(1)), "DOG");
}

}  // namespace
}  // namespace autofill
