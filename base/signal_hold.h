// Puts off the signals that would end the program, for the short time in
// which it must not stop half way.
//
// The signals are held for all threads.  One that comes meanwhile is raised
// when the hold ends, and does then what it always does.  What the program
// ignores stays ignored.

#pragma once

#include <array>
#include <csignal>
#include <mutex>

class SignalHold {
 public:
  SignalHold();
  SignalHold(const SignalHold&) = delete;
  SignalHold& operator=(const SignalHold&) = delete;
  ~SignalHold();

  static constexpr std::array kHeld = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

 private:
  std::unique_lock<std::mutex> only_;  // one hold at a time
  std::array<struct sigaction, kHeld.size()> before_;
};
