#include "view/commands.h"

#include <algorithm>
#include <cassert>

#include "base/utf8.h"
#include "dictionary/find_word.h"
#include "files/publish.h"
#include "files/sheet.h"
#include "grid/bridge.h"
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
#include "view/debug_panel.h"
#include "view/exchange.h"
#include "view/file_commands.h"
#include "view/test_buttons.h"
#include "view/undo.h"

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

void DoNothing(App&) {}

// Text boxes and other controls that the user works without a caption

void EditLetter(App& app, const Argument& argument) {
  app.state.Text1 = argument.text;
}

void EditBlacks(App& app, const Argument& argument) {
  EditBlackSquareCount(app.state, argument.text);
}

void EditSize(App& app, const Argument& argument) {
  EditGridSize(app.state, argument.text);
}

void LeaveSize(App& app) {
  LeaveGridSize(app.state);
}

void EditWord(App& app, const Argument& argument) {
  app.state.Text4 = argument.text;
}

void EditTitle(App& app, const Argument& argument) {
  app.state.Text5 = ToBytes(argument.text);
}

void ClickGrid(App& app, const Argument& argument) {
  ClickCell(app, argument.click);
}

template <ScrollBar State::*bar>
void Scroll(App& app, const Argument& argument) {
  (app.state.*bar).Value = argument.place;
}

constexpr auto kIdle = MayRun::WhenIdle;
constexpr auto kAlways = MayRun::Always;

constexpr Command kCommands[] = {
    // GRID
    {"Command2", "Draw", "Draw a grid", kIdle, Draw, Needs::Grid},
    {"Command22", "Clear", "Clear all words, leave balck squares intact", kIdle,
     Clear, Needs::Grid},
    {"Command7", "Print", "Print the grid with black squares", kIdle, PrintGrid,
     Needs::Grid},
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
     Open<Window::BlacksMenu>, Needs::Grid},
    {"blackrand", "Random", "", kIdle,
     [](App& app) { RandomBlackSquares(app.state, app.host); }, Needs::Grid},
    {"black2x2", "2x2 Pattern", "", kIdle,
     [](App& app) { TwoByTwoLayout(app.state, app.host); }, Needs::Grid},
    {"cancel1", "Cancel", "", kIdle, DoNothing},
    {"Command19", "Check", "Check the validity of black square placements",
     kIdle, Check, Needs::Grid},
    // SOLUTION
    {"Command20", "Compile", "Find solution", kIdle, Open<Window::SolutionMenu>,
     Needs::Grid},
    {"solx(0)", "Start Random Location", "", kIdle,
     Solve<StartLocation::Random>, Needs::Grid, "Compile"},
    {"solx(1)", "Specify Start Location", "", kIdle,
     Solve<StartLocation::Specified>, Needs::Grid, "Compile"},
    {"solx(2)", "Resume", "", kIdle, Solve<StartLocation::Resume>, Needs::Grid},
    {"solx(4)", "Cancel", "", kIdle, DoNothing},
    {"Command8", "Halt", "Halt the current solution", kAlways, Halt},
    {"Command18", "Print", "Print grid with black squares and letters", kIdle,
     PrintSolution, Needs::Grid},
    // Main menu
    {"loadx", "Load", "", kIdle, LoadFile},
    {"Savey", "Update", "", kIdle, UpdateFile},
    {"savex", "Save As", "", kIdle, SaveFileAs},
    {"copx", "Copy to Bitmap", "", kIdle, CopyPicture},
    {"overviewx", "Overview", "", kAlways, Open<Window::Overview>},
    {"helpx", "Help", "", kAlways, Open<Window::Help>},
    {"aboutx", "About", "", kAlways, Open<Window::About>},
    {"exitx", "Exit", "", kAlways, [](App& app) { app.host.Quit(); }},
    // Menu Edit
    {"undox", "Undo", "", kIdle, UndoStep, Needs::Undo},
    {"redox", "Redo", "", kIdle, RedoStep, Needs::Redo},
    // Below a separator
    {"importx", "Import", "", kIdle, ImportPuzzle},
    {"exportx", "Export", "", kIdle, ExportPuzzle},
    {"previewx", "Print Preview", "", kIdle, ShowPreview, Needs::Grid},
    {"pdfx", "Save as PDF", "", kIdle, SavePdf, Needs::Grid},
    {"picturex", "Save as Picture", "", kIdle, SavePicture, Needs::Grid},
    // Debug panel
    {"Command3", "CheckAllMasks", "", kIdle,
     [](App& app) { CheckAllMasks(app.state, app.words, app.host); },
     Needs::Grid},
    {"Command15", "SplitMaxLine", "", kIdle,
     [](App& app) { SplitMaxLine(app.state, app.host); }, Needs::Grid},
    {"Command23", "FindCriticality",
     "List how hard each slot is to fill, hardest first", kIdle,
     [](App& app) { (void)TakeCensus(app.state, app.words, app.host); },
     Needs::Grid},
    {"Command10", "FitAcross2End",
     "List the words that fit the clicked cell to the end of its row", kIdle,
     FitToEnd<Direction::Across>, Needs::Grid},
    {"Command16", "FitDown2End",
     "List the words that fit the clicked cell to the end of its column", kIdle,
     FitToEnd<Direction::Down>, Needs::Grid},
    {"Command12", "FindWordLengths",
     "List how many words of each length are loaded", kIdle, FindWordLengths},
    {"Command5", "FindIntersection",
     "List the masks that cross the clicked slot (right button: down)", kIdle,
     FindIntersection<Direction::Across>, Needs::Grid},
    {"Command5(1)", "FindIntersection", "", kIdle,
     FindIntersection<Direction::Down>, Needs::Grid},
    {"Command17", "Fill Current Cell",
     "Put the letter into the cell at row 0, column 0", kIdle, FillCurrentCell,
     Needs::Grid},
};

