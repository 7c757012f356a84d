#include "files/sheet.h"

#include <gmock/gmock.h>

#include "tests/paper_fakes.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr int kWidth = 10466, kHeight = 15398;  // A4

// n x n cells with a black square in every second cell of every second row.
std::vector<std::string> Lattice(int n) {
  std::vector<std::string> rows(n, std::string(n, 'E'));
  for (int row = 1; row < n; row += 2)
    for (int col = 1; col < n; col += 2) rows[row][col] = '#';
  return rows;
}

TextCanvas Drawn(const State& state, SheetMode mode, int width = kWidth,
                 int height = kHeight) {
  TextCanvas canvas(width, height);
  DrawSheet(state, mode, canvas);
  return canvas;
}

TEST(Sheet, PlacesEverythingToTheTwip) {
  Desk desk({"AB.#.", ".....", "#...#", ".....", ".#..Z"});
  desk.state.Text5 = "Small";
  TextCanvas canvas = Drawn(desk.state, SheetMode::Full);
  // The outlines come first, row by row.
  ASSERT_THAT(canvas.calls, SizeIs(testing::Gt(26u)));
  EXPECT_EQ(canvas.calls[0], "text 750,0 14b Small");
  EXPECT_EQ(canvas.calls[1], "box 32,532 452,952 line 15");
  EXPECT_EQ(canvas.calls[2], "box 452,532 872,952 line 15");
  EXPECT_EQ(canvas.calls[25], "box 1712,2212 2132,2632 line 15");
  const std::vector<std::string> rest(canvas.calls.begin() + 26,
                                      canvas.calls.end());
  EXPECT_THAT(
      rest,
      ElementsAre(
          "text 50,540 6 1", "text 150,620 14bf A", "text 470,540 6 2",
          "text 570,620 14bf B", "text 890,540 6 3", "fill 1292,532 1712,952",
          "text 50,960 6 4", "text 1310,960 6 5", "fill 32,1372 452,1792",
          "text 470,1380 6 6", "fill 1712,1372 2132,1792", "text 50,1800 6 7",
          "fill 452,2212 872,2632", "text 890,2220 6 8",
          "text 1830,2300 14bf Z", "text 250,3020 14b ACROSS",
          "text 5500,3020 14b DOWN", StartsWith("text 0,3342 10f   1. ___"),
          StartsWith("text 0,3569 10f   4. ___"),
          StartsWith("text 0,3796 10f   6. ___"),
          StartsWith("text 0,4023 10f   7. ___"),
          StartsWith("text 0,4250 10f   8. ___")));
}

TEST(Sheet, GridOnlyHasLettersButNoNumbersAndNoLists) {
  Desk desk({"AB.#.", ".....", "#...#", ".....", ".#..Z"});
  desk.state.Text5 = "";
  EXPECT_THAT(Drawn(desk.state, SheetMode::GridOnly).Calls("text"),
              ElementsAre("text 150,620 14bf A", "text 570,620 14bf B",
                          "text 1830,2300 14bf Z"));
}

TEST(Sheet, ClueLinesAreThePageBuffer) {
  const std::string line = ". " + std::string(35, '_');
  // Entries 1 and 4 across, 1 to 3 down.
  Desk desk({"...#.", ".#.#.", ".#.#.", ".#.#.", ".#..."});
  auto lines = ClueLines(desk.state);
  ASSERT_THAT(lines, SizeIs(3));
  const std::string rest(36, ' ');
  EXPECT_EQ(lines[0], "  1" + line + "      1" + line + rest);
  EXPECT_EQ(lines[1], "  4" + line + "      2" + line + rest);
  EXPECT_EQ(lines[2], std::string(44, ' ') + "  3" + line + rest);
  // A number of more than three digits moves the rest of its entry.
  desk.state.CellNumbers[1][1] = 1234;
  lines = ClueLines(desk.state);
  EXPECT_THAT(lines[0], StartsWith("1234" + line + "   1234" + line + " "));
  EXPECT_THAT(lines, testing::Each(SizeIs(120)));
}

// Every clue has its line, once and in order, and nothing is outside the
// page, whatever the size of the grid and the paper.
TEST(Sheet, ListsGoOnOverFurtherPagesAndNothingIsCutOff) {
  for (const auto& [width, height] :
       {std::pair(kWidth, kHeight), std::pair(10800, 14400)}) {
    for (int n = 5; n <= MaxGridSize; n += 2) {
      Desk desk(Lattice(n));
      desk.state.Text5 = "Lattice";
      const TextCanvas canvas =
          Drawn(desk.state, SheetMode::Full, width, height);
      const auto lines = ClueLines(desk.state);
      const auto entries = canvas.Calls("text 0,");
      ASSERT_EQ(entries.size(), lines.size());
      for (std::size_t i = 0; i < lines.size(); ++i)
        EXPECT_THAT(entries[i], testing::EndsWith(lines[i].substr(
                                    0, lines[i].find_last_of('_') + 1)));
      EXPECT_THAT(canvas.Calls("box"), SizeIs(n * n));
      EXPECT_LE(canvas.right, width) << n;
      EXPECT_LE(canvas.bottom, height) << n;
      // Each page that has lines has the two headings and the title.
      EXPECT_THAT(canvas.Calls("text 250,"), SizeIs(canvas.pages)) << n;
      EXPECT_THAT(canvas.Calls("text 750,0 "), SizeIs(canvas.pages)) << n;
    }
  }
}

