#include "autofill/board.h"

#include <gtest/gtest.h>

#include "autofill/testing.h"

namespace autofill {
namespace {

std::string Names(const Board& board) {
  std::string names;
  for (const BoardEntry& entry : board.Entries()) names += entry.name + " ";
  return names;
}

TEST(Board, NumbersAndCrossesEntries) {
  const Board board(ProblemOf({"C.t?", "...#", ".#.#", "..e."}));
  EXPECT_EQ(Names(board), "1A 4A 5A 1D 3D ");
  EXPECT_EQ(board.Mask(board.Find("1A")), "C?T?");
  EXPECT_EQ(board.Mask(board.Find("3D")), "T??E");
  EXPECT_EQ(board.Find("2D"), -1);  // a run of two is no entry to fill
  const BoardEntry& across = board.Entries()[board.Find("1A")];
  const int crossing = board.Crossing(across.first + 2);
  EXPECT_EQ(board.Entries()[board.EntryOf(crossing)].name, "3D");
  EXPECT_EQ(board.CellOf(crossing), board.CellOf(across.first + 2));
  EXPECT_EQ(board.Crossing(across.first + 1), -1);
  for (const BoardEntry& entry : board.Entries()) EXPECT_EQ(entry.first % 4, 0);
}

TEST(Board, CompleteEntriesAreGiven) {
  const Board board(ProblemOf({"CAT", "#.#", "#.#"}));
  EXPECT_TRUE(board.Entries()[board.Find("1A")].given);
  EXPECT_FALSE(board.Entries()[board.Find("2D")].given);
}

// A cell of several letters is as many positions in both its entries, and a
// bar ends an entry as a block does.
TEST(Board, TakesBarsHolesAndCellsOfSeveralLetters) {
  Document document = DocumentOf({"....", "._..", "...."});
  document.At({1, 1}).solution = "HE";
  document.At({1, 3}).barRight = true;
  const Board board(ProblemOf(document));
  EXPECT_EQ(Names(board), "1A 5A 1D 2D 3D ");
  EXPECT_EQ(board.Mask(board.Find("1A")), "HE?\?");
  EXPECT_EQ(board.Mask(board.Find("1D")), "HE?\?");
  const BoardEntry& across = board.Entries()[board.Find("1A")];
  const BoardEntry& down = board.Entries()[board.Find("1D")];
  EXPECT_EQ(board.Crossing(across.first + 1), down.first + 1);
  EXPECT_EQ(board.Crossing(across.first + 2), -1);  // the hole is below it
}

TEST(Problem, FoldsLettersAndTellsWhatNoWordCanFill) {
  struct Case {
    const char *cell, *mask, *why;
  };
  const std::string many(50, 'A');
  const Case cases[] = {
      {"e", "E?\?", ""},
      {"\xC3\x89", "E?\?", ""},   // e with an acute accent
      {"\xC3\x86", "AE?\?", ""},  // the ligature
      {"?", "?\?\?", ""},
      {"2", "", "it holds \"2\", which is no letter A-Z"},
      {"\xD0\x96", "", "it holds \"\xD0\x96\", which is no letter A-Z"},
      {many.c_str(), "", "it has 52 letters, more than 51"},
  };
  for (const Case& c : cases) {
    Document document = DocumentOf(Rows{"..."});
    document.cells[0].solution = c.cell;
    const Problem problem = ProblemOf(document);
    if (*c.why) {
      ASSERT_EQ(problem.unfillable.size(), 1u) << c.cell;
      EXPECT_EQ(problem.unfillable[0].entry, "1A");
      EXPECT_EQ(problem.unfillable[0].why, c.why);
      EXPECT_TRUE(problem.entries.empty());
    } else {
      ASSERT_EQ(problem.entries.size(), 1u) << c.cell;
      EXPECT_EQ(MaskOf(problem.letters, problem.entries[0]), c.mask);
    }
  }
  const Problem complete = ProblemOf(Rows{"R2D"});
  EXPECT_TRUE(complete.entries.empty());
  EXPECT_TRUE(complete.unfillable.empty());
}

TEST(Problem, AFillGoesIntoTheEmptyCellsAlone) {
  Document document = DocumentOf({"c?.", "2##"});
  const Problem problem = ProblemOf(document);
  const Result result = Fill(problem, ListOf({"CAT"}), {});
  ASSERT_EQ(result.status, Status::Filled);
  PutLetters(result.letters, document);
  EXPECT_EQ(document, DocumentOf({"cAT", "2##"}));
}

}  // namespace
}  // namespace autofill
