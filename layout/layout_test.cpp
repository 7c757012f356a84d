#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

#include "grid/masks.h"
#include "layout/black_pair.h"
#include "layout/generate.h"
#include "layout/split.h"
#include "tests/fakes.h"

TEST(BlackPair, IsRefusedWhereItWouldSpoilTheGrid) {
  Desk desk({".......", ".......", ".......", "...A...", ".......", ".......",
             "......."});
  const auto may = [&](int row, int col) {
    return CanPlaceBlack(desk.state, {row, col});
  };
  EXPECT_FALSE(may(4, 4)) << "a letter is there";
  EXPECT_TRUE(may(1, 3)) << "the edge is no square unless the margin is";
  ASSERT_TRUE(TryPlaceBlack(desk.state, {2, 2}));
  EXPECT_TRUE(desk.state.IsBlack({6, 6}));
  EXPECT_EQ(CellsIn(desk.state.paint, ColourBlackSquare),
            (std::vector<Pos>{{2, 2}, {6, 6}}));
  EXPECT_FALSE(may(2, 5)) << "two white cells would lie between";
  EXPECT_FALSE(may(5, 2));
  EXPECT_TRUE(may(2, 4));
  EXPECT_TRUE(may(2, 3));
  RemoveBlackPair(desk.state, {2, 2});
  EXPECT_TRUE(may(2, 5));

  Desk boxed({".....", "..#..", ".#...", ".....", "....."});
  boxed.state.Grid[{4, 3}] = kBlackSquare;
  EXPECT_FALSE(CanPlaceBlack(boxed.state, {3, 4})) << "boxes (3, 3) in";
}

TEST(BlackPair, TheCentreIsItsOwnMirror) {
  Desk desk({".....", ".....", ".....", ".....", "....."});
  ASSERT_TRUE(TryPlaceBlack(desk.state, {3, 3}));
  CountBlackSquares(desk.state);
  EXPECT_EQ(desk.state.BlackSquareCount, 1);
}

namespace {

// Its longest slots are rows 3 and 5.
const std::vector<std::string> kTwoLongRows = {"#..#..#", "#..#..#", ".......",
                                               "###.###", ".......", "#..#..#",
                                               "#..#..#"};

}  // namespace

TEST(Split, TheLastOfTheLongestIsSplitFromItsMiddleOutward) {
  Desk desk(kTwoLongRows);
  BuildMaskList(desk.state);
  EXPECT_TRUE(CanSplitSlot(desk.state));
  // The middle, (5, 4), would leave two white cells above it.
  EXPECT_EQ(SplitLongestSlot(desk.state, desk.host), (Pos{5, 5}));
}

TEST(Split, ABlockedCellEndsTheSearchInItsSlot) {
  Desk desk(kTwoLongRows);
  BuildMaskList(desk.state);
  desk.state.List3.As<Pos>() = {{5, 4}};
  SplitMaxLine(desk.state, desk.host);
  EXPECT_EQ(desk.host.told.back(), "Split Line placed at 3 5");
  EXPECT_EQ(desk.state.Text2, " 20");
}

TEST(Split, NothingToSplitIsTold) {
  Desk desk({"###", "#.#", "###"});
  BuildMaskList(desk.state);
  EXPECT_FALSE(CanSplitSlot(desk.state));
  SplitMaxLine(desk.state, desk.host);
  EXPECT_EQ(desk.host.told.back(), "Split Line placed at-1-1");
}

namespace {

void AssertSymmetricAndOpen(const State& state) {
  const int n = state.GridSize;
  ForEachCell(n, [&](Pos p) {
    RC_ASSERT(state.IsBlack(p) == state.IsBlack(Mirror(p, n)));
    const bool boxedIn = state.IsBlack({p.row - 1, p.col}) &&
                         state.IsBlack({p.row + 1, p.col}) &&
                         state.IsBlack({p.row, p.col - 1}) &&
                         state.IsBlack({p.row, p.col + 1});
    RC_ASSERT(!boxedIn);
  });
}

}  // namespace

RC_GTEST_PROP(Layouts, AreSymmetricSoundAndAtTheirTarget,
              (bool lattice, bool ownTarget)) {
  Desk desk;
  desk.host.random.seed(*rc::gen::arbitrary<unsigned>());
  const int n = *rc::gen::inRange(2, 12) * 2 + 1;
  desk.state.Text3 = std::to_string(n);
  if (ownTarget)
    desk.state.Text2 = std::to_string(*rc::gen::inRange(1, n * n / 2));
  if (lattice) {
    desk.host.script = {{"2x2 Squares done, split remaining?", "yes"}};
    TwoByTwoLayout(desk.state, desk.host);
  } else {
    RandomBlackSquares(desk.state, desk.host);
  }
  AssertSymmetricAndOpen(desk.state);
  // Lattices have runs of one cell; runs of two never arise.
  for (const Slot& slot : FindSlots(desk.state, 2)) RC_ASSERT(slot.length != 2);
  if (lattice)
    for (const Slot& slot : desk.state.SlotCells.Slots())
      RC_ASSERT(slot.length <= LongestWordLength || desk.host.waitedForHalt);
  RC_ASSERT(desk.state.BlackSquareCount >= desk.state.BlackTarget ||
            desk.host.waitedForHalt);
  RC_ASSERT(desk.host.told.back() == Str(desk.state.BlackSquareCount) +
                                         " Squares and" + desk.state.Label1 +
                                         " Clues");
  RC_ASSERT(desk.host.pointer == PointerShape::Normal);
}

TEST(Layouts, TargetsFollowFromTheSize) {
  struct Case {
    int size;
    int target;
  };
  for (const Case& c :
       {Case{5, 5}, Case{9, 8}, Case{13, 38}, Case{15, 59}, Case{21, 125}}) {
    Desk desk;
    desk.state.Text3 = std::to_string(c.size);
    desk.host.haltAtPoll = 0;
    RandomBlackSquares(desk.state, desk.host);
    EXPECT_EQ(desk.state.BlackTarget, c.target) << c.size;
  }
  Desk desk;
  desk.state.Text3 = "13";
  desk.host.script = {{"2x2 Squares done", "no"}};
  TwoByTwoLayout(desk.state, desk.host);
  EXPECT_EQ(desk.state.BlackTarget, 49);
  EXPECT_EQ(FindSlots(desk.state, 1).size(), 7u * 2 + 6u * 7 * 2);
  EXPECT_EQ(std::ranges::count(Rows(desk.state)[1], '#'), 6);
}

TEST(Layouts, ATargetAboveHalfTheGridIsWarnedOf) {
  Desk desk;
  desk.state.Text3 = "5";
  desk.state.Text2 = "13";
  RandomBlackSquares(desk.state, desk.host);
  EXPECT_EQ(desk.host.told.front(),
            "Black squares will occupy more than 50% of the grid!");
  EXPECT_TRUE(desk.host.waitedForHalt);
}
