// A host for runs that nobody watches, shared by the fuzz
// targets and the benchmarks.

#pragma once

#include <random>
#include <string>

#include "base/text_file.h"
#include "grid/state.h"

class QuietHost : public Host {
 public:
  std::mt19937 random{1};

  void Tell(std::string_view) override {}
  bool AskYesNo(std::string_view) override { return true; }
  TriesAnswer AskTries(std::string_view) override { return TriesAnswer::Abort; }
  std::string AskText(std::string_view, std::string_view,
                      std::string_view) override {
    return "";
  }
  std::string AskFileName(const FileRequest&) override { return ""; }
  Events ShowLogLine(std::string_view) override { return {}; }
  Events Poll() override { return {}; }
  Events RunEvents() override { return {}; }
  Events AwaitHalt(std::string_view why) override {
    throw FileError(std::string(why));
  }
  void Pointer(PointerShape) override {}
  double Chance() override { return random() / 4294967296.0; }
  [[noreturn]] void EndProgram(std::string_view why) override {
    throw FileError(std::string(why));
  }
};

struct QuietDesk {
  State state;
  QuietHost host;
};
