// kelda-cli fill: the step-by-step fill.

#include <algorithm>
#include <chrono>
#include <iostream>

#include "cli/checks.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "cli/session.h"
#include "files/puzzle_file.h"
#include "solver/fill.h"

namespace {

struct Options {
  std::string puzzle;
  std::string list = "2";
  std::string start;
  std::vector<std::string> tries;
  bool log = false;
  Output out;
  std::optional<std::uint64_t> seed;
};

const std::map<std::string, TriesAnswer> kTriesAnswers = {
    {"abort", TriesAnswer::Abort},
    {"retry", TriesAnswer::Retry},
    {"ignore", TriesAnswer::Ignore}};

// How many entries have an empty cell.
int CountUnfilled(const State& state) {
  const auto isUnfilled = [&](const Slot& slot) {
    for (int k = 1; k <= slot.length; ++k)
      if (state.Grid[slot.CellAt(k)] == kEmptyCell) return true;
    return false;
  };
  return static_cast<int>(
      std::ranges::count_if(state.SlotCells.Slots(), isUnfilled));
}

int RunFill(const Options& options) {
  CliSession session;
  session.LoadWords(options.list);
  session.OpenPuzzle(options.puzzle);
  CliHost& host = session.host;
  if (options.out.name == "-") host.output = &std::cerr;
  for (const std::string& answer : options.tries)
    host.triesAnswers.push_back(kTriesAnswers.at(answer));
  host.textAnswer = options.start;
  host.log = options.log;
  if (options.seed) host.Seed(*options.seed);

  const StopOnInterrupt scope;
  using Clock = std::chrono::steady_clock;
  const Clock::time_point begin = Clock::now();
  const FillReport report =
      Fill(session.state, session.words, session.host)
          .Solve(options.start.empty() ? StartLocation::Random
                                       : StartLocation::Specified);
  const std::chrono::duration<double> seconds = Clock::now() - begin;

  if (report.outcome == FillOutcome::Halted) {
    host.Out();
    std::cerr << "kelda-cli: halted\n";
  }
  host.Out() << GridText(session.state) << report.slotsSolved
             << " slots solved, " << report.candidatesTried
             << " candidates tried, " << report.backtracks << " backtracks, "
             << seconds.count() << " seconds\n";
  if (!options.out.name.empty() && report.outcome != FillOutcome::Refused)
    Write(options.out, session.FileFor(options.out.name));
  if (report.outcome != FillOutcome::Completed) return kNotCompleted;
  const int empty = CountUnfilled(session.state);
  if (empty == 0) return kDone;
  std::cerr << "kelda-cli: " << empty
            << (empty == 1 ? " entry is" : " entries are")
            << " still empty: the fill does not go on from one section of "
               "the grid to another\n";
  return kNotCompleted;
}

}  // namespace

void AddFillCommand(CLI::App& app, int& status) {
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("fill", "Fill a puzzle with words, step by step.");
  command->footer(
      "Letters that the puzzle holds are cleared first.  Ctrl-C halts; the\n"
      "partly filled grid is still written.\n"
      "Example: kelda-cli fill puzzle.kdp -d 3 --start 22A -o filled.kdp");
  command->add_option("PUZZLE", options->puzzle, "Puzzle file")->required();
  command
      ->add_option("-d,--dictionary", options->list,
                   "Word list: a file, or 1, 2 or 3 for a level")
      ->capture_default_str();
  CLI::Option* start = command->add_option("--start", options->start,
                                           "Clue to start at, for example 22A");
  command
      ->add_flag_callback(
          "--random", [] {},
          "Start at a random one of the hardest slots (default)")
      ->excludes(start);
  command
      ->add_option("--tries", options->tries,
                   "Answers to whether to go on after many tries, in turn: "
                   "retry, ignore or abort, separated by commas; then abort")
      ->option_text("ANSWERS")
      ->delimiter(',')
      ->check(CLI::IsMember({"abort", "retry", "ignore"}));
  command->add_flag("--log", options->log, "Print every line of the log");
  AddOutput(*command, options->out,
            "Puzzle file to write, of the format of its ending");
  command
      ->add_option("--seed", options->seed,
                   "Make the random choices repeatable")
      ->check(CLI::Validator(CheckSeed, ""));
  command->callback([options, &status] { status = RunFill(*options); });
}
