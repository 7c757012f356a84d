#include "solver/fill.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

#include "files/puzzle_file.h"
#include "grid/choose_dictionary.h"
#include "layout/generate.h"
#include "solver/census.h"
#include "tests/fakes.h"
#include "tests/paths.h"
#include "tests/quiet_host.h"

namespace {

const std::vector<std::string> kRing = {".....", ".###.", ".###.", ".###.",
                                        "....."};
const std::vector<std::string> kRingWords = {"ABBEY", "ACORN", "NINNY",
                                             "YOUNG", "NORTH", "GIDDY"};

FillOutcome RunFill(Desk& desk, const WordTable& words, StartLocation start) {
  return Fill(desk.state, words, desk.host).Solve(start).outcome;
}

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream in(text);
  for (std::string part; std::getline(in, part, separator);)
    parts.push_back(part);
  return parts;
}

}  // namespace

// Each folder of tests/golden holds a puzzle, a word list, and what a fill of
// it must log, row for row: the first line names the start and the answers
// to the tries dialog, or "-".
TEST(Fill, LogsAreTheGoldenOnes) {
  const std::filesystem::path golden =
      std::filesystem::path(SourcePath("tests/golden"));
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(golden)) {
    const std::filesystem::path folder = entry.path();
    SCOPED_TRACE(folder.string());
    std::ifstream in(folder / "log.txt");
    std::string start, answers, line;
    in >> start >> answers >> std::ws;
    std::vector<std::string> expected;
    while (std::getline(in, line)) expected.push_back(line);

    Desk desk;
    WordTable words;
    ReadDictionary(desk.state, words, desk.host, folder / "words.txt");
    OpenPuzzle(desk.state, desk.host, folder / "puzzle.kdp");
    desk.host.log = true;
    desk.host.script.push_back({"Enter clue number", start});
    for (const std::string& answer : Split(answers, ','))
      if (answer != "-") desk.host.script.push_back({"Tried", answer});
    RunFill(desk, words, StartLocation::Specified);
    EXPECT_EQ(desk.host.logLines, expected);
    EXPECT_EQ(desk.state.List8, expected);
    EXPECT_TRUE(desk.host.script.empty());
    ++count;
  }
  EXPECT_GE(count, 3);
}

TEST(Fill, RefusesWhatCannotBeFilled) {
  const WordTable words = Dictionary(kRingWords);
  Desk open({".....", ".....", ".....", ".....", "....."});
  EXPECT_EQ(RunFill(open, words, StartLocation::Random), FillOutcome::Refused);
  EXPECT_EQ(open.host.told.back(), "Place black sqaures first");

  Desk two({"..#..", ".....", ".....", ".....", "..#.."});
  EXPECT_EQ(RunFill(two, words, StartLocation::Random), FillOutcome::Refused);
  EXPECT_EQ(two.host.told.back(),
            "Words at cells highlighted are of length <3 OR >20\r\nFix this "
            "problem and restart");
  EXPECT_EQ(CellsIn(two.state.paint, ColourBadLength).size(), 8u);
  EXPECT_EQ(two.host.pointer, PointerShape::Normal);
  EXPECT_TRUE(two.state.frames.GridFrame);

  Desk alone({"...#.", "#####", ".....", "#####", ".#..."});
  EXPECT_EQ(RunFill(alone, words, StartLocation::Random), FillOutcome::Refused);
  EXPECT_EQ(alone.host.told.back(), "Error in Grid Layout, check grid first");
}

TEST(Fill, StartsWhereTheUserSays) {
  const WordTable words = Dictionary(kRingWords);
  Desk desk(kRing);
  desk.host.script = {
      {"Enter clue number to start a solution\r\nFor example: "
       "22A or 11D etc ",
       ""}};
  EXPECT_EQ(RunFill(desk, words, StartLocation::Specified),
            FillOutcome::Refused);
  EXPECT_TRUE(desk.host.told.empty());
  desk.host.script = {{"Enter", " 99x "}};
  EXPECT_EQ(RunFill(desk, words, StartLocation::Specified),
            FillOutcome::Refused);
  EXPECT_EQ(desk.host.told.back(), "No such clue: 99X");
  desk.host.script = {{"Enter", "3a"}, {"Tried", "abort"}};
  desk.host.log = true;
  RunFill(desk, words, StartLocation::Specified);
  EXPECT_EQ(desk.host.logLines.front().substr(0, 6), "Tried:");
}

TEST(Fill, AsksAfterFourTriesPerLine) {
  const WordTable words = Dictionary({"AAAAA", "BBBBB"});
  Desk desk(kRing);
  desk.host.script = {{"Tried 20 times\r\nAbort = stop solution\r\nRetry = "
                       "continue\r\nIgnore = continue with unlimited tries",
                       "retry"},
                      {"Tried 20 times", "abort"}};
  EXPECT_EQ(RunFill(desk, words, StartLocation::Random), FillOutcome::Stopped);
  EXPECT_TRUE(desk.host.script.empty());
  // Ignore: not asked again, until Halt.
  desk.host.script = {{"Tried 20 times", "ignore"}};
  desk.host.haltAtPoll = desk.host.polls + 2000;
  EXPECT_EQ(RunFill(desk, words, StartLocation::Resume), FillOutcome::Halted);
}

