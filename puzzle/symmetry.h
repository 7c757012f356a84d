// Symmetries of a grid: which cells change together with one.

#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "puzzle/document.h"

struct SymmetryName {
  Symmetry symmetry;
  std::string_view id;    // "half-turn", as files and commands write it
  std::string_view text;  // "half turn"
};
std::span<const SymmetryName> AllSymmetries();
const SymmetryName& NameOf(Symmetry symmetry);
// The symmetry of an id, or nothing.
std::optional<Symmetry> FindSymmetry(std::string_view id);

// Whether grids of a shape can have it: turns by a quarter and diagonals need
// a square.
bool Suits(Symmetry symmetry, int width, int height);

// A cell and its images, each once, the cell first.  A symmetry that does not
// suit the shape has no images.
std::vector<Pos> Images(Symmetry symmetry, int width, int height, Pos cell);

// The cells whose kind differs from that of an image; none where the layout
// has the symmetry.
std::vector<Pos> Asymmetries(const Document& document, Symmetry symmetry);
