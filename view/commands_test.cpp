#include "view/commands.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <set>

#include "grid/choose_dictionary.h"
#include "grid/masks.h"
#include "tests/fake_program.h"

TEST(Commands, TheTableIsSound) {
  std::set<std::string_view> controls;
  for (const Command& command : AllCommands()) {
    EXPECT_TRUE(controls.insert(command.control).second) << command.control;
    EXPECT_FALSE(command.caption.empty());
  }
}

TEST(Commands, StartUpLoadsTheSecondLevel) {
  Program program;
  StartUp(program.app);
  EXPECT_EQ(program.app.state.Label3, "L2Ascii.txt");
  EXPECT_GT(program.app.words.TotalWords, 70000);
  EXPECT_TRUE(program.host.told.empty());
  EXPECT_FALSE(program.app.state.frames.SolutionFrame);
  EXPECT_EQ(program.app.state.GridSize, 15);
  EXPECT_EQ((program.app.state.Grid[{1, 1}]), kNoCell);
  program.Press("Command2");
  EXPECT_TRUE(program.app.state.frames.SolutionFrame);
}

TEST(Commands, LevelsAreReadOnEveryPress) {
  Program program;
  for (int i = 0; i < 2; ++i) program.Press("DictOpt(0)");
  const int words = program.app.words.TotalWords;
  EXPECT_EQ(program.host.told,
            std::vector<std::string>(
                2, "L1Ascii.txt Read\r\n" + Str(words) + " words"));
}

TEST(Commands, ATaskIsNotEnteredAgainButMayBeHalted) {
  // A user who presses Check and Halt as soon as a task lets events run.
  struct Impatient : FakeHost {
    App* app = nullptr;
    bool checkRan = false;
    Events Poll() override {
      checkRan = checkRan || Do(*app, "Command19");
      Do(*app, "Command8");
      return {};
    }
  };
  Impatient host;
  App app{.state = {}, .words = {}, .host = host};
  host.app = &app;
  Do(app, "blackrand");
  EXPECT_FALSE(host.checkRan);
  EXPECT_FALSE(app.taskRuns);
  EXPECT_EQ(host.told.size(), 1u) << "halted, and yet told what was placed";
  EXPECT_LT(app.state.BlackSquareCount, 59);
}

TEST(Commands, AWordListThatCannotBeOpenedEndsTheProgramWithItsName) {
  const TestFolder folder;
  Program program;
  program.host.script = {{"Select a Dictionary file", folder.Path("gone")}};
  try {
    program.Press("DictOpt(3)");
    FAIL() << "the program goes on";
  } catch (const ProgramEnded& ended) {
    EXPECT_NE(ended.why.find("gone: cannot be opened"), std::string::npos);
  }
  EXPECT_FALSE(program.app.taskRuns);
}

TEST(Commands, AWordListThatIsNoTextIsToldAndTheProgramGoesOn) {
  const TestFolder folder;
  Program program;
  program.Press("DictOpt(0)");
  const int words = program.app.words.TotalWords;
  const std::string picture = folder.Write("a.png", std::string(100, '\x01'));
  program.host.script = {{"Select a Dictionary file", picture}};
  program.Press("DictOpt(3)");
  EXPECT_EQ(program.host.told.back(), picture + ": this is not a text file");
  EXPECT_EQ(program.app.words.TotalWords, words);
  EXPECT_EQ(program.host.pointer, PointerShape::Normal);
  EXPECT_EQ(program.app.state.ProgBar.Caption, "");
}

namespace {

void AssertInvariants(const State& state) {
  const int n = state.GridSize;
  int blacks = 0;
  ForEachCell(n, [&](Pos p) {
    const char cell = state.Grid[p];
    RC_ASSERT(cell == kEmptyCell || cell == kBlackSquare ||
              (cell >= 'A' && cell <= 'Z'));
    RC_ASSERT(state.IsBlack(p) == state.IsBlack(Mirror(p, n)));
    blacks += state.IsBlack(p);
  });
  RC_ASSERT(state.frames.GridFrame && state.frames.Picture1);
  // Every list is in the order that its texts have.
  const auto& rows = state.List2.Read<SlotRow>();
  RC_ASSERT(std::ranges::is_sorted(Texts(rows)));
  RC_ASSERT(std::ranges::is_sorted(Texts(state.List5.Read<CountRow>())));
  // A new grid is not counted until something is placed.
  RC_ASSERT(state.BlackSquareCount == blacks || blacks == 0);
}

}  // namespace

// A user who presses anything in any order, on small grids.
RC_GTEST_PROP(Commands, AnyOrderKeepsTheStateSound, ()) {
  Program program;
  program.app.words =
      Dictionary({"ABBEY", "ACORN", "CAT", "COT", "DOG", "EEL", "GIDDY",
                  "NINNY", "NORTH", "ORE", "TEE", "TIDE", "YOUNG", "YARN"});
  const TestFolder folder;
  const std::string file = folder.Path("a.kdp");
  program.Press("Command2");
  for (int step = *rc::gen::inRange(1, 12); step > 0; --step) {
    const std::string control = *rc::gen::element<std::string>(
        "Command2", "Command22", "blackrand", "black2x2", "Command19",
        "solx(0)", "solx(1)", "solx(2)", "loadx", "Savey", "savex", "Command3",
        "Command15", "Command23");
    if (control == "Command2")
      program.app.state.Text3 =
          *rc::gen::element<std::string>("5", "7", "9", "11");
    program.host.random.seed(static_cast<unsigned>(step));
    program.host.haltAtPoll = program.host.polls + *rc::gen::inRange(0, 3000);
    program.host.script.clear();
    if (control == "black2x2")
      program.host.script = {{"2x2 Squares done", "yes"}};
    if (control == "loadx") program.host.script = {{"Select", file}};
    if (control == "savex")
      program.host.script = {{"Select", file}, {"OverWrite", "yes"}};
    if (control == "Savey" && !program.app.state.PuzzleFileName.empty())
      program.host.script = {{"Update", "yes"}};
    if (program.app.state.BlackSquareCount > 0) {
      if (control == "Command19")
        program.host.script = {{"Checks completed", "yes"}};
      if (control == "solx(1)") program.host.script = {{"Enter", "1A"}};
      if (control.starts_with("solx"))
        program.host.script.push_back({"Tried", "abort"});
    }
    program.Press(control);
    RC_ASSERT(program.host.pointer == PointerShape::Normal);
    AssertInvariants(program.app.state);
  }
}
