// Pages as files: what draws on a canvas, made into a PDF, SVG or PNG file.
//
// The files are made in memory.  A QGuiApplication must be there, for the
// fonts.

#pragma once

#include <functional>
#include <string>

#include "grid/ports.h"

// A sheet of paper and the part of it that can be printed on, in twips.
struct Paper {
  int width = 0, height = 0;
  int left = 720, top = 720, right = 720, bottom = 720;  // margins
};

inline constexpr Paper kA4{11906, 16838};
inline constexpr Paper kLetter{12240, 15840};

using DrawPages = std::function<void(Canvas&)>;

// Each returns the bytes of a file.  A PDF file has the pages one after
// another, the others one below the other in a single picture.  The title is
// the document's name, in ISO 8859-1.
std::string PagesAsPdf(const Paper& paper, std::string_view title,
                       const DrawPages& draw);
std::string PagesAsSvg(const Paper& paper, std::string_view title,
                       const DrawPages& draw);
std::string PagesAsPng(const Paper& paper, const DrawPages& draw);
