// kelda-cli autofill: fills puzzles around the letters that they hold.

#include <iostream>

#include "cli/autofill_files.h"
#include "cli/autofill_lists.h"
#include "cli/autofill_report.h"
#include "cli/checks.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/puzzles.h"

namespace {

using autofill::Result;
using autofill::Status;

struct Arguments {
  AutofillFiles files;
  std::vector<std::string> lists;
  autofill::Options options;
  bool best = false;
  int differ = 0;  // 0: a quarter of the entries
  bool json = false;
};

int CountOpenEntries(const autofill::Problem& problem) {
  return static_cast<int>(
      std::ranges::count_if(problem.entries, [&](const Entry& entry) {
        return !autofill::IsComplete(problem.letters, entry);
      }));
}

void Fill(const Arguments& arguments, const WordList& words,
          AutofillReport& report) {
  const StopOnInterrupt scope;
  std::stop_source stop;
  const autofill::OnProgress lookForInterrupt = [&](const autofill::Progress&) {
    if (WasInterrupted()) stop.request_stop();
  };
  const auto& [problem, options] = std::tie(report.problem, arguments.options);
  if (arguments.best) {
    const auto best =
        FillBest(problem, words, options, stop.get_token(), lookForInterrupt);
    report.result = best.fill;
    report.best = best.Text();
    report.tried = best.tried;
    report.proved = best.proved;
  } else if (arguments.files.count > 1) {
    const int differ =
        arguments.differ > 0 ? arguments.differ : CountOpenEntries(problem) / 4;
    const auto several =
        FillSeveral(problem, words, options, arguments.files.count, differ,
                    stop.get_token(), lookForInterrupt);
    report.fills = several.fills;
    report.result = several.fills.empty() ? several.last : several.fills[0];
  } else {
    report.result = autofill::Fill(problem, words, options, stop.get_token(),
                                   lookForInterrupt);
  }
  if (report.fills.empty() && report.result.status == Status::Filled)
    report.fills = {report.result};
}

// That of the output's ending, else the puzzle's own.
const Format& FormatFor(const AutofillFiles& files, const std::string& name,
                        const OpenedDocument& opened) {
  const Format* byName = FormatOfName(files.PathOf(name, 0));
  return byName ? *byName : *opened.format;
}

void WriteFills(const AutofillFiles& files, const Format& format,
                const AutofillReport& report) {
  for (int i = 0; i < static_cast<int>(report.fills.size()); ++i) {
    const Document filled = report.Filled(report.fills[i]);
    if (i == 0) TellLosses(format, filled, files.PrefixOf(report.name));
    Write({files.PathOf(report.name, i), files.out.force},
          format.Write(filled));
  }
}

// The rows of each fill, when they go nowhere else.
void PrintFills(const AutofillReport& report) {
  for (const Result& fill : report.fills) {
    for (const std::string& row : TextRows(report.Filled(fill)))
      std::cout << row << "\n";
    if (&fill != &report.fills.back()) std::cout << "\n";
  }
}

void Tell(const Arguments& arguments, const AutofillReport& report) {
  std::ostream& out = arguments.files.out.name == "-" ? std::cerr : std::cout;
  if (arguments.json)
    out << JsonOf(report) << std::endl;
  else
    out << LineOf(report) << std::endl;
  for (const auto& entry : report.problem.unfillable)
    std::cerr << "kelda-cli: " << report.name << ": " << TextOf(entry) << "\n";
}

int RunPuzzle(const Arguments& arguments, const std::string& name,
              const WordList& words) {
  AutofillReport report;
  report.name = name;
  OpenedDocument opened = OpenPuzzleFile(name, arguments.files.PrefixOf(name));
  const Format& format = FormatFor(arguments.files, name, opened);
  const std::string refusal = format.Refusal(opened.reading.document);
  if (!arguments.files.out.name.empty() && !refusal.empty())
    throw FileError(arguments.files.PathOf(name, 0) + ": " + refusal);
  report.document = std::move(opened.reading.document);
  report.problem = autofill::ProblemOf(report.document);
  Fill(arguments, words, report);
  Tell(arguments, report);
  if (!arguments.files.out.name.empty())
    WriteFills(arguments.files, format, report);
  else if (!arguments.json)
    PrintFills(report);
  const bool done =
      static_cast<int>(report.fills.size()) >= arguments.files.count &&
      report.problem.unfillable.empty();
  return done ? kDone : kNotCompleted;
}

// A puzzle that fails, for whatever reason, costs none of the others.
int TryPuzzle(const Arguments& arguments, const std::string& name,
              const WordList& words) {
  std::string why;
  try {
    return RunPuzzle(arguments, name, words);
  } catch (const FileError& error) {
    why = error.what();
  } catch (const std::bad_alloc&) {
    why = name + ": there is not enough memory";
  } catch (const std::exception& error) {
    why = name + ": " + error.what();
  }
  std::cerr << "kelda-cli: " << why << std::endl;
  if (arguments.json) std::cout << JsonOfFailure(name, why) << std::endl;
  return kFileFailed;
}

int RunAutofill(const Arguments& arguments) {
  arguments.files.Reserve();
  const WordList words = LoadLists(arguments.lists);
  int status = kDone;
  for (const std::string& puzzle : arguments.files.puzzles)
    status = std::max(status, WasInterrupted()
                                  ? static_cast<int>(kNotCompleted)
                                  : TryPuzzle(arguments, puzzle, words));
  return status;
}

void AddOptions(CLI::App& command, Arguments& arguments) {
  autofill::Options& options = arguments.options;
  command
      .add_option("PUZZLE", arguments.files.puzzles,
                  "Puzzle files, or rows of a grid")
      ->required();
  AddListOption(command, arguments.lists);
  command.add_option("--time", options.seconds, "Seconds for each puzzle")
      ->check(CLI::Validator(CheckSeconds, ""))
      ->capture_default_str();
  command.add_option("--threads", options.threads, "Threads (0: all cores)")
      ->check(CLI::Range(0, 1024))
      ->capture_default_str();
  command
      .add_option("--seed", options.seed,
                  "Another seed finds another fill, the same one the same")
      ->check(CLI::Validator(CheckSeed, ""))
      ->capture_default_str();
  CLI::Option* best = command.add_flag(
      "--best", arguments.best,
      "Raise the lowest score as far as it goes, and prove it");
  command
      .add_option("--count", arguments.files.count, "So many fills, best first")
      ->check(CLI::Range(1, 1000))
      ->excludes(best);
  command
      .add_option("--differ", arguments.differ,
                  "Entries in which two fills must differ (default: a "
                  "quarter of those to fill)")
      ->check(CLI::Range(1, 10000));
  command
      .add_option("--no-shared", options.shared,
                  "No two entries share so many letters in a row")
      ->check(CLI::Range(2, 51));
  command.add_option("-o,--output", arguments.files.out.name,
                     "Puzzle file to write, or a folder; with several puzzles "
                     "always a folder");
  command.add_flag("--force", arguments.files.out.force,
                   "Replace files that are in the folder already, the "
                   "further files of --count, and write-protected ones");
  command.add_flag("--json", arguments.json, "A JSON object for each puzzle");
}

}  // namespace

void AddAutofillCommand(CLI::App& app, int& status) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand(
      "autofill", "Fill puzzles with words, keeping the letters they hold.");
  command->footer(
      "Each puzzle gets a line: filled, impossible (and which entries can't\n"
      "be filled together), or stopped.  Ctrl-C stops and still reports.\n"
      "Exit status: 0 all filled, 1 some not, 2 wrong usage, 3 a file can't\n"
      "be read or written.\n"
      "Example: kelda-cli autofill theme.kdp -w words.txt:50 -w 2 -o full.kdp");
  AddOptions(*command, *arguments);
  command->callback([arguments, &status] { status = RunAutofill(*arguments); });
}
