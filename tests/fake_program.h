// The whole program with a fake user, without a window.

#pragma once

#include "tests/fakes.h"
#include "view/commands.h"

struct Program {
  App app;
  FakeHost host;

  Program() : app{.state = {}, .words = {}, .host = host} {}

  bool Press(std::string_view control, const Argument& argument = {}) {
    return Do(app, control, argument);
  }
  // Clicks a cell with shift keys, as on the grid picture.
  void Click(Pos cell, int shiftState, MouseButton button = MouseButton::Left) {
    Press(ControlOfClick(shiftState), {.click = {button, shiftState, cell}});
  }
};
