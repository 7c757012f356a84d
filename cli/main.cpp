// kelda-cli: Kelda's operations for scripts, batch work and tests.

#include "cli/commands.h"

int main(int argc, char** argv) {
  CLI::App app("Makes and fills crossword puzzles.");
  app.require_subcommand(1);
  int status = kDone;
  CLI11_PARSE(app, argc, argv);
  return status;
}
