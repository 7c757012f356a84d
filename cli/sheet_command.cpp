// kelda-cli sheet: the printed sheet, as text, as a file or on paper.

#include <iostream>

#include "base/utf8.h"
#include "cli/commands.h"
#include "cli/drawing_files.h"
#include "cli/output.h"
#include "cli/session.h"
#include "draw/qt_pages.h"
#include "draw/qt_printer.h"
#include "draw/qt_session.h"
#include "files/sheet.h"

namespace {

struct Options {
  std::string puzzle;
  Output output;
  std::string paper = "a4";
  bool gridOnly = false;
  bool text = false;
  bool print = false;
};

SheetMode ModeOf(const Options& options) {
  return options.gridOnly ? SheetMode::GridOnly : SheetMode::Full;
}

std::string SheetFile(const State& state, const Options& options,
                      FileKind kind) {
  const Paper& paper = options.paper == "a4" ? kA4 : kLetter;
  const DrawPages draw = [&](Canvas& canvas) {
    DrawSheet(state, ModeOf(options), canvas);
  };
  switch (kind) {
    case FileKind::Svg:
      return PagesAsSvg(paper, FromUnknown(state.Text5), draw);
    case FileKind::Png:
      return PagesAsPng(paper, draw);
    default:
      return PagesAsPdf(paper, FromUnknown(state.Text5), draw);
  }
}

int PrintSheet(CliSession& session, const Options& options) {
  const DrawingSession drawing;
  DefaultPrinter printer;
  return PrintPuzzle(session.state, session.host, printer, ModeOf(options))
             ? kDone
             : kNotCompleted;
}

int RunSheet(const Options& options) {
  CliSession session;
  session.OpenPuzzle(options.puzzle);
  if (options.print) return PrintSheet(session, options);
  if (options.output.name.empty() && options.gridOnly) {
    std::cerr << "kelda-cli: --grid-only leaves no lines of lists to print\n";
    return kWrongUsage;
  }
  if (options.output.name.empty()) {
    for (const std::string& line : ClueLines(session.state))
      std::cout << line << "\n";
    return kDone;
  }
  const FileKind kind = KindOf(options.output.name, FileKind::Pdf);
  const DrawingSession drawing;
  Write(options.output, SheetFile(session.state, options, kind));
  return kDone;
}

}  // namespace

void AddSheetCommand(CLI::App& app, int& status) {
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand(
      "sheet", "Draw the sheet that is printed: the grid and the clue lists.");
  command->footer(
      "Without -o, prints the lines of the clue lists.  An SVG or PNG file\n"
      "has further pages below the first.  No window or display is needed.\n"
      "Example: kelda-cli sheet puzzle.kdp -o puzzle.pdf --paper letter");
  command->add_option("PUZZLE", options->puzzle, "Puzzle file")->required();
  command->add_flag("--grid-only", options->gridOnly,
                    "Without clue numbers and lists");
  auto* kind = command->add_option_group("kind", "What becomes of the sheet");
  kind->add_option(
          AddOutput(*command, options->output,
                    "File to write: .pdf, .svg or .png; - is a PDF file on "
                    "standard output"))
      ->check(CheckKind({FileKind::Pdf, FileKind::Svg, FileKind::Png}));
  kind->add_flag("--text", options->text,
                 "Print the lines of the clue lists (the default)");
  kind->add_flag("--print", options->print, "Print on the default printer");
  kind->require_option(0, 1);
  command->add_option("--paper", options->paper, "a4 or letter")
      ->transform(CLI::IsMember({"a4", "letter"}, CLI::ignore_case))
      ->capture_default_str();
  command->callback([options, &status] { status = RunSheet(*options); });
}
