// kelda-cli picture: the grid as a picture file.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "cli/commands.h"
#include "cli/drawing_files.h"
#include "cli/output.h"
#include "cli/puzzles.h"
#include "draw/qt_picture_file.h"
#include "draw/qt_session.h"

namespace {

struct Options {
  std::string puzzle;
  Output output;
  double scale = 1;
  bool blank = false;
};

PictureKind PictureKindOf(const std::string& name) {
  switch (KindOf(name, FileKind::Png)) {
    case FileKind::Bmp:
      return PictureKind::Bmp;
    case FileKind::Svg:
      return PictureKind::Svg;
    default:
      return PictureKind::Png;
  }
}

// A scale that some picture can have.
std::string CheckScale(const std::string& text) {
  double scale = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, scale);
  // No comparison holds for what is not a number.
  const bool fits =
      error == std::errc() && rest == end && scale >= kLeastPictureScale;
  return fits ? "" : text + ": a scale is a number from 0.1";
}

int RunPicture(const Options& options) {
  const Document document = OpenPuzzleFile(options.puzzle).reading.document;
  const double largest =
      LargestPictureScale(std::max(document.width, document.height));
  if (options.scale > largest) {
    std::fprintf(stderr,
                 "kelda-cli: --scale: this puzzle's picture can be drawn at a "
                 "scale of %g to %.1f\n",
                 kLeastPictureScale, std::floor(largest * 10) / 10);
    return kWrongUsage;
  }
  const DrawingSession drawing;
  Write(options.output,
        PictureFile(PaintOf(document, !options.blank), document.title,
                    {PictureKindOf(options.output.name), options.scale}));
  return kDone;
}

}  // namespace

void AddPictureCommand(CLI::App& app, int& status) {
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("picture", "Draw the grid as a picture.");
  command->footer(
      "No window or display is needed.\n"
      "Example: kelda-cli picture puzzle.kdp -o puzzle.png --scale 3 --blank");
  command->add_option("PUZZLE", options->puzzle, "Puzzle file")->required();
  AddOutput(*command, options->output,
            "File to write: .bmp, .png or .svg; - is a PNG file on standard "
            "output")
      ->required()
      ->check(CheckKind({FileKind::Bmp, FileKind::Png, FileKind::Svg}));
  command
      ->add_option("--scale", options->scale,
                   "How large: 1 is 28 pixels to a cell, as on the screen")
      ->check(CLI::Validator(CheckScale, ""))
      ->capture_default_str();
  command->add_flag("--blank", options->blank,
                    "Without letters, with clue numbers");
  command->callback([options, &status] { status = RunPicture(*options); });
}
