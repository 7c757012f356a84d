// kelda-cli suggest: the words that still fit an entry.

#include <cctype>
#include <iostream>
#include <nlohmann/json.hpp>

#include "autofill/autofill.h"
#include "cli/autofill_lists.h"
#include "cli/commands.h"
#include "cli/puzzles.h"

namespace {

struct Arguments {
  std::string puzzle;
  std::string entry;
  std::vector<std::string> lists;
  int limit = 20;
  bool json = false;
};

int RunSuggest(const Arguments& arguments) {
  const autofill::Problem problem =
      autofill::ProblemOf(OpenPuzzleFile(arguments.puzzle).reading.document);
  const WordList words = LoadLists(arguments.lists);
  autofill::Suggestions found;
  try {
    found = Suggest(problem, words, {}, arguments.entry, arguments.limit);
  } catch (const std::invalid_argument& error) {
    std::cerr << "kelda-cli: " << arguments.puzzle << ": " << error.what()
              << "\n";
    return kNotCompleted;
  }
  if (arguments.json) {
    nlohmann::ordered_json json = {{"entry", arguments.entry},
                                   {"count", found.count},
                                   {"why", found.why},
                                   {"words", nlohmann::json::array()}};
    for (const autofill::Suggestion& word : found.words)
      json["words"].push_back({{"word", word.word},
                               {"score", word.score},
                               {"choices", word.choices}});
    std::cout << json << "\n";
  } else {
    for (const autofill::Suggestion& word : found.words)
      std::cout << word.word << " " << word.score << " " << word.choices
                << "\n";
    if (!found.why.empty()) std::cerr << found.why << "\n";
  }
  return found.words.empty() ? kNotCompleted : kDone;
}

}  // namespace

void AddSuggestCommand(CLI::App& app, int& status) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand(
      "suggest", "List the words that still fit an entry, best first.");
  command->footer(
      "Each line has a word, its score, and how many words it leaves the\n"
      "crossing that has the fewest.\n"
      "Example: kelda-cli suggest puzzle.kdp 17A -w words.txt --limit 50");
  command
      ->add_option("PUZZLE", arguments->puzzle,
                   "Puzzle file, or rows of a grid")
      ->required();
  command->add_option("ENTRY", arguments->entry, "Clue, for example 17A")
      ->required()
      ->transform([](std::string text) {
        for (char& c : text) c = static_cast<char>(std::toupper(c));
        return text;
      });
  AddListOption(*command, arguments->lists);
  command->add_option("--limit", arguments->limit, "Words to list at most")
      ->check(CLI::Range(1, 1000000))
      ->capture_default_str();
  command->add_flag("--json", arguments->json, "As a JSON object");
  command->callback([arguments, &status] { status = RunSuggest(*arguments); });
}