constexpr Command kEdits[] = {
    {"Text1", "Letter", "", kAlways, EditLetter},
    {"Text2", "Number of Blacks", "", kAlways, EditBlacks, Needs::Grid},
    {"Text3", "Size", "", kAlways, EditSize, Needs::Grid},
    {"Text3(left)", "Size", "", kIdle, LeaveSize, Needs::Grid},
    {"Text4", "Word to Look Up", "", kAlways, EditWord},
    {"Text5", "Title", "", kAlways, EditTitle},
    {"Picture1", "Show Word", "", kIdle, ClickGrid, Needs::Grid},
    {"Picture1(shift)", "Black Squares", "", kIdle, ClickGrid, Needs::Grid},
    {"Picture1(ctrl)", "Word", "", kIdle, ClickGrid, Needs::Grid},
    {"HScroll1", "Scroll", "", kAlways, Scroll<&State::HScroll1>},
    {"VScroll1", "Scroll", "", kAlways, Scroll<&State::VScroll1>},
    // What happens to the window
    {"start", "Start", "", kIdle, StartUp},
    {"open", "Open", "", kIdle, OpenFile},
    {"recover", "Recover", "", kIdle, RecoverPuzzle},
    {"leave", "Leave", "", kIdle, Leave},
    {"F1", "Debug Panel", "", kAlways, ToggleDebugPanel},
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

// Takes what the outermost command left into the document.
void TakeStep(App& app, const Command& command) {
  const bool typed = command.control.starts_with("Text");
  app.history.Take(command.step.empty() ? command.caption : command.step,
                   LiveDocument(app),
                   typed && app.lastControl == command.control);
  app.state.gridIsNew = false;
  app.lastControl = command.control;
}

}  // namespace

std::span<const Command> AllCommands() {
  return kCommands;
}

std::span<const Command> AllEdits() {
  return kEdits;
}

const Command* FindCommand(std::string_view control) {
  for (std::span<const Command> rows : {AllCommands(), AllEdits()}) {
    const auto row = std::ranges::find(rows, control, &Command::control);
    if (row != rows.end()) return &*row;
  }
  return nullptr;
}

const Command& CommandOf(std::string_view control) {
  const Command* row = FindCommand(control);
  assert(row);
  return *row;
}

std::string WhyNot(const App& app, const Command& command) {
  if (app.taskRuns && command.mayRun == MayRun::WhenIdle)
    return "Another command is running.";
  switch (command.needs) {
    case Needs::Nothing:
      return "";
    case Needs::Grid:
      return WhyGridIsFixed(app);
    case Needs::Undo:
      return app.history.UndoCaption().empty() ? "Nothing to undo." : "";
    case Needs::Redo:
      return app.history.RedoCaption().empty() ? "Nothing to redo." : "";
  }
  return "";
}

bool Do(App& app, const Command& command, const Argument& argument) {
  if (!WhyNot(app, command).empty()) return false;
  const bool outermost = !app.taskRuns;
  try {
    const RunningTask running(app);
    command.operation(app, argument);
  } catch (const FileError& error) {
    app.host.Tell(error.what());
  }
  if (outermost) TakeStep(app, command);
  return true;
}

bool Do(App& app, std::string_view control, const Argument& argument) {
  return Do(app, CommandOf(control), argument);
}
