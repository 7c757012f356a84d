// kelda-cli page: a puzzle as a page that any browser plays.

#include "cli/commands.h"
#include "cli/output.h"
#include "files/format.h"
#include "files/page.h"

namespace {

struct Options {
  std::string puzzle;
  Output out;
};

int RunPage(const Options& options) {
  const OpenedDocument opened = ReadDocument(options.puzzle);
  Write(options.out, PlayablePage(opened.reading.document));
  return kDone;
}

}  // namespace

void AddPageCommand(CLI::App& app, int& status) {
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand(
      "page", "Make a page that plays the puzzle in any browser, offline.");
  command->footer(
      "The page is one HTML file that asks nothing of the network.  Its\n"
      "answers are covered, not encrypted.\n"
      "Example: kelda-cli page puzzle.ipuz -o puzzle.html");
  command->add_option("PUZZLE", options->puzzle, "Puzzle file")->required();
  AddOutput(*command, options->out, "Page to write; - is standard output")
      ->required();
  command->callback([options, &status] { status = RunPage(*options); });
}
