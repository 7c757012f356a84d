// The port through which files of the puzzle are made and its pages shown.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/canvas.h"

class Paint;

// What a picture of the puzzle is made as.
enum class PictureKind { Png, Svg, Bmp };

struct PictureChoice {
  PictureKind kind = PictureKind::Png;
  double scale = 1;  // 1 is as on the screen
  bool letters = true;
};

// Makes files of the puzzle and shows its pages.
class Publisher {
 public:
  virtual ~Publisher() = default;

  // The bytes of a PDF file, on the paper that the user usually prints on.
  virtual std::string Pdf(std::string_view title, const DrawPages& draw) = 0;
  // Asks what a picture is to be like; nothing when cancelled.
  virtual std::optional<PictureChoice> AskPicture(int gridSize) = 0;
  // The bytes of a picture file, with a title (UTF-8) where it can have one.
  virtual std::string PictureFile(const Paint& paint, std::string_view title,
                                  const PictureChoice& choice) = 0;
  // Shows pages until the user has seen enough; returns whether they are to
  // be printed.
  virtual bool Preview(const DrawPages& draw) = 0;
};
