// The kinds of files that kelda-cli draws.

#pragma once

#include <CLI/CLI.hpp>
#include <initializer_list>
#include <string>

enum class FileKind { Pdf, Svg, Png, Bmp };

// The kind of file that a name ends in: "a.SVG"; "-" takes the fallback.
FileKind KindOf(const std::string& name, FileKind fallback);

// Checks that a file name is "-" or ends in one of some kinds.
CLI::Validator CheckKind(std::initializer_list<FileKind> kinds);
