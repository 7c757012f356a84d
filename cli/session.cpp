#include "cli/session.h"

#include <unistd.h>

#include <iostream>

#include "cli/interrupt.h"
#include "cli/puzzles.h"
#include "dictionary/levels.h"
#include "files/kdp.h"
#include "files/puzzle_file.h"
#include "grid/choose_dictionary.h"

namespace {

// What of a grid the classic commands cannot take, or "".
std::string WhyNotClassic(const Document& document) {
  Document grid(document.width, document.height);
  for (std::size_t i = 0; i < grid.cells.size(); ++i) {
    const Cell& cell = document.cells[i];
    grid.cells[i].kind = cell.kind;
    grid.cells[i].solution = cell.solution;
    grid.cells[i].barRight = cell.barRight;
    grid.cells[i].barBelow = cell.barBelow;
  }
  if (!kKdpFormat.Refusal(grid).empty())
    return "it is " + std::to_string(grid.width) + " x " +
           std::to_string(grid.height) + " cells";
  const std::vector<Loss> losses = kKdpFormat.Losses(grid);
  return losses.empty() ? "" : losses.front().text;
}

// A document with the state's grid in it; what stood beside another grid goes.
Document WithGrid(const State& state, Document document) {
  Document drawn = kKdpFormat.Read(PuzzleText(state)).document;
  if (drawn.width != document.width || drawn.height != document.height)
    return drawn;
  for (std::size_t i = 0; i < drawn.cells.size(); ++i) {
    document.cells[i].kind = drawn.cells[i].kind;
    document.cells[i].solution = drawn.cells[i].solution;
  }
  return document;
}

}  // namespace

CliHost::CliHost(const State& state)
    : output(&std::cout), state_(state), showsProgress_(isatty(2) == 1) {}

std::ostream& CliHost::Out() {
  if (progressIsShown_) std::cerr << "\r\033[K";
  progressIsShown_ = false;
  return *output;
}

void CliHost::Tell(std::string_view text) {
  std::ostream& out = Out();
  for (char c : text)
    if (c != '\r') out << c;
  out << "\n";
}

bool CliHost::AskYesNo(std::string_view) {
  return answerYes;
}

TriesAnswer CliHost::AskTries(std::string_view text) {
  TriesAnswer answer = TriesAnswer::Abort;
  if (!triesAnswers.empty()) {
    answer = triesAnswers.front();
    triesAnswers.pop_front();
  }
  if (answer == TriesAnswer::Abort) {
    Out();
    std::cerr << "kelda-cli: stopped: " << text.substr(0, text.find('\r'))
              << "\n";
  }
  return answer;
}

std::string CliHost::AskText(std::string_view, std::string_view,
                             std::string_view) {
  return textAnswer;
}

std::string CliHost::AskFileName(const FileRequest&) {
  return "";
}

Events CliHost::ShowLogLine(std::string_view line) {
  Out() << line << "\n";
  return {};
}

Events CliHost::Poll() {
  constexpr int kPollsPerLook = 64;
  if (showsProgress_ && ++polls_ % kPollsPerLook == 0) ShowProgress();
  return {.halt = WasInterrupted()};
}

void CliHost::ShowProgress() {
  const ProgressBar& fill = state_.WordProg;
  std::cerr << "\r";
  if (!fill.Caption.empty())
    std::cerr << fill.Value << " of " << fill.Max << " cells  ";
  std::cerr << state_.ProgBar.Caption << "\033[K";
  progressIsShown_ = true;
}

// Runs start with the log off; whoever wants it switches it on when the
// run first lets events run.
Events CliHost::RunEvents() {
  return {.log = log};
}

Events CliHost::AwaitHalt(std::string_view why) {
  std::cerr << "kelda-cli: stopped: " << why << "\n";
  return {.halt = true};
}

double CliHost::Chance() {
  return ChanceOf(random_());
}

void CliHost::EndProgram(std::string_view why) {
  throw ProgramEnd(std::string(why));
}

void CliSession::OpenPuzzle(const std::string& path) {
  OpenedDocument opened = OpenPuzzleFile(path);
  opened_ = std::move(opened.reading.document);
  if (const std::string why = WhyNotClassic(opened_); !why.empty())
    throw FileError(path +
                    ": this command takes odd squares without bars, holes and "
                    "cells of several letters: " +
                    why);
  ShowPuzzle(state, host, ClassicPuzzle(opened_));
}

std::string CliSession::FileFor(const std::string& name) const {
  const Format* format = FormatOfName(name);
  if (!format || format == &kKdpFormat) return PuzzleText(state);
  const Document document = WithGrid(state, opened_);
  TellLosses(*format, document);
  return format->Write(document);
}

void CliSession::LoadWords(const std::string& list) {
  try {
    ReadDictionary(state, words, host, ListPath(list));
  } catch (const ProgramEnd& end) {
    throw FileError(list + ":" + end.what());
  }
  if (words.TotalWords == 0)
    std::cerr << "kelda-cli: " << list
              << ": there is no word of 3 to 20 letters in this file\n";
}
