// What the commands of kelda-cli share that draw: the kinds of files, and the
// drawing library, which is started only when a command draws.

#pragma once

#include <CLI/CLI.hpp>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

class QGuiApplication;

enum class FileKind { Pdf, Svg, Png, Bmp };

// The kind of file that a name ends in: "a.SVG"; "-" takes the fallback.
FileKind KindOf(const std::string& name, FileKind fallback);

// Checks that a file name is "-" or ends in one of some kinds.
CLI::Validator CheckKind(std::initializer_list<FileKind> kinds);

// Writes a file; "-" is standard output.
void WriteOutput(const std::string& name, std::string_view content);

// Fonts and painting without a display, while this lives.
class DrawingSession {
 public:
  DrawingSession();
  ~DrawingSession();

 private:
  std::unique_ptr<QGuiApplication> application_;
};
