// The file that a command writes: its options, and writing it.

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>

struct Output {
  std::string name;    // "" for none, "-" for standard output
  bool force = false;  // replaces a write-protected file
};

// Adds -o, --output and --force to a command; returns the first.
CLI::Option* AddOutput(CLI::App& command, Output& output,
                       const std::string& description);

// Writes the file, which must have a name.  Throws FileError.
void Write(const Output& output, std::string_view content);