TEST(Fill, GoesOnAfterHalt) {
  Desk desk;
  WordTable words;
  ReadDictionary(desk.state, words, desk.host, BuiltPath("L1Ascii.txt"));
  desk.state.Text3 = "11";
  desk.host.script = {{"2x2 Squares done", "yes"}};
  TwoByTwoLayout(desk.state, desk.host);
  desk.host.haltAtPoll = desk.host.polls + 100;
  ASSERT_EQ(RunFill(desk, words, StartLocation::Random), FillOutcome::Halted);
  EXPECT_FALSE(desk.state.haltRequested);
  EXPECT_TRUE(desk.state.frames.GridFrame);
  desk.host.told.clear();
  ASSERT_EQ(RunFill(desk, words, StartLocation::Resume),
            FillOutcome::Completed);
  EXPECT_EQ(desk.host.told, std::vector<std::string>{"Solution completed"});
  EXPECT_EQ(desk.state.WordProg.Value, desk.state.WordProg.Max);

  std::set<std::string> placed;
  for (const Slot& slot : desk.state.SlotCells.Slots()) {
    std::string word;
    for (int k = 1; k <= slot.length; ++k)
      word += desk.state.Grid[slot.CellAt(k)];
    EXPECT_GT(FindWordIndex(words, word), 0) << word;
    EXPECT_TRUE(placed.insert(word).second) << word << " stands twice";
  }
  // Nothing is left to do.
  EXPECT_EQ(RunFill(desk, words, StartLocation::Resume),
            FillOutcome::Completed);
}

// While a fill runs, also after it has started again, only its own frame
// takes input.
TEST(Fill, KeepsItsFrameAloneEnabled) {
  struct Watching : FakeHost {
    const State* watched = nullptr;
    Events Poll() override {
      EXPECT_TRUE(watched->frames.SolutionFrame);
      EXPECT_FALSE(watched->frames.GridFrame);
      EXPECT_FALSE(watched->frames.Picture1);
      return FakeHost::Poll();
    }
  };
  const WordTable words = Dictionary({"AAAAA", "BBBBB"});
  Desk desk(kRing);
  Watching host;
  host.watched = &desk.state;
  host.script = {{"Tried 20 times", "abort"}};
  Fill(desk.state, words, host).Solve(StartLocation::Random);
  EXPECT_GT(host.polls, 10);
  EXPECT_TRUE(desk.state.frames.GridFrame);
}

TEST(Fill, DoesNotTakeBackWhatStandsUnderNewBlackSquares) {
  const WordTable words = Dictionary({"AAAAA", "BBBBB"});
  Desk desk({".......", ".#####.", ".#...#.", ".#...#.", ".#...#.", ".#####.",
             "......."});
  desk.state.List6.push_back(
      {Word("ABCDEFG"), Mask("???????"), {1, 1}, Direction::Across});
  desk.state.Grid[{1, 4}] = desk.state.Grid[{7, 4}] = kBlackSquare;
  desk.state.Grid[{3, 3}] = 'A';
  desk.host.script = {{"Tried 28 times", "abort"}};
  RunFill(desk, words, StartLocation::Resume);
  EXPECT_EQ(Rows(desk.state)[0], "...#...");
}

// What the benchmark prints beside the time.
TEST(Fill, TriesAsManyCandidatesAsEver) {
  QuietDesk desk;
  WordTable words;
  ReadDictionary(desk.state, words, desk.host, BuiltPath("L2Ascii.txt"));
  OpenPuzzle(desk.state, desk.host, SourcePath("data/sample.kdp"));
  const FillReport report =
      Fill(desk.state, words, desk.host).Solve(StartLocation::Random);
  EXPECT_EQ(report.slotsSolved, 34);
  EXPECT_EQ(report.candidatesTried, 16444);
  EXPECT_EQ(GridText(desk.state).substr(0, 15), "WALKIES#CUSPIDS");
}

TEST(Census, HardSlotsComeFirst) {
  const WordTable words =
      Dictionary({"ABBEY", "CAT", "DOG", "EEL", "NINNY", "YOUNG"});
  Desk desk({"...#.", ".....", ".###.", ".....", ".#..."});
  ASSERT_TRUE(TakeCensus(desk.state, words, desk.host));
  // Three words over one, two and three crossings; 1.5 rounds to 2.
  EXPECT_EQ(Texts(desk.state.List3.Read<CensusRow>()),
            (std::vector<std::string>{"0000105D 01,01", "0000105D 01,05",
                                      "0000205A 02,01", "0000205A 04,01",
                                      "0000303A 01,01", "0000303A 05,03"}));
}
