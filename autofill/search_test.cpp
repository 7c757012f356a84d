#include "autofill/search.h"

#include <gtest/gtest.h>

#include "autofill/testing.h"

namespace autofill {
namespace {

const std::function<bool()> kNeverStop = [] { return false; };

// What a search has learnt must not cut off any fill: forced to become a
// fill that another search found, it finds nothing against it.
TEST(Search, NogoodsRuleOutNoFill) {
  const WordList& words = Level2();
  for (const char* name : {"am15-07.txt", "theme-am15-05.txt"}) {
    for (int shared : {0, 6}) {
      Board board(ReadGrid(name));
      Search::Settings settings;
      settings.limits.shared = shared;
      Search other(board, words, settings);
      if (other.Run(600'000, kNeverStop) != Outcome::Filled) continue;
      for (uint64_t seed = 2; seed < 5; ++seed) {
        settings.seed = seed;
        Search search(board, words, settings);
        search.Run(20'000, kNeverStop);
        EXPECT_GT(search.Statistics().fails, 20);
        search.Rewind();
        for (int cell = 0; cell < board.CellCount(); ++cell) {
          search.NarrowRoot(cell, other.RootLetters(cell));
        }
        EXPECT_TRUE(search.Propagate()) << name << " seed " << seed;
        EXPECT_EQ(search.Text(), other.Text());
      }
    }
  }
}

TEST(Search, GoesOnWhereItPaused) {
  Board board(ReadGrid("theme-am15-05.txt"));
  Search whole(board, Level2(), {});
  ASSERT_EQ(whole.Run(1 << 30, kNeverStop), Outcome::Filled);
  Search pieces(board, Level2(), {});
  Outcome outcome;
  int pauses = 0;
  while ((outcome = pieces.Run(500, kNeverStop)) == Outcome::Paused) ++pauses;
  EXPECT_EQ(outcome, Outcome::Filled);
  EXPECT_GT(pauses, 1);
  EXPECT_EQ(pieces.Text(), whole.Text());
  EXPECT_EQ(pieces.Statistics().fails, whole.Statistics().fails);
}

}  // namespace
}  // namespace autofill
