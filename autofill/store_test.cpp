#include "autofill/store.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <bit>

#include "autofill/testing.h"

namespace autofill {
namespace {

// Arc consistency in the plainest way: each entry's words are filtered by
// the cells' letters and the letters by the words until nothing changes.
struct NaiveSets {
  std::vector<uint32_t> letters;  // by cell
  bool failed = false;

  NaiveSets(const Board& board, const std::vector<std::string>& words) {
    letters.assign(board.CellCount(), kAllLetters);
    for (int c = 0; c < board.CellCount(); ++c) {
      if (board.Cells()[c].given) {
        letters[c] = 1u << (board.Cells()[c].given - 'A');
      }
    }
    PropagateAll(board, words);
  }
  void PropagateAll(const Board& board, const std::vector<std::string>& words) {
    for (bool changed = true; changed && !failed;) {
      changed = false;
      for (const Entry& entry : board.Entries()) {
        if (!entry.given) changed |= Revise(board, entry, words);
      }
    }
  }
  bool Revise(const Board& board, const Entry& entry,
              const std::vector<std::string>& words) {
    std::vector<uint32_t> seen(entry.length);
    for (const std::string& word : words) {
      if (static_cast<int>(word.size()) != entry.length) continue;
      bool fits = true;
      for (int k = 0; k < entry.length; ++k) {
        fits = fits &&
               (letters[board.CellOf(entry.first + k)] >> (word[k] - 'A') & 1);
      }
      for (int k = 0; fits && k < entry.length; ++k) {
        seen[k] |= 1u << (word[k] - 'A');
      }
    }
    bool changed = false;
    for (int k = 0; k < entry.length; ++k) {
      uint32_t& cell = letters[board.CellOf(entry.first + k)];
      changed |= (cell & seen[k]) != cell;
      cell &= seen[k];
      failed |= !cell;
    }
    return changed;
  }
};

// Words in use go beyond the naive sets, so the store may know more; where
// no entry is decided they must be equal.
void CheckAgainstNaive(const Store& store, const NaiveSets& naive, bool used) {
  for (int c = 0; c < store.GetBoard().CellCount(); ++c) {
    RC_ASSERT((store.LettersOf(c) & ~naive.letters[c]) == 0u);
    if (!used) RC_ASSERT(store.LettersOf(c) == naive.letters[c]);
  }
}

bool AnyDone(const Store& store) {
  for (int e = 0; e < store.GetBoard().EntryCount(); ++e) {
    if (store.Done(e)) return true;
  }
  return false;
}

RC_GTEST_PROP(Store, NarrowsAsPlainArcConsistencyDoes, (unsigned seed)) {
  std::mt19937 random(seed);
  // Many words, so that bitsets come before lists.
  auto words = RandomWords(random, random() % 2 ? 60 : 3000, 8);
  WordList list = ListOf(words);
  Board board(RandomGrid(random, 8));
  Store store(board, list, {});
  bool settled = PropagateAll(store);
  NaiveSets naive(board, words);
  if (!settled) {
    RC_ASSERT(naive.failed || board.EntryCount() > 1);
    return;
  }
  RC_ASSERT(!naive.failed);
  CheckAgainstNaive(store, naive, AnyDone(store));
}

RC_GTEST_PROP(Store, GoesBackToExactlyWhatItWas, (unsigned seed)) {
  std::mt19937 random(seed);
  auto words = RandomWords(random, 2000, 9);
  WordList list = ListOf(words);
  Board board(RandomGrid(random, 9));
  Store store(board, list, {});
  if (board.CellCount() == 0 || !PropagateAll(store)) return;
  auto snapshot = [&] {
    std::vector<int> all;
    for (int p = 0; p < board.PositionCount(); ++p) {
      all.push_back(static_cast<int>(store.LettersAt(p)));
    }
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
      int cell = static_cast<int>(random() % board.CellCount());
      uint32_t letters = store.LettersOf(cell);
      store.Narrow(cell, letters & -letters, kDecision);
      dead = !PropagateAll(store);
    }
    if (dead || random() % 4 == 0) {
      int level = static_cast<int>(random() % store.Level());
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
  WordList list = ListOf({"CAT", "DOG"});
  Board board({"CA.", "###", "..."});
  Store store(board, list, {});
  ASSERT_TRUE(PropagateAll(store));
  EXPECT_EQ(list.OfLength(3).Text(store.WordOf(1)), "DOG");
}

}  // namespace
}  // namespace autofill
