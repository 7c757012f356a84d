#include "view/undo.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <fstream>

#include "files/puzzle_file.h"
#include "grid/bridge.h"
#include "grid/choose_dictionary.h"
#include "tests/fake_program.h"
#include "tests/paths.h"
#include "view/unsaved.h"

namespace {

const std::vector<std::string> kWords = {
    "ABBEY", "ACORN", "CAT", "COT", "DOG",  "EEL",   "GIDDY",
    "NINNY", "NORTH", "ORE", "TEE", "TIDE", "YOUNG", "YARN"};

// A program with few words.
struct SmallProgram : Program {
  SmallProgram() { app.words = Dictionary(kWords); }
  const Document& Now() const { return *app.history.Now(); }
  void Draw(const std::string& size) {
    Press("Text3", {.text = size});
    Press("Command2");
  }
};

// A program that has opened the puzzle of a golden log, whose fill begins at
// 1D.
struct GoldenProgram : SmallProgram {
  std::vector<std::string> log;

  GoldenProgram() {
    const std::string folder = SourcePath("tests/golden/many-redos/");
    std::ifstream in(folder + "log.txt");
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line)) log.push_back(line);
    ReadDictionary(app.state, app.words, host, folder + "words.txt");
    Press("open", {.text = folder + "puzzle.kdp"});
  }
  void Fill() {
    host.script = {{"Enter clue number", "1D"}};
    Press("solx(1)");
  }
};

void PressAnything(SmallProgram& program, const std::string& file) {
  const std::string control = *rc::gen::element<std::string>(
      "Command2", "Command22", "blackrand", "black2x2", "Command19", "solx(0)",
      "solx(2)", "loadx", "savex", "Command15", "click", "click", "click",
      "Text5", "Text3", "undox", "undox", "redox");
  FakeHost& host = program.host;
  host.random.seed(*rc::gen::inRange(0u, 99u));
  host.haltAtPoll = host.polls + *rc::gen::inRange(0, 3000);
  host.script.clear();
  host.answersAny = true;
  if (control == "loadx" || control == "savex")
    host.script = {{"Select", file}};
  if (control == "click") {
    const int n = program.app.state.GridSize;
    const Pos cell{*rc::gen::inRange(0, n + 2), *rc::gen::inRange(0, n + 2)};
    host.script = {{"Enter Word", ""}};
    program.Click(cell, *rc::gen::element(kShift, kShift, kNoShift, kCtrl));
  } else if (control == "Text5") {
    program.Press(control, {.text = *rc::gen::element<std::string>(
                                "", "A", "Caf\xc3\xa9", "\xc3\x83\xc2\xa9")});
  } else if (control == "Text3") {
    program.Press(control, {.text = *rc::gen::element<std::string>(
                                "5", "7", "9", "2", "53", "")});
    program.Press("Text3(left)");
  } else {
    program.Press(control);
  }
}

// What must hold after each command.
void AssertAgreement(const SmallProgram& program) {
  const App& app = program.app;
  RC_ASSERT(!app.taskRuns);
  RC_ASSERT(TakeGrid(app.state, program.Now()) == program.Now());
  RC_ASSERT(app.state.PuzzleFileName == app.history.File());
}

}  // namespace

// A user who does anything in any order, then undoes and redoes all of it.
RC_GTEST_PROP(Undo, GoesBackAndForthThroughTheSameDocuments, ()) {
  const TestFolder folder;
  const std::string file = folder.Path("a.kdp");
  SmallProgram program;
  program.Draw("5");
  for (int step = *rc::gen::inRange(1, 25); step > 0; --step) {
    PressAnything(program, file);
    AssertAgreement(program);
  }
  const Document last = program.Now();
  std::vector<Document> undone;
  for (;;) {
    undone.push_back(program.Now());
    if (!program.Press("undox")) break;
    AssertAgreement(program);
  }
  while (!undone.empty()) {
    RC_ASSERT(program.Now() == undone.back());
    undone.pop_back();
    program.Press("redox");
    AssertAgreement(program);
  }
}

TEST(Undo, EachCommandIsAStepByItsName) {
  SmallProgram program;
  program.host.answersAny = true;
  const auto caption = [&] { return program.app.history.UndoCaption(); };
  EXPECT_EQ(caption(), "") << "nothing to undo at the start";
  EXPECT_FALSE(program.Press("undox"));
  program.Draw("5");
  EXPECT_EQ(caption(), "Draw");
  program.Click({2, 2}, kShift);
  program.Click({2, 2}, kNoShift);  // shows a word
  EXPECT_EQ(caption(), "Black Squares");
  program.Press("Text5", {.text = "T"});
  program.Press("Text5", {.text = "Ti"});
  EXPECT_EQ(caption(), "Title");
  program.Press("undox");
  EXPECT_EQ(program.Now().title, "New Puzzle") << "typing is one step";
  program.Press("undox");
  EXPECT_TRUE(program.Now().IsWhite({2, 2}));
  EXPECT_EQ(program.app.history.RedoCaption(), "Black Squares");
  EXPECT_EQ(program.app.state.Text2, " 0");
}

TEST(Undo, AFillIsOneStepAlsoWhenHalted) {
  GoldenProgram program;
  const Document layout = program.Now();
  const auto fillAndUndo = [&] {
    program.Fill();
    const Document filled = program.Now();
    if (filled == layout) return filled;
    EXPECT_EQ(program.app.history.UndoCaption(), "Compile");
    program.Press("undox");
    EXPECT_TRUE(program.Now() == layout);
    return filled;
  };
  const Document complete = fillAndUndo();
  EXPECT_FALSE(complete == layout);
  int partly = 0;
  for (int i = 0; i < 60; i += 3) {
    program.host.haltAtPoll = program.host.polls + i;
    const Document halted = fillAndUndo();
    partly += halted != layout && halted != complete;
  }
  EXPECT_GT(partly, 0);
}

TEST(Undo, AnUndoneLoadBringsPuzzleAndFileBack) {
  const TestFolder folder;
  const std::string a = folder.Write("a.kdp", "A\r\n...\r\n.#.\r\n...\r\n");
  const std::string b = folder.Write("b.kdp", "B\r\n#..\r\n...\r\n..#\r\n");
  SmallProgram program;
  program.host.answersAny = true;
  for (const std::string& file : {a, b}) {
    program.host.script = {{"Select", file}};
    program.Press("loadx");
  }
  program.Click({2, 2}, kShift);
  EXPECT_TRUE(HasUnsavedWork(program.app));
  program.Press("undox");
  EXPECT_FALSE(HasUnsavedWork(program.app));
  program.Press("undox");
  EXPECT_EQ(program.app.state.PuzzleFileName, a);
  EXPECT_EQ(program.app.state.Caption, "Puzzle File: " + a);
  EXPECT_EQ(program.app.state.Text5, "A");
  EXPECT_FALSE(HasUnsavedWork(program.app)) << "as it is in its file";
  program.Press("redox");
  EXPECT_EQ(program.app.state.PuzzleFileName, b);
}

// The golden fill once more, after other things were done and undone.
TEST(Undo, AFillAfterItLogsTheSame) {
  GoldenProgram program;
  program.host.haltAtPoll = program.host.polls + 50;
  program.Fill();
  program.Click({1, 2}, kShift);
  program.Press("Command22");
  program.Draw("7");
  while (program.Press("undox")) continue;
  program.Press("redox");  // the puzzle is open again
  program.host.log = true;
  program.Fill();
  EXPECT_EQ(program.host.logLines, program.log);
}
