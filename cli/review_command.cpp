// kelda-cli review: what breaks house rules, and what an editor would ask.

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>

#include "base/text_file.h"
#include "cli/autofill_lists.h"
#include "cli/commands.h"
#include "dictionary/levels.h"
#include "files/format.h"
#include "puzzle/review.h"

namespace {

struct Options {
  std::string puzzle;
  std::string rules = "free";
  std::vector<std::string> lists;
  bool json = false;
};

// A file, or the name of a rule set that is shipped: "mini".
RuleSet LoadRules(const std::string& name) {
  std::error_code error;
  const std::string path = std::filesystem::exists(name, error)
                               ? name
                               : LevelFilePath("rules/" + name + ".json");
  try {
    return ReadRules(ReadFile(path));
  } catch (const RuleError& fault) {
    throw FileError(path + ": " + fault.what());
  }
}

nlohmann::ordered_json JsonOf(const Finding& finding) {
  nlohmann::ordered_json cells = nlohmann::ordered_json::array();
  for (const Pos cell : finding.cells)
    cells.push_back({{"row", cell.row}, {"col", cell.col}});
  const bool broken = finding.severity == Finding::Severity::Broken;
  return {{"severity", broken ? "broken" : "warning"},
          {"rule", finding.rule},
          {"text", finding.text},
          {"cells", cells},
          {"entries", finding.entries}};
}

int RunReview(const Options& options) {
  const RuleSet rules = LoadRules(options.rules);
  const WordList words = LoadLists(options.lists);
  const OpenedDocument opened = ReadDocument(options.puzzle);
  const auto findings =
      Review(opened.reading.document, rules,
             [&](std::string_view word) { return words.ScoreOf(word); });
  for (const Finding& finding : findings) {
    if (options.json)
      std::cout << JsonOf(finding) << "\n";
    else
      std::cout << finding.Line() << "\n";
  }
  const bool broken = std::ranges::any_of(findings, [](const Finding& f) {
    return f.severity == Finding::Severity::Broken;
  });
  return broken ? kNotCompleted : kDone;
}

}  // namespace

void AddReviewCommand(CLI::App& app, int& status) {
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("review", "Tell which house rules a puzzle breaks.");
  command->footer(
      "A line for each finding: broken mostWords: 79 words, 1 more than 78\n"
      "Rule sets: american-daily-15, american-sunday-21, british-lattice,\n"
      "mini, free, or a JSON file of your own.  Exit status 1 when a rule is\n"
      "broken.\n"
      "Example: kelda-cli review puzzle.ipuz --rules american-daily-15");
  command->add_option("PUZZLE", options->puzzle, "Puzzle file")->required();
  command
      ->add_option("--rules", options->rules, "Rule set: a name or a JSON file")
      ->capture_default_str();
  AddListOption(*command, options->lists);
  command->add_flag("--json", options->json, "A JSON object for each finding");
  command->callback([options, &status] { status = RunReview(*options); });
}
