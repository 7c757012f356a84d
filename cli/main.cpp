// kelda-cli: Kelda's operations for scripts, batch work and tests.

#include <csignal>
#include <iostream>
#include <new>

#include "base/file_error.h"
#include "cli/commands.h"
#include "cli/session.h"

namespace {

int Run(int argc, char** argv) {
  CLI::App app("Makes, checks and fills crossword puzzles.");
  app.require_subcommand(1);
  app.set_version_flag("--version", "Kelda " KELDA_VERSION);
  app.footer(
      "A file name of - is standard input or output, so commands chain:\n"
      "  kelda-cli layout 2x2 --size 15 | kelda-cli check -\n"
      "Puzzle files may be .ipuz, .jpz, .puz, .xd, Across Lite text or .kdp.\n"
      "Each command tells more: kelda-cli fill --help\n"
      "Exit status: 0 done, 1 refused or not completed, 2 wrong usage,\n"
      "3 a file cannot be read or written.");
  int status = kDone;
  AddFillCommand(app, status);
  AddLayoutCommand(app, status);
  AddCheckCommand(app, status);
  AddSplitCommand(app, status);
  AddInspectCommand(app, status);
  AddFindCommand(app, status);
  AddMatchCommand(app, status);
  AddWordsCommand(app, status);
  AddUnpackCommand(app, status);
  AddAutofillCommand(app, status);
  AddSuggestCommand(app, status);
  AddSheetCommand(app, status);
  AddPictureCommand(app, status);
  AddConvertCommand(app, status);
  AddInfoCommand(app, status);
  AddPageCommand(app, status);
  AddReviewCommand(app, status);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kWrongUsage;
  }
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  // A file that gets too large is a write that fails.
  std::signal(SIGXFSZ, SIG_IGN);
  try {
    const int status = Run(argc, argv);
    std::cout.flush();
    if (std::cout) return status;
    std::cerr << "kelda-cli: standard output cannot be written\n";
  } catch (const Refusal& refusal) {
    std::cerr << "kelda-cli: " << refusal.what() << "\n";
    return kNotCompleted;
  } catch (const FileError& error) {
    std::cerr << "kelda-cli: " << error.what() << "\n";
  } catch (const std::bad_alloc&) {
    std::cerr << "kelda-cli: there is not enough memory\n";
  }
  return kFileFailed;
}
