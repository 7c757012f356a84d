// Ctrl-C: the first stops what a command does, the second ends the program.
//
// While a command can stop in good order, and still report, it holds a
// StopOnInterrupt.  At all other times, as while a word list or standard
// input is read, the first Ctrl-C ends the program at once.

#pragma once

class StopOnInterrupt {
 public:
  StopOnInterrupt();
  ~StopOnInterrupt();
  StopOnInterrupt(const StopOnInterrupt&) = delete;
  StopOnInterrupt& operator=(const StopOnInterrupt&) = delete;
};

// Whether there was a first one.
bool WasInterrupted();
