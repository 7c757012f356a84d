// kelda-cli inspect: what the program derives from a grid.

#include <iostream>

#include "cli/commands.h"
#include "cli/session.h"
#include "grid/masks.h"
#include "grid/slots.h"
#include "solver/census.h"

namespace {

struct Options {
  std::string what;
  std::string puzzle;
  std::string list = "2";
};

int PrintSlotRows(CliSession& session) {
  for (const SlotRow& row : session.state.List2.Read<SlotRow>())
    std::cout << row.Text() << "\n";
  return kDone;
}

int InspectSlots(CliSession& session) {
  BuildSlotList(session.state, session.host);
  return PrintSlotRows(session);
}

int InspectMasks(CliSession& session) {
  BuildMaskList(session.state);
  return PrintSlotRows(session);
}

int InspectNumbers(CliSession& session) {
  const State& state = session.state;
  ForEachCell(state.GridSize, [&](Pos p) {
    if (const int number = state.CellNumbers[p.row][p.col])
      std::cout << p.Text() << " " << number << "\n";
  });
  return kDone;
}

int InspectCrossings(CliSession& session) {
  const SlotTable& slots = session.state.SlotCells;
  const int count = static_cast<int>(slots.Slots().size());
  for (int i = 0; i < count; ++i)
    std::cout << slots.Slots()[i].Text() << ": " << slots.CrossingCellsText(i)
              << "\n";
  return kDone;
}

int InspectCriticality(CliSession& session) {
  session.host.output = &std::cerr;
  const bool complete = TakeCensus(session.state, session.words, session.host);
  for (const CensusRow& row : session.state.List3.Read<CensusRow>())
    std::cout << row.Text() << "\n";
  return complete ? kDone : kNotCompleted;
}

int InspectGauge(CliSession& session) {
  std::cout << session.state.GaugeWidth << "\n";
  return kDone;
}

const std::map<std::string, int (*)(CliSession&)> kViews = {
    {"slots", InspectSlots},
    {"masks", InspectMasks},
    {"numbers", InspectNumbers},
    {"crossings", InspectCrossings},
    {"criticality", InspectCriticality},
    {"gauge", InspectGauge},
};

int RunInspect(const Options& options) {
  CliSession session;
  if (options.what == "criticality") session.LoadWords(options.list);
  session.OpenPuzzle(options.puzzle);
  return kViews.at(options.what)(session);
}

}  // namespace

void AddInspectCommand(CLI::App& app, int& status) {
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand(
      "inspect", "Print what is derived from a puzzle's grid.");
  command->footer("Example: kelda-cli inspect masks puzzle.kdp");
  command
      ->add_option("WHAT", options->what,
                   "slots, masks, numbers, crossings, criticality or gauge")
      ->required()
      ->check(CLI::IsMember(kViews));
  command->add_option("PUZZLE", options->puzzle, "Puzzle file")->required();
  command
      ->add_option("-d,--dictionary", options->list,
                   "Word list for criticality: a file, or 1, 2 or 3")
      ->capture_default_str();
  command->callback([options, &status] { status = RunInspect(*options); });
}
