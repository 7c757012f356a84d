// kelda-cli layout and split: placing black squares.

#include <iostream>

#include "cli/checks.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "cli/session.h"
#include "layout/generate.h"
#include "layout/split.h"

namespace {

struct LayoutOptions {
  std::string kind;
  int size = 15;
  int squares = 0;
  std::optional<std::uint64_t> seed;
  bool noSplit = false;
  Output out{"-"};
};

// Whether there are fewer black squares than wanted.  A lattice that stays as
// it is has what it has, unless their number was given.
bool IsShort(const State& state, const LayoutOptions& options) {
  const bool anyNumber = options.noSplit && options.squares == 0;
  return !anyNumber && state.BlackSquareCount < state.BlackTarget;
}

int RunLayout(const LayoutOptions& options) {
  CliSession session;
  if (options.out.name == "-") session.host.output = &std::cerr;
  session.host.answerYes = !options.noSplit;
  if (options.seed) session.host.Seed(*options.seed);
  session.state.Text3 = std::to_string(options.size);
  session.state.Text2 = std::to_string(options.squares);
  const StopOnInterrupt scope;
  if (options.kind == "random")
    RandomBlackSquares(session.state, session.host);
  else
    TwoByTwoLayout(session.state, session.host);
  Write(options.out, session.FileFor(options.out.name));
  if (IsShort(session.state, options)) {
    std::cerr << "kelda-cli: stopped short of " << session.state.BlackTarget
              << " black squares\n";
    return kNotCompleted;
  }
  return WasInterrupted() ? kNotCompleted : kDone;
}

int RunSplit(const std::string& puzzle, const Output& out,
             const std::optional<std::uint64_t>& seed) {
  CliSession session;
  session.OpenPuzzle(puzzle);
  if (out.name == "-") session.host.output = &std::cerr;
  if (seed) session.host.Seed(*seed);
  const int before = session.state.BlackSquareCount;
  SplitMaxLine(session.state, session.host);
  if (!out.name.empty()) Write(out, session.FileFor(out.name));
  return session.state.BlackSquareCount > before ? kDone : kNotCompleted;
}

// A size that a grid can have.
std::string CheckSize(const std::string& text) {
  const int size = ValToInt(text);
  const bool fits = size >= 5 && size <= MaxGridSize && size % 2 == 1;
  return fits ? "" : text + ": a size is odd and from 5 to 51";
}

}  // namespace

void AddLayoutCommand(CLI::App& app, int& status) {
  auto options = std::make_shared<LayoutOptions>();
  CLI::App* command =
      app.add_subcommand("layout", "Make a layout of black squares.");
  command->footer(
      "Example: kelda-cli layout 2x2 --size 15 --seed 7 -o layout.kdp");
  command->add_option("KIND", options->kind, "random or 2x2")
      ->required()
      ->check(CLI::IsMember({"random", "2x2"}));
  command->add_option("--size", options->size, "Cells per row, odd, 5 to 51")
      ->capture_default_str()
      ->check(CLI::Validator(CheckSize, ""));
  command
      ->add_option("--squares", options->squares,
                   "Number of black squares (default: by size)")
      ->check(CLI::Range(1, MaxGridSize * MaxGridSize));
  command
      ->add_option("--seed", options->seed,
                   "Make the random choices repeatable")
      ->check(CLI::Validator(CheckSeed, ""));
  command->add_flag("--no-split", options->noSplit,
                    "Leave a 2x2 lattice as it is");
  AddOutput(*command, options->out,
            "Puzzle file to write, of the format of its ending")
      ->capture_default_str();
  command->callback([options, &status] { status = RunLayout(*options); });
}

void AddSplitCommand(CLI::App& app, int& status) {
  struct Options {
    std::string puzzle;
    Output out;
    std::optional<std::uint64_t> seed;
  };
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand(
      "split", "Split the longest slot by a pair of black squares.");
  command->footer("Example: kelda-cli split layout.kdp -o split.kdp");
  command->add_option("PUZZLE", options->puzzle, "Puzzle file")->required();
  AddOutput(*command, options->out,
            "Puzzle file to write, of the format of its ending");
  command
      ->add_option("--seed", options->seed,
                   "Make the random choices repeatable")
      ->check(CLI::Validator(CheckSeed, ""));
  command->callback([options, &status] {
    status = RunSplit(options->puzzle, options->out, options->seed);
  });
}
