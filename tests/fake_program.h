// The whole program with a fake user, without a window.

#pragma once

#include "tests/fakes.h"
#include "view/commands.h"

struct Program {
  App app;
  FakeHost host;
  FakePicture picture;

  Program()
      : app{.state = {}, .words = {}, .host = host, .picture = picture},
        host(app.state) {}

  bool Press(std::string_view control) {
    return RunCommand(app, CommandOf(control));
  }
};
