// The files that kelda-cli draws: their kinds, and writing them.

#pragma once

#include <CLI/CLI.hpp>
#include <initializer_list>
#include <string>
#include <string_view>

enum class FileKind { Pdf, Svg, Png, Bmp };

// The kind of file that a name ends in: "a.SVG"; "-" takes the fallback.
FileKind KindOf(const std::string& name, FileKind fallback);

// Checks that a file name is "-" or ends in one of some kinds.
CLI::Validator CheckKind(std::initializer_list<FileKind> kinds);

// Writes a file; "-" is standard output.
void WriteOutput(const std::string& name, std::string_view content);
