#include "autofill/nogoods.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "autofill/testing.h"

namespace autofill {
namespace {

using Sets = std::vector<uint32_t>;  // letters by cell

struct Nogood {
  std::vector<Literal> literals;
  int spread;
};

// Of two to four different cells; small sets of letters, so that they hold
// soon.
std::vector<Nogood> RandomNogoods(std::mt19937& random, int cells) {
  std::vector<Nogood> nogoods(4 + random() % 60);
  for (size_t i = 0; i < nogoods.size(); ++i) {
    std::set<int> chosen;
    while (chosen.size() < 2 + i % 3)
      chosen.insert(static_cast<int>(random() % cells));
    for (const int cell : chosen) {
      uint32_t lost = 0;
      while (!lost) lost = random() & random() & random() & kAllLetters;
      nogoods[i].literals.push_back({cell, lost});
    }
    nogoods[i].spread = static_cast<int>(i);
  }
  std::shuffle(nogoods.begin(), nogoods.end(), random);
  return nogoods;
}

// All that the nogoods call for, in the plainest way; false when one of them
// is violated.
bool Close(const std::vector<Nogood>& nogoods, Sets& letters) {
  for (bool changed = true; changed;) {
    changed = false;
    for (const Nogood& nogood : nogoods) {
      std::vector<Literal> open;
      for (const Literal literal : nogood.literals)
        if (letters[literal.cell] & literal.lost) open.push_back(literal);
      if (open.empty()) return false;
      if (open.size() > 1) continue;
      uint32_t& cell = letters[open[0].cell];
      changed |= (cell & open[0].lost) != cell;
      cell &= open[0].lost;
    }
  }
  return true;
}

Sets SetsOf(const Store& store) {
  Sets letters;
  for (int c = 0; c < store.GetBoard().CellCount(); ++c)
    letters.push_back(store.LettersOf(c));
  return letters;
}

bool VisitAll(Store& store, Nogoods& nogoods, size_t& visited) {
  while (visited < store.Events().size()) {
    const Event event = store.Events()[visited++];
    if (!nogoods.Visit(store, event)) return false;
  }
  return true;
}

Nogoods Learn(const Store& store, const std::vector<Nogood>& all) {
  Nogoods nogoods(store.GetBoard().CellCount(), 1 << 12);
  for (const Nogood& nogood : all)
    nogoods.Add(store, nogood.literals, nogood.spread);
  return nogoods;
}

// A decision: some of the letters of a cell.
void Decide(Store& store, std::mt19937& random) {
  const int cell = static_cast<int>(random() % store.GetBoard().CellCount());
  uint32_t chosen = 0;
  while (!(chosen & store.LettersOf(cell)))
    chosen = random() & random() & kAllLetters;
  store.Narrow(cell, chosen, kDecision);
}

// Down some levels, back to any of them, down again: the watches must find
// each consequence and each violation, and no other.
RC_GTEST_PROP(Nogoods, WatchesFindWhatAPlainReadingFinds, (unsigned seed)) {
  std::mt19937 random(seed);
  const WordList words = ListOf({"CAT"});
  const Board board(ProblemOf(Rows{"......"}));
  Store store(board, words, {});
  store.ClearQueue();
  const auto all = RandomNogoods(random, board.CellCount());
  Nogoods nogoods = Learn(store, all);
  size_t visited = store.Events().size();
  for (int step = 0; step < 60; ++step) {
    store.Push();
    Sets wanted = SetsOf(store);
    Decide(store, random);
    for (int c = 0; c < board.CellCount(); ++c) wanted[c] &= store.LettersOf(c);
    const bool consistent = Close(all, wanted);
    RC_ASSERT(VisitAll(store, nogoods, visited) == consistent);
    if (consistent) {
      RC_ASSERT(SetsOf(store) == wanted);
    } else {
      const int ref = nogoods.Violated();
      for (int i = 0; i < nogoods.SizeOf(ref); ++i)
        RC_ASSERT(nogoods.At(ref, i).Holds(store));
    }
    if (consistent && random() % 4) continue;
    store.BackTo(static_cast<int>(random() % store.Level()));
    visited = store.Events().size();
  }
}

// After a clearing at level 0 the half that spans fewer levels, and nothing
// else, is still in force.
RC_GTEST_PROP(Nogoods, ReductionKeepsTheBetterHalf, (unsigned seed)) {
  std::mt19937 random(seed);
  const WordList words = ListOf({"CAT"});
  const Board board(ProblemOf(Rows{"......"}));
  Store store(board, words, {});
  store.ClearQueue();
  const auto all = RandomNogoods(random, board.CellCount());
  Nogoods nogoods = Learn(store, all);
  size_t visited = store.Events().size();
  for (int i = 0; i < 2; ++i) {
    Decide(store, random);
    if (!VisitAll(store, nogoods, visited)) return;
  }
  const int half = nogoods.Count() / 2;
  std::vector<Nogood> better;
  for (const Nogood& nogood : all)
    if (nogood.spread < half) better.push_back(nogood);
  nogoods.Reduce(store);
  RC_ASSERT(nogoods.Count() <= half);
  for (int i = 0; i < 20; ++i) {
    store.Push();
    Sets wanted = SetsOf(store);
    Decide(store, random);
    for (int c = 0; c < board.CellCount(); ++c) wanted[c] &= store.LettersOf(c);
    const bool consistent = Close(better, wanted);
    RC_ASSERT(VisitAll(store, nogoods, visited) == consistent);
    if (consistent) RC_ASSERT(SetsOf(store) == wanted);
    store.BackTo(0);
    visited = store.Events().size();
  }
}

TEST(Nogoods, AreFullBeforeTheMemoryIs) {
  const WordList words = ListOf({"CAT"});
  const Board board(ProblemOf(Rows{"..."}));
  const Store store(board, words, {});
  Nogoods nogoods(board.CellCount(), 20);
  const std::vector<Literal> literals = {{0, 1}, {1, 2}};
  for (int i = 0; i < 2; ++i) {
    EXPECT_FALSE(nogoods.Full(2));
    nogoods.Add(store, literals, 1);
  }
  EXPECT_TRUE(nogoods.Full(2));
}

}  // namespace
}  // namespace autofill
