#include "grid/new_grid.h"

#include <gtest/gtest.h>

#include "grid/drawing.h"
#include "grid/masks.h"
#include "tests/fakes.h"

TEST(NewGrid, SizeBecomesOddOnLeavingAndIsCheckedOnDrawing) {
  struct Case {
    const char* typed;
    const char* left;
    const char* drawn;
    int size;
  };
  for (const Case& c : {Case{"12", "13", "13", 13}, Case{"4", "5", "5", 5},
                        Case{"53", "53", "13", 13}, Case{"52", "53", "13", 13},
                        Case{"", "1", "13", 13}, Case{"51", "51", "51", 51},
                        Case{"99999", "32767", "13", 13}}) {
    Desk desk;
    EditGridSize(desk.state, c.typed);
    EXPECT_EQ(desk.state.Label2, "");
    LeaveGridSize(desk.state);
    EXPECT_EQ(desk.state.Text3, c.left) << c.typed;
    NewGrid(desk.state, desk.host);
    EXPECT_EQ(desk.state.Text3, c.drawn) << c.typed;
    EXPECT_EQ(desk.state.GridSize, c.size) << c.typed;
    EXPECT_EQ((desk.state.Grid[{c.size, c.size}]), kEmptyCell);
    EXPECT_EQ((desk.state.Grid[{c.size + 1, 1}]), kNoCell);
  }
}

TEST(NewGrid, TypingChangesTheSizeAtOnce) {
  Desk desk;
  EditGridSize(desk.state, "2");
  EXPECT_EQ(desk.state.GridSize, 2);
  EditGridSize(desk.state, "21");
  EXPECT_EQ(desk.state.GridSize, 21);
}

TEST(NewGrid, ClearKeepsBlackSquaresOnly) {
  Desk desk({"CAT#.", "AB...", "R....", "S....", ".#..E"});
  desk.state.List6.push_back({Word("CAT"), Mask("???"), {1, 1}});
  BuildMaskList(desk.state);
  ClearWords(desk.state, desk.host);
  EXPECT_EQ(
      Rows(desk.state),
      (std::vector<std::string>{"...#.", ".....", ".....", ".....", ".#..."}));
  EXPECT_TRUE(desk.state.List6.empty());
  EXPECT_EQ(desk.state.Text2, " 2");
  EXPECT_EQ(desk.state.Label2, " = 8%");
  EXPECT_EQ(desk.state.Label1, " 10 Clues");
  EXPECT_EQ(CellsIn(desk.state.paint, ColourBlackSquare),
            (std::vector<Pos>{{1, 4}, {5, 2}}));
  EXPECT_EQ(TextsOf(desk.state.paint, {1, 1}), "1");
}

TEST(NewGrid, TheShareFollowsTheCountThatIsTyped) {
  Desk desk;
  EditBlackSquareCount(desk.state, "36");
  EXPECT_EQ(desk.state.Label2, " = 16%");
  EditBlackSquareCount(desk.state, "none");
  EXPECT_EQ(desk.state.Label2, " = 0%");
  EditBlackSquareCount(desk.state, "99999999999999");
  EXPECT_EQ(desk.state.Label2, " = 1000000%");
}

TEST(Drawing, ScrollBarsAppearFromTwentyThreeCells) {
  for (auto [size, enabled] : {std::pair{21, false}, {22, false}, {23, true}}) {
    Desk desk;
    desk.state.GridSize = size;
    FitGridView(desk.state);
    EXPECT_EQ(desk.state.VScroll1.Enabled, enabled);
    EXPECT_EQ(desk.state.HScroll1.Enabled, enabled);
    EXPECT_EQ(desk.state.PictureSize, size * 420 + 100);
    EXPECT_EQ(desk.state.HScroll1.Max, enabled ? 840 : 0);
  }
}
