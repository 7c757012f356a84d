// kelda-cli check: whether a layout can be filled.

#include <iostream>
#include <sstream>

#include "cli/commands.h"
#include "cli/session.h"
#include "layout/check_grid.h"

namespace {

// How the check has painted a cell, or nothing.
const char* PaintName(Colour colour) {
  if (colour == ColourBackground || colour == ColourBlackSquare) return nullptr;
  if (colour == ColourDivides) return "red";
  if (colour == ColourBadLength) return "length";
  if (colour == ColourUncrossed) return "cyan";
  return "shaded";
}

int RunCheck(const std::string& puzzle) {
  CliSession session;
  session.OpenPuzzle(puzzle);
  std::ostringstream message;
  session.host.output = &message;
  const CheckStatus result = CheckGrid(session.state, session.host, false);
  ForEachCell(session.state.GridSize, [&](Pos cell) {
    if (const char* name = PaintName(session.state.paint[cell].fill))
      std::cout << cell.Text() << " " << name << "\n";
  });
  std::cout << message.str() << "Status " << result << "\n";
  return result == kCheckOk ? kDone : kNotCompleted;
}

}  // namespace

void AddCheckCommand(CLI::App& app, int& status) {
  auto puzzle = std::make_shared<std::string>();
  CLI::App* command = app.add_subcommand(
      "check", "Check whether a layout of black squares can be filled.");
  command->footer(
      "Prints the cells with problems, a message and the status: 0 sound,\n"
      "1 words too short or too long, 2 uncrossed cells, 3 cells shut in,\n"
      "4 a divided grid.  The file is not changed.\n"
      "Example: kelda-cli check layout.kdp");
  command->add_option("PUZZLE", *puzzle, "Puzzle file")->required();
  command->callback([puzzle, &status] { status = RunCheck(*puzzle); });
}
