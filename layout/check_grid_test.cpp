#include "layout/check_grid.h"

#include <gtest/gtest.h>

#include "tests/fakes.h"

namespace {

const char* const kOptional =
    "Checks completed, grid appears ok\r\nDo you wish to check if a cell "
    "appears in both A and D clues?\r\n(This is optional)";

struct Verdict {
  CheckStatus status;
  std::vector<std::string> paint;  // the rows, a letter per painted cell
};

Verdict Check(Desk& desk, bool quiet = false) {
  Verdict verdict;
  verdict.status = CheckGrid(desk.state, desk.host, quiet);
  const int n = desk.state.GridSize;
  verdict.paint.assign(n, std::string(n, '.'));
  ForEachCell(n, [&](Pos cell) {
    const Colour colour = desk.state.paint[cell].fill;
    char& mark = verdict.paint[cell.row - 1][cell.col - 1];
    if (colour == ColourDivides)
      mark = 'R';
    else if (colour == ColourBadLength)
      mark = 'L';
    else if (colour == ColourUncrossed)
      mark = 'C';
    else if (colour == ColourBlackSquare)
      mark = '#';
    else if (!(colour == ColourBackground))
      mark = 's';
  });
  return verdict;
}

using Grid = std::vector<std::string>;

}  // namespace

TEST(CheckGrid, NoBlackSquaresIsToldAlsoWhenQuiet) {
  Desk desk({"A....", ".....", ".....", ".....", "....."});
  EXPECT_EQ(CheckGrid(desk.state, desk.host, true), kCheckOk);
  EXPECT_EQ(desk.host.told.back(), "There are no black squares on this grid");
  EXPECT_EQ((desk.state.Grid[{1, 1}]), 'A') << "nothing is changed";
}

TEST(CheckGrid, ASoundGridIsFoundSound) {
  Desk desk({".....", ".....", "..#..", ".....", "..A.."});
  desk.SetGrid({"....#", ".....", ".....", ".....", "#...A"});
  desk.host.script = {{kOptional, "yes"}};
  const Verdict verdict = Check(desk);
  EXPECT_EQ(verdict.status, kCheckOk);
  EXPECT_EQ(desk.host.told.back(), "Check ok");
  EXPECT_EQ((desk.state.Grid[{5, 5}]), kEmptyCell) << "letters are erased";
  desk.host.told.clear();
  EXPECT_EQ(Check(desk, true).status, kCheckOk);
  EXPECT_EQ(desk.host.told, Grid{"Check ok"}) << "quiet, and yet told";
  desk.host.told.clear();
  desk.host.script = {{kOptional, "no"}};
  EXPECT_EQ(Check(desk).status, kCheckOk);
  EXPECT_TRUE(desk.host.told.empty());
  EXPECT_TRUE(desk.state.frames.Picture1);
}

TEST(CheckGrid, UncrossedCellsAreCyan) {
  Desk desk({".....", ".#.#.", ".....", ".#.#.", "....."});
  desk.host.script = {{kOptional, "yes"}};
  const Verdict verdict = Check(desk);
  EXPECT_EQ(verdict.status, kUncrossed);
  EXPECT_EQ(verdict.paint, (Grid{".C.C.", "C#C#C", ".C.C.", "C#C#C", ".C.C."}));
  EXPECT_EQ(desk.host.told.back(),
            "Cyan cells do not appear in both A and D clues");
  EXPECT_EQ(desk.state.List5.Read<Pos>().front().Text(), "01,02");
}

TEST(CheckGrid, BadLengthsHideEverythingElse) {
  Desk desk({"..#..", "..#..", "..#..", "..#..", "..#.."});
  const Verdict verdict = Check(desk);
  EXPECT_EQ(verdict.status, kBadLengths);
  EXPECT_EQ(verdict.paint, (Grid{"LL#LL", "LL#LL", "LL#LL", "LL#LL", "LL#LL"}));
  EXPECT_EQ(desk.host.told.back(),
            "Words at cells highlighted are of length <3 OR >20");
}

TEST(CheckGrid, AChainThatDividesIsRedAndWhatItShutsInIsShaded) {
  Desk desk({"...#...", "...#...", "...#...", "...#...", "...#...", "...#...",
             "...#..."});
  const Verdict verdict = Check(desk);
  EXPECT_EQ(verdict.status, kDividing);
  EXPECT_EQ(verdict.paint, Grid(7, "sssRsss"));
  EXPECT_EQ(desk.host.told.back().substr(0, 16), "Checks completed");
  EXPECT_EQ(desk.state.List10.front().Text().substr(0, 12), "013,013,022,");
  EXPECT_EQ(desk.state.List9.size(), 2u);
}

TEST(CheckGrid, ChainsOnOneEdgeOrOfTwoSquaresDivideNothing) {
  struct Case {
    Grid grid;
    CheckStatus status;
    Grid paint;
  };
  for (const Case& c : {
           // A run along one edge.
           Case{{"###....", ".......", ".......", ".......", ".......",
                 ".......", "....###"},
                kCheckOk,
                {}},
           // Two squares that touch at a corner cut a corner off.
           Case{{".#.....", "#......", ".......", ".......", ".......",
                 "......#", ".....#."},
                kEnclosed,
                {"s#sssss", "#ssssss", "sssssss", "sssssss", "sssssss",
                 "ssssss#", "sssss#s"}},
           // Three squares in a diagonal touch two edges.
           Case{{"...#...", ".......", ".......", "#.....#", ".......",
                 ".......", "...#..."},
                kCheckOk,
                {}},
           Case{{"..#....", ".#.....", "#......", ".......", "......#",
                 ".....#.", "....#.."},
                kBadLengths,
                {}},
       }) {
    Desk desk(c.grid);
    const Verdict verdict = Check(desk, true);
    EXPECT_EQ(verdict.status, c.status) << c.grid[0];
    if (!c.paint.empty()) {
      EXPECT_EQ(verdict.paint, c.paint);
    }
  }
}

TEST(CheckGrid, KeysAreAsWideAsTheGridNeeds) {
  for (auto [size, digits] : {std::pair{29, 3}, {31, 4}, {51, 4}}) {
    Grid grid(size, std::string(size, '.'));
    for (std::string& row : grid) row[size / 2] = '#';
    Desk desk(grid);
    const CheckStatus status = CheckGrid(desk.state, desk.host, true);
    EXPECT_EQ(status, kBadLengths) << "columns are longer than words";
    EXPECT_EQ(desk.state.List10.front().cells.front().Text().size(),
              static_cast<std::size_t>(digits));
    EXPECT_EQ(desk.state.List10.front().cells.size(),
              static_cast<std::size_t>(size));
  }
}

TEST(CheckGrid, HaltEndsItWithoutAMessage) {
  Desk desk({"...#...", "...#...", "...#...", "...#...", "...#...", "...#...",
             "...#..."});
  desk.host.haltAtPoll = 60;
  EXPECT_EQ(CheckGrid(desk.state, desk.host, false), kCheckOk);
  EXPECT_TRUE(desk.host.told.empty());
}
