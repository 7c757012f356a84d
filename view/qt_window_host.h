// The desktop program's way to the user: message boxes, questions, the file
// dialog, pending events and the pointer.

#pragma once

#include <QElapsedTimer>
#include <QMessageBox>
#include <functional>
#include <optional>
#include <random>

#include "base/host.h"

class FNDialog;

class WindowHost : public Host {
 public:
  // The window fills these in.
  QWidget* window = nullptr;
  FNDialog* gf1 = nullptr;
  std::function<void()> showState = [] {};
  std::function<void(Window)> open = [](Window) {};
  std::function<void()> quit = [] {};
  std::function<void()> keepWork = [] {};  // writes a recovery copy

  // Makes a run repeatable.
  void Seed(std::uint64_t seed) { seeded_.emplace(seed); }

  void Tell(std::string_view text) override;
  bool AskYesNo(std::string_view text) override;
  TriesAnswer AskTries(std::string_view text) override;
  std::string AskText(std::string_view prompt, std::string_view title,
                      std::string_view preset) override;
  std::string AskFileName(const FileRequest& request) override;
  UnsavedAnswer AskUnsaved(std::string_view text) override;
  LossesAnswer AskLosses(std::string_view text, bool canWrite) override;
  void Open(Window what) override { open(what); }
  void Quit() override { quit(); }
  Events ShowLogLine(std::string_view line) override;
  Events Poll() override;
  Events RunEvents() override { return Poll(); }
  Events AwaitHalt(std::string_view why) override;
  void Pointer(PointerShape shape) override;
  double Chance() override;
  [[noreturn]] void EndProgram(std::string_view why) override;

 private:
  int Box(std::string_view text, QMessageBox::StandardButtons buttons,
          QMessageBox::StandardButton onEscape);

  QElapsedTimer sincePoll_;
  bool hourglass_ = false;
  std::optional<std::mt19937_64> seeded_;
};
