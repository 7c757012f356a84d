// kelda-cli autofill: fills puzzles around the letters that they hold.

#include <csignal>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "cli/autofill_lists.h"
#include "cli/commands.h"
#include "cli/session.h"

namespace {

using autofill::Result;
using autofill::Status;
using nlohmann::ordered_json;

volatile std::sig_atomic_t interrupted = 0;

struct Arguments {
  std::vector<std::string> puzzles;
  std::vector<std::string> lists;
  autofill::Options options;
  bool best = false;
  int count = 1;
  int differ = 0;  // 0: a quarter of the entries
  std::string out;
  bool json = false;
};

// The outcome of one puzzle, whichever way it was asked for.
struct Report {
  Result result;
  std::vector<Result> fills;
  std::string best;  // "lowest score 62; 63 is impossible"
  int tried = 0;
  bool proved = false;
};

bool GoOn(const autofill::Progress&) {
  return !interrupted;
}

int CountOpenEntries(const autofill::Rows& rows) {
  const autofill::Board board(rows);
  int open = 0;
  for (const autofill::Entry& entry : board.Entries()) open += !entry.given;
  return open;
}

Report Run(const Arguments& arguments, const autofill::Rows& rows,
           const WordList& words) {
  Report report;
  if (arguments.best) {
    const auto best = autofill::FillBest(rows, words, arguments.options, GoOn);
    report.result = best.fill;
    report.best = best.Text();
    report.tried = best.tried;
    report.proved = best.proved;
  } else if (arguments.count > 1) {
    const int differ =
        arguments.differ > 0 ? arguments.differ : CountOpenEntries(rows) / 4;
    auto several = autofill::FillSeveral(rows, words, arguments.options,
                                         arguments.count, differ, GoOn);
    report.fills = several.fills;
    report.result = several.fills.empty() ? several.last : several.fills[0];
  } else {
    report.result = autofill::Fill(rows, words, arguments.options, GoOn);
  }
  if (report.fills.empty() && report.result.status == Status::Filled)
    report.fills = {report.result};
  return report;
}

std::string_view NameOf(Status status) {
  constexpr std::string_view kNames[] = {"filled", "impossible", "stopped"};
  return kNames[static_cast<int>(status)];
}

// "puzzle.kdp: filled, lowest score 50, mean 50.0; 121 nodes, ..."
std::string LineOf(const std::string& name, const Report& report) {
  const Result& result = report.result;
  std::ostringstream line;
  line << name << ": " << NameOf(result.status) << std::fixed;
  if (report.fills.size() > 1) line << " " << report.fills.size() << " times";
  if (!report.best.empty())
    line << ", " << report.best;
  else if (result.status == Status::Filled)
    line << ", lowest score " << result.lowestScore;
  if (result.status == Status::Filled)
    line << ", mean " << std::setprecision(1) << result.meanScore;
  if (result.status == Status::Stopped)
    line << ", not decided in " << std::setprecision(0) << result.seconds
         << " s";
  if (!result.why.empty() && result.status != Status::Filled)
    line << ": " << result.why;
  const auto& statistics = result.statistics;
  line << "; " << statistics.nodes << " nodes, " << statistics.fails
       << " fails, " << std::setprecision(3) << result.seconds << " s";
  return line.str();
}

ordered_json JsonOf(const std::string& name, const Arguments& arguments,
                    const Report& report) {
  const Result& result = report.result;
  const auto& statistics = result.statistics;
  ordered_json json = {{"puzzle", name},
                       {"status", NameOf(result.status)},
                       {"fills", ordered_json::array()},
                       {"why", result.why},
                       {"culprits", ordered_json::array()},
                       {"nodes", statistics.nodes},
                       {"fails", statistics.fails},
                       {"restarts", statistics.restarts},
                       {"propagations", statistics.propagations},
                       {"seconds", result.seconds}};
  for (const Result& fill : report.fills)
    json["fills"].push_back({{"rows", fill.rows},
                             {"lowest", fill.lowestScore},
                             {"mean", fill.meanScore}});
  for (const autofill::Culprit& culprit : result.culprits)
    json["culprits"].push_back(
        {{"entry", culprit.entry}, {"mask", culprit.mask}});
  if (arguments.best)
    json["best"] = {{"tried", report.tried}, {"impossible", report.proved}};
  return json;
}

bool IntoFolder(const Arguments& arguments) {
  std::error_code error;
  return arguments.out != "-" &&
         (arguments.puzzles.size() > 1 || arguments.out.ends_with('/') ||
          std::filesystem::is_directory(arguments.out, error));
}

// Where a fill goes: OUT, or in a folder OUT/name; the second and later fills
// of a puzzle get "-2" and so on.
std::string OutputPath(const Arguments& arguments, const std::string& name,
                       size_t fill) {
  namespace fs = std::filesystem;
  fs::path path = arguments.out;
  if (IntoFolder(arguments)) path /= fs::path(name).filename();
  if (fill == 0) return path.string();
  const std::string stem = path.stem().string();
  return path
      .replace_filename(stem + "-" + std::to_string(fill + 1) +
                        path.extension().string())
      .string();
}

void WriteFills(const Arguments& arguments, const std::string& name,
                const std::string& title, const Report& report) {
  for (size_t i = 0; i < report.fills.size(); ++i) {
    const std::string text = PuzzleText(title, report.fills[i].rows);
    if (arguments.out == "-")
      std::cout << text;
    else
      WriteFile(OutputPath(arguments, name, i), text);
  }
}

// The rows of each fill, when they go nowhere else.
void PrintFills(const Report& report) {
  for (const Result& fill : report.fills) {
    for (const std::string& row : fill.rows) std::cout << row << "\n";
    if (&fill != &report.fills.back()) std::cout << "\n";
  }
}

int RunPuzzle(const Arguments& arguments, const std::string& name,
              const WordList& words) {
  try {
    const Puzzle puzzle = ReadPuzzleOrGrid(name);
    const Report report = Run(arguments, RowsOf(puzzle), words);
    std::ostream& out = arguments.out == "-" ? std::cerr : std::cout;
    if (arguments.json)
      out << JsonOf(name, arguments, report) << std::endl;
    else
      out << LineOf(name, report) << std::endl;
    if (!arguments.out.empty())
      WriteFills(arguments, name, puzzle.title, report);
    else if (!arguments.json)
      PrintFills(report);
    return report.fills.size() < static_cast<size_t>(arguments.count)
               ? kNotCompleted
               : kDone;
  } catch (const FileError& error) {
    std::cerr << "kelda-cli: " << error.what() << std::endl;
  } catch (const std::invalid_argument& error) {
    std::cerr << "kelda-cli: " << name << ": " << error.what() << std::endl;
  }
  return kFileFailed;
}

// No puzzle's fill may take the place of another's.
void PrepareFolder(const Arguments& arguments) {
  namespace fs = std::filesystem;
  std::set<fs::path> names;
  for (const std::string& puzzle : arguments.puzzles) {
    const fs::path name = fs::path(puzzle).filename();
    if (!names.insert(name).second)
      throw FileError(arguments.out + ": two puzzles have the name " +
                      name.string());
  }
  std::error_code error;
  fs::create_directories(arguments.out, error);
  if (!fs::is_directory(arguments.out, error))
    throw FileError(arguments.out + ": no folder can be made here");
}

int RunAutofill(const Arguments& arguments) {
  std::signal(SIGINT, [](int) { interrupted = 1; });
  const WordList words = LoadLists(arguments.lists);
  if (!arguments.out.empty() && IntoFolder(arguments)) PrepareFolder(arguments);
  int status = kDone;
  for (const std::string& puzzle : arguments.puzzles) {
    status =
        std::max(status, interrupted ? static_cast<int>(kNotCompleted)
                                     : RunPuzzle(arguments, puzzle, words));
  }
  return status;
}

void AddOptions(CLI::App& command, Arguments& arguments) {
  autofill::Options& options = arguments.options;
  command
      .add_option("PUZZLE", arguments.puzzles,
                  "Puzzle files, or rows of a grid")
      ->required();
  AddListOption(command, arguments.lists);
  command.add_option("--time", options.seconds, "Seconds for each puzzle")
      ->check(CLI::Range(0.0, 1e6))
      ->capture_default_str();
  command.add_option("--threads", options.threads, "Threads (0: all cores)")
      ->check(CLI::Range(0, 1024))
      ->capture_default_str();
  command
      .add_option("--seed", options.seed,
                  "Another seed finds another fill, the same one the same")
      ->capture_default_str();
  CLI::Option* best = command.add_flag(
      "--best", arguments.best,
      "Raise the lowest score as far as it goes, and prove it");
  command.add_option("--count", arguments.count, "So many fills, best first")
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
  command.add_option("-o,--output", arguments.out,
                     "Puzzle file to write, or a folder; with several puzzles "
                     "always a folder");
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
