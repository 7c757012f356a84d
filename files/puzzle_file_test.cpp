#include "files/puzzle_file.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/fakes.h"

namespace {

const char* const kOpen = "Select a saved solution file";
const char* const kSave = "Select a file to save solution";

}  // namespace

TEST(PuzzleFile, LoadsAndSavesByTheQuestionsOfTheCommands) {
  const TestFolder folder;
  const std::string path = folder.Path("a.kdp");
  Desk desk({"#A...", ".....", "..#..", ".....", "....#"});
  desk.state.Text5 = "A #. title";
  UpdatePuzzle(desk.state, desk.host, PuzzleText(desk.state));
  EXPECT_EQ(desk.host.told.back(), "No file name to save");

  desk.host.script = {{kSave, path}};
  SavePuzzleAs(desk.state, desk.host, PuzzleText(desk.state));
  EXPECT_EQ(folder.Read("a.kdp"),
            "A #. title\r\n#A...\r\n.....\r\n..#..\r\n.....\r\n....#\r\n");
  EXPECT_EQ(desk.host.told.back(), "Saved to: " + path);
  EXPECT_EQ(desk.state.Caption, "Puzzle File: " + path);

  desk.state.Grid[{2, 2}] = 'B';
  desk.host.script = {{kSave, path}, {"OverWrite file: " + path + " ?", "no"}};
  SavePuzzleAs(desk.state, desk.host, PuzzleText(desk.state));
  desk.host.script = {{"Update " + path + " ?", "no"}};
  UpdatePuzzle(desk.state, desk.host, PuzzleText(desk.state));
  EXPECT_EQ(folder.Read("a.kdp").find('B'), std::string::npos);
  desk.host.script = {{"Update " + path + " ?", "yes"}};
  UpdatePuzzle(desk.state, desk.host, PuzzleText(desk.state));
  EXPECT_NE(folder.Read("a.kdp").find('B'), std::string::npos);
  // An empty file is replaced without a question.
  desk.host.script = {{kSave, folder.Write("b.kdp", "")}};
  SavePuzzleAs(desk.state, desk.host, PuzzleText(desk.state));
  EXPECT_FALSE(folder.Read("b.kdp").empty());

  Desk other({".......", ".......", ".......", ".......", ".......", ".......",
              "......."});
  other.host.script = {{kOpen, path}};
  LoadPuzzle(other.state, other.host);
  EXPECT_EQ(Rows(other.state), Rows(desk.state));
  EXPECT_EQ(other.state.Text5, "A #. title");
  EXPECT_EQ(other.state.Text3, " 5");
  EXPECT_EQ(other.state.Text2, " 3");
  EXPECT_EQ(other.host.told.back(), path + " loaded");
  EXPECT_EQ(CellsIn(other.state.paint, ColourBlackSquare).size(), 3u);
  EXPECT_EQ(TextsOf(other.state.paint, {1, 2}), "1A");
}

TEST(PuzzleFile, AFailedLoadLeavesThePuzzleAsItWas) {
  const TestFolder folder;
  std::string wide = "t\n" + std::string(53, '.') + "\n";
  for (const auto& [content, message] :
       std::vector<std::pair<std::string, std::string>>{
           {"t\n....\n", "Grid size must be an odd number"},
           {"t\n\n", "Grid size must be an odd number"},
           {"", "error loading: "},
           {"t\n", "error loading: "},
           {wide, "error loading: "},
           {"t\n...\n.\x01.\n...\n", "error loading: "},
           {"t\n" + std::string(100000, 'x'), "error loading: "}}) {
    Desk desk({"#A...", ".....", ".....", ".....", "....#"});
    const auto before = Rows(desk.state);
    desk.host.script = {{kOpen, folder.Write("x.kdp", content)}};
    LoadPuzzle(desk.state, desk.host);
    EXPECT_EQ(desk.host.told.back().substr(0, message.size()), message);
    EXPECT_EQ(Rows(desk.state), before);
    EXPECT_EQ(desk.state.PuzzleFileName, "");
    EXPECT_EQ(desk.host.pointer, PointerShape::Normal);
  }
}

TEST(PuzzleFile, AFailedLoadSaysWhyOnTheSecondLine) {
  const TestFolder folder;
  for (const auto& [content, why] :
       std::vector<std::pair<std::string, std::string>>{
           {"", ": the file is empty"},
           {"t\n", ": there are no grid lines"},
           {"t\n...\n.\x01.\n...\n",
            ": line 3: a control character in the grid"}}) {
    const std::string path = folder.Write("x.kdp", content);
    Desk desk;
    EXPECT_FALSE(OpenPuzzle(desk.state, desk.host, path));
    EXPECT_EQ(desk.host.told.back(),
              "error loading: " + path + "\r\n" + path + why);
  }
}

TEST(PuzzleFile, WhatIsMissingReadsAsEmpty) {
  const TestFolder folder;
  Desk desk;
  OpenPuzzle(desk.state, desk.host, folder.Write("a", "t\n#A.\nB\n"));
  EXPECT_EQ(GridText(desk.state), "#A.\nB..\n...\n");
}

RC_GTEST_PROP(PuzzleFile, WhatWasSavedIsLoadedByteForByte, ()) {
  const int n = *rc::gen::inRange(1, 26) * 2 + 1;
  std::string text;
  for (char c : *rc::gen::container<std::string>(rc::gen::inRange(32, 256)))
    text += c;
  text += "\r\n";
  for (int row = 0; row < n; ++row)
    text += *rc::gen::container<std::string>(
                static_cast<std::size_t>(n),
                rc::gen::oneOf(rc::gen::element('#', '.'),
                               rc::gen::inRange('A', '['))) +
            "\r\n";
  const TestFolder folder;
  Desk desk;
  OpenPuzzle(desk.state, desk.host, folder.Write("a", text));
  RC_ASSERT(PuzzleText(desk.state) == text);
}
