#include "cli/output.h"

#include <iostream>

#include "base/write_file.h"

CLI::Option* AddOutput(CLI::App& command, Output& output,
                       const std::string& description) {
  CLI::Option* option =
      command.add_option("-o,--output", output.name, description);
  command.add_flag("--force", output.force, "Replace a write-protected file")
      ->needs(option);
  return option;
}

void Write(const Output& output, std::string_view content) {
  if (output.name == "-") {
    std::cout << content;
    return;
  }
  try {
    WriteFile(output.name, content, {.replaceProtected = output.force});
  } catch (const FileIsProtected& error) {
    throw FileError(std::string(error.what()) + "; --force replaces it");
  }
}
