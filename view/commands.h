// The command table: the index of the program.
//
// A row for every button and menu item: the control, what it says, when it
// may run and the operation behind it.  A widget does one thing: it runs its
// row.

#pragma once

#include <functional>
#include <span>
#include <string_view>

#include "view/app.h"

enum class MayRun {
  WhenIdle,  // not while another command runs
  Always,
};

struct Command {
  std::string_view control;  // the control's name; a number tells items of a
                             // control array apart: "solx(2)"
  std::string_view caption;
  std::string_view toolTip;
  MayRun mayRun;
  void (*operation)(App& app);
};

std::span<const Command> AllCommands();

// The row of a control, or nullptr.
const Command* FindCommand(std::string_view control);
// The row of a control, which must have one.
const Command& CommandOf(std::string_view control);

// Runs a command if it may run now; returns whether it did.  Tells of a file
// that cannot be read or written.
bool RunCommand(App& app, const Command& command);

// The same for an action that no button stands for, like a click on the grid
// picture.
bool RunAction(App& app, MayRun mayRun, const std::function<void()>& action);