TEST(Sheet, AGridThatIsTooWideIsDrawnSmaller) {
  Desk desk(Lattice(51));
  const TextCanvas canvas = Drawn(desk.state, SheetMode::GridOnly);
  const double scale = kWidth / (51.0 * CellSize + GridMargin + 7);
  EXPECT_EQ(canvas.Calls("box")[0], "box 16,516 220,720 line 7");
  EXPECT_NEAR(canvas.right, kWidth, 8);
  EXPECT_THAT(
      canvas.Calls("text 73,559 "),
      ElementsAre(StartsWith("text 73,559 " +
                             testing::PrintToString(14 * scale).substr(0, 5))));
}

TEST(Sheet, LongTitlesAreDrawnSmallerThenBroken) {
  Desk desk(Lattice(5));
  const auto titles = [&](const std::string& title, int height = kHeight) {
    desk.state.Text5 = title;
    const TextCanvas canvas =
        Drawn(desk.state, SheetMode::Full, kWidth, height);
    EXPECT_LE(canvas.right, kWidth);
    EXPECT_LE(canvas.bottom, height);
    EXPECT_THAT(canvas.Calls("box"), SizeIs(25));
    return canvas.Calls("text 750,");
  };
  EXPECT_THAT(titles(""), IsEmpty());
  EXPECT_THAT(titles(std::string(57, 'x')),
              ElementsAre("text 750,0 14b " + std::string(57, 'x')));
  // One character too many for 14 points.
  EXPECT_THAT(titles(std::string(58, 'x')),
              ElementsAre("text 750,0 13.9b " + std::string(58, 'x')));
  // Too long for 10 points: broken at a blank, or where it must be.
  const std::string words = std::string(50, 'a') + " " + std::string(50, 'b');
  EXPECT_THAT(titles(words),
              ElementsAre("text 750,0 10b " + std::string(50, 'a'),
                          "text 750,230 10b " + std::string(50, 'b')));
  EXPECT_THAT(titles(std::string(100, 'c')),
              ElementsAre("text 750,0 10b " + std::string(80, 'c'),
                          "text 750,230 10b " + std::string(20, 'c')));
  // More lines than a page holds.
  EXPECT_THAT(titles(std::string(80 * 30, 'd'), 5000), SizeIs(31));
  // What no font can show is blank.
  EXPECT_THAT(titles("A\tB\x1b"
                     "C\x85"),
              ElementsAre("text 750,0 14b A B C"));
  // Letters of two bytes, one byte, and a break between letters only.
  EXPECT_THAT(titles("Caf\u00e9"), ElementsAre("text 750,0 14b Caf\u00e9"));
  EXPECT_THAT(titles("Caf\xe9"), ElementsAre("text 750,0 14b Caf\u00e9"));
  std::string omegas;
  for (int i = 0; i < 81; ++i) omegas += "\u03a9";
  EXPECT_THAT(titles("a" + omegas).front(), testing::EndsWith("\u03a9"));
}

TEST(PrintPuzzle, SaysThatItIsDoneWhenThePaperIs) {
  Desk desk(Lattice(5));
  desk.state.Text5 = "Mine";
  FakePrinter printer;
  EXPECT_TRUE(PrintPuzzle(desk.state, desk.host, printer, SheetMode::Full));
  EXPECT_EQ(printer.title, "Mine");
  EXPECT_TRUE(printer.sent);
  EXPECT_EQ(printer.looksUntilSettled, 0);
  EXPECT_EQ(desk.host.polls, 25);
  EXPECT_EQ(desk.state.ProgBar.Max, 25);
  EXPECT_EQ(desk.state.ProgBar.Value, 0);
  EXPECT_EQ(desk.state.ProgBar.Caption, "");
  EXPECT_EQ(desk.host.pointer, PointerShape::Normal);
  EXPECT_THAT(desk.host.told, ElementsAre("Printing completed"));
}

TEST(PrintPuzzle, TellsEveryFailureInsteadOfItsEnd) {
  using Fault = FakePrinter::Fault;
  for (const Fault fault : {Fault::Begin, Fault::Send, Fault::Settled}) {
    Desk desk(Lattice(5));
    FakePrinter printer;
    printer.fault = fault;
    EXPECT_FALSE(PrintPuzzle(desk.state, desk.host, printer, SheetMode::Full));
    EXPECT_THAT(desk.host.told, ElementsAre("No paper."));
    EXPECT_EQ(desk.state.ProgBar.Caption, "");
    EXPECT_EQ(desk.host.pointer, PointerShape::Normal);
  }
}

}  // namespace
