// The command table: the index of the program, and the one door to it.
//
// A row for every button, menu item and box: the control, what it says, when
// it may run and the operation behind it.  A widget does one thing: it does
// its row.  Nothing else changes the puzzle.

#pragma once

#include <concepts>
#include <span>
#include <string>
#include <string_view>

#include "view/app.h"
#include "view/cell_editing.h"

struct AbandonedCopy;

enum class MayRun {
  WhenIdle,  // not while another command runs
  Always,
};

// What has to be there.
enum class Needs {
  Nothing,
  Grid,  // a puzzle that the classic window can edit
  Undo,  // a step to undo, to redo
  Redo,
};

// What the user gives with a command.
struct Argument {
  std::string text{};  // as typed, or a path
  Click click{};
  int place = 0;                        // of a scroll bar, in twips
  const AbandonedCopy* copy = nullptr;  // of another run
};

// What stands behind a row: a function of the program, which may take what
// the user gave.
class Operation {
 public:
  template <class Function>
  constexpr Operation(Function function) {
    if constexpr (std::invocable<Function, App&>)
      plain_ = function;
    else
      withArgument_ = function;
  }
  void operator()(App& app, const Argument& argument) const {
    if (plain_)
      plain_(app);
    else
      withArgument_(app, argument);
  }

 private:
  void (*plain_)(App&) = nullptr;
  void (*withArgument_)(App&, const Argument&) = nullptr;
};

struct Command {
  std::string_view control;  // the control's name; a number tells items of a
                             // control array apart: "solx(2)"
  std::string_view caption;
  std::string_view toolTip;
  MayRun mayRun;
  Operation operation;
  Needs needs = Needs::Nothing;
  std::string_view step = {};  // in the history, if the caption does not do
};

// The rows of buttons and menu items.
std::span<const Command> AllCommands();
// Those of boxes, the grid picture, scroll bars and what happens to the
// window.
std::span<const Command> AllEdits();

// The row of a control of any kind, or nullptr.
const Command* FindCommand(std::string_view control);
// The row of a control, which must have one.
const Command& CommandOf(std::string_view control);

// Why a command may not run now, in words; "" when it may.
std::string WhyNot(const App& app, const Command& command);

// Does a command if it may run now; returns whether it did.  Tells of a file
// that cannot be read or written.
//
// When the outermost command ends, the grid and the title that it left are
// taken into the document; if that differs, it is one step of the history.
// What is typed into a box is one step until something else is done.
bool Do(App& app, const Command& command, const Argument& argument = {});
bool Do(App& app, std::string_view control, const Argument& argument = {});
