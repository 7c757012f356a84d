#include "autofill/board.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace autofill {
namespace {

std::string Names(const Board& board) {
  std::string names;
  for (const Entry& entry : board.Entries()) names += entry.name + " ";
  return names;
}

TEST(Board, NumbersAndCrossesEntries) {
  Board board({"C.t?", "...#", ".#.#", "..e "});
  EXPECT_EQ(Names(board), "1A 3A 4A 1D 2D ");
  EXPECT_EQ(board.Text()[3], "..E.");
  EXPECT_EQ(board.Mask(board.Find("1A")), "C?T?");
  EXPECT_EQ(board.Mask(board.Find("2D")), "T??E");
  EXPECT_EQ(board.Find("3D"), -1);  // a run of two is no entry
  const Entry& across = board.Entries()[board.Find("1A")];
  int crossing = board.Crossing(across.first + 2);
  EXPECT_EQ(board.Entries()[board.EntryOf(crossing)].name, "2D");
  EXPECT_EQ(board.CellOf(crossing), board.CellOf(across.first + 2));
  EXPECT_EQ(board.Crossing(across.first + 1), -1);
  for (const Entry& entry : board.Entries()) EXPECT_EQ(entry.first % 4, 0);
}

TEST(Board, LinesOfBlocksAreNumberedAsOnTheSheet) {
  EXPECT_EQ(Names(Board({"...", "###", "..."})), "1A 3A ");
  EXPECT_EQ(Names(Board({"###.", "###."})), "");
}

TEST(Board, CompleteEntriesAreGiven) {
  Board board({"CAT", "#.#", "#.#"});
  EXPECT_TRUE(board.Entries()[board.Find("1A")].given);
  EXPECT_FALSE(board.Entries()[board.Find("2D")].given);
}

TEST(Board, RefusesWhatIsNoGrid) {
  EXPECT_THROW(Board({"...", ".."}), std::invalid_argument);
  EXPECT_THROW(Board({".1."}), std::invalid_argument);
  EXPECT_THROW(Board({std::string(52, '.')}), std::invalid_argument);
  EXPECT_THROW(Board(Rows(52, ".")), std::invalid_argument);
  EXPECT_EQ(Board({}).EntryCount(), 0);
  EXPECT_EQ(Board({"##", ".."}).EntryCount(), 0);
}

}  // namespace
}  // namespace autofill
