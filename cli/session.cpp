#include "cli/session.h"

#include <unistd.h>

#include <iostream>

#include "cli/interrupt.h"
#include "cli/puzzles.h"
#include "dictionary/levels.h"
#include "grid/bridge.h"
#include "grid/choose_dictionary.h"

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
  opened_ = OpenPuzzleFile(path).reading.document;
  if (const std::string why = WhyNotClassic(opened_); !why.empty())
    throw Refusal(path + ": this command cannot take this puzzle: " + why);
  ShowDocument(state, host, opened_);
}

std::string CliSession::FileFor(const std::string& name) const {
  const Format* byName = FormatOfName(name);
  const Format& format = byName ? *byName : *FindFormat("kdp");
  const Document document = TakeGrid(state, opened_);
  TellLosses(format, document);
  return format.Write(document);
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
