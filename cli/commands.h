// The sub-commands of kelda-cli, one file each.
//
// An Add function adds its sub-command with its options, help and example;
// when the sub-command was chosen its callback runs it and sets `status`.

#pragma once

#include <CLI/CLI.hpp>

// What kelda-cli ends with.
enum ExitStatus {
  kDone = 0,
  kNotCompleted = 1,  // refused, or not completed
  kWrongUsage = 2,
  kFileFailed = 3,  // a file cannot be read or written
};

void AddFillCommand(CLI::App& app, int& status);
void AddLayoutCommand(CLI::App& app, int& status);
void AddCheckCommand(CLI::App& app, int& status);
void AddSplitCommand(CLI::App& app, int& status);
void AddInspectCommand(CLI::App& app, int& status);
void AddFindCommand(CLI::App& app, int& status);
void AddMatchCommand(CLI::App& app, int& status);
void AddWordsCommand(CLI::App& app, int& status);
void AddUnpackCommand(CLI::App& app, int& status);
void AddAutofillCommand(CLI::App& app, int& status);
void AddSuggestCommand(CLI::App& app, int& status);
void AddSheetCommand(CLI::App& app, int& status);
void AddPictureCommand(CLI::App& app, int& status);
void AddConvertCommand(CLI::App& app, int& status);
void AddInfoCommand(CLI::App& app, int& status);
void AddPageCommand(CLI::App& app, int& status);
void AddReviewCommand(CLI::App& app, int& status);
