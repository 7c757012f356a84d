#include "view/commands.h"

#include <algorithm>
#include <cassert>

#include "dictionary/find_word.h"
#include "dictionary/read_dictionary.h"
#include "files/puzzle_file.h"
#include "grid/drawing.h"
#include "grid/new_grid.h"
#include "grid/slots.h"
#include "layout/check_grid.h"
#include "layout/generate.h"
#include "layout/split.h"
#include "solver/census.h"
#include "solver/fill.h"
#include "solver/matcher.h"

namespace {

void Draw(App& app) {
  NewGrid(app.state, app.ports());
}

void Clear(App& app) {
  app.picture.Clear();
  ClearWords(app.state, app.ports());
}

template <int option>
void Choose(App& app) {
  ChooseDictionary(app.state, app.words, app.host, option);
}

void TellFoundWord(App& app) {
  app.host.Tell(FindWordMessage(app.words, app.state.Text4));
}

void Check(App& app) {
  CheckGrid(app.state, app.ports(), false);
  DifficultyGauge(app.state, app.host);
}

template <StartLocation start>
void Solve(App& app) {
  Fill(app.state, app.words, app.ports()).Solve(start);
}

void Halt(App& app) {
  app.state.haltRequested = true;
  app.host.Pointer(PointerShape::Normal);
}

void DoNothing(App&) {}

constexpr auto kIdle = MayRun::WhenIdle;

constexpr Command kCommands[] = {
    // GRID
    {"Command2", "Draw", "Draw a grid", kIdle, Draw},
    {"Command22", "Clear", "Clear all words, leave balck squares intact", kIdle,
     Clear},
    // DICTIONARY
    {"DictOpt(0)", "Level1", "", kIdle, Choose<0>},
    {"DictOpt(1)", "Level2", "", kIdle, Choose<1>},
    {"DictOpt(2)", "Level3", "", kIdle, Choose<2>},
    {"DictOpt(3)", "Custom", "", kIdle, Choose<3>},
    {"Command6", "Find Word", "Find a word in the dictionary", kIdle,
     TellFoundWord},
    // BLACK SQUARES
    {"blackrand", "Random", "", kIdle,
     [](App& app) { RandomBlackSquares(app.state, app.ports()); }},
    {"black2x2", "2x2 Pattern", "", kIdle,
     [](App& app) { TwoByTwoLayout(app.state, app.ports()); }},
    {"cancel1", "Cancel", "", kIdle, DoNothing},
    {"Command19", "Check", "Check the validity of black square placements",
     kIdle, Check},
    // SOLUTION
    {"solx(0)", "Start Random Location", "", kIdle,
     Solve<StartLocation::Random>},
    {"solx(1)", "Specify Start Location", "", kIdle,
     Solve<StartLocation::Specified>},
    {"solx(2)", "Resume", "", kIdle, Solve<StartLocation::Resume>},
    {"solx(4)", "Cancel", "", kIdle, DoNothing},
    {"Command8", "Halt", "Halt the current solution", MayRun::Always, Halt},
    // Main menu
    {"loadx", "Load", "", kIdle,
     [](App& app) { LoadPuzzle(app.state, app.ports()); }},
    {"Savey", "Update", "", kIdle,
     [](App& app) { UpdatePuzzle(app.state, app.ports()); }},
    {"savex", "Save As", "", kIdle,
     [](App& app) { SavePuzzleAs(app.state, app.ports()); }},
    // Debug panel
    {"Command3", "CheckAllMasks", "", kIdle,
     [](App& app) { CheckAllMasks(app.state, app.words, app.host); }},
    {"Command15", "SplitMaxLine", "", kIdle,
     [](App& app) { SplitMaxLine(app.state, app.ports()); }},
    {"Command23", "FindCriticality", "", kIdle,
     [](App& app) { (void)TakeCensus(app.state, app.words, app.host); }},
};

// Marks that a command runs, also while commands run inside it.
class RunningTask {
 public:
  explicit RunningTask(App& app) : app_(app), outer_(app.taskRuns) {
    app_.taskRuns = true;
  }
  RunningTask(const RunningTask&) = delete;
  RunningTask& operator=(const RunningTask&) = delete;
  ~RunningTask() { app_.taskRuns = outer_; }

 private:
  App& app_;
  const bool outer_;
};

}  // namespace

std::span<const Command> AllCommands() {
  return kCommands;
}

const Command& CommandOf(std::string_view control) {
  const auto row = std::ranges::find(kCommands, control, &Command::control);
  assert(row != std::end(kCommands));
  return *row;
}

bool RunCommand(App& app, const Command& command) {
  if (app.taskRuns && command.mayRun == MayRun::WhenIdle) return false;
  const RunningTask running(app);
  try {
    command.operation(app);
  } catch (const FileError& error) {
    app.host.EndProgram(error.what());
  }
  return true;
}
