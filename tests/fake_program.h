// The whole program with a fake user, without a window.

#pragma once

#include "tests/fakes.h"
#include "view/commands.h"

struct Program {
  App app;
  FakeHost host;

  Program() : app{.state = {}, .words = {}, .host = host} {}

  bool Press(std::string_view control) {
    return RunCommand(app, CommandOf(control));
  }
};
