// What the commands of kelda-cli work with: the program's state, and a host
// that stands for the user.

#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <ostream>
#include <random>
#include <stdexcept>
#include <string>

#include "base/file_error.h"
#include "dictionary/word_table.h"
#include "grid/state.h"
#include "puzzle/document.h"

// A program that has to end, for a reason that names no file.
class ProgramEnd : public FileError {
 public:
  using FileError::FileError;
};

// A puzzle that the command cannot work with: "a.ipuz: this command cannot
// take this puzzle: it has 3 bars".
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Answers questions from the options of the command and prints messages.
class CliHost : public Host {
 public:
  explicit CliHost(const State& state);

  std::ostream* output;                  // of messages and the log
  std::deque<TriesAnswer> triesAnswers;  // then Abort
  bool answerYes = true;                 // to every question
  std::string textAnswer;                // to every prompt
  bool log = false;                      // print the solver's log
  // The output, with no progress line in the way.
  std::ostream& Out();
  void Seed(std::uint64_t seed) { random_.seed(seed); }

  void Tell(std::string_view text) override;
  bool AskYesNo(std::string_view text) override;
  TriesAnswer AskTries(std::string_view text) override;
  std::string AskText(std::string_view prompt, std::string_view title,
                      std::string_view preset) override;
  std::string AskFileName(const FileRequest& request) override;
  Events ShowLogLine(std::string_view line) override;
  Events Poll() override;
  Events RunEvents() override;
  Events AwaitHalt(std::string_view why) override;
  void Pointer(PointerShape) override {}
  double Chance() override;
  [[noreturn]] void EndProgram(std::string_view why) override;

 private:
  void ShowProgress();

  const State& state_;
  std::mt19937_64 random_{std::random_device{}()};
  bool showsProgress_;
  bool progressIsShown_ = false;
  int polls_ = 0;
};

struct CliSession {
  State state;
  WordTable words;
  CliHost host{state};

  // Opens a puzzle file of any format; "-" is standard input.  Throws a
  // Refusal for a puzzle that is no odd square or has bars, holes or cells of
  // several letters.  What was passed over is told on standard error.
  void OpenPuzzle(const std::string& path);
  // The puzzle as a file of the format that a name's ending tells, .kdp where
  // it tells none.  What is lost is told on standard error.
  std::string FileFor(const std::string& name) const;
  // Loads a word list: a file, or 1, 2 or 3 for a level.
  void LoadWords(const std::string& list);

 private:
  Document opened_;  // what the file held beside the grid
};
