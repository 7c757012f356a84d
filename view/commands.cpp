#include "view/commands.h"

#include <algorithm>
#include <cassert>

#include "dictionary/find_word.h"
#include "files/publish.h"
#include "files/puzzle_file.h"
#include "files/sheet.h"
#include "grid/choose_dictionary.h"
#include "grid/drawing.h"
#include "grid/new_grid.h"
#include "grid/slots.h"
#include "layout/check_grid.h"
#include "layout/generate.h"
#include "layout/split.h"
#include "solver/census.h"
#include "solver/fill.h"
#include "solver/matcher.h"
#include "view/cell_editing.h"
#include "view/test_buttons.h"
#include "view/unsaved.h"

namespace {

void Draw(App& app) {
  NewGrid(app.state, app.host);
}

void Clear(App& app) {
  app.state.paint.Clear();
  ClearWords(app.state, app.host);
}

template <int option>
void Choose(App& app) {
  ChooseDictionary(app.state, app.words, app.host, option);
}

void TellFoundWord(App& app) {
  app.host.Tell(FindWordMessage(app.words, app.state.Text4));
}

void Check(App& app) {
  State& state = app.state;
  state.haltRequested = false;
  CheckGrid(state, app.host, false);
  if (state.haltRequested) {
    state.haltRequested = false;
    state.ProgBar.Value = 0;
    state.ProgBar.Caption = "";
    EnableFrames(state);
    app.host.Pointer(PointerShape::Normal);
  }
  DifficultyGauge(state, app.host);
}

template <StartLocation start>
void Solve(App& app) {
  Fill(app.state, app.words, app.host).Solve(start);
}

void Halt(App& app) {
  app.state.haltRequested = true;
  app.host.Pointer(PointerShape::Normal);
}

void PrintGrid(App& app) {
  if (!app.outlets.printer) return;
  if (app.host.AskYesNo("Do you want to print grid?"))
    PrintPuzzle(app.state, app.host, *app.outlets.printer, SheetMode::GridOnly);
}

void PrintSolution(App& app) {
  if (!app.outlets.printer) return;
  if (app.host.AskYesNo("Do you want to print solution?"))
    PrintPuzzle(app.state, app.host, *app.outlets.printer, SheetMode::Full);
}

void CopyPicture(App& app) {
  if (app.outlets.clipboard) CopyToBitmap(app.host, *app.outlets.clipboard);
}

void ShowPreview(App& app) {
  const Outlets& outlets = app.outlets;
  if (outlets.publisher && outlets.printer)
    PreviewSheet(app.state, app.host, *outlets.publisher, *outlets.printer);
}

void SavePdf(App& app) {
  if (app.outlets.publisher)
    SaveAsPdf(app.state, app.host, *app.outlets.publisher);
}

void SavePicture(App& app) {
  if (app.outlets.publisher)
    SaveAsPicture(app.state, app.host, *app.outlets.publisher);
}

template <Window window>
void Open(App& app) {
  app.host.Open(window);
}

template <bool (*saveOrLoad)(State&, Host&)>
void SaveOrLoad(App& app) {
  if (saveOrLoad(app.state, app.host)) NoteSaved(app);
}

void Load(App& app) {
  if (MayLeavePuzzle(app)) SaveOrLoad<LoadPuzzle>(app);
}

void DoNothing(App&) {}

constexpr auto kIdle = MayRun::WhenIdle;

constexpr Command kCommands[] = {
    // GRID
    {"Command2", "Draw", "Draw a grid", kIdle, Draw},
    {"Command22", "Clear", "Clear all words, leave balck squares intact", kIdle,
     Clear},
    {"Command7", "Print", "Print the grid with black squares", kIdle,
     PrintGrid},
    // DICTIONARY
    {"DictOpt(0)", "Level1", "", kIdle, Choose<0>},
    {"DictOpt(1)", "Level2", "", kIdle, Choose<1>},
    {"DictOpt(2)", "Level3", "", kIdle, Choose<2>},
    {"DictOpt(3)", "Custom", "", kIdle, Choose<3>},
    {"Command6", "Find Word", "Find a word in the dictionary", kIdle,
     TellFoundWord},
    {"Command4", "Find Meaning",
     "Find meaning of a word from the WordNet dictionary", kIdle,
     Open<Window::Meaning>},
    // BLACK SQUARES
    {"Command1", "Insert", "Insert black squares in grid", kIdle,
     Open<Window::BlacksMenu>},
    {"blackrand", "Random", "", kIdle,
     [](App& app) { RandomBlackSquares(app.state, app.host); }},
    {"black2x2", "2x2 Pattern", "", kIdle,
     [](App& app) { TwoByTwoLayout(app.state, app.host); }},
    {"cancel1", "Cancel", "", kIdle, DoNothing},
    {"Command19", "Check", "Check the validity of black square placements",
     kIdle, Check},
    // SOLUTION
    {"Command20", "Compile", "Find solution", kIdle,
     Open<Window::SolutionMenu>},
    {"solx(0)", "Start Random Location", "", kIdle,
     Solve<StartLocation::Random>},
    {"solx(1)", "Specify Start Location", "", kIdle,
     Solve<StartLocation::Specified>},
    {"solx(2)", "Resume", "", kIdle, Solve<StartLocation::Resume>},
    {"solx(4)", "Cancel", "", kIdle, DoNothing},
    {"Command8", "Halt", "Halt the current solution", MayRun::Always, Halt},
    {"Command18", "Print", "Print grid with black squares and letters", kIdle,
     PrintSolution},
    // Main menu
    {"loadx", "Load", "", kIdle, Load},
    {"Savey", "Update", "", kIdle, SaveOrLoad<UpdatePuzzle>},
    {"savex", "Save As", "", kIdle, SaveOrLoad<SavePuzzleAs>},
    {"copx", "Copy to Bitmap", "", kIdle, CopyPicture},
    {"overviewx", "Overview", "", MayRun::Always, Open<Window::Overview>},
    {"helpx", "Help", "", MayRun::Always, Open<Window::Help>},
    {"aboutx", "About", "", MayRun::Always, Open<Window::About>},
    {"exitx", "Exit", "", MayRun::Always, [](App& app) { app.host.Quit(); }},
    // Below a separator
    {"previewx", "Print Preview", "", kIdle, ShowPreview},
    {"pdfx", "Save as PDF", "", kIdle, SavePdf},
    {"picturex", "Save as Picture", "", kIdle, SavePicture},
    // Debug panel
    {"Command3", "CheckAllMasks", "", kIdle,
     [](App& app) { CheckAllMasks(app.state, app.words, app.host); }},
    {"Command15", "SplitMaxLine", "", kIdle,
     [](App& app) { SplitMaxLine(app.state, app.host); }},
    {"Command23", "FindCriticality",
     "List how hard each slot is to fill, hardest first", kIdle,
     [](App& app) { (void)TakeCensus(app.state, app.words, app.host); }},
    {"Command10", "FitAcross2End",
     "List the words that fit the clicked cell to the end of its row", kIdle,
     FitToEnd<Direction::Across>},
    {"Command16", "FitDown2End",
     "List the words that fit the clicked cell to the end of its column", kIdle,
     FitToEnd<Direction::Down>},
    {"Command12", "FindWordLengths",
     "List how many words of each length are loaded", kIdle, FindWordLengths},
    {"Command5", "FindIntersection",
     "List the masks that cross the clicked slot (right button: down)", kIdle,
     FindIntersection<Direction::Across>},
    {"Command5(1)", "FindIntersection", "", kIdle,
     FindIntersection<Direction::Down>},
    {"Command17", "Fill Current Cell",
     "Put the letter into the cell at row 0, column 0", kIdle, FillCurrentCell},
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

const Command* FindCommand(std::string_view control) {
  const auto row = std::ranges::find(kCommands, control, &Command::control);
  return row == std::end(kCommands) ? nullptr : row;
}

const Command& CommandOf(std::string_view control) {
  const Command* row = FindCommand(control);
  assert(row);
  return *row;
}

bool RunCommand(App& app, const Command& command) {
  return RunAction(app, command.mayRun, [&] { command.operation(app); });
}

bool RunAction(App& app, MayRun mayRun, const std::function<void()>& action) {
  if (app.taskRuns && mayRun == MayRun::WhenIdle) return false;
  const RunningTask running(app);
  try {
    action();
  } catch (const FileError& error) {
    app.host.Tell(error.what());
  }
  return true;
}
