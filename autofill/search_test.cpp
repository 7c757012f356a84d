#include "autofill/search.h"

#include <gtest/gtest.h>

#include "autofill/testing.h"

namespace autofill {
namespace {

const std::function<bool()> kNeverStop = [] { return false; };

// Long enough for both ways to choose.
TEST(Search, GoesOnWhereItPaused) {
  const Board board(ReadGrid("am15-01.txt"));
  Search whole(board, Level2(), {});
  ASSERT_EQ(whole.Run(1 << 30, kNeverStop), Outcome::Filled);
  Search pieces(board, Level2(), {});
  Outcome outcome;
  int pauses = 0;
  while ((outcome = pieces.Run(500, kNeverStop)) == Outcome::Paused) ++pauses;
  EXPECT_EQ(outcome, Outcome::Filled);
  EXPECT_GT(pauses, 1);
  EXPECT_GT(whole.Choices().Work(), 0);
  EXPECT_EQ(pieces.Filled(), whole.Filled());
  EXPECT_EQ(pieces.Statistics().fails, whole.Statistics().fails);
}

}  // namespace
}  // namespace autofill
