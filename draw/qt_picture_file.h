// Pictures of the puzzle as files, at any size.
//
// A QGuiApplication must be there, for the fonts.

#pragma once

#include <string>

#include "files/publisher.h"
#include "puzzle/paint.h"

// The pixels of a picture's side at a scale: 15 twips to a pixel at 1.
int PicturePixels(int gridSize, double scale);

inline constexpr double kLeastPictureScale = 0.1;
// The largest scale at which a picture is still drawn.
double LargestPictureScale(int gridSize);

// The bytes of a picture file, an SVG file with a title (UTF-8).  The scale is
// within the two limits.
std::string PictureFile(const Paint& paint, std::string_view title,
                        const PictureChoice& choice);
