// kelda-cli info: what a puzzle file holds.

#include <cstdio>
#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "files/format.h"
#include "puzzle/statistics.h"

namespace {

struct Options {
  std::string puzzle;
  bool json = false;
};

void PrintJson(const OpenedDocument& opened, const Statistics& counts) {
  const Document& document = opened.reading.document;
  nlohmann::ordered_json lengths = nlohmann::ordered_json::object();
  for (const auto& [length, count] : counts.lengths)
    lengths[std::to_string(length)] = count;
  const nlohmann::ordered_json json = {
      {"title", document.title},
      {"author", document.author},
      {"width", document.width},
      {"height", document.height},
      {"words", counts.words},
      {"meanLength", counts.meanLength},
      {"lengths", lengths},
      {"cells", counts.whites},
      {"blocks", counts.blocks},
      {"holes", counts.holes},
      {"bars", counts.bars},
      {"circles", counts.circles},
      {"shades", counts.shades},
      {"givens", counts.givens},
      {"filled", counts.filled},
      {"letters", counts.letters},
      {"clues", counts.clues},
      {"format", opened.format->id},
      {"passedOver", opened.reading.passedOver}};
  std::cout << json.dump(2) << "\n";
}

std::string LettersText(const Statistics& counts) {
  std::string text = std::to_string(counts.filled) + " of " +
                     std::to_string(counts.whites) + " cells";
  std::string separator = ": ";
  for (const auto& [letters, count] : counts.letters) {
    text += separator + letters + " " + std::to_string(count);
    separator = ", ";
  }
  return text;
}

void PrintText(const OpenedDocument& opened, const Statistics& counts) {
  const Document& document = opened.reading.document;
  char mean[32];
  std::snprintf(mean, sizeof mean, "%.2f", counts.meanLength);
  std::cout << "Title: " << document.title << "\n"
            << "Author: " << document.author << "\n"
            << "Size: " << document.width << " x " << document.height << "\n"
            << "Words: " << counts.words << ", mean length " << mean << "\n"
            << "Blocks: " << counts.blocks << "\n"
            << "Holes: " << counts.holes << "\n"
            << "Bars: " << counts.bars << "\n"
            << "Circles: " << counts.circles << "\n"
            << "Shades: " << counts.shades << "\n"
            << "Given letters: " << counts.givens << "\n"
            << "Letters: " << LettersText(counts) << "\n"
            << "Clues: " << counts.clues << " of " << counts.words << "\n"
            << "Format: " << opened.format->name << "\n";
  for (const std::string& text : opened.reading.passedOver)
    std::cout << "Passed over: " << text << "\n";
}

int RunInfo(const Options& options) {
  const OpenedDocument opened = ReadDocument(options.puzzle);
  const Statistics counts = CountStatistics(opened.reading.document);
  (options.json ? PrintJson : PrintText)(opened, counts);
  return kDone;
}

}  // namespace

void AddInfoCommand(CLI::App& app, int& status) {
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("info", "Tell what a puzzle file holds.");
  command->footer(
      "What was off or could not be kept when the file was read is told as\n"
      "passed over.\n"
      "Example: kelda-cli info puzzle.ipuz --json");
  command->add_option("PUZZLE", options->puzzle, "Puzzle file")->required();
  command->add_flag("--json", options->json, "Print a JSON object");
  command->callback([options, &status] { status = RunInfo(*options); });
}
