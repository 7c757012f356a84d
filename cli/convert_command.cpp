// kelda-cli convert: a puzzle file as one of another format.

#include <iostream>

#include "cli/commands.h"
#include "cli/output.h"
#include "cli/puzzles.h"

namespace {

struct Options {
  std::string in, to;
  Output out;
  bool strict = false;
};

std::string FormatIds() {
  std::string ids;
  for (const Format* format : AllFormats())
    ids += (ids.empty() ? "" : ", ") + std::string(format->id);
  return ids;
}

std::string CheckFormat(const std::string& id) {
  return FindFormat(id) ? "" : "the formats are " + FormatIds();
}

int RunConvert(const Options& options) {
  const Format* format = options.to.empty() ? FormatOfName(options.out.name)
                                            : FindFormat(options.to);
  if (!format) {
    std::cerr << "kelda-cli: " << options.out.name
              << ": the name tells no format; choose one with --to: "
              << FormatIds() << "\n";
    return kWrongUsage;
  }
  const OpenedDocument opened = OpenPuzzleFile(options.in);
  const Document& document = opened.reading.document;
  if (const std::string why = format->Refusal(document); !why.empty()) {
    std::cerr << "kelda-cli: " << options.out.name << ": " << why << "\n";
    return kNotCompleted;
  }
  if (TellLosses(*format, document) && options.strict) {
    std::cerr << "kelda-cli: " << options.out.name << ": nothing was written\n";
    return kNotCompleted;
  }
  Write(options.out, format->Write(document));
  return kDone;
}

}  // namespace

void AddConvertCommand(CLI::App& app, int& status) {
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("convert", "Write a puzzle in another file format.");
  command->footer(
      "The format of IN is told by its content, that of OUT by its ending or\n"
      "by --to.  What OUT cannot hold is listed on standard error, a line\n"
      "each: lost: 3 circles, first at row 2, column 5\n"
      "Examples: kelda-cli convert puzzle.puz puzzle.ipuz\n"
      "          kelda-cli convert --strict puzzle.ipuz puzzle.jpz\n"
      "          kelda-cli convert puzzle.jpz - --to xd");
  command->add_option("IN", options->in, "Puzzle file")->required();
  command->add_option("OUT", options->out.name, "Puzzle file to write")
      ->required();
  command->add_flag("--force", options->out.force,
                    "Replace a write-protected file");
  command->add_option("--to", options->to, "Format of OUT: " + FormatIds())
      ->option_text("FORMAT")
      ->check(CheckFormat);
  command->add_flag("--strict", options->strict,
                    "Write nothing, and end with 1, when anything would be "
                    "lost");
  command->callback([options, &status] { status = RunConvert(*options); });
}
