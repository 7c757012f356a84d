// Pages as files: what draws on a canvas, made into a PDF, SVG or PNG file.
//
// The files are made in memory.  A QGuiApplication must be there, for the
// fonts.

#pragma once

#include <memory>
#include <string>

#include "base/canvas.h"

class QPagedPaintDevice;

// A sheet of paper and the part of it that can be printed on, in twips.
struct Paper {
  int width = 0, height = 0;
  int left = 720, top = 720, right = 720, bottom = 720;  // margins
};

inline constexpr Paper kA4{11906, 16838};
inline constexpr Paper kLetter{12240, 15840};

// A PDF file in the making.
class PdfDocument {
 public:
  // The title is the document's name, in UTF-8.
  PdfDocument(const Paper& paper, std::string_view title);
  ~PdfDocument();

  Canvas& Pages();
  // Ends the document and returns the bytes of the file.
  std::string Finish();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

// Paints pages on a device of any resolution, whose layout is set to the
// paper's.
void PaintPages(QPagedPaintDevice& device, const Paper& paper,
                const DrawPages& draw);

// Each returns the bytes of a file.  A PDF file has the pages one after
// another, the others one below the other in a single picture.
std::string PagesAsPdf(const Paper& paper, std::string_view title,
                       const DrawPages& draw);
std::string PagesAsSvg(const Paper& paper, std::string_view title,
                       const DrawPages& draw);
std::string PagesAsPng(const Paper& paper, const DrawPages& draw);
